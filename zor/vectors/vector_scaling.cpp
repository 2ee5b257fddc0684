#include <cmath>

#include "zor/kernels/elementwise.h"
#include "zor/runtime/random.h"
#include "zor/scalar/random_deviates.h"
#include "zor/vectors/vector.h"

namespace ZOR_vector {

namespace kernels = zor::kernels;

Double TVector::MeanCenter() {
  Double mean = 0.0, variance = 0.0;
  MeanVar(1, NrOfElem(), mean, variance);
  kernels::shift(cells(), -mean);
  return mean;
}

void TVector::Standardize(Double& mean, Double& stddev) {
  Double variance = 0.0;
  MeanVar(1, NrOfElem(), mean, variance);
  stddev = std::sqrt(variance);
  if (stddev > 0.0) kernels::shift_scale(cells(), mean, stddev);
}

void TVector::QNormalize(Double RefQuant, Double& Median, Double& QuantDiff) {
  const Double reference = Percentile(RefQuant, 0, 0);
  Median = Percentile(50.0, 0, 0);
  QuantDiff = std::abs(Median - reference);
  if (QuantDiff > 0.0) kernels::shift_scale(cells(), Median, QuantDiff);
}

void TVector::FillRandomUniform(Double RangeLow, Double RangeHigh) {
  zor::detail::fill_random(cells(), RangeLow, RangeHigh - RangeLow);
  FIsEmpty = false;
  Changed();
}

void TVector::FillRandomGauss(Double Mean, Double StdDev) {
  zor::detail::fill_gauss(cells(), Mean, StdDev);
  FIsEmpty = false;
  Changed();
}

}  // namespace ZOR_vector

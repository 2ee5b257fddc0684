#include <cmath>

#include "zor/kernels/elementwise.h"
#include "zor/runtime/random.h"
#include "zor/scalar/random_deviates.h"
#include "zor/vectors/vector.h"

namespace ZOR_vector {

namespace kernels = zor::kernels;

template <Cell T>
Double BasicVector<T>::MeanCenter()
  requires RealCell<T>
{
  Double mean = 0.0, variance = 0.0;
  MeanVar(1, NrOfElem(), mean, variance);
  kernels::shift(cells(), -mean);
  return mean;
}

template <Cell T>
void BasicVector<T>::Standardize(Double& mean, Double& stddev)
  requires RealCell<T>
{
  Double variance = 0.0;
  MeanVar(1, NrOfElem(), mean, variance);
  stddev = std::sqrt(variance);
  if (stddev > 0.0) kernels::shift_scale(cells(), mean, stddev);
}

template <Cell T>
void BasicVector<T>::QNormalize(Double RefQuant, Double& Median, Double& QuantDiff)
  requires RealCell<T>
{
  const Double reference = Percentile(RefQuant, 0, 0);
  Median = Percentile(50.0, 0, 0);
  QuantDiff = std::abs(Median - reference);
  if (QuantDiff > 0.0) kernels::shift_scale(cells(), Median, QuantDiff);
}

template <Cell T>
void BasicVector<T>::FillRandomUniform(Double RangeLow, Double RangeHigh)
  requires RealCell<T>
{
  zor::detail::fill_random(cells(), RangeLow, RangeHigh - RangeLow);
  FIsEmpty = false;
  Changed();
}

template <Cell T>
void BasicVector<T>::FillRandomGauss(Double Mean, Double StdDev)
  requires RealCell<T>
{
  zor::detail::fill_gauss(cells(), Mean, StdDev);
  FIsEmpty = false;
  Changed();
}

template Double BasicVector<Double>::MeanCenter();
template void BasicVector<Double>::Standardize(Double&, Double&);
template void BasicVector<Double>::QNormalize(Double, Double&, Double&);
template void BasicVector<Double>::FillRandomUniform(Double, Double);
template void BasicVector<Double>::FillRandomGauss(Double, Double);

}  // namespace ZOR_vector

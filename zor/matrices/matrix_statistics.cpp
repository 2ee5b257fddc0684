#include <algorithm>
#include <cmath>

#include "zor/base/ZOR_univconst.h"
#include "zor/kernels/elementwise.h"
#include "zor/kernels/extremes.h"
#include "zor/kernels/moments.h"
#include "zor/kernels/sums.h"
#include "zor/matrices/heap_guard_internal.h"
#include "zor/matrices/matrix.h"
#include "zor/vectors/statistics_internal.h"

namespace ZOR_matrix {

namespace kernels = zor::kernels;

template <Cell T>
Double BasicMatrix<T>::Sum(Integer LoC, Integer LoR, Integer HiC, Integer HiR) const
  requires RealCell<T>
{
  Double sum = 0.0;
  for_columns(columns(LoC, HiC), rows(LoR, HiR),
              [&](std::span<const T> column) { sum = kernels::sum_in_order(column, sum); });
  return sum;
}

template <Cell T>
void BasicMatrix<T>::MeanVar(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Mean,
                             Double& Variance) const
  requires RealCell<T>
{
  kernels::MomentSums sums;
  for_columns(columns(LowCol, HighCol), rows(LowRow, HighRow),
              [&](std::span<const T> column) { kernels::accumulate(sums, column); });
  const kernels::MeanVar result = kernels::mean_variance(sums);
  Mean = result.mean;
  Variance = result.n < 3 ? 1.0 : result.variance;
}

template <Cell T>
void BasicMatrix<T>::MinMax(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Minimum,
                            Double& Maximum) const
  requires RealCell<T>
{
  kernels::Extremes<Double> extremes{ZOR_univconst::uc_MaxReal, -ZOR_univconst::uc_MaxReal};
  for_columns(columns(LowCol, HighCol), rows(LowRow, HighRow),
              [&](std::span<const T> column) { kernels::min_max(column, extremes); });
  Minimum = extremes.minimum;
  Maximum = extremes.maximum;
}

template <Cell T>
Double BasicMatrix<T>::GeometricMean(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) const
  requires RealCell<T>
{
  const Bounds cols = columns(LowCol, HighCol), within = rows(LowRow, HighRow);
  Boolean zero = false;
  Double logarithms = 0.0;
  for_columns(cols, within, [&](std::span<const T> column) {
    for (const T x : column) {
      if (x < 0) zor::detail::Fail<EZORMatrixError>(*this, "negative argument passed to GeometricMean");
      if (x == 0) {
        zero = true;
      } else {
        logarithms += std::log(x);
      }
    }
  });
  if (zero) return 0.0;
  return std::exp(logarithms / static_cast<Double>(within.size()) / static_cast<Double>(cols.size()));
}

template <Cell T>
Double BasicMatrix<T>::HarmonicMean(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) const
  requires RealCell<T>
{
  const Bounds cols = columns(LowCol, HighCol), within = rows(LowRow, HighRow);
  Double reciprocals = 0.0;
  for_columns(cols, within, [&](std::span<const T> column) {
    for (const T x : column) {
      if (x <= 0) zor::detail::Fail<EZORMatrixError>(*this, "negative or zero argument passed to HarmonicMean");
      reciprocals += 1.0 / x;
    }
  });
  return static_cast<Double>(cols.size()) * static_cast<Double>(within.size()) / reciprocals;
}

template <Cell T>
void BasicMatrix<T>::SkewKurt(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Skewness,
                              Double& Kurtosis) const
  requires RealCell<T>
{
  const Bounds cols = columns(LowCol, HighCol), within = rows(LowRow, HighRow);
  const Double n = static_cast<Double>(cols.size()) * static_cast<Double>(within.size());
  Skewness = Kurtosis = 0.0;
  if (n < 2.0) return;
  const Double mean = Sum(cols.lo, within.lo, cols.hi, within.hi) / n;
  kernels::CentralSums powers;
  for_columns(cols, within, [&](std::span<const T> column) { kernels::accumulate_in_order(powers, column, mean); });
  const zor::detail::SkewKurt result = zor::detail::skew_kurt(n, powers);
  Skewness = result.skewness;
  Kurtosis = result.kurtosis;
}

template <Cell T>
void BasicMatrix<T>::SkewKurtSample(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Skewness,
                                    Double& Kurtosis) const
  requires RealCell<T>
{
  const Bounds cols = columns(LowCol, HighCol), within = rows(LowRow, HighRow);
  const Double n = static_cast<Double>(cols.size()) * static_cast<Double>(within.size());
  SkewKurt(cols.lo, within.lo, cols.hi, within.hi, Skewness, Kurtosis);
  const zor::detail::SkewKurt sample =
      n < 4.0 ? zor::detail::SkewKurt{} : zor::detail::sample_skew_kurt(n, {Skewness, Kurtosis});
  Skewness = sample.skewness;
  Kurtosis = sample.kurtosis;
}

template <Cell T>
void BasicMatrix<T>::MeanVec(TDims Dim, TVector* Means) const
  requires RealCell<T>
{
  if (!Means) return;
  TDoubleArray means;
  SetLength(means, Dim == dimCols ? FNCol : FNRow);
  if (Dim == dimCols) {
    // The sum of a column is one chain of additions: eight of them at a time keep the processor busy.
    constexpr std::size_t kChains = 8;
    const TDynArray<const T*> column = column_pointers();
    const auto cols = column.size(), down = static_cast<std::size_t>(FNRow);
    std::size_t c = 0;
    for (; c + kChains <= cols; c += kChains) {
      Double sum[kChains] = {};
      for (std::size_t r = 0; r < down; ++r)
        for (std::size_t k = 0; k < kChains; ++k) sum[k] += column[c + k][r];
      for (std::size_t k = 0; k < kChains; ++k) means[c + k] = sum[k];
    }
    for (; c < cols; ++c) means[c] = kernels::sum_in_order({column[c], down});
  } else {
    // Running sums of as many rows as stay in the first cache meet all columns.
    constexpr std::size_t kRows = 1024;
    const std::span<Double> sums(means);
    for (std::size_t r = 0; r < sums.size(); r += kRows) {
      const std::size_t count = std::min(kRows, sums.size() - r);
      for (const TArray& column : Mat)
        kernels::add(sums.subspan(r, count), std::span<const T>(column).subspan(r, count));
    }
  }
  const Double n = Dim == dimCols ? FNRow : FNCol;
  for (Double& x : means) x /= n;
  Means->SetNrOfElem(Length(means));
  const auto edit = Means->Edit();
  std::copy_n(means.begin(), std::min(means.size(), edit.cells().size()), edit.begin());
}

template <Cell T>
Double BasicMatrix<T>::Correlate(const BasicMatrix* OtherMat) const
  requires RealCell<T>
{
  if (!OtherMat || OtherMat->FNCol != FNCol || OtherMat->FNRow != FNRow) {
    zor::detail::Fail<EZORMatrixError>(*this, "matrices do not match");
  }
  kernels::PairSums sums;
  for (Integer c = 1; c <= FNCol; ++c) kernels::accumulate(sums, Column(c), OtherMat->Column(c));
  const kernels::PairMoments moments = kernels::pair_moments(sums);
  return moments.n < 3 ? 0.0 : zor::detail::correlation(moments);
}

template Double BasicMatrix<Double>::Sum(Integer, Integer, Integer, Integer) const;
template void BasicMatrix<Double>::MeanVar(Integer, Integer, Integer, Integer, Double&, Double&) const;
template void BasicMatrix<Double>::MinMax(Integer, Integer, Integer, Integer, Double&, Double&) const;
template Double BasicMatrix<Double>::GeometricMean(Integer, Integer, Integer, Integer) const;
template Double BasicMatrix<Double>::HarmonicMean(Integer, Integer, Integer, Integer) const;
template void BasicMatrix<Double>::SkewKurt(Integer, Integer, Integer, Integer, Double&, Double&) const;
template void BasicMatrix<Double>::SkewKurtSample(Integer, Integer, Integer, Integer, Double&, Double&) const;
template void BasicMatrix<Double>::MeanVec(TDims, TVector*) const;
template Double BasicMatrix<Double>::Correlate(const BasicMatrix*) const;

}  // namespace ZOR_matrix

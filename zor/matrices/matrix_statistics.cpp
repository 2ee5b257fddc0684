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
#include "zor/vectors/store_internal.h"

namespace ZOR_matrix {

namespace kernels = zor::kernels;

template <class Self, Cell T>
T MatrixCore<Self, T>::Sum(Integer LoC, Integer LoR, Integer HiC, Integer HiR) const {
  T sum = 0;
  for_columns(columns(LoC, HiC), rows(LoR, HiR),
              [&](std::span<const T> column) { sum = kernels::sum_in_order(column, sum); });
  return sum;
}

template <class Self, Cell T>
void MatrixCore<Self, T>::MeanVar(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Mean,
                                  Double& Variance) const {
  kernels::MomentSums sums;
  for_columns(columns(LowCol, HighCol), rows(LowRow, HighRow),
              [&](std::span<const T> column) { kernels::accumulate(sums, column); });
  const kernels::MeanVar result = kernels::mean_variance(sums);
  Mean = result.mean;
  Variance = result.n < 3 ? 1.0 : result.variance;
}

template <class Self, Cell T>
void MatrixCore<Self, T>::MinMax(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, T& Minimum,
                                 T& Maximum) const {
  kernels::Extremes<T> extremes{ZOR_univconst::uc_MaxReal, -ZOR_univconst::uc_MaxReal};
  for_columns(columns(LowCol, HighCol), rows(LowRow, HighRow),
              [&](std::span<const T> column) { kernels::min_max(column, extremes); });
  Minimum = extremes.minimum;
  Maximum = extremes.maximum;
}

template <class Self, Cell T>
Double MatrixCore<Self, T>::GeometricMean(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) const {
  const Bounds cols = columns(LowCol, HighCol), within = rows(LowRow, HighRow);
  Boolean zero = false;
  Double logarithms = 0.0;
  for_columns(cols, within, [&](std::span<const T> column) {
    for (const T x : column) {
      if (x < 0) zor::detail::Fail<EZORMatrixError>(self(), "negative argument passed to GeometricMean");
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

template <class Self, Cell T>
Double MatrixCore<Self, T>::HarmonicMean(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) const {
  const Bounds cols = columns(LowCol, HighCol), within = rows(LowRow, HighRow);
  Double reciprocals = 0.0;
  for_columns(cols, within, [&](std::span<const T> column) {
    for (const T x : column) {
      if (x <= 0) zor::detail::Fail<EZORMatrixError>(self(), "negative or zero argument passed to HarmonicMean");
      reciprocals += 1.0 / x;
    }
  });
  return static_cast<Double>(cols.size()) * static_cast<Double>(within.size()) / reciprocals;
}

template <class Self, Cell T>
void MatrixCore<Self, T>::SkewKurt(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Skewness,
                                   Double& Kurtosis) const {
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

template <class Self, Cell T>
void MatrixCore<Self, T>::SkewKurtSample(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                         Double& Skewness, Double& Kurtosis) const {
  const Bounds cols = columns(LowCol, HighCol), within = rows(LowRow, HighRow);
  const Double n = static_cast<Double>(cols.size()) * static_cast<Double>(within.size());
  SkewKurt(cols.lo, within.lo, cols.hi, within.hi, Skewness, Kurtosis);
  const zor::detail::SkewKurt sample =
      n < 4.0 ? zor::detail::SkewKurt{} : zor::detail::sample_skew_kurt(n, {Skewness, Kurtosis});
  Skewness = sample.skewness;
  Kurtosis = sample.kurtosis;
}

template <class Self, Cell T>
void MatrixCore<Self, T>::MeanVec(TDims Dim, TVector* Means) const {
  if (!Means) return;
  TDoubleArray means;
  SetLength(means, Dim == dimCols ? dense_columns() : dense_rows());
  if (Dim == dimCols) {
    // The sum of a column is one chain of additions: eight of them at a time keep the processor busy.
    constexpr std::size_t kChains = 8;
    const TDynArray<const T*> column = column_pointers();
    const auto cols = column.size(), down = static_cast<std::size_t>(dense_rows());
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
  const Double n = Dim == dimCols ? dense_rows() : dense_columns();
  for (Double& x : means) x /= n;
  zor::detail::store(*Means, means);
}

Double TMatrix::Correlate(const TMatrix* OtherMat) const {
  if (!OtherMat || OtherMat->FNCol != FNCol || OtherMat->FNRow != FNRow) {
    zor::detail::Fail<EZORMatrixError>(*this, "matrices do not match");
  }
  kernels::PairSums sums;
  for (Integer c = 1; c <= FNCol; ++c) kernels::accumulate(sums, Column(c), OtherMat->Column(c));
  const kernels::PairMoments moments = kernels::pair_moments(sums);
  return moments.n < 3 ? 0.0 : zor::detail::correlation(moments);
}

#define ZOR_INSTANCES(M, T)                                                                                   \
  template T MatrixCore<M, T>::Sum(Integer, Integer, Integer, Integer) const;                                 \
  template void MatrixCore<M, T>::MeanVar(Integer, Integer, Integer, Integer, Double&, Double&) const;        \
  template void MatrixCore<M, T>::MinMax(Integer, Integer, Integer, Integer, T&, T&) const;                   \
  template Double MatrixCore<M, T>::GeometricMean(Integer, Integer, Integer, Integer) const;                  \
  template Double MatrixCore<M, T>::HarmonicMean(Integer, Integer, Integer, Integer) const;                   \
  template void MatrixCore<M, T>::SkewKurt(Integer, Integer, Integer, Integer, Double&, Double&) const;       \
  template void MatrixCore<M, T>::SkewKurtSample(Integer, Integer, Integer, Integer, Double&, Double&) const; \
  template void MatrixCore<M, T>::MeanVec(TDims, TVector*) const;

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix

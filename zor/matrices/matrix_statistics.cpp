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
  return zor::detail::sum_of<T>(walk(columns(LoC, HiC), rows(LoR, HiR)));
}

template <class Self, Cell T>
void MatrixCore<Self, T>::MeanVar(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Mean,
                                  Double& Variance) const {
  const kernels::MeanVar result =
      zor::detail::sample_mean_variance_of(walk(columns(LowCol, HighCol), rows(LowRow, HighRow)));
  Mean = result.mean;
  Variance = result.variance;
}

template <class Self, Cell T>
void MatrixCore<Self, T>::MinMax(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, T& Minimum,
                                 T& Maximum) const {
  constexpr T kStart = RealCell<T> ? static_cast<T>(ZOR_univconst::uc_MaxReal) : zor::detail::kMaxInteger;
  kernels::Extremes<T> extremes{kStart, -kStart};
  for_columns(columns(LowCol, HighCol), rows(LowRow, HighRow),
              [&](std::span<const T> column) { kernels::min_max(column, extremes); });
  Minimum = extremes.minimum;
  Maximum = extremes.maximum;
}

template <class Self, Cell T>
Double MatrixCore<Self, T>::GeometricMean(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) const {
  const Bounds cols = columns(LowCol, HighCol), within = rows(LowRow, HighRow);
  const zor::detail::Logarithms logarithms = zor::detail::logarithms_of(walk(cols, within));
  if (logarithms.negative) zor::detail::Fail<EZORMatrixError>(self(), "negative argument passed to GeometricMean");
  if (logarithms.zero) return 0.0;
  return std::exp(logarithms.sum / static_cast<Double>(within.size()) / static_cast<Double>(cols.size()));
}

template <class Self, Cell T>
Double MatrixCore<Self, T>::HarmonicMean(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) const {
  const Bounds cols = columns(LowCol, HighCol), within = rows(LowRow, HighRow);
  const zor::detail::Reciprocals reciprocals = zor::detail::reciprocals_of(walk(cols, within));
  if (reciprocals.not_positive)
    zor::detail::Fail<EZORMatrixError>(self(), "negative or zero argument passed to HarmonicMean");
  return static_cast<Double>(cols.size()) * static_cast<Double>(within.size()) / reciprocals.sum;
}

template <class Self, Cell T>
void MatrixCore<Self, T>::SkewKurt(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Skewness,
                                   Double& Kurtosis) const {
  const Bounds cols = columns(LowCol, HighCol), within = rows(LowRow, HighRow);
  const Double n = static_cast<Double>(cols.size()) * static_cast<Double>(within.size());
  zor::detail::SkewKurt result;
  if (n >= 2.0) result = zor::detail::skew_kurt_of(n, walk(cols, within));
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
  const kernels::PairMoments moments = kernels::pair_moments_of_runs([&](auto take) {
    for (Integer c = 1; c <= FNCol; ++c) take(Column(c), OtherMat->Column(c));
  });
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

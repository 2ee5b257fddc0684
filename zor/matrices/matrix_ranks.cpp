#include <algorithm>
#include <array>
#include <cmath>

#include "zor/kernels/selection.h"
#include "zor/matrices/heap_guard_internal.h"
#include "zor/matrices/matrix.h"
#include "zor/matrices/percentile_internal.h"
#include "zor/runtime/random.h"
#include "zor/vectors/statistics_internal.h"
#include "zor/vectors/store_internal.h"

namespace ZOR_matrix {

template <class Self, Cell T>
auto MatrixCore<Self, T>::copy_of_range(Bounds cols, Bounds rows) const -> TArray {
  return zor::detail::heap_guard(self(), [&] {
    TArray work;
    zor::detail::set_length_unset(work, cols.size() * rows.size());
    auto to = work.begin();
    for_columns(cols, rows, [&](std::span<const T> column) { to = std::copy(column.begin(), column.end(), to); });
    return work;
  });
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::Quartiles(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Q1,
                                       Double& Q2, Double& Q3) const {
  Q1 = Q2 = Q3 = 0.0;
  TArray work = copy_of_range(columns(LowCol, HighCol), rows(LowRow, HighRow));
  const std::array<Double, 3> q = zor::detail::quartiles(std::span<T>(work));
  Q1 = q[0];
  Q2 = q[1];
  Q3 = q[2];
  return true;
}

template <class Self, Cell T>
Double MatrixCore<Self, T>::Percentile(Double prob, Integer LowCol, Integer LowRow, Integer HighCol,
                                       Integer HighRow) const {
  if (std::isnan(prob)) return prob;
  TArray work = copy_of_range(columns(LowCol, HighCol), rows(LowRow, HighRow));
  return zor::detail::nearest_percentile(std::span<T>(work), prob);
}

template <class Self, Cell T>
Double MatrixCore<Self, T>::Percentile(Double prob, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                       Integer SampleSize) const {
  const Bounds cols = columns(LowCol, HighCol), within = rows(LowRow, HighRow);
  const std::size_t n = cols.size() * within.size();
  if (std::isnan(prob) || SampleSize < 1 || static_cast<std::size_t>(SampleSize) >= n)
    return Percentile(prob, cols.lo, within.lo, cols.hi, within.hi);
  ZOR_runtime::Randomize();
  TArray sample = zor::detail::heap_guard(self(), [&] {
    TArray drawn;
    SetLength(drawn, SampleSize);
    return drawn;
  });
  Integer zeros = 0, negatives = 0;
  for (T& x : sample) {
    const Integer col = cols.lo - 1 + ZOR_runtime::Random(cols.hi - cols.lo + 1);
    const Integer row = within.lo - 1 + ZOR_runtime::Random(within.hi - within.lo + 1);
    x = Mat[col][row];
    zeros += x == 0;
    negatives += x < 0;
  }
  const Double p = std::clamp(prob, 0.0, 100.0) / 100.0, size = SampleSize;
  if (p > negatives / size && (zeros + negatives) / size > p) return 0.0;
  return zor::detail::nearest_percentile(std::span<T>(sample), prob);
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::CountValues(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, T RangeLow,
                                         T RangeHigh) const {
  return zor::detail::to_integer(
      zor::detail::count_between(RangeLow, RangeHigh, walk(columns(LowCol, HighCol), rows(LowRow, HighRow))));
}

Boolean TMatrix::Histogram(Integer LoX, Integer LoY, Integer HiX, Integer HiY, Double FirstBin, Double LastBin,
                           Double BinWidth, TIntArray& Histo, Integer& Underflow, Integer& Overflow,
                           Integer& MaxCnt) const {
  zor::detail::BinCounter<Double> bins(FirstBin, LastBin, BinWidth, ZOR_vector::kMaxBins);
  if (!bins.valid()) return false;
  bins.start(Histo);
  for_columns(columns(LoX, HiX), rows(LoY, HiY), [&](std::span<const Double> column) {
    for (const Double x : column) bins.put(x);
  });
  Underflow = bins.underflow;
  Overflow = bins.overflow;
  MaxCnt = bins.largest;
  return true;
}

Boolean TMatrix::Histogram(Integer LoX, Integer LoY, Integer HiX, Integer HiY, Double FirstBin, Double LastBin,
                           Double BinWidth, TIntVector* Histo, Integer& Underflow, Integer& Overflow,
                           Integer& MaxCnt) const {
  TIntArray counts;
  if (!Histo || !Histogram(LoX, LoY, HiX, HiY, FirstBin, LastBin, BinWidth, counts, Underflow, Overflow, MaxCnt)) {
    return false;
  }
  zor::detail::store(*Histo, counts);
  return true;
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::Dichotomize(T Threshold, TBool2DArray& ResultArray) const {
  TBool2DArray above;
  SetLength(above, dense_columns(), dense_rows());
  std::size_t count = 0;
  for (Integer c = 0; c < dense_columns(); ++c) {
    Boolean* to = above[c].data();
    for (const T x : Mat[c]) {
      const Boolean is_above = x > Threshold;
      *to++ = is_above;
      count += is_above;
    }
  }
  ResultArray.swap(above);
  return zor::detail::to_integer(count);
}

#define ZOR_INSTANCES(M, T)                                                                                          \
  template auto MatrixCore<M, T>::copy_of_range(Bounds, Bounds) const->TArray;                                       \
  template Boolean MatrixCore<M, T>::Quartiles(Integer, Integer, Integer, Integer, Double&, Double&, Double&) const; \
  template Double MatrixCore<M, T>::Percentile(Double, Integer, Integer, Integer, Integer) const;                    \
  template Double MatrixCore<M, T>::Percentile(Double, Integer, Integer, Integer, Integer, Integer) const;           \
  template Integer MatrixCore<M, T>::CountValues(Integer, Integer, Integer, Integer, T, T) const;                    \
  template Integer MatrixCore<M, T>::Dichotomize(T, TBool2DArray&) const;

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix

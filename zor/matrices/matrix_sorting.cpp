#include <algorithm>
#include <cstdint>
#include <numeric>
#include <utility>
#include <vector>

#include "zor/kernels/comb_sort.h"
#include "zor/matrices/matrix.h"

namespace ZOR_matrix {

namespace kernels = zor::kernels;

template <class Self, Cell T>
void MatrixCore<Self, T>::exchange_cells(Integer c1, Integer r1, Integer c2, Integer r2) noexcept {
  if (c1 <= dense_columns() && c2 <= dense_columns() && r1 <= dense_rows() && r2 <= dense_rows())
    std::swap(Mat[c1 - 1][r1 - 1], Mat[c2 - 1][r2 - 1]);
}

// Without a handler keys are sorted first, then apply(from) moves each line once. A handler sees each exchange; it
// may resize the matrix, and a line that is gone is in order.
template <class Self, Cell T>
template <class Key, class Exchange, class Apply>
void MatrixCore<Self, T>::sort_lines(Bounds lines, Boolean ascending, Key key, Exchange exchange, Apply apply) {
  const std::size_t n = lines.size();
  const auto line = [lines](std::size_t i) { return lines.lo + static_cast<Integer>(i); };
  if (!OnSortExchange) {
    std::vector<T> keys(n);
    std::vector<std::int64_t> from(n);
    for (std::size_t i = 0; i < n; ++i) keys[i] = *key(line(i));
    std::iota(from.begin(), from.end(), std::int64_t{0});
    kernels::comb_sort_pairs(keys, from, n - 1, ascending);
    apply(std::span<const std::int64_t>(from));
  } else {
    kernels::comb_sort_with(
        n, n - 1,
        [&](std::size_t i, std::size_t j) {
          const T *a = key(line(i)), *b = key(line(j));
          return a && b && (ascending ? *a > *b : *b > *a);
        },
        [&](std::size_t i, std::size_t j) { exchange(line(i), line(j)); }, [] {});
  }
  Changed();
}

template <class Self, Cell T>
void MatrixCore<Self, T>::SortRows(Integer SortColIx, Boolean Ascending, Integer LowCol, Integer LowRow,
                                   Integer HighCol, Integer HighRow) {
  const Bounds cols = columns(LowCol, HighCol), lines = rows(LowRow, HighRow);
  if (SortColIx < 1 || SortColIx > dense_columns() || lines.lo >= lines.hi) return;
  const Boolean outside = SortColIx < cols.lo || SortColIx > cols.hi;
  const auto key = [&](Integer row) -> const T* {
    const std::span<const T> column = Column(SortColIx);
    return row <= zor::detail::to_integer(column.size()) ? &column[static_cast<std::size_t>(row - 1)] : nullptr;
  };
  const auto exchange = [&](Integer r1, Integer r2) {
    for (Integer c = cols.lo; c <= cols.hi; ++c) exchange_cells(c, r1, c, r2);
    if (outside) exchange_cells(SortColIx, r1, SortColIx, r2);
    SortExchange(2, r1, r2, cols.lo, cols.hi);
  };
  const auto apply = [&](std::span<const std::int64_t> from) {
    std::vector<T> sorted(from.size());
    const auto reorder = [&](std::span<T> cells) {
      for (std::size_t i = 0; i < sorted.size(); ++i) sorted[i] = cells[static_cast<std::size_t>(from[i])];
      std::copy(sorted.begin(), sorted.end(), cells.begin());
    };
    for_columns(cols, lines, reorder);
    if (outside) for_columns({SortColIx, SortColIx}, lines, reorder);
  };
  sort_lines(lines, Ascending, key, exchange, apply);
}

template <class Self, Cell T>
void MatrixCore<Self, T>::SortCols(Integer SortRowIx, Boolean Ascending, Integer LowCol, Integer LowRow,
                                   Integer HighCol, Integer HighRow) {
  const Bounds lines = columns(LowCol, HighCol), within = rows(LowRow, HighRow);
  if (SortRowIx < 1 || SortRowIx > dense_rows() || lines.lo >= lines.hi) return;
  const Boolean outside = SortRowIx < within.lo || SortRowIx > within.hi;
  const auto key = [&](Integer col) -> const T* {
    const std::span<const T> column = Column(col);
    return SortRowIx <= zor::detail::to_integer(column.size()) ? &column[static_cast<std::size_t>(SortRowIx - 1)]
                                                               : nullptr;
  };
  const auto exchange = [&](Integer c1, Integer c2) {
    for (Integer r = within.lo; r <= within.hi; ++r) exchange_cells(c1, r, c2, r);
    if (outside) exchange_cells(c1, SortRowIx, c2, SortRowIx);
    SortExchange(1, c1, c2, within.lo, within.hi);
  };
  const auto apply = [&](std::span<const std::int64_t> from) {
    const auto reorder = [&](Bounds cells) {
      std::vector<T> sorted;
      sorted.reserve(from.size() * cells.size());
      for (const std::int64_t place : from) {
        const Integer old = lines.lo + static_cast<Integer>(place);
        for_columns({old, old}, cells,
                    [&](std::span<T> column) { sorted.insert(sorted.end(), column.begin(), column.end()); });
      }
      auto next = sorted.begin();
      for_columns(lines, cells, [&](std::span<T> column) {
        for (T& cell : column) cell = *next++;
      });
    };
    reorder(within);
    if (outside) reorder({SortRowIx, SortRowIx});
  };
  sort_lines(lines, Ascending, key, exchange, apply);
}

#define ZOR_INSTANCES(M, T)                                                                       \
  template void MatrixCore<M, T>::SortRows(Integer, Boolean, Integer, Integer, Integer, Integer); \
  template void MatrixCore<M, T>::SortCols(Integer, Boolean, Integer, Integer, Integer, Integer);

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix

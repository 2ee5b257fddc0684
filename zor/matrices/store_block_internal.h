#pragma once

#include <algorithm>
#include <utility>

#include "zor/matrices/matrix.h"
#include "zor/runtime/numbers.h"

/// \file  The one place where copies and readers put cells into a matrix.

namespace zor::detail {

/// Indices i in [0, count) for which dest + i lies in [first, first + size).
inline std::pair<std::int64_t, std::int64_t> landing(std::int64_t count, std::int64_t dest, std::int64_t first,
                                                     std::int64_t size) noexcept {
  return {(std::max)(std::int64_t{0}, first - dest), (std::min)(count, first + size - dest)};
}

}  // namespace zor::detail

namespace ZOR_matrix {

template <class Self, Cell T>
template <class ColumnAt>
void MatrixCore<Self, T>::write_block(Int64 columns, Int64 rows, ColumnAt column_at, Int64 dest_col, Int64 dest_row) {
  using From = std::remove_cvref_t<decltype(*column_at(Int64{}))>;
  using zor::detail::to_cell;
  if (OnChange) {
    // A handler may resize this matrix, so each cell is tested when its turn comes.
    const auto cols = zor::detail::landing(columns, dest_col, 1, zor::detail::kMaxInteger);
    const auto down = zor::detail::landing(rows, dest_row, 1, zor::detail::kMaxInteger);
    for (Int64 i = cols.first; i < cols.second; ++i) {
      for (Int64 j = down.first; j < down.second; ++j)
        SetVal(static_cast<Integer>(dest_col + i), static_cast<Integer>(dest_row + j), to_cell<T>(column_at(i)[j]));
    }
    return;
  }
  const auto cols = zor::detail::landing(columns, dest_col, 1, dense_columns());
  const auto down = zor::detail::landing(rows, dest_row, 1, dense_rows());
  if (down.first >= down.second) return;
  for (Int64 i = cols.first; i < cols.second; ++i) {
    const From* from = column_at(i);
    std::transform(from + down.first, from + down.second, Mat[dest_col + i - 1].begin() + (dest_row + down.first - 1),
                   to_cell<T, From>);
  }
}

}  // namespace ZOR_matrix

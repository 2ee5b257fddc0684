#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

/// \file  Rows of a matrix as contiguous cells.

namespace zor::detail {

/// Calls f(row, cells) for `count` rows from `first` on (from 0), cells being those of the row in the given columns, in
/// their order. Several rows are gathered at once, so that each column is read in runs.
template <class T, class F>
void for_rows(std::span<const T* const> columns, std::size_t first, std::size_t count, F f) {
  constexpr std::size_t kRows = 16;
  const std::size_t width = columns.size();
  std::vector<T> block(kRows * width);
  for (std::size_t row = 0; row < count; row += kRows) {
    const std::size_t rows = std::min(kRows, count - row);
    for (std::size_t c = 0; c < width; ++c) {
      const T* const from = columns[c] + first + row;
      for (std::size_t i = 0; i < rows; ++i) block[i * width + c] = from[i];
    }
    for (std::size_t i = 0; i < rows; ++i) f(row + i, std::span<T>(block.data() + i * width, width));
  }
}

}  // namespace zor::detail

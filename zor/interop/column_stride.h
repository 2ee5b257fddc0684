#pragma once

#include <cstddef>
#include <optional>

#include "zor/matrices/matrix.h"

/// \file  What the views on other libraries' matrices need to know of the place of the columns.

namespace zor::detail {

/// Distance in cells between the starts of neighbouring columns, the number of rows for one column; none if the
/// columns do not lie at equal distance or the array is empty or ragged.
template <class T>
std::optional<std::ptrdiff_t> column_stride(const ZOR_runtime::TDynArray<ZOR_runtime::TDynArray<T>>& columns) {
  if (columns.empty() || columns[0].empty()) return {};
  const auto rows = static_cast<std::ptrdiff_t>(columns[0].size());
  const std::ptrdiff_t stride = columns.size() > 1 ? columns[1].data() - columns[0].data() : rows;
  if (stride < rows) return {};
  for (std::size_t c = 0; c < columns.size(); ++c) {
    if (columns[c].size() != columns[0].size()) return {};
    if (columns[c].data() != columns[0].data() + static_cast<std::ptrdiff_t>(c) * stride) return {};
  }
  return stride;
}

/// The same of a matrix, whose columns always lie at equal distance. Takes what has NrOfColumns and Column.
template <class Matrix>
std::ptrdiff_t matrix_stride(Matrix& matrix) {
  return matrix.NrOfColumns() > 1 ? matrix.Column(2).data() - matrix.Column(1).data()
                                  : static_cast<std::ptrdiff_t>(matrix.NrOfRows());
}

}  // namespace zor::detail

#pragma once

#include "zor/matrices/matrix.h"

/// \file  The raw cells of a matrix, for objects that keep one and report its changes themselves.

namespace zor::detail {

struct MatrixCells {
  /// Puts cells, at least one column and one row of equal columns, in the place of the present ones. No event.
  static void swap(ZOR_matrix::TMatrix& matrix, ZOR_zorbase::TDouble2DArray& cells) noexcept {
    matrix.swap_cells(cells);
  }
  /// The cells of column `col`, from 1; empty outside. Valid until the next resize.
  static std::span<double> column(ZOR_matrix::TMatrix& matrix, ZOR_runtime::Integer col) noexcept {
    const std::size_t c = static_cast<std::size_t>(col) - 1;
    if (c >= matrix.Mat.size()) return {};
    return {matrix.Mat[c].data(), matrix.Mat[c].size()};
  }
};

}  // namespace zor::detail

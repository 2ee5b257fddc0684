#pragma once

#include <cstddef>

#include "zor/export.h"

/// \file  Cholesky factor of a symmetric positive definite matrix. Columns are given by pointers, a[c][r] is the cell
/// in row r of column c.

namespace zor::kernels {

/// A = L L': l[c][r] for c <= r < n, from the cells of `a` in the same places; other cells are neither read nor
/// written. Row after row; the terms of a cell are subtracted one by one, with their column descending, and never
/// fused: the same bits on all levels. False, with l partly written, if a cell of the diagonal does not come out above
/// 0. The two must share no cells. Allocates some work space: std::bad_alloc, with nothing written.
ZOR_API bool cholesky(const double* const* a, std::size_t n, double* const* l);

}  // namespace zor::kernels

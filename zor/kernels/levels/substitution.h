#pragma once

#include <cstddef>

/// \file  The inner loops of lu.h and cholesky.h.

namespace zor::kernels {

/// The same loops with and without fused multiplication and subtraction.
struct SubstitutionLoops {
  /// y[i] -= factor * x[i] for i < n.
  void (*subtract_multiple)(double factor, const double* x, double* y, std::size_t n);
  /// b = L^-1 b for `count` columns, with the factor L of unit diagonal in the rows and columns from `first` to end
  /// - 1.
  void (*solve_lower)(const double* const* l, std::size_t first, std::size_t end, double* const* b, std::size_t count);
  /// Solves L X = X for `lanes` right-hand sides: x[r * lanes + i] is row r of right-hand side i. The rows of L lie
  /// packed one behind the other from row 1 on, each up to the cell before its diagonal 1, with `step` other cells in
  /// front of each row: that is how the rows and columns from `step` on lie in a larger triangle.
  void (*solve_lower_rows)(const double* rows, std::size_t step, std::size_t n, double* x);
  /// One row after the other of a triangular system, for `lanes` right-hand sides side by side. Row t is the line of
  /// `lanes` cells that begins at last - t * lanes; row_t packs its pivot and then its t factors, which belong to the
  /// rows t - 1, ..., 0: x[t] = (x[t] - factor * x[t - 1] - ...) / pivot, the terms in this order, for t from first to
  /// end - 1. `row` points to row_first; the rows are packed one behind the other.
  void (*substitute)(const double* row, std::size_t first, std::size_t end, double* last);
};

struct SubstitutionTable {
  std::size_t lanes;
  SubstitutionLoops fused, portable;
};

}  // namespace zor::kernels

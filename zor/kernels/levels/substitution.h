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

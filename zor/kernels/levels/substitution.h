#pragma once

#include <cstddef>

/// \file  The inner loops of lu.h.

namespace zor::kernels {

/// The same loops with and without fused multiplication and subtraction.
struct SubstitutionLoops {
  /// y[i] -= factor * x[i] for i < n.
  void (*subtract_multiple)(double factor, const double* x, double* y, std::size_t n);
  /// b = L^-1 b for `count` columns, with the factor L of unit diagonal in the rows and columns from `first` to end
  /// - 1.
  void (*solve_lower)(const double* const* l, std::size_t first, std::size_t end, double* const* b, std::size_t count);
  /// Solves U X = X for `lanes` right-hand sides side by side: x[r * lanes + i] is row r of right-hand side i. The rows
  /// of U lie packed one behind the other from the last one up, each from its diagonal cell to the right. Row by row
  /// from below; the terms of a cell are subtracted with their column ascending.
  void (*solve_upper)(const double* rows_from_last, std::size_t n, double* x);
};

struct SubstitutionTable {
  std::size_t lanes;
  SubstitutionLoops fused, portable;
};

}  // namespace zor::kernels

#pragma once

#include <cstddef>
#include <cstdint>

/// \file  The inner loops of reflections.h. Columns are given by pointers; a call works on the rows row ... row + rows
/// - 1 of `cols` of them.

namespace zor::kernels {

struct ReflectionsTable {
  /// Sum of x[i] y[i] in eight partial sums, cell i going to partial sum i mod 8.
  double (*dot)(const double* x, const double* y, std::size_t n);
  /// Magnitude of the largest cell as bits; NaN counts as larger than infinity.
  std::uint64_t (*largest)(const double* x, std::size_t n);
  /// a[j] -= tau (v . a[j]) v for each column; v[0] belongs to the first row.
  void (*from_left)(const double* v, double tau, double* const* a, std::size_t cols, std::size_t row, std::size_t rows);
  /// a[j] -= tau u[j] s with s = sum of a[j] u[j], j ascending.
  void (*from_right)(const double* u, double tau, double* const* a, std::size_t cols, std::size_t row,
                     std::size_t rows);
  /// out[r] = sum of a[j][row + r] u[j], j ascending.
  void (*combine)(const double* const* a, const double* u, std::size_t cols, std::size_t row, std::size_t rows,
                  double* out);
  /// One column of a symmetric matrix from its diagonal cell down, n cells: a -= v w[0] + w v[0], and then its share of
  /// the product with x is added to p, that of the cells above the diagonal included.
  void (*update_multiply)(double* a, const double* v, const double* w, const double* x, double* p, std::size_t n);
  /// Rotates the columns z[0] and z[step], z[step] and z[2 step], ... `count` times: (x, y) becomes (c x + s y, c y - s
  /// x).
  void (*rotate)(double* const* z, std::ptrdiff_t step, std::size_t count, const double* c, const double* s,
                 std::size_t row, std::size_t rows);
};

}  // namespace zor::kernels

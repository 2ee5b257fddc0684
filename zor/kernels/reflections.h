#pragma once

#include <cstddef>

#include "zor/export.h"
#include "zor/kernels/steps.h"

/// \file  Reflections and rotations of the columns of a matrix: what the eigenvalue and singular value methods consist
/// of. Columns are given by pointers, a[c][r] is the cell in row r of column c; a call works on the rows row ... row +
/// rows - 1 of `cols` columns. A reflection is I - tau v v' with v[0] = 1 (Householder); tau is 0 or from 1 to 2.
/// Products and sums are rounded apart, dot products run in eight partial sums, so that all levels give the same bits.

namespace zor::kernels {

/// Sum of x[i] * y[i], cell i in partial sum i mod 8, folded in a fixed order.
ZOR_API double dot_in_eight(const double* x, const double* y, std::size_t n) noexcept;

/// The square root of a a + b b, neither overflowing nor losing digits where the squares leave the range of numbers.
ZOR_API double hypotenuse(double a, double b) noexcept;

/// The largest of the magnitudes of x, 0.0 of no cells; infinite or NaN if a cell is not finite.
ZOR_API double largest_magnitude(const double* x, std::size_t n) noexcept;

/// Multiplies a matrix by a power of 2 so that its largest cell lies near 1, and returns that factor: 1.0 where the
/// cell lies between 2^-100 and 2^100 already, or is 0. NaN, with nothing changed, if a cell is not finite.
ZOR_API double scale_matrix(double* const* a, std::size_t cols, std::size_t rows) noexcept;

/// Gives a vector that is not 0 the length 1.
ZOR_API void normalize(double* x, std::size_t n) noexcept;

struct Reflection {
  double tau;
  double image;  ///< Reflects x to (image, 0, ..., 0).
};
/// Replaces the n > 0 cells of x by the v of the reflection that maps x to a multiple of the first unit vector.
ZOR_API Reflection make_reflection(double* x, std::size_t n) noexcept;

/// Reflects each column: v has `rows` cells.
ZOR_API void reflect_columns(const double* v, double tau, double* const* a, std::size_t cols, std::size_t row,
                             std::size_t rows) noexcept;
/// Reflects each row: v has `cols` cells.
ZOR_API void reflect_rows(const double* v, double tau, double* const* a, std::size_t cols, std::size_t row,
                          std::size_t rows) noexcept;

/// Column k below its cell in row `row` + k holds the v of reflection k, v[0] = 1 included. Replaces rows row ... row +
/// rows - 1 by the first `cols` columns of the product of all of them, in order. The rows above become 0.
ZOR_API void form_product(double* const* a, const double* tau, std::size_t cols, std::size_t row,
                          std::size_t rows) noexcept;
/// The same with a step for each reflection, the last one first; false if a step asked for an end.
ZOR_API bool form_product(double* const* a, const double* tau, std::size_t cols, std::size_t row, std::size_t rows,
                          StepAborts step);

/// out[r] = sum of a[j][row + r] * u[j] over j, ascending from 0.0.
ZOR_API void combine_columns(const double* const* a, const double* u, std::size_t cols, std::size_t row,
                             std::size_t rows, double* out) noexcept;

/// The inner step of a symmetric rank-2 update with a product, on one column from its diagonal cell down, n cells: a -=
/// v w[0] + w v[0]; then a's share of the product of the symmetric matrix with x is added to p.
ZOR_API void update_multiply(double* a, const double* v, const double* w, const double* x, double* p,
                             std::size_t n) noexcept;

/// Rotates the columns z[0] and z[1]: (x, y) becomes (c x + s y, c y - s x).
ZOR_API void rotate_pair(double* const* z, std::size_t rows, double c, double s) noexcept;

/// Chains of rotations of neighbouring columns, collected and applied to blocks of rows, so that these stay in the
/// cache. With `z` null nothing is kept.
class ZOR_API RotationLog {
 public:
  /// Cells of `work` needed for columns 0 ... cols - 1.
  static std::size_t cells(std::size_t cols) noexcept { return 2 * kChains * cols; }
  RotationLog(double* const* z, std::size_t rows, std::size_t cols, double* work) noexcept;

  /// Begins a chain at column `first`: rotation i turns columns first + i step and first + (i + 1) step, at most `cols`
  /// of them.
  void begin(std::size_t first, std::ptrdiff_t step) noexcept;
  /// (x, y) becomes (c x + s y, c y - s x).
  void rotate(double c, double s) noexcept {
    if (!z_) return;
    c_[end_] = c;
    s_[end_++] = s;
  }
  /// Applies what is left.
  void flush() noexcept;

 private:
  static constexpr std::size_t kChains = 16;
  struct Chain {
    std::size_t first, start;
    std::ptrdiff_t step;
  };
  double* const* z_;
  std::size_t rows_, cols_;
  double *c_, *s_;
  std::size_t end_ = 0, chains_ = 0;
  Chain chain_[kChains + 1];
};

}  // namespace zor::kernels

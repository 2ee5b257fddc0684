#include "zor/kernels/singular_values.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "zor/kernels/reflections.h"

namespace zor::kernels {
namespace {

constexpr int kMaxSweeps = 30;
/// Rows that are multiplied at once.
constexpr std::size_t kRowBlock = 32;

/// A bidiagonal matrix: values[k] on the diagonal, above[k] over it, above[0] = 0.
struct Bidiagonal {
  double* values;
  double* above;
  std::size_t n;
};

bool go_on() { return false; }

/// Leaves the triangular factor in the first n rows of `r` (which may be a), and reflections on and below the diagonal
/// of a, if that is another matrix.
bool triangular_factor(double* const* a, std::size_t m, std::size_t n, double* const* r, double* tau, StepAborts step) {
  for (std::size_t k = 0; k < n; ++k) {
    if (step()) return false;
    const Reflection h = make_reflection(a[k] + k, m - k);
    reflect_columns(a[k] + k, h.tau, a + k + 1, n - k - 1, k, m - k);
    tau[k] = h.tau;
    if (r != a) std::copy(a[k], a[k] + k, r[k]);
    r[k][k] = h.image;
    std::fill(r[k] + k + 1, r[k] + n, 0.0);
  }
  return true;
}

/// Leaves the reflections from the left on and below the diagonal of a. Those from the right go to the columns of v
/// from the second one on, likewise; without v they are lost in `row`, n cells.
bool bidiagonalize(double* const* a, std::size_t m, const Bidiagonal& b, double* left_tau, double* const* v,
                   double* right_tau, double* row, StepAborts step) {
  b.above[0] = 0.0;
  for (std::size_t k = 0;; ++k) {
    if (step()) return false;
    const std::size_t rest = b.n - k - 1;
    const Reflection left = make_reflection(a[k] + k, m - k);
    reflect_columns(a[k] + k, left.tau, a + k + 1, rest, k, m - k);
    b.values[k] = left.image;
    left_tau[k] = left.tau;
    if (rest == 0) return true;
    double* const u = v ? v[k + 1] + k + 1 : row;
    for (std::size_t j = 0; j < rest; ++j) u[j] = a[k + 1 + j][k];
    const Reflection right = make_reflection(u, rest);
    reflect_rows(u, right.tau, a + k + 1, rest, k + 1, m - k - 1);
    b.above[k + 1] = right.image;
    right_tau[k] = right.tau;
  }
}

/// A rotation that takes (x, y) to (length, 0). A length of 0 keeps the last rotation.
struct Rotation {
  double c, s;
  double turn(double x, double y) {
    const double length = hypotenuse(x, y);
    if (length != 0.0) c = x / length, s = y / length;
    return length;
  }
};

/// Where values[first - 1] counts as 0: above[first] is driven out along the rows first ... last.
void cancel(const Bidiagonal& b, std::size_t first, std::size_t last, double norm, RotationLog& left) {
  Rotation rotation{0.0, 1.0};
  for (std::size_t i = first; i <= last; ++i) {
    const double f = rotation.s * b.above[i];
    b.above[i] *= rotation.c;
    if (std::abs(f) + norm == norm) return;
    b.values[i] = rotation.turn(b.values[i], -f);
    left.begin(first - 1, static_cast<std::ptrdiff_t>(i - first + 1));
    left.rotate(rotation.c, rotation.s);
  }
}

/// One implicit QR step on rows first ... last, with the shift that the last two of them give.
void sweep(const Bidiagonal& b, std::size_t first, std::size_t last, RotationLog& left, RotationLog& right) {
  double* const d = b.values;
  double* const e = b.above;
  double x = d[first];
  // The shift is the eigenvalue of the last two rows of B'B that is nearer to its last cell.
  const double y = d[last - 1], z = d[last], g0 = e[last - 1], h0 = e[last];
  double f = ((y - z) * (y + z) + (g0 - h0) * (g0 + h0)) / (2.0 * h0 * y);
  f = ((x - z) * (x + z) + h0 * (y / (f + std::copysign(hypotenuse(f, 1.0), f)) - h0)) / x;
  left.begin(first, 1);
  right.begin(first, 1);
  Rotation rotation{1.0, 1.0};
  for (std::size_t j = first; j < last; ++j) {
    // From the right: columns j and j + 1.
    const double corner = rotation.s * e[j + 1], above = rotation.c * e[j + 1];
    e[j] = rotation.turn(f, corner);
    right.rotate(rotation.c, rotation.s);
    f = rotation.c * x + rotation.s * above;
    const double next_above = rotation.c * above - rotation.s * x;
    const double below = rotation.s * d[j + 1], next = rotation.c * d[j + 1];
    // From the left: rows j and j + 1.
    d[j] = rotation.turn(f, below);
    left.rotate(rotation.c, rotation.s);
    f = rotation.c * next_above + rotation.s * next;
    x = rotation.c * next - rotation.s * next_above;
  }
  e[first] = 0.0;
  e[last] = f;
  d[last] = x;
}

/// Makes b diagonal. Values may come out negative.
Decomposed diagonalize(const Bidiagonal& b, RotationLog& left, RotationLog& right, StepAborts step) {
  double norm = 0.0;
  for (std::size_t i = 0; i < b.n; ++i) norm = std::max(norm, std::abs(b.values[i]) + std::abs(b.above[i]));
  const auto negligible = [norm](double x) { return std::abs(x) + norm == norm; };
  Decomposed result = Decomposed::done;
  for (std::size_t k = b.n; k-- > 0;) {
    if (step()) return Decomposed::aborted;
    for (int sweeps = 0;; ++sweeps) {
      std::size_t first = k;
      while (!negligible(b.above[first]) && !negligible(b.values[first - 1])) --first;
      if (!negligible(b.above[first])) cancel(b, first, k, norm, left);
      if (first == k) break;
      if (sweeps == kMaxSweeps) {
        result = Decomposed::not_converged;
        break;
      }
      sweep(b, first, k, left, right);
    }
  }
  left.flush();
  right.flush();
  return result;
}

/// Multiplies a, m x n, by q, n x n, from the right.
void multiply_columns(double* const* a, std::size_t m, double* const* q, std::size_t n, double* block) {
  for (std::size_t row = 0; row < m; row += kRowBlock) {
    const std::size_t rows = std::min(kRowBlock, m - row);
    for (std::size_t c = 0; c < n; ++c) combine_columns(a, q[c], n, row, rows, block + c * kRowBlock);
    for (std::size_t c = 0; c < n; ++c) std::copy_n(block + c * kRowBlock, rows, a[c] + row);
  }
}

/// The body of all functions; v is null where no vectors are wanted.
Decomposed decompose(double* const* a, std::size_t m, std::size_t n, double* values, double* const* v,
                     double* const* square, double* work, StepAborts step) {
  const double scale = scale_matrix(a, n, m);
  if (std::isnan(scale)) return std::fill_n(values, n, scale), Decomposed::not_finite;
  double* const left_tau = work + n;
  double* const right_tau = work + 2 * n;
  double* const row = work + 3 * n;  // with v: the factors of the triangular form
  double* const log = work + 4 * n;
  const Bidiagonal b{values, work, n};
  const bool tall = 2 * m >= 3 * n;
  double* const* const left = tall && v ? square : a;
  const std::size_t rows = tall ? n : m;
  // Of a tall matrix the steps are those of the long columns.
  if (tall && !triangular_factor(a, m, n, left, row, step)) return Decomposed::aborted;
  if (!bidiagonalize(left, rows, b, left_tau, v, right_tau, row, tall ? go_on : step)) return Decomposed::aborted;
  if (v) {
    v[0][0] = 1.0;
    std::fill_n(v[0] + 1, n - 1, 0.0);
    if (!form_product(v + 1, right_tau, n - 1, 1, n - 1, step) || step()) return Decomposed::aborted;
    if (tall) form_product(left, left_tau, n, 0, rows);
    if (!form_product(a, tall ? row : left_tau, n, 0, m, step)) return Decomposed::aborted;
  }
  RotationLog left_log(v ? left : nullptr, rows, n, log);
  RotationLog right_log(v, n, n, log + RotationLog::cells(n));
  const Decomposed result = diagonalize(b, left_log, right_log, step);
  if (result == Decomposed::aborted) return result;
  if (tall && v) multiply_columns(a, m, square, n, log);
  for (std::size_t k = 0; k < n; ++k) {
    if (values[k] < 0.0 && v)
      for (std::size_t r = 0; r < n; ++r) v[k][r] = -v[k][r];
    values[k] = std::abs(values[k]) / scale;
  }
  return result;
}

}  // namespace

bool singular_values(double* const* a, std::size_t m, std::size_t n, double* values, double* work) noexcept {
  return decompose(a, m, n, values, nullptr, nullptr, work, go_on) == Decomposed::done;
}

bool singular_value_decomposition(double* const* u, std::size_t m, std::size_t n, double* values, double* const* v,
                                  double* const* square, double* work) noexcept {
  return decompose(u, m, n, values, v, square, work, go_on) == Decomposed::done;
}

Decomposed singular_value_decomposition(double* const* u, std::size_t m, std::size_t n, double* values,
                                        double* const* v, double* const* square, double* work, StepAborts step) {
  return decompose(u, m, n, values, v, square, work, step);
}

}  // namespace zor::kernels

#include "zor/kernels/eigen_general.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "zor/kernels/reflections.h"

namespace zor::kernels {
namespace {

constexpr double kEpsilon = 0x1p-52;
constexpr int kMaxSteps = 60;

/// A square matrix, triangular outside of the rows and columns first ... last.
struct Square {
  double* const* a;
  std::size_t n;
  std::size_t first = 0, last = n - 1;

  double& operator()(std::size_t row, std::size_t col) const { return a[col][row]; }
  std::size_t rows() const { return last - first + 1; }
};

/// Exchanges lines i and k, rows and columns: a similarity.
void exchange(const Square& m, std::size_t i, std::size_t k) {
  if (i == k) return;
  std::swap_ranges(m.a[i], m.a[i] + m.n, m.a[k]);
  for (std::size_t c = 0; c < m.n; ++c) std::swap(m(i, c), m(k, c));
}

/// The line in first ... last for which cell(i, k) is 0 for all others; beyond `last` if there is none.
template <class Cell>
std::size_t bare_line(const Square& m, Cell cell) {
  std::size_t i = m.first;
  for (; i <= m.last; ++i) {
    std::size_t k = m.first;
    while (k <= m.last && (k == i || cell(i, k) == 0.0)) ++k;
    if (k > m.last) break;
  }
  return i;
}

/// Exchanges lines so that a triangular part comes to lie outside of first ... last: its eigenvalues stay exact.
/// exchanges[i] is the line that was exchanged with i, for i outside of the range.
void isolate(Square& m, std::size_t* exchanges) {
  for (; m.first < m.last; --m.last) {
    const std::size_t row = bare_line(m, [&m](std::size_t i, std::size_t k) { return m(i, k); });
    if (row > m.last) break;
    exchange(m, exchanges[m.last] = row, m.last);
  }
  for (; m.first < m.last; ++m.first) {
    const std::size_t column = bare_line(m, [&m](std::size_t i, std::size_t k) { return m(k, i); });
    if (column > m.last) break;
    exchange(m, exchanges[m.first] = column, m.first);
  }
}

/// Euclidean norm of the part that is not triangular.
double norm_of(const Square& m) {
  double squares = 0.0;
  for (std::size_t c = m.first; c <= m.last; ++c) squares += dot_in_eight(m.a[c] + m.first, m.a[c] + m.first, m.rows());
  return std::sqrt(squares);
}

/// The similarity that multiplies column i by factor and divides row i by it, a power of 2: nothing is rounded.
void scale_line(const Square& m, std::size_t i, double factor) {
  for (std::size_t k = 0; k < m.n; ++k) {
    if (k == i) continue;
    m(i, k) /= factor;
    m(k, i) *= factor;
  }
}

/// Makes the sizes of row i and column i alike by powers of 2, which go to `scale`. The diagonal counts: cells that are
/// small beside it need no scaling (James, Langou, Lowery, On matrix balancing and eigenvector computation, 2014).
/// Vectors are scaled back in the end, and the errors of their components with them: where the norm does not fall as
/// the scales grow, all is taken back.
void balance(const Square& m, double* scale) {
  constexpr int kMaxPasses = 20, kMaxExponent = 100;
  const auto exponent_of = [](double x) {
    int exponent = 0;
    static_cast<void>(std::frexp(x, &exponent));
    return exponent;
  };
  const Square whole{m.a, m.n};
  const double norm = norm_of(whole);
  std::fill_n(scale, m.n, 1.0);
  bool changed = true;
  for (int pass = 0; changed && pass < kMaxPasses; ++pass) {
    changed = false;
    for (std::size_t i = m.first; i <= m.last; ++i) {
      double row = 0.0, column = 0.0;
      for (std::size_t k = m.first; k <= m.last; ++k) {
        row += std::abs(m(i, k));
        column += std::abs(m(k, i));
      }
      if (row == 0.0 || column == 0.0) continue;
      const int so_far = exponent_of(scale[i]);
      const int shift =
          std::clamp((exponent_of(row) - exponent_of(column)) / 2, -kMaxExponent - so_far, kMaxExponent - so_far);
      if (shift == 0) continue;
      const double factor = std::ldexp(1.0, shift);
      scale[i] *= factor;
      scale_line(m, i, factor);
      changed = true;
    }
  }
  const auto [least, most] = std::minmax_element(scale + m.first, scale + m.last + 1);
  if (*most / *least <= 64.0 * norm / norm_of(whole)) return;
  for (std::size_t i = m.first; i <= m.last; ++i) scale_line(m, i, 1.0 / std::exchange(scale[i], 1.0));
}

/// Makes the cells below the first subdiagonal 0; z gets the product of the reflections that do it. tau has n cells.
void reduce_to_hessenberg(const Square& m, double* const* z, double* tau) {
  for (std::size_t c = 0; c < m.n; ++c) {
    std::fill_n(z[c], m.n, 0.0);
    z[c][c] = 1.0;
  }
  for (std::size_t k = m.first; k + 1 < m.last; ++k) {
    const std::size_t row = k + 1, rows = m.last - k;
    double* const v = z[row] + row;
    std::copy_n(m.a[k] + row, rows, v);
    const Reflection h = make_reflection(v, rows);
    tau[row] = h.tau;
    m(row, k) = h.image;
    std::fill_n(m.a[k] + row + 1, rows - 1, 0.0);
    reflect_columns(v, h.tau, m.a + row, m.n - row, row, rows);
    reflect_rows(v, h.tau, m.a + row, rows, 0, m.last + 1);
  }
  tau[m.last] = 0.0;
  if (m.first < m.last) form_product(z + m.first + 1, tau + m.first + 1, m.rows() - 1, m.first + 1, m.rows() - 1);
}

/// Works on a Hessenberg matrix until it is triangular; z takes part in all similarities.
class TriangularForm {
 public:
  TriangularForm(const Square& m, double* const* z) : m_(m), z_(z), norm_(norm_of(m)) {}

  double norm() const { return norm_; }

  EigenState run() {
    std::size_t end = m_.last;
    for (int steps = 0;; ++steps) {
      const std::size_t start = split(end);
      if (start == end || start + 1 == end) {
        if (start != end && !triangular_pair(start)) return EigenState::complex_values;
        if (start <= m_.first) return EigenState::found;
        end = start - 1;
        steps = -1;
        continue;
      }
      if (steps == kMaxSteps) return EigenState::not_converged;
      double v[3];
      const std::size_t from = first_column(start, end, steps, v);
      sweep(start, from, end, v);
    }
  }

 private:
  /// The row where the last part begins that hangs together; the cell before it becomes 0.
  std::size_t split(std::size_t end) const {
    std::size_t l = end;
    for (; l > m_.first; --l) {
      const double size = std::abs(m_(l - 1, l - 1)) + std::abs(m_(l, l));
      if (std::abs(m_(l, l - 1)) <= kEpsilon * size + 0x1p-75 * norm_) break;
    }
    if (l > m_.first) m_(l, l - 1) = 0.0;
    return l;
  }

  /// The first column of (H - s)(H - t) with the eigenvalues s, t of the last two rows as shifts, from the row where
  /// two neighbouring cells are so small that the sweep can begin there.
  std::size_t first_column(std::size_t start, std::size_t end, int steps, double* v) const {
    double x = m_(end, end), y = m_(end - 1, end - 1), w = m_(end, end - 1) * m_(end - 1, end);
    if (steps % 10 == 9) {
      // Shifts of another kind, where the usual ones go round in a circle.
      const double s = std::abs(m_(end, end - 1)) + std::abs(m_(end - 1, end - 2));
      x = y = x + 0.75 * s;
      w = -0.4375 * s * s;
    }
    for (std::size_t k = end - 2;; --k) {
      const double z = m_(k, k), r = x - z, s = y - z;
      v[0] = (r * s - w) / m_(k + 1, k) + m_(k, k + 1);
      v[1] = m_(k + 1, k + 1) - z - r - s;
      v[2] = m_(k + 2, k + 1);
      if (k == start) return k;
      const double around = std::abs(m_(k - 1, k - 1)) + std::abs(z) + std::abs(m_(k + 1, k + 1));
      if (std::abs(m_(k, k - 1)) * (std::abs(v[1]) + std::abs(v[2])) <= kEpsilon * std::abs(v[0]) * around) return k;
    }
  }

  /// Chases the bulge that the reflection of v makes from row `from` to `end`.
  void sweep(std::size_t start, std::size_t from, std::size_t end, double* v) const {
    for (std::size_t k = from; k < end; ++k) {
      const std::size_t size = std::min<std::size_t>(3, end - k + 1);
      if (k != from) std::copy_n(m_.a[k - 1] + k, size, v);
      const Reflection h = make_reflection(v, size);
      if (k != from) {
        m_(k, k - 1) = h.image;
        std::fill_n(m_.a[k - 1] + k + 1, size - 1, 0.0);
      } else if (from != start) {
        m_(k, k - 1) *= 1.0 - h.tau;
      }
      if (size == 2) v[2] = 0.0;
      for (std::size_t c = k; c < m_.n; ++c) {
        double* const cell = m_.a[c] + k;
        const double f = h.tau * (cell[0] + v[1] * cell[1] + (size == 3 ? v[2] * cell[2] : 0.0));
        cell[0] -= f;
        cell[1] -= f * v[1];
        if (size == 3) cell[2] -= f * v[2];
      }
      reflect_rows(v, h.tau, m_.a + k, size, 0, std::min(k + 3, end) + 1);
      reflect_rows(v, h.tau, z_ + k, size, 0, m_.n);
    }
  }

  /// Makes the cell (k + 1, k) 0 by a rotation; false if the eigenvalues of the two rows are complex.
  bool triangular_pair(std::size_t k) const {
    const double b = m_(k, k + 1), c = m_(k + 1, k), half = (m_(k, k) - m_(k + 1, k + 1)) / 2.0;
    const double square = half * half + b * c;
    double x, y;  // an eigenvector
    if (square >= 0.0) {
      x = half + std::copysign(std::sqrt(square), half);
      y = c;
    } else {
      // Less their mean the rows turn two orthogonal vectors into two others. If the shorter of these may be neglected,
      // the one that it comes from is an eigenvector.
      const double length = hypotenuse(b + c, 2.0 * half);
      x = 1.0;
      y = 0.0;
      if (length != 0.0) {
        x = std::sqrt((1.0 + std::abs(b + c) / length) / 2.0);
        y = (b + c < 0.0 ? half : -half) / (length * x);
      }
      const auto image = [=](double u, double v) { return hypotenuse(half * u + b * v, c * u - half * v); };
      if (image(-y, x) < image(x, y)) x = -std::exchange(y, x);
      if (image(x, y) > tolerance()) return false;
    }
    const double length = hypotenuse(x, y), cosine = x / length, sine = y / length;
    for (std::size_t i = k; i < m_.n; ++i) {
      double* const cell = m_.a[i] + k;
      const double upper = cell[0];
      cell[0] = cosine * upper + sine * cell[1];
      cell[1] = cosine * cell[1] - sine * upper;
    }
    rotate_pair(m_.a + k, k + 2, cosine, sine);
    rotate_pair(z_ + k, m_.n, cosine, sine);
    m_(k + 1, k) = 0.0;
    return true;
  }

  double tolerance() const { return 8.0 * static_cast<double>(m_.n) * kEpsilon * norm_; }

  const Square& m_;
  double* const* z_;
  double norm_;
};

/// Replaces the columns of z, which made m triangular, by the eigenvectors of the matrix before. x and y have n cells.
void form_vectors(const Square& m, double* const* z, double norm, double* x, double* y) {
  constexpr double kLarge = 0x1p200;
  // Values nearer to each other than rounding errors count as that far apart.
  const double least = std::max(kEpsilon * norm, 0x1p-300);
  for (std::size_t k = m.n; k-- > 0;) {
    for (std::size_t i = 0; i < k; ++i) x[i] = -m(i, k);
    x[k] = 1.0;
    for (std::size_t j = k; j-- > 0;) {
      const double apart = m(j, j) - m(k, k);
      x[j] /= std::abs(apart) < least ? least : apart;
      if (std::abs(x[j]) > kLarge) {
        const double down = 1.0 / std::abs(x[j]);
        for (std::size_t i = 0; i <= k; ++i) x[i] *= down;
      }
      for (std::size_t i = 0; i < j; ++i) x[i] -= x[j] * m(i, j);
    }
    combine_columns(z, x, k + 1, 0, m.n, y);
    std::copy_n(y, m.n, z[k]);
  }
}

}  // namespace

EigenState general_eigen(double* const* a, std::size_t n, double* values, double* const* z, double* work,
                         std::size_t* exchanges) noexcept {
  const double scale = scale_matrix(a, n, n);
  if (std::isnan(scale)) return EigenState::not_finite;
  double* const line_scale = work;
  Square m{a, n};
  isolate(m, exchanges);
  balance(m, line_scale);
  reduce_to_hessenberg(m, z, work + n);
  TriangularForm form(m, z);
  if (const EigenState state = form.run(); state != EigenState::found) return state;
  form_vectors(m, z, form.norm(), work + n, work + 2 * n);
  for (std::size_t k = 0; k < n; ++k) {
    values[k] = a[k][k] / scale;
    for (std::size_t r = 0; r < n; ++r) z[k][r] *= line_scale[r];
    for (std::size_t r = m.first; r-- > 0;) std::swap(z[k][r], z[k][exchanges[r]]);
    for (std::size_t r = m.last + 1; r < n; ++r) std::swap(z[k][r], z[k][exchanges[r]]);
    normalize(z[k], n);
  }
  return EigenState::found;
}

}  // namespace zor::kernels

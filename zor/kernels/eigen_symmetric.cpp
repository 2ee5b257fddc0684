#include "zor/kernels/eigen_symmetric.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "zor/kernels/reflections.h"

namespace zor::kernels {
namespace {

constexpr std::size_t kMaxSteps = 50;

/// A tridiagonal matrix: d on the diagonal, beside[k] couples rows k - 1 and k; beside[0] and beside[n] lie outside.
struct Tridiagonal {
  double* d;
  double* beside;
  std::size_t n;
};

/// Leaves reflection k in column k from row k + 1 down. The rank-2 update that a reflection asks for is made on the way
/// to the product that the next one needs. `work` has 2 n cells.
void tridiagonalize(double* const* a, const Tridiagonal& t, double* tau, double* work) {
  const std::size_t n = t.n;
  t.beside[0] = t.beside[n] = 0.0;
  double *w = work, *next = work + n;
  std::fill_n(w, n, 0.0);
  const double* v = w;
  for (std::size_t k = 0;; ++k) {
    for (std::size_t r = k; r < n; ++r) a[k][r] -= v[r] * w[k] + w[r] * v[k];
    t.d[k] = a[k][k];
    if (k + 1 == n) return;
    double* const x = a[k] + k + 1;
    const std::size_t rest = n - k - 1;
    const Reflection h = make_reflection(x, rest);
    t.beside[k + 1] = h.image;
    tau[k] = h.tau;
    std::fill(next + k + 1, next + n, 0.0);
    for (std::size_t j = k + 1; j < n; ++j) update_multiply(a[j] + j, v + j, w + j, a[k] + j, next + j, n - j);
    double* const p = next + k + 1;
    const double half = h.tau * h.tau * dot_in_eight(p, x, rest) / 2.0;
    for (std::size_t i = 0; i < rest; ++i) p[i] = h.tau * p[i] - half * x[i];
    v = a[k];
    std::swap(w, next);
  }
}

/// The product of the reflections that tridiagonalize leaves.
void form_vectors(double* const* a, std::size_t n, const double* tau) {
  form_product(a, tau, n - 1, 1, n - 1);
  for (std::size_t k = n - 1; k > 0; --k) std::copy_n(a[k - 1], n, a[k]);
  std::fill_n(a[0], n, 0.0);
  a[0][0] = 1.0;
}

/// One implicit step on the rows from `far` to `near`, with the shift that the two rows at `near` give, which come
/// apart: a QL step if `near` is the first row, a QR step if it is the last one.
void step_towards(const Tridiagonal& t, std::size_t near, std::size_t far, RotationLog& log) {
  double* const d = t.d;
  const bool down = near < far;
  const auto outward = [down](std::size_t i) { return down ? i + 1 : i - 1; };
  // Couples row i with the next one on the way to `far`.
  const auto coupling = [&](std::size_t i) -> double& { return t.beside[down ? i + 1 : i]; };
  double g = (d[outward(near)] - d[near]) / (2.0 * coupling(near));
  g = d[far] - d[near] + coupling(near) / (g + std::copysign(hypotenuse(g, 1.0), g));
  double c = 1.0, s = 1.0, p = 0.0;
  log.begin(far, down ? -1 : 1);
  for (std::size_t last = far; last != near;) {
    const std::size_t i = down ? last - 1 : last + 1;
    const double f = s * coupling(i), b = c * coupling(i);
    const double length = hypotenuse(f, g);
    coupling(last) = length;
    if (length == 0.0) {
      d[last] -= p;
      coupling(far) = 0.0;
      return;
    }
    s = f / length;
    c = g / length;
    g = d[last] - p;
    const double r = (d[i] - g) * s + 2.0 * c * b;
    p = s * r;
    d[last] = g + p;
    g = c * r - b;
    log.rotate(c, s);
    last = i;
  }
  d[near] -= p;
  coupling(near) = g;
  coupling(far) = 0.0;
}

/// Makes the matrix diagonal; false if that takes more than kMaxSteps steps for each value.
bool diagonalize(const Tridiagonal& t, RotationLog& log) {
  double norm = 0.0;
  for (std::size_t k = 0; k < t.n; ++k) norm = std::max(norm, std::abs(t.d[k]) + std::abs(t.beside[k]));
  // What is small against its neighbours splits the matrix. What is far below the rounding errors of the whole does so
  // too: products of such couplings would vanish, and no step would get past them.
  const auto apart = [&](std::size_t k) {
    return std::abs(t.beside[k]) <= 0x1p-52 * (std::abs(t.d[k - 1]) + std::abs(t.d[k])) + 0x1p-75 * norm;
  };
  std::size_t steps = kMaxSteps * t.n;
  for (std::size_t first = 0; first < t.n;) {
    std::size_t last = first;
    while (last + 1 < t.n && !apart(last + 1)) ++last;
    if (last == first) {
      ++first;
      continue;
    }
    if (steps-- == 0) break;
    // The end with the smaller cells comes apart first; the other way round they would drown.
    const double top = std::abs(t.d[first]) + std::abs(t.beside[first + 1]);
    const double bottom = std::abs(t.d[last]) + std::abs(t.beside[last]);
    if (top > bottom) {
      step_towards(t, last, first, log);
    } else {
      step_towards(t, first, last, log);
    }
  }
  log.flush();
  return steps + 1 != 0;
}

}  // namespace

bool symmetric_eigen(double* const* a, std::size_t n, double* values, double* work) noexcept {
  const double scale = scale_matrix(a, n, n);
  if (std::isnan(scale)) return std::fill_n(values, n, scale), false;
  const Tridiagonal t{values, work, n};
  double* const tau = work + n + 1;
  tridiagonalize(a, t, tau, tau + n);
  form_vectors(a, n, tau);
  RotationLog log(a, n, n, tau + 3 * n);
  const bool converged = diagonalize(t, log);
  for (std::size_t k = 0; k < n; ++k) values[k] /= scale;
  return converged;
}

}  // namespace zor::kernels

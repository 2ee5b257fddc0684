#include "zor/kernels/eigen_symmetric.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "zor/kernels/reflections.h"

namespace zor::kernels {
namespace {

constexpr int kMaxSteps = 50;

/// Leaves the diagonal in d, the cells beside it in e[0] ... e[n - 2], and reflection k in column k from row k + 1
/// down. The rank-2 update that a reflection asks for is made on the way to the product that the next one needs. `work`
/// has 2 n cells.
void tridiagonalize(double* const* a, std::size_t n, double* d, double* e, double* tau, double* work) {
  double *w = work, *next = work + n;
  std::fill_n(w, n, 0.0);
  const double* v = w;
  for (std::size_t k = 0;; ++k) {
    for (std::size_t r = k; r < n; ++r) a[k][r] -= v[r] * w[k] + w[r] * v[k];
    d[k] = a[k][k];
    if (k + 1 == n) return;
    double* const x = a[k] + k + 1;
    const std::size_t rest = n - k - 1;
    const Reflection h = make_reflection(x, rest);
    e[k] = h.image;
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

/// One implicit QL step on rows first ... last, with the shift that the first two of them give.
void ql_step(double* d, double* e, std::size_t first, std::size_t last, RotationLog& log) {
  double g = (d[first + 1] - d[first]) / (2.0 * e[first]);
  g = d[last] - d[first] + e[first] / (g + std::copysign(hypotenuse(g, 1.0), g));
  double c = 1.0, s = 1.0, p = 0.0;
  log.begin(last, -1);
  for (std::size_t i = last; i-- > first;) {
    const double f = s * e[i], b = c * e[i];
    const double length = hypotenuse(f, g);
    e[i + 1] = length;
    if (length == 0.0) {
      d[i + 1] -= p;
      e[last] = 0.0;
      return;
    }
    s = f / length;
    c = g / length;
    g = d[i + 1] - p;
    const double r = (d[i] - g) * s + 2.0 * c * b;
    p = s * r;
    d[i + 1] = g + p;
    g = c * r - b;
    log.rotate(c, s);
  }
  d[first] -= p;
  e[first] = g;
  e[last] = 0.0;
}

/// Makes the tridiagonal matrix diagonal. e has n cells, the last one to work in.
bool diagonalize(double* d, double* e, std::size_t n, RotationLog& log) {
  constexpr double kEpsilon = 0x1p-52, kNothing = 0x1p-900;
  bool converged = true;
  e[n - 1] = 0.0;
  for (std::size_t first = 0; first < n; ++first) {
    for (int steps = 0;; ++steps) {
      std::size_t last = first;
      while (last + 1 < n && !(std::abs(e[last]) <= kEpsilon * (std::abs(d[last]) + std::abs(d[last + 1])) + kNothing))
        ++last;
      if (last == first) break;
      if (steps == kMaxSteps) {
        converged = false;
        break;
      }
      ql_step(d, e, first, last, log);
    }
  }
  log.flush();
  return converged;
}

}  // namespace

bool symmetric_eigen(double* const* a, std::size_t n, double* values, double* work) noexcept {
  const double scale = scale_matrix(a, n, n);
  if (std::isnan(scale)) return std::fill_n(values, n, scale), false;
  double* const e = work;
  double* const tau = work + n;
  tridiagonalize(a, n, values, e, tau, work + 2 * n);
  form_vectors(a, n, tau);
  RotationLog log(a, n, n, work + 4 * n);
  const bool converged = diagonalize(values, e, n, log);
  for (std::size_t k = 0; k < n; ++k) values[k] /= scale;
  return converged;
}

}  // namespace zor::kernels

#include "zor/kernels/jacobi.h"

#include <algorithm>
#include <cmath>

namespace zor::kernels {

namespace {

constexpr int kMostSweeps = 100;

struct Rotation {
  double s, tau;
  void operator()(double& g, double& h) const {
    const double before = g;
    g -= s * (h + g * tau);
    h += s * (before - h * tau);
  }
};

double sum_of_magnitudes(const double* const* a, std::size_t n) {
  double sum = 0.0;
  for (std::size_t p = 0; p + 1 < n; ++p)
    for (std::size_t q = p + 1; q < n; ++q) sum += std::abs(a[q][p]);
  return sum;
}

void rotate(double* const* a, double* const* vectors, std::size_t n, std::size_t p, std::size_t q, Rotation turn) {
  for (std::size_t j = 0; j < p; ++j) turn(a[p][j], a[q][j]);
  for (std::size_t j = p + 1; j < q; ++j) turn(a[j][p], a[q][j]);
  for (std::size_t j = q + 1; j < n; ++j) turn(a[j][p], a[j][q]);
  double* const left = vectors[p];
  double* const right = vectors[q];
  for (std::size_t j = 0; j < n; ++j) turn(left[j], right[j]);
}

/// Tangent of the angle that makes a off-diagonal cell 0; h is the difference of the values beside it.
double tangent(double a, double h, double g) {
  if (std::abs(h) + g == std::abs(h)) return a / h;
  const double theta = h / a / 2.0, t = 1.0 / (std::abs(theta) + std::sqrt(theta * theta + 1.0));
  return theta < 0.0 ? -t : t;
}

}  // namespace

bool jacobi_eigen(double* const* a, std::size_t n, double* values, double* const* vectors, double* work,
                  StepAborts step) {
  double* const b = work;
  double* const z = work + n;
  for (std::size_t i = 0; i < n; ++i) {
    values[i] = b[i] = a[i][i];
    z[i] = 0.0;
    std::fill_n(vectors[i], n, 0.0);
    vectors[i][i] = 1.0;
  }
  for (int sweep = 1; sweep <= kMostSweeps; ++sweep) {
    bool aborted = step();
    const double sum = sum_of_magnitudes(a, n);
    if (sum == 0.0) return !aborted;
    const double threshold = sweep < 4 ? 0.2 * sum / (static_cast<double>(n) * static_cast<double>(n)) : 0.0;
    for (std::size_t p = 0; p + 1 < n && !aborted; ++p) {
      for (std::size_t q = p + 1; q < n && !aborted; ++q) {
        aborted = step();
        double& cell = a[q][p];
        const double g = 200.0 * std::abs(cell);
        if (sweep > 4 && std::abs(values[p]) + g == std::abs(values[p]) &&
            std::abs(values[q]) + g == std::abs(values[q])) {
          cell = 0.0;
          continue;
        }
        if (!(std::abs(cell) > threshold)) continue;
        const double t = tangent(cell, values[q] - values[p], g), c = 1.0 / std::sqrt(t * t + 1.0), h = t * cell;
        const double s = t / std::sqrt(t * t + 1.0);
        z[p] -= h;
        z[q] += h;
        values[p] -= h;
        values[q] += h;
        cell = 0.0;
        rotate(a, vectors, n, p, q, {s, s / (c + 1.0)});
      }
    }
    for (std::size_t i = 0; i < n; ++i) {
      b[i] += z[i];
      values[i] = b[i];
      z[i] = 0.0;
    }
    if (aborted) return false;
  }
  return false;
}

}  // namespace zor::kernels

#include "zor/distributions/kolmogorov_smirnov.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <new>
#include <numbers>
#include <vector>

#include "zor/runtime/exception.h"

namespace ZOR_statis {

namespace {

constexpr std::size_t kLargestSide = 400;
constexpr Double kLarge = 1e140;

/// A square matrix of doubles times a power of ten.
struct Scaled {
  std::vector<Double> cells;
  Integer exponent = 0;
};

std::vector<Double> product(const std::vector<Double>& a, const std::vector<Double>& b, std::size_t m) {
  std::vector<Double> c(m * m, 0.0);
  for (std::size_t i = 0; i < m; ++i)
    for (std::size_t k = 0; k < m; ++k) {
      const Double factor = a[i * m + k];
      for (std::size_t j = 0; j < m; ++j) c[i * m + j] += factor * b[k * m + j];
    }
  return c;
}

Scaled power(const std::vector<Double>& a, Integer n, std::size_t m) {
  if (n == 1) return {a, 0};
  const Scaled half = power(a, n / 2, m);
  Scaled v{product(half.cells, half.cells, m), 2 * half.exponent};
  if (n % 2 != 0) v.cells = product(a, v.cells, m);
  if (v.cells[(m / 2) * m + m / 2] > kLarge) {
    for (Double& cell : v.cells) cell /= kLarge;
    v.exponent += 140;
  }
  return v;
}

/// The matrix whose power holds the probability in its centre. h is how far n d lies below the next integer.
std::vector<Double> transition(std::size_t m, Double h) {
  std::vector<Double> a(m * m);
  for (std::size_t i = 0; i < m; ++i)
    for (std::size_t j = 0; j < m; ++j) a[i * m + j] = i + 1 >= j ? 1.0 : 0.0;
  for (std::size_t i = 0; i < m; ++i) {
    a[i * m] -= std::pow(h, static_cast<Double>(i + 1));
    a[(m - 1) * m + i] -= std::pow(h, static_cast<Double>(m - i));
  }
  if (2.0 * h - 1.0 > 0.0) a[(m - 1) * m] += std::pow(2.0 * h - 1.0, static_cast<Double>(m));
  for (std::size_t i = 0; i < m; ++i)
    for (std::size_t j = 0; j < m && j <= i; ++j)
      for (std::size_t g = 1; g <= i - j + 1; ++g) a[i * m + j] /= static_cast<Double>(g);
  return a;
}

Double exact_tail(Integer n, Double d, std::size_t k) {
  const std::size_t m = 2 * k - 1;
  try {
    const Scaled q = power(transition(m, static_cast<Double>(k) - n * d), n, m);
    Double v = q.cells[(k - 1) * m + k - 1];
    Integer exponent = q.exponent;
    for (Integer i = 1; i <= n; ++i) {
      v = v * i / n;
      if (v < 1.0 / kLarge) {
        v *= kLarge;
        exponent -= 140;
      }
    }
    return std::clamp(1.0 - v * std::pow(10.0, exponent), 0.0, 1.0);
  } catch (const std::bad_alloc&) {
    std::throw_with_nested(ZOR_runtime::EOutOfMemory("not enough memory"));
  }
}

/// Kolmogorov's limit with the terms up to n^(-3/2).
Double series_tail(Integer n, Double d) noexcept {
  using std::numbers::pi;
  const Double root = std::sqrt(n), z = root * d, z2 = z * z, z4 = z2 * z2, z6 = z4 * z2, z7 = z6 * z, z8 = z4 * z4,
               z10 = z8 * z2, pi2 = pi * pi, pi4 = pi2 * pi2, pi6 = pi4 * pi2;
  Double k0 = 0.0, k1 = 0.0, k2 = 0.0, k2b = 0.0, k3 = 0.0, k3b = 0.0;
  for (int i = 0; i <= 20; ++i) {
    const Double h = i + 0.5, hh = h * h, e = std::exp(-hh * pi2 / (2.0 * z2));
    k0 += e;
    k1 += (pi2 * hh - z2) * e;
    k2 += (6.0 * z6 + 2.0 * z4 + pi2 * (2.0 * z4 - 5.0 * z2) * hh + pi4 * (1.0 - 2.0 * z2) * hh * hh) * e;
    k3 += (-30.0 * z6 - 90.0 * z8 + pi2 * (135.0 * z4 - 96.0 * z6) * hh + pi4 * (212.0 * z4 - 60.0 * z2) * hh * hh +
           pi6 * hh * hh * hh * (5.0 - 30.0 * z2)) *
          e;
  }
  for (int i = 1; i <= 20; ++i) {
    const Double ii = static_cast<Double>(i) * i, e = std::exp(-ii * pi2 / (2.0 * z2));
    k2b += pi2 * ii * e;
    k3b += (3.0 * pi2 * ii * z2 - pi4 * ii * ii) * e;
  }
  const Double full = std::sqrt(2.0 * pi), half = std::sqrt(pi / 2.0);
  const Double p = full / z * k0 + half / (3.0 * z4) * k1 / root +
                   (half / (36.0 * z7) * k2 - half / (18.0 * z2 * z) * k2b) / n +
                   (half / (3240.0 * z10) * k3 + half / (108.0 * z6) * k3b) / (n * root);
  return std::clamp(1.0 - p, 0.0, 1.0);
}

Double polynomial(const Double (&c)[7], Double x) noexcept {
  Double sum = 0.0;
  for (int i = 6; i >= 0; --i) sum = sum * x + c[i];
  return sum;
}

}  // namespace

Double KSPValue(Integer n, Double d) {
  if (std::isnan(d)) return d;
  if (n < 1 || d <= 0.0) return 1.0;
  if (d >= 1.0) return 0.0;
  const Double s = d * d * n, root = std::sqrt(n);
  if (s > 7.24 || (s > 3.76 && n > 99)) return 2.0 * std::exp(-(2.000071 + 0.331 / root + 1.409 / n) * s);
  if (s < 0.03 && n > 99) return 1.0;  // to 2e-15
  const auto k = static_cast<std::size_t>(n * d) + 1;
  return 2 * k - 1 <= kLargestSide ? exact_tail(n, d, k) : series_tail(n, d);
}

Double KolmogSmir1SampleTestStat(Integer n, TSignifLevel level) noexcept {
  static constexpr Double kTable[20][5] = {
      {0.9, 0.925, 0.95, 0.975, 0.995},    {0.684, 0.726, 0.776, 0.842, 0.929}, {0.565, 0.597, 0.642, 0.708, 0.828},
      {0.494, 0.525, 0.564, 0.624, 0.733}, {0.446, 0.474, 0.51, 0.565, 0.669},  {0.41, 0.436, 0.47, 0.521, 0.618},
      {0.381, 0.405, 0.438, 0.486, 0.577}, {0.358, 0.381, 0.411, 0.457, 0.543}, {0.339, 0.36, 0.388, 0.432, 0.514},
      {0.322, 0.342, 0.368, 0.41, 0.49},   {0.307, 0.326, 0.352, 0.391, 0.468}, {0.295, 0.313, 0.338, 0.375, 0.45},
      {0.284, 0.302, 0.325, 0.361, 0.433}, {0.274, 0.292, 0.314, 0.349, 0.418}, {0.266, 0.283, 0.304, 0.338, 0.404},
      {0.258, 0.274, 0.295, 0.328, 0.392}, {0.25, 0.266, 0.286, 0.318, 0.381},  {0.244, 0.259, 0.278, 0.309, 0.371},
      {0.237, 0.252, 0.272, 0.301, 0.363}, {0.231, 0.246, 0.264, 0.294, 0.356}};
  static constexpr Double kAsymptotic[5] = {1.073, 1.138, 1.224, 1.358, 1.628};
  if (n < 1 || level > Dot01) return 0.0;
  return n <= 20 ? kTable[n - 1][level] : kAsymptotic[level] / std::sqrt(n);
}

Double KSQuantile(Integer n, TSignifLevel level) {
  Double d = KolmogSmir1SampleTestStat(n, level);
  if (d == 0.0) return 0.0;
  for (int step = 0; step < 200; ++step) {
    const Double error = KSPValue(n, d) - NUMERICSIGNIFLEVEL[level];
    if (!(std::abs(error) > 0.0001)) break;
    d *= 1.0 + error;
  }
  return d;
}

Double LillieforsPValue(Integer n, Double d) noexcept {
  if (n < 6) return -1.0;
  if (d <= 0.0) return 1.0;
  Double size = n;
  if (n > 100) {
    d *= std::pow(size / 100.0, 0.49);
    size = 100.0;
  }
  const Double u = -7.01256 * d * d * (size + 2.78019) + 2.99587 * d * std::sqrt(size + 2.78019) - 0.122119 +
                   0.97498 / std::sqrt(size) + 1.67997 / size;
  return std::isnan(u) ? u : std::exp((std::min)(u, 0.0));
}

Double LillieforsQuantile(Integer n, Double alpha) noexcept {
  static constexpr Double kFirst[7] = {6.32207539843126, -17.1398870006148, 38.42812675101057, -45.93241384693391,
                                       7.88697700041829, 29.79317711037858, -18.48090137098585};
  static constexpr Double kSecond[7] = {12.940399038404,  -53.458334259532,  186.923866119699, -410.582178349305,
                                        517.377862566267, -343.581476222384, 92.123451358715};
  if (n < 1) return 0.0;
  const Double x = 1.0 - std::clamp(alpha, 0.0, 1.0);
  const Double radicand = polynomial(kFirst, x) * n + polynomial(kSecond, x);
  return radicand > 0.0 ? 1.0 / std::sqrt(radicand) : 0.0;
}

}  // namespace ZOR_statis

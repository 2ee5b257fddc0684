#include "zor/kernels/gamma_function.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <span>

namespace zor::kernels {

namespace {

constexpr double kLnRootTwoPi = 0.918938533204672741780329736406;
constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
constexpr double kTiny = 1e-300;
/// Above this parameter Temme's expansion stands for series and fraction near the mode, where they need many rounds.
constexpr double kLargeParameter = 1e5;
/// Enough for parameters below that, and above it for an x that is more than a tenth of it away.
constexpr int kRounds = 10'000;

/// The sum 1 + x / (a + 1) + x^2 / ((a + 1)(a + 2)) + ...
double lower_series(double a, double x) noexcept {
  double term = 1.0, sum = 1.0;
  for (int i = 1; i < kRounds; ++i) {
    term *= x / (a + i);
    sum += term;
    if (term < sum * (kEpsilon / 4.0)) break;
  }
  return sum;
}

/// Q(a, x) gamma(a) e^x x^-a by Lentz's form of Legendre's fraction.
double upper_fraction(double a, double x) noexcept {
  double b = x + 1.0 - a, c = 1.0 / kTiny, d = 1.0 / b, h = d;
  for (int i = 1; i < kRounds; ++i) {
    const double an = -i * (i - a);
    b += 2.0;
    d = an * d + b;
    if (std::abs(d) < kTiny) d = kTiny;
    c = b + an / c;
    if (std::abs(c) < kTiny) c = kTiny;
    d = 1.0 / d;
    const double factor = d * c;
    h *= factor;
    if (std::abs(factor - 1.0) < kEpsilon) break;
  }
  return h;
}

/// P(a, x) and Q(a, x) for a large a and x within a tenth of it: the normal tails, corrected by two terms of the
/// uniform expansion of N. M. Temme (SIAM J. Math. Anal. 10 (1979), 757). Its coefficients are power series in eta,
/// |eta| < 0.11, with eta^2 / 2 = x / a - 1 - ln(x / a).
Tails near_mode(double a, double x) noexcept {
  static constexpr double kFirst[] = {-1.0 / 3,
                                      1.0 / 12,
                                      -2.0 / 135,
                                      1.0 / 864,
                                      1.0 / 2835,
                                      -139.0 / 777600,
                                      1.0 / 25515,
                                      -571.0 / 261273600,
                                      -281.0 / 151559100,
                                      163879.0 / 197522841600,
                                      -5221.0 / 29554024500};
  static constexpr double kSecond[] = {-1.0 / 540, -1.0 / 288, 1.0 / 378, -77.0 / 77760, 1.0 / 4860, -1.0 / 2488320};
  const auto polynomial = [](std::span<const double> c, double at) {
    double sum = 0.0;
    for (std::size_t i = c.size(); i-- > 0;) sum = sum * at + c[i];
    return sum;
  };
  const double half_square = deviance(a, x), z = std::copysign(std::sqrt(2.0 * half_square), x - a);
  const double eta = z / std::sqrt(a);
  const double correction = std::exp(-half_square) / std::sqrt(2.0 * std::numbers::pi * a) *
                            (polynomial(kFirst, eta) + polynomial(kSecond, eta) / a);
  const Tails of = normal_tails(z);
  return {of.lower - correction, of.upper + correction};
}

}  // namespace

double stirling_error(double x) noexcept {
  if (x < 15.0) {
    // Raised to where the series holds: ln gamma(x + 1) = ln gamma(y + 1) - sum of ln(x + i).
    double y = x, product = 1.0;
    while (y < 15.0) product *= y += 1.0;
    const double at_y = stirling_error(y) + (y + 0.5) * std::log(y) - y;
    return at_y - std::log(product) - (x + 0.5) * std::log(x) + x;
  }
  const double xx = x * x;
  return (1.0 / 12 -
          (1.0 / 360 - (1.0 / 1260 - (1.0 / 1680 - (1.0 / 1188 - 691.0 / 360360 / xx) / xx) / xx) / xx) / xx) /
         x;
}

double log_gamma(double x) noexcept {
  if (x > 1e305) return std::numeric_limits<double>::infinity();
  if (x >= 15.0) return stirling_error(x) + (x - 0.5) * std::log(x) - x + kLnRootTwoPi;
  double y = x, product = 1.0;
  while (y < 15.0) {
    product *= y;
    y += 1.0;
  }
  return stirling_error(y) + (y - 0.5) * std::log(y) - y + kLnRootTwoPi - std::log(product);
}

double deviance(double x, double m) noexcept {
  if (x == 0.0) return m;
  if (std::abs(x - m) < 0.1 * (x + m)) {
    const double v = (x - m) / (x + m), vv = v * v;
    double sum = (x - m) * v, power = 2.0 * x * v;
    for (int j = 1; j < 1000; ++j) {
      power *= vv;
      const double next = sum + power / (2 * j + 1);
      if (next == sum) break;
      sum = next;
    }
    return sum;
  }
  const double ratio = x / m;
  return x * (std::isinf(ratio) ? std::log(x) - std::log(m) : std::log(ratio)) + m - x;
}

double poisson_term(double x, double m) noexcept {
  if (m == 0.0) return x == 0.0 ? 1.0 : 0.0;
  if (x == 0.0) return std::exp(-m);
  if (std::isinf(x) || std::isinf(m)) return 0.0;
  if (x < 1e-8) return std::exp(-m + x * std::log(m) - log_gamma(x + 1.0));
  return std::exp(-stirling_error(x) - deviance(x, m)) / std::sqrt(2.0 * std::numbers::pi * x);
}

Tails incomplete_gamma(double a, double x) noexcept {
  if (x == 0.0) return {0.0, 1.0};
  if (std::isinf(x)) return {1.0, 0.0};
  if (std::isinf(a)) return {0.0, 1.0};
  if (a > kLargeParameter && std::abs(x - a) < 0.1 * a) return near_mode(a, x);
  const double term = poisson_term(a, x);  // x^a e^-x / gamma(a + 1)
  if (x < a + 1.0) {
    const double lower = std::fmin(1.0, term * lower_series(a, x));
    return {lower, 1.0 - lower};
  }
  // a term is x^a e^-x / gamma(a), in which a cancels for a near 0.
  const double upper = std::fmin(1.0, a * term * upper_fraction(a, x));
  return {1.0 - upper, upper};
}

Tails normal_tails(double z) noexcept {
  const Tails of = incomplete_gamma(0.5, z * z / 2.0);
  const double far = of.upper / 2.0, near = z * z / 2.0 < 1.5 ? 0.5 + of.lower / 2.0 : 1.0 - far;
  const double tail = z * z / 2.0 < 1.5 ? 0.5 - of.lower / 2.0 : far;
  return z < 0.0 ? Tails{tail, near} : Tails{near, tail};
}

double log_normal_tail(double z) noexcept {
  const double x = z * z / 2.0;
  return -x + std::log(z * upper_fraction(0.5, x)) - kLnRootTwoPi - std::numbers::ln2;
}

}  // namespace zor::kernels

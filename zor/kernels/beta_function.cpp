#include "zor/kernels/beta_function.h"

#include <cmath>
#include <initializer_list>
#include <limits>
#include <numbers>

namespace zor::kernels {

namespace {

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
constexpr double kTiny = 1e-300;
constexpr int kRounds = 20'000;

/// Lentz's form of the fraction of I_x(a, b), for x below its mode.
double fraction(double x, double a, double b) noexcept {
  const double ab = a + b, a_up = a + 1.0, a_down = a - 1.0;
  double c = 1.0, d = 1.0 - ab * x / a_up;
  if (std::abs(d) < kTiny) d = kTiny;
  d = 1.0 / d;
  double h = d;
  for (int m = 1; m <= kRounds; ++m) {
    const double m2 = 2.0 * m;
    const double even = m * (b - m) * x / ((a_down + m2) * (a + m2));
    const double odd = -(a + m) * (ab + m) * x / ((a + m2) * (a_up + m2));
    double step = 1.0;
    for (const double term : {even, odd}) {
      d = 1.0 + term * d;
      if (std::abs(d) < kTiny) d = kTiny;
      c = 1.0 + term / c;
      if (std::abs(c) < kTiny) c = kTiny;
      d = 1.0 / d;
      step = d * c;
      h *= step;
    }
    if (std::abs(step - 1.0) < kEpsilon) break;
  }
  return h;
}

/// x^a y^b / (a B(a, b)).
double front(double x, double y, double a, double b) noexcept { return binomial_term(a, b, x, y) * b / (a + b); }

}  // namespace

double binomial_term(double a, double b, double x, double y) noexcept {
  const double n = a + b;
  if (a == 0.0) return b == 0.0 ? 1.0 : std::exp(x < 0.1 ? b * std::log1p(-x) : b * std::log(y));
  if (b == 0.0) return std::exp(y < 0.1 ? a * std::log1p(-y) : a * std::log(x));
  if (x == 0.0 || y == 0.0) return 0.0;
  if (std::fmin(a, b) < 1e-8)
    return std::exp(log_gamma(n + 1.0) - log_gamma(a + 1.0) - log_gamma(b + 1.0) + a * std::log(x) +
                    b * (x < 0.1 ? std::log1p(-x) : std::log(y)));
  const double exponent =
      stirling_error(n) - stirling_error(a) - stirling_error(b) - deviance(a, n * x) - deviance(b, n * y);
  return std::exp(exponent) * std::sqrt(n / (2.0 * std::numbers::pi * a) / b);
}

Tails incomplete_beta(double x, double y, double a, double b) noexcept {
  if (x <= 0.0) return {0.0, 1.0};
  if (y <= 0.0) return {1.0, 0.0};
  if (x * (a + b + 2.0) < a + 1.0) {
    const double lower = std::fmin(1.0, front(x, y, a, b) * fraction(x, a, b));
    return {lower, 1.0 - lower};
  }
  const double upper = std::fmin(1.0, front(y, x, b, a) * fraction(y, b, a));
  return {1.0 - upper, upper};
}

}  // namespace zor::kernels

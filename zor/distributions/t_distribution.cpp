#include "zor/distributions/t_distribution.h"

#include <cmath>
#include <numbers>

#include "zor/distributions/open_distributions_internal.h"
#include "zor/kernels/beta_function.h"
#include "zor/kernels/quantile.h"

namespace ZOR_statis {

using zor::detail::bounded_quantile;
using zor::detail::kManyDegrees;
using zor::detail::usable;
using zor::kernels::Tails;

namespace {

/// Tails at |t|.
Tails tails(Double t, Double df) noexcept {
  t = std::abs(t);
  if (df > kManyDegrees) return zor::kernels::normal_tails(t);
  const Double r = t / std::sqrt(df), rr = r * r;
  if (std::isinf(rr)) {
    // Beyond the squares the tail is a power: I_x(df / 2, 1 / 2) for x = 1 / r^2 near 0.
    const Double a = df / 2.0;
    const Double ln = zor::kernels::log_gamma(a + 0.5) - zor::kernels::log_gamma(a + 1.0) -
                      0.5 * std::log(std::numbers::pi) - df * (std::log(t) - 0.5 * std::log(df));
    return {1.0, 0.5 * std::exp(ln)};
  }
  const Tails of = zor::kernels::incomplete_beta(1.0 / (1.0 + rr), rr / (1.0 + rr), df / 2.0, 0.5);
  return {0.5 + of.upper / 2.0, of.lower / 2.0};
}

}  // namespace

Double tDistriDensity(Double t, Double df) noexcept {
  if (!usable(df) || std::isnan(t)) return 0.0;
  if (df > kManyDegrees) return std::exp(-t * t / 2.0) / std::sqrt(2.0 * std::numbers::pi);
  const Double r = std::abs(t) / std::sqrt(df), half = df / 2.0;
  // The density at 0 by Loader's terms, times (1 + r^2)^(-(df + 1) / 2).
  const Double at_zero = std::exp(-zor::kernels::deviance(half, half + 0.5) + zor::kernels::stirling_error(half + 0.5) -
                                  zor::kernels::stirling_error(half)) /
                         std::sqrt(2.0 * std::numbers::pi);
  const Double ln = r > 1e100 ? 2.0 * std::log(std::abs(t)) - std::log(df) : std::log1p(r * r);
  return at_zero * std::exp(-(half + 0.5) * ln);
}

Double tDistriIntegral(Double t, Double df) noexcept {
  if (!usable(df) || std::isnan(t)) return 0.5;
  const Tails at = tails(t, df);
  return t > 0.0 ? at.lower : at.upper;
}

Double tDistriQuantile(Double p, Double df) noexcept {
  if (!usable(df) || !(p > 0.0 && p < 1.0) || p == 0.5) return 0.0;
  const Double q = p < 0.5 ? p : 1.0 - p;
  const Double t = bounded_quantile(zor::kernels::positive_quantile(
      1.0 - q, q, std::abs(zor::detail::rough_normal_quantile(q)) + 1e-3, [df](Double x) { return tails(x, df); },
      [df](Double x) { return tDistriDensity(x, df); }));
  return p < 0.5 ? -t : t;
}

}  // namespace ZOR_statis

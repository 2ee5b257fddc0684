#include "zor/distributions/chi2_distribution.h"

#include <algorithm>
#include <cmath>

#include "zor/distributions/open_distributions_internal.h"
#include "zor/kernels/gamma_function.h"
#include "zor/kernels/quantile.h"

namespace ZOR_statis {

using zor::detail::bounded_quantile;
using zor::detail::usable;
using zor::kernels::Tails;

namespace {

Tails tails(Double x, Double df) noexcept {
  if (!usable(df) || std::isnan(x)) return {0.0, 0.0};
  if (!(x > 0.0)) return {0.0, 1.0};
  return zor::kernels::incomplete_gamma(df / 2.0, x / 2.0);
}

}  // namespace

Double Chi2DistriDensity(Double x, Double df) noexcept {
  if (!usable(df) || !(x >= 0.0)) return 0.0;
  if (x == 0.0) return df == 2.0 ? 0.5 : 0.0;
  if (df >= 2.0) return zor::kernels::poisson_term(df / 2.0 - 1.0, x / 2.0) / 2.0;
  return zor::kernels::poisson_term(df / 2.0, x / 2.0) * (df / x) / 2.0;
}

Double chi2DistriIntegral(Double x, Double df) noexcept { return tails(x, df).lower; }
Double chi2DistriUpperTail(Double x, Double df) noexcept { return tails(x, df).upper; }

Double chi2DistriQuantile(Double p, Double df) noexcept {
  if (!usable(df) || !(p > 0.0 && p < 1.0)) return 0.0;
  // E. B. Wilson, M. M. Hilferty, PNAS 17 (1931), 684; where that is negative the power law near 0.
  const Double c = 2.0 / (9.0 * df), cube = 1.0 - c + zor::detail::rough_normal_quantile(p) * std::sqrt(c);
  const Double a = df / 2.0;
  const Double start =
      cube > 0.3 ? df * cube * cube * cube : 2.0 * std::exp((std::log(p) + zor::kernels::log_gamma(a + 1.0)) / a);
  return bounded_quantile(zor::kernels::positive_quantile(
      p, 1.0 - p, start, [df](Double x) { return tails(x, df); }, [df](Double x) { return Chi2DistriDensity(x, df); }));
}

}  // namespace ZOR_statis

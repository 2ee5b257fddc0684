#include "zor/distributions/f_distribution.h"

#include <cmath>

#include "zor/distributions/chi2_distribution.h"
#include "zor/distributions/open_distributions_internal.h"
#include "zor/kernels/beta_function.h"
#include "zor/kernels/quantile.h"

namespace ZOR_statis {

using zor::detail::bounded_quantile;
using zor::detail::kManyDegrees;
using zor::detail::usable;
using zor::kernels::Tails;

namespace {

bool usable(Double df1, Double df2) noexcept { return zor::detail::usable(df1) && zor::detail::usable(df2); }

/// df1 x / (df1 x + df2) and its complement.
struct Share {
  Double x, y;
};
Share share(Double x, Double df1, Double df2) noexcept {
  const Double r = x * (df1 / df2);
  if (std::isinf(r)) return {1.0, 0.0};
  return {r / (1.0 + r), 1.0 / (1.0 + r)};
}

Tails tails(Double x, Double df1, Double df2) noexcept {
  if (!usable(df1, df2) || std::isnan(x)) return {0.0, 0.0};
  if (!(x > 0.0)) return {0.0, 1.0};
  if (df2 > kManyDegrees) return {chi2DistriIntegral(x * df1, df1), chi2DistriUpperTail(x * df1, df1)};
  if (df1 > kManyDegrees) return {chi2DistriUpperTail(df2 / x, df2), chi2DistriIntegral(df2 / x, df2)};
  const Share at = share(x, df1, df2);
  return zor::kernels::incomplete_beta(at.x, at.y, df1 / 2.0, df2 / 2.0);
}

}  // namespace

Double FDistriDensity(Double x, Double df1, Double df2) noexcept {
  if (!usable(df1, df2) || !(x >= 0.0)) return 0.0;
  if (x == 0.0) return df1 == 2.0 ? 1.0 : 0.0;
  if (df2 > kManyDegrees) return df1 * Chi2DistriDensity(x * df1, df1);
  if (df1 > kManyDegrees) return df2 / x / x * Chi2DistriDensity(df2 / x, df2);
  const Share at = share(x, df1, df2);
  const Double a = df1 / 2.0, b = df2 / 2.0;
  return zor::kernels::binomial_term(a, b, at.x, at.y) * (a * (b / (a + b))) / x;
}

Double FDistriIntegral(Double x, Double df1, Double df2) noexcept { return tails(x, df1, df2).lower; }
Double FDistriUpperTail(Double x, Double df1, Double df2) noexcept { return tails(x, df1, df2).upper; }

Double FDistriQuantile(Double p, Double df1, Double df2) noexcept {
  if (!usable(df1, df2) || !(p > 0.0 && p < 1.0)) return 0.0;
  // The cube roots of both chi-squared variables are nearly normal (E. Paulson, Ann. Math. Stat. 13 (1942), 233).
  const Double c1 = 2.0 / (9.0 * df1), c2 = 2.0 / (9.0 * df2), z = zor::detail::rough_normal_quantile(p);
  const Double m1 = 1.0 - c1, m2 = 1.0 - c2, under = m2 * m2 - z * z * c2;
  const Double root = z * std::sqrt(m1 * m1 * c2 + m2 * m2 * c1 - z * z * c1 * c2);
  const Double cube = under > 0.1 ? (m1 * m2 + root) / under : 1.0;
  const Double start = cube > 0.2 && cube < 5.0 ? cube * cube * cube : 1.0;
  return bounded_quantile(zor::kernels::positive_quantile(
      p, 1.0 - p, start, [=](Double x) { return tails(x, df1, df2); },
      [=](Double x) { return FDistriDensity(x, df1, df2); }));
}

}  // namespace ZOR_statis

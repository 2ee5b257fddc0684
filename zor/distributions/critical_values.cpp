#include "zor/distributions/critical_values.h"

#include <cmath>

#include "zor/distributions/dean_dixon_table_internal.h"
#include "zor/distributions/t_distribution.h"

namespace ZOR_statis {

Double DeanDixonCriticalValues(Integer n, TSignifLevelEx level) noexcept {
  if (n < 3 || n > 100 || level > Dot500) return -1.0;
  return kDeanDixon[n - 3][level] / 1000.0;
}

Double GrubbsCriticalValues(Integer n, Double alpha, Boolean TwoSided) noexcept {
  if (n < 3 || !(alpha > 0.0 && alpha < 1.0)) return -1.0;
  // The quantile of the upper tail by symmetry: 1 - alpha / n would lose its digits.
  const Double df = n - 2.0, t = -tDistriQuantile(alpha / ((TwoSided ? 2.0 : 1.0) * n), df);
  if (std::isinf(t * t)) return (n - 1.0) / std::sqrt(n);
  return (n - 1.0) / std::sqrt(n) * std::sqrt(t * t / (df + t * t));
}

}  // namespace ZOR_statis

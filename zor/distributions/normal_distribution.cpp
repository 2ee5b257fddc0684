#include "zor/distributions/normal_distribution.h"

#include <algorithm>
#include <cmath>

#include "zor/base/ZOR_univconst.h"
#include "zor/distributions/open_distributions_internal.h"
#include "zor/distributions/special_functions.h"
#include "zor/kernels/gamma_function.h"

namespace ZOR_statis {

namespace {

/// Newton's method on the logarithm of the tail beside z, for tails below 1e-8.
Double refined_quantile(Double p, Double z) noexcept {
  const Double target = std::log((std::min)(p, 1.0 - p)), sign = z < 0.0 ? -1.0 : 1.0;
  z = std::abs(z);
  for (int step = 0; step < 10; ++step) {
    const Double tail = zor::kernels::log_normal_tail(z);
    const Double change = (tail - target) * std::exp(tail + z * z / 2.0) / ZOR_univconst::uc_sqrt2pitom1;
    z += change;
    if (!(std::abs(change) > 1e-15 * z)) break;
  }
  return sign * z;
}

}  // namespace

Double nDistriDensity(Double x) noexcept { return ZOR_univconst::uc_sqrt2pitom1 * std::exp(-x * x / 2.0); }

Double nDistriIntegral(Double x) noexcept {
  const Double of = IncompleteGamma(x * x / 2.0, 0.5);
  return x > 0.0 ? (1.0 + of) / 2.0 : (1.0 - of) / 2.0;
}

Double nDistriUpperTail(Double x) noexcept { return zor::kernels::normal_tails(x).upper; }

Double nDistriQuantile(Double p) noexcept {
  if (!(p > 0.0 && p < 1.0)) return 0.0;
  const Double start = zor::detail::rough_normal_quantile(p), w = 0.1 * (std::max)(std::abs(start), 0.1);
  Double low = start - w, high = start + w;
  for (int round = 0; round < 200; ++round) {
    const Double m = (low + high) / 2.0, at = nDistriIntegral(m);
    (at > p ? high : low) = m;
    if (std::abs(at - p) / p < 1e-8) return m;
  }
  return refined_quantile(p, start);
}

}  // namespace ZOR_statis

#pragma once

#include <cmath>

#include "zor/base/ZOR_univconst.h"
#include "zor/base/ZOR_zorbase.h"

/// \file  What the normal, chi-squared, F and t distributions share.

namespace zor::detail {

/// Above this number of degrees of freedom a distribution is its limit.
inline constexpr double kManyDegrees = 1e10;

inline bool usable(double df) noexcept { return df > 0.0 && std::isfinite(df); }

inline double bounded_quantile(double x) noexcept { return std::isfinite(x) ? x : ZOR_univconst::uc_MaxDouble; }

/// The normal quantile to 5e-4, as a start of iterations (C. Hastings, Approximations for Digital Computers, 1955).
inline double rough_normal_quantile(double p) noexcept {
  const double u = -2.0 * std::log(p < 0.5 ? p : 1.0 - p), t = std::sqrt(u);
  const double z = t - (2.515517 + 0.802853 * t + 0.010328 * u) / (1.0 + 1.432788 * t + u * (0.189269 + 0.001308 * t));
  return p < 0.5 ? -z : z;
}

}  // namespace zor::detail

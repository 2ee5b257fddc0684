#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Critical values of the test of Durbin and Watson for autocorrelation of residuals.

namespace ZOR_statis {

using namespace ZOR_zorbase;

/// The 5 % bounds dl, du for n observations and k regressors, the constant not counted: with five decimals up to n =
/// 100, above within 1e-5 up to k = 10 and 2e-5 up to k = 20 (3e-5 for k up to 2 just above n = 500). False, with dl
/// and du untouched, unless n - k >= 5, 1 <= k <= 20 and 5 <= n <= 2000. J. Durbin, G. S. Watson, Biometrika 38 (1951),
/// 159.
ZOR_API Boolean DurbinWatsonCrit5pct(Integer n, Integer k, Double& dl, Double& du) noexcept;

}  // namespace ZOR_statis

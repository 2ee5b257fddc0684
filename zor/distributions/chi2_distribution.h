#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  The chi-squared distribution with real degrees of freedom df.
/// Relative error of densities, both tails and quantiles below 1e-12; below df = 0.1 upper tails have 1e-13 / df.
/// 0.0 for df <= 0, NaN and infinite df.

namespace ZOR_statis {

using namespace ZOR_zorbase;

/// 0.0 for x < 0; at 0 the limit if it is finite, else 0.0.
ZOR_API Double Chi2DistriDensity(Double x, Double df) noexcept;
/// Lower tail: the probability of a value up to x.
ZOR_API Double chi2DistriIntegral(Double x, Double df) noexcept;
/// Upper tail, with all its digits where 1 - chi2DistriIntegral has none.
ZOR_API Double chi2DistriUpperTail(Double x, Double df) noexcept;
/// The x with lower tail p; 0.0 unless 0 < p < 1. uc_MaxDouble for what is larger.
ZOR_API Double chi2DistriQuantile(Double p, Double df) noexcept;

}  // namespace ZOR_statis

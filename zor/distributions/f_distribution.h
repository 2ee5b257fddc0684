#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Fisher's F distribution with real degrees of freedom df1 (numerator), df2 (denominator).
/// Relative error of densities, both tails and quantiles below 1e-12 from 0.1 to 1e5 degrees; below, small tails have
/// 1e-13 / df, at 1e10 degrees 1e-10. 0.0 for df <= 0, NaN and infinite df; above 1e10 degrees that of the limit, a
/// chi-squared distribution.

namespace ZOR_statis {

using namespace ZOR_zorbase;

/// 0.0 for x < 0; at 0 the limit if it is finite, else 0.0.
ZOR_API Double FDistriDensity(Double x, Double df1, Double df2) noexcept;
/// Lower tail: the probability of a value up to x.
ZOR_API Double FDistriIntegral(Double x, Double df1, Double df2) noexcept;
/// Upper tail, with all its digits where 1 - FDistriIntegral has none.
ZOR_API Double FDistriUpperTail(Double x, Double df1, Double df2) noexcept;
/// The x with lower tail p; 0.0 unless 0 < p < 1. uc_MaxDouble for what is larger.
ZOR_API Double FDistriQuantile(Double p, Double df1, Double df2) noexcept;

}  // namespace ZOR_statis

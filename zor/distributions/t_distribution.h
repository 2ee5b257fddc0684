#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Student's t distribution with real degrees of freedom df.
/// Relative error 1e-13 of density and both tails, 1e-12 of quantiles. Above 1e10 degrees the normal distribution.

namespace ZOR_statis {

using namespace ZOR_zorbase;

/// 0.0 for df <= 0, NaN and infinite df.
ZOR_API Double tDistriDensity(Double t, Double df) noexcept;
/// Lower tail: the probability of a value up to t; the upper tail is that of -t, with all its digits. 0.5 for df <= 0,
/// NaN and infinite df.
ZOR_API Double tDistriIntegral(Double t, Double df) noexcept;
/// The t with lower tail p; 0.0 unless 0 < p < 1 and for bad df. uc_MaxDouble, negative or positive, for what is
/// beyond.
ZOR_API Double tDistriQuantile(Double p, Double df) noexcept;

}  // namespace ZOR_statis

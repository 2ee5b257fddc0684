#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  The standard normal distribution.

namespace ZOR_statis {

using namespace ZOR_zorbase;

/// exp(-x^2 / 2) / sqrt(2 pi).
ZOR_API Double nDistriDensity(Double x) noexcept;
/// Lower tail, from IncompleteGamma: absolute error 5e-10.
ZOR_API Double nDistriIntegral(Double x) noexcept;
/// Upper tail, 1e-13 relative also where it is tiny.
ZOR_API Double nDistriUpperTail(Double x) noexcept;
/// The quantile of nDistriIntegral by bisection, until that is right to 1e-8 of p: error 2.5e-6 at p = 0.999, 4e-4 near
/// 1. Where the bisection can't converge (p below 1e-9) 1e-10 relative by Newton's method on the exact tail. 0.0 unless
/// 0 < p < 1.
ZOR_API Double nDistriQuantile(Double p) noexcept;

}  // namespace ZOR_statis

#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  The error function.

namespace ZOR_statis {

using namespace ZOR_zorbase;

/// The error function from IncompleteGamma: relative error 2e-9.
ZOR_API Double Erf(Double x) noexcept;
/// The error function by a rational Chebyshev form of fixed cost: error 1.2e-7 of the complement. ErfApprox(0) is
/// -3e-8.
ZOR_API Double ErfApprox(Double x) noexcept;

}  // namespace ZOR_statis

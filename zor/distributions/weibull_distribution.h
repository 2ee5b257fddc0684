#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  The Weibull distribution.

namespace ZOR_statis {

using namespace ZOR_zorbase;

/// beta x^(beta - 1) / eta^beta exp(-(x / eta)^beta); 0.0 unless x, beta and eta are above 0.
ZOR_API Double WeibullDensity(Double x, Double beta, Double eta) noexcept;

}  // namespace ZOR_statis

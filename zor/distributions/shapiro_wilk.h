#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  The distribution of the statistic W of Shapiro and Wilk's test of normality.

namespace ZOR_statis {

using namespace ZOR_zorbase;

/// level 0: P(W <= w) for samples of n values, the significance of the test, for a small W speaks against normality;
/// level 1: its complement. P. Royston, Appl. Statist. 44 (1995), 547: n = 3 exactly, else by his polynomials, up to n
/// = 5000. -1.0 for another n or level.
ZOR_API Double ShapiroWilkIntegral(Double w, Integer n, Integer level) noexcept;

}  // namespace ZOR_statis

#pragma once

#include "zor/distributions/signif_levels.h"

/// \file  Critical values of tests of outliers and of autocorrelation.

namespace ZOR_statis {

/// Critical values of Dean and Dixon's outlier test for n values, 3 to 100, three decimals; the ratio of the test
/// changes at n = 8, 11 and 14. -1.0 for another n.
ZOR_API Double DeanDixonCriticalValues(Integer n, TSignifLevelEx level) noexcept;
/// Critical value of Grubbs' outlier test from the t quantile (F. E. Grubbs, Ann. Math. Stat. 21 (1950), 27). -1.0
/// unless 0 < alpha < 1 and n >= 3.
ZOR_API Double GrubbsCriticalValues(Integer n, Double alpha, Boolean TwoSided) noexcept;

}  // namespace ZOR_statis

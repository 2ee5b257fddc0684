#pragma once

#include "zor/distributions/signif_levels.h"

/// \file  Distributions of the statistics of Kolmogorov, Smirnov and Lilliefors.

namespace ZOR_statis {

/// Upper tail of the two-sided statistic d for n values: 1.0 for n < 1 and d <= 0, 0.0 for d >= 1. Exact by powers of a
/// matrix of side 2 Trunc(n d) + 1 (G. Marsaglia, W. W. Tsang, J. Wang, J. Stat. Softw. 8 (2003), 18) unless n d^2 is
/// above 7.24, or above 3.76 with n > 99, where an asymptotic form with seven digits answers; sides above 400 take the
/// series of W. Pelz, I. J. Good, J. R. Statist. Soc. B 38 (1976), 152: error 5e-10 at n = 10000. Raises EOutOfMemory.
ZOR_API Double KSPValue(Integer n, Double d);
/// The d whose KSPValue equals the level, to 1e-4 of it; a value of the table comes back unchanged where it is as good.
/// 0.0 for n < 1.
ZOR_API Double KSQuantile(Integer n, TSignifLevel level);
/// Critical d of the one-sample test: tabulated for n up to 20, then asymptotic. 0.0 for n < 1.
ZOR_API Double KolmogSmir1SampleTestStat(Integer n, TSignifLevel level) noexcept;
/// Upper tail of the statistic with mean and deviation estimated (G. E. Dallal, L. Wilkinson, Am. Stat. 40 (1986),
/// 294): right to some percent below 0.1; above, the formula only decides that it is large. -1.0 for n < 6, 1.0 for d
/// <= 0.
ZOR_API Double LillieforsPValue(Integer n, Double d) noexcept;
/// Approximate critical d at the level alpha, which is moved into 0 to 1; use none below 0.01. 0.0 for n < 1.
ZOR_API Double LillieforsQuantile(Integer n, Double alpha) noexcept;

}  // namespace ZOR_statis

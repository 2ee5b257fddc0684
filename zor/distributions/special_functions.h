#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Gamma, beta and error functions by fixed formulas, whose digits other systems share.
/// Their accuracy is that of the formulas: use the distributions where more is wanted.

namespace ZOR_statis {

using namespace ZOR_zorbase;

/// ln of the gamma function, six terms (C. Lanczos, SIAM J. Numer. Anal. 1 (1964), 86): error 4e-10, relative where the
/// value exceeds 1. 0.0 for x <= 0, infinity above 1e305.
ZOR_API Double LnGamma(Double x) noexcept;
/// ln of the beta function; 0.0 unless a >= 0 and b >= 0.
ZOR_API Double LnBeta(Double a, Double b) noexcept;
/// P(a, x), the regularised lower incomplete gamma function; x stands first. 0.0 if x <= 0 or a <= 0. Error 4e-9 for
/// a <= 10; the continued fraction ends after 99 rounds, so that it is 1e-6 at a = 1e4 and 1e-2 at a = 1e5; above 1e6
/// the distributions' function answers.
ZOR_API Double IncompleteGamma(Double x, Double a) noexcept;
/// I_x(a, b), the regularised incomplete beta function; 0.0 for x < 0, 1.0 for x > 1, 0.0 for a <= 0 or b <= 0. Error
/// 5e-9 up to a + b = 1e4.
ZOR_API Double IncompleteBeta(Double x, Double a, Double b) noexcept;

/// n over k, exactly; 0 unless 0 <= k <= n; -1 above 2147483647.
ZOR_API Integer BinomCoeff(Integer n, Integer k) noexcept;
/// ln(n over k) from LnGamma; -1.0 unless 0 <= k <= n.
ZOR_API Double LnBinomCoeff(Integer n, Integer k) noexcept;

}  // namespace ZOR_statis

#pragma once

#include "zor/kernels/gamma_function.h"

/// \file  The incomplete beta function for distributions, both tails.
/// A. R. DiDonato, A. H. Morris, ACM TOMS 18 (1992), 360: a continued fraction beside the mode, with the term in front
/// from C. Loader's saddle point expansion.

namespace zor::kernels {

/// gamma(a + b + 1) / (gamma(a + 1) gamma(b + 1)) x^a y^b with y = 1 - x: the binomial density at real a, b >= 0.
double binomial_term(double a, double b, double x, double y) noexcept;

/// I_x(a, b) and its complement for a, b > 0; y = 1 - x is given, since it may be known better than x.
Tails incomplete_beta(double x, double y, double a, double b) noexcept;

}  // namespace zor::kernels

#pragma once

#include <span>

#include "zor/analysis/math2_errors.h"

/// \file  The smoothing spline.

namespace ZOR_math2 {

using namespace ZOR_zorbase;

/// Smoothing spline through y at the places n1 to n2 (from 0) of x, which rise strictly, with weights w: the natural
/// cubic spline g with the least sum of w (y - g)^2 + Smooth times the integral of g''^2. Behind x[i], at the distance
/// h, g = a[i]
/// + b[i] h + c[i] h^2 + d[i] h^3; behind the last one it goes on as a straight line. Places outside n1 to n2 are not
/// touched. Raises EZORMath2Error "PenalizedCubicSpline: " and "invalid index range" (n1 < 0, n2 < n1, or n2 beyond one
/// of the arrays), "x values must be strictly ascending", "weights must be greater than 0", "invalid smoothing factor"
/// (negative or NaN). C. H. Reinsch, Numer. Math. 10 (1967), 177; P. J. Green and B. W. Silverman, Nonparametric
/// Regression and Generalized Linear Models, 1994, ch. 2.
ZOR_API void PenalizedCubicSpline(Integer n1, Integer n2, Double Smooth, std::span<const Double> x,
                                  std::span<const Double> y, std::span<const Double> w, std::span<Double> a,
                                  std::span<Double> b, std::span<Double> c, std::span<Double> d);

}  // namespace ZOR_math2

#pragma once

#include "zor/distributions/statis_errors.h"

/// \file  Small formulas around tests and models.

namespace ZOR_statis {

/// Fisher's z of a correlation r, 0.5 ln((1 + r) / (1 - r)). Raises EZORStatisError "FisherTransform: argument out of
/// range" unless -1 < r < 1.
ZOR_API Double FisherTransform(Double r);
/// The correlation of a z.
ZOR_API Double FisherTransformInv(Double z) noexcept;
/// Fisher's separation of two classes with means m1, m2 and deviations s1, s2: (m1 - m2)^2 / max(s1^2 + s2^2, 1e-6).
ZOR_API Double CalcFishQ(Double m1, Double m2, Double s1, Double s2) noexcept;
/// Half the width of the confidence interval of a mean of n values of known deviation sigma, at the level 1 - alpha.
/// 0.0 for n < 1 and unless 0 < alpha < 1. As exact as nDistriQuantile.
ZOR_API Double ConfidenceInterval(Double alpha, Double sigma, Integer n) noexcept;
/// Akaike's information criterion of a model with k parameters and the residual sum of squares rss. 0.0 for n < 1 and
/// rss
/// <= 0.
ZOR_API Double AkaikeInfCrit(Integer n, Integer k, Double rss) noexcept;

}  // namespace ZOR_statis

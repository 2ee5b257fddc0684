#pragma once

#include "zor/distributions/statis_errors.h"

/// \file  Binomial and hypergeometric distribution.

namespace ZOR_statis {

/// Probability of k successes in n trials with success probability p (C. Loader, Fast and Accurate Computation of
/// Binomial Probabilities, 2000); 0.0 unless n >= 0, 0 <= k <= n and 0 <= p <= 1.
ZOR_API Double BinomDistriDensity(Integer n, Double p, Integer k) noexcept;
/// Probability of at most k successes; 0.0 for k < 0 and bad n or p, 1.0 for k >= n.
ZOR_API Double BinomDistriIntegral(Integer n, Double p, Integer k) noexcept;
/// Probability of more than k successes, with all its digits where 1 - BinomDistriIntegral has none.
ZOR_API Double BinomDistriUpperTail(Integer n, Double p, Integer k) noexcept;
/// quantile becomes the smallest k with BinomDistriIntegral(n, p, k) >= prob, with a slack of 1e-14 relative. False and
/// 0.0 unless n >= 0, 0 <= p <= 1 and 0 <= prob <= 1.
ZOR_API Boolean BinomDistriQuantile(Integer n, Double p, Double prob, Double& quantile) noexcept;

/// Probability of k successes in a sample of nsample drawn, without putting back, from npop of which a share p,
/// Round(p npop) of them, are successes; from LnGamma, relative error 1e-8. 0.0 for a k that cannot be. Raises
/// EZORStatisError "HyperGeoDistriDensity: " + "probability p must be between 0.0 and 1.0", "npop must be greater than
/// 0", "nsample must not be greater than npop", "nsample must not be less than 1", tested in this order.
ZOR_API Double HyperGeoDistriDensity(Double p, Integer npop, Integer nsample, Integer k);

}  // namespace ZOR_statis

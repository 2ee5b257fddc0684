#pragma once

#include <span>

#include "zor/base/ZOR_zorbase.h"

/// \file  Random deviates. GRandom, CRandom and BRandom draw on the runtime's generator; LongRand has one of its own.
/// GRandom and LongRand keep a state and must not run on several threads at once.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Gaussian deviate with mean 0 and standard deviation 1, by the polar method of Marsaglia, which makes two at a time:
/// the second one waits for the next call, also if RandSeed is set meanwhile.
ZOR_API Double GRandom() noexcept;

/// Cauchy deviate with location m and scale s; one draw.
ZOR_API Double CRandom(Double m, Double s) noexcept;

/// True with probability p. For p >= 1 no number is drawn; NaN draws one and gives false.
ZOR_API Boolean BRandom(Double p) noexcept;

/// Uniform deviate in [0, 1) from three multiplicative congruential generators added modulo 1. A Seed other than 0
/// restarts them first, so that equal seeds give equal numbers; a state word that would be 0, and stay so for ever,
/// starts at 1. Source of the combination: B. A. Wichmann, I. D. Hill, Applied Statistics 31 (1982), 188.
ZOR_API Double LongRand(Integer Seed) noexcept;

}  // namespace ZOR_math1

namespace zor::detail {

/// Fills the cells with mean + stddev * GRandom(), in order.
ZOR_API void fill_gauss(std::span<double> cells, double mean, double stddev) noexcept;

}  // namespace zor::detail

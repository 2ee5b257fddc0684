#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Rounding to 1-2-5 steps and to integers, bounds.
/// What turns a float into an integer stops at the ends of the integer's range, and NaN gives 0.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// The value of the form 1, 2 or 5 times a power of ten that |x| stands for, with the sign of x: with |x| between
/// 10^e and 10^(e + 1) it is 1 below 1.5, 2 below 3, 5 below 8, else 10 times 10^e.
/// Bounds and results of the three routines are the doubles nearest to those decimals: Round125(0.12) is 0.1 exactly.
/// 0 gives 0; NaN and infinities come back as they are; above 10^308 the result may be infinite.
ZOR_API Double Round125(Double x) noexcept;
/// The least value of that form that is not below x: RoundPos125(1.1) is 2, RoundPos125(-1.1) is -1.
ZOR_API Double RoundPos125(Double x) noexcept;
/// The greatest value of that form that is not above x: RoundNeg125(1.1) is 1, RoundNeg125(-1.1) is -2.
ZOR_API Double RoundNeg125(Double x) noexcept;

/// x rounded to the nearest integer, ties to even, then raised to Lo, then lowered to Hi: with Lo > Hi it is Hi.
ZOR_API Int64 RoundLimit(Double x, Int64 Lo, Int64 Hi) noexcept;

/// The smallest integer that is not below x.
ZOR_API Integer IntPos(Double x) noexcept;
/// The largest integer that is not above x.
ZOR_API Integer IntNeg(Double x) noexcept;

/// -1 if x is negative, else 1: also for 0 and NaN.
ZOR_API Integer Signum(Double x) noexcept;

/// Remainder of the division of real numbers: b times the fraction of a / b, with the sign of a. NaN for b = 0 and
/// where a / b overflows. Rounded as the formula is written; std::fmod is exact.
ZOR_API Double modr(Double a, Double b) noexcept;

/// True if x lies between the bounds, both inclusive; the bounds may be given in either order. Eps widens the interval
/// at both ends. False if a number is NaN.
ZOR_API Boolean WithinBounds(Double x, Double b1, Double b2) noexcept;
ZOR_API Boolean WithinBounds(Double x, Double b1, Double b2, Double Eps) noexcept;

/// x moved to the nearer bound if it lies outside; the bounds may be given in either order. NaN stays NaN; a bound that
/// is NaN does not confine, the other one then bounds from above if it comes second, from below if it comes first.
ZOR_API Double ConfineValue(Double x, Double b1, Double b2) noexcept;
ZOR_API Single ConfineValue(Single x, Single b1, Single b2) noexcept;
ZOR_API Integer ConfineValue(Integer x, Integer b1, Integer b2) noexcept;

}  // namespace ZOR_math1

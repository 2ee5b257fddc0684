#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Rounding, remainders and bounds.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// The nearest value of the form 1, 2 or 5 times a power of ten; the limits between the steps are 1.5, 3 and 8 times the power of ten, which belong to
/// the upper step. The sign plays no part. The result is the double nearest to that decimal value; 0, NaN and infinities are given back.
ZOR_API Double Round125(Double x) noexcept;
/// The smallest such value not below x.
ZOR_API Double RoundPos125(Double x) noexcept;
/// The largest such value not above x.
ZOR_API Double RoundNeg125(Double x) noexcept;

/// x rounded to an integer, ties to even, confined to Lo..Hi; Lo is applied first, so that with Lo > Hi the result is Hi.
ZOR_API Int64 RoundLimit(Double x, Int64 Lo, Int64 Hi) noexcept;
/// Smallest integer not below x; saturates, NaN gives 0.
ZOR_API Integer IntPos(Double x) noexcept;
/// Largest integer not above x; saturates, NaN gives 0.
ZOR_API Integer IntNeg(Double x) noexcept;
/// -1 if x is negative, else 1, also for 0.
constexpr Integer Signum(Double x) noexcept { return x < 0.0 ? -1 : 1; }
/// b * Frac(a / b), the remainder of a real division with the sign of a; b = 0 gives NaN.
ZOR_API Double modr(Double a, Double b) noexcept;

/// True if x lies between b1 and b2, both included; the bounds may come in either order. False for NaN.
constexpr Boolean WithinBounds(Double x, Double b1, Double b2) noexcept {
  return b1 > b2 ? x >= b2 && x <= b1 : x >= b1 && x <= b2;
}
/// The same with the interval widened by Eps at both ends.
constexpr Boolean WithinBounds(Double x, Double b1, Double b2, Double Eps) noexcept {
  return b1 > b2 ? x >= b2 - Eps && x <= b1 + Eps : x >= b1 - Eps && x <= b2 + Eps;
}

/// x moved into the interval between b1 and b2, which may come in either order. NaN stays NaN; bounds that are NaN do not confine.
constexpr Double ConfineValue(Double x, Double b1, Double b2) noexcept {
  const Double lo = b1 > b2 ? b2 : b1, hi = b1 > b2 ? b1 : b2;
  return x < lo ? lo : x > hi ? hi : x;
}
constexpr Single ConfineValue(Single x, Single b1, Single b2) noexcept {
  const Single lo = b1 > b2 ? b2 : b1, hi = b1 > b2 ? b1 : b2;
  return x < lo ? lo : x > hi ? hi : x;
}
constexpr Integer ConfineValue(Integer x, Integer b1, Integer b2) noexcept {
  const Integer lo = b1 > b2 ? b2 : b1, hi = b1 > b2 ? b1 : b2;
  return x < lo ? lo : x > hi ? hi : x;
}

}  // namespace ZOR_math1

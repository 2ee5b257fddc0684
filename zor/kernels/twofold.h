#pragma once

#include <cmath>

#include "zor/kernels/moments.h"

/// \file  Arithmetic on pairs of doubles with twice the precision.
/// Sources: D. E. Knuth, The Art of Computer Programming 2, 4.2.2; T. J. Dekker, Numer. Math. 18 (1971), 224.

namespace zor::kernels {

/// Errors of products below this are dropped: there the error itself may not be a double.
inline constexpr double kSmallProduct = 0x1p-960;

/// a + b and its rounding error.
inline DoubleDouble two_sum(double a, double b) {
  const double s = a + b;
  const double t = s - a;
  return {s, (a - (s - t)) + (b - t)};
}

/// a * b and its rounding error.
inline DoubleDouble two_product(double a, double b) {
  const double p = a * b;
  return {p, std::abs(p) >= kSmallProduct ? std::fma(a, b, -p) : 0.0};
}

/// Pair with |lo| <= ulp(hi) / 2. What is not finite has no low part.
inline DoubleDouble normal(double hi, double lo) {
  const double s = hi + lo;
  if (!std::isfinite(s)) return {hi, 0.0};
  return {s, lo - (s - hi)};
}

inline DoubleDouble operator-(DoubleDouble a, DoubleDouble b) {
  const DoubleDouble s = two_sum(a.hi, -b.hi);
  return normal(s.hi, s.lo + (a.lo - b.lo));
}
inline DoubleDouble operator*(DoubleDouble a, DoubleDouble b) {
  const DoubleDouble p = two_product(a.hi, b.hi);
  return normal(p.hi, p.lo + (a.hi * b.lo + a.lo * b.hi));
}
inline DoubleDouble operator/(DoubleDouble a, double b) {
  const double q = a.hi / b;
  const DoubleDouble p = two_product(q, b);
  return normal(q, ((a.hi - p.hi) - p.lo + a.lo) / b);
}
inline DoubleDouble operator+(DoubleDouble a, DoubleDouble b) { return a - DoubleDouble{-b.hi, -b.lo}; }

/// Adds a number to a running sum.
inline void add(DoubleDouble& sum, double x) {
  const DoubleDouble s = two_sum(sum.hi, x);
  sum = normal(s.hi, s.lo + sum.lo);
}
/// Adds a * b, without rounding it.
inline void add_product(DoubleDouble& sum, double a, double b) {
  const DoubleDouble p = two_product(a, b);
  const DoubleDouble s = two_sum(sum.hi, p.hi);
  sum = normal(s.hi, s.lo + (sum.lo + p.lo));
}

}  // namespace zor::kernels

#pragma once

#include <concepts>
#include <limits>
#include <span>
#include <type_traits>

#include "zor/runtime/pow10.h"
#include "zor/runtime/types.h"

/// \file  Routines on numbers.
/// What turns a float into an integer never overflows: it stops at the ends of the integer's range, and NaN gives 0.

namespace zor::detail {

/// The whole number nearest to x, of two equally near ones the even one; without regard to the rounding mode.
constexpr double round_to_even(double x) noexcept {
  constexpr double kWhole = 0x1p52;  // from here on all doubles are whole
  if (!(x > -kWhole && x < kWhole)) return x;
  return x < 0.0 ? (x - kWhole) + kWhole : (x + kWhole) - kWhole;
}

/// x without its fraction, as an integer of type I.
template <std::signed_integral I>
constexpr I saturate(double x) noexcept {
  constexpr double kLimit = 2.0 * static_cast<double>(I{1} << (std::numeric_limits<I>::digits - 1));
  if (x != x) return 0;
  if (x <= -kLimit) return (std::numeric_limits<I>::min)();
  return x >= kLimit ? (std::numeric_limits<I>::max)() : static_cast<I>(x);
}

/// x rounded into Integer: to the nearest (ties to even), downward, toward zero.
constexpr ZOR_runtime::Integer round_to_integer(double x) noexcept {
  return saturate<ZOR_runtime::Integer>(round_to_even(x));
}
ZOR_API ZOR_runtime::Integer floor_to_integer(double x) noexcept;
/// A number as a cell of another type: doubles become integers by round_to_integer.
template <class To, class From>
constexpr To to_cell(From x) noexcept {
  if constexpr (std::floating_point<From> && std::integral<To>) {
    return saturate<To>(round_to_even(static_cast<double>(x)));
  } else {
    return static_cast<To>(x);
  }
}
constexpr ZOR_runtime::Integer trunc_to_integer(double x) noexcept { return saturate<ZOR_runtime::Integer>(x); }

}  // namespace zor::detail

namespace ZOR_runtime {

/// x rounded to the nearest integer, ties to the even one.
constexpr Int64 Round(Double x) noexcept { return zor::detail::saturate<Int64>(zor::detail::round_to_even(x)); }
/// x rounded toward zero.
constexpr Int64 Trunc(Double x) noexcept { return zor::detail::saturate<Int64>(x); }
/// The largest integer that is not above x.
ZOR_API Int64 Floor(Double x) noexcept;

/// The whole part of x, with its sign.
ZOR_API Double Int(Double x) noexcept;
/// What Int leaves, with the sign of x; zero for infinities.
ZOR_API Double Frac(Double x) noexcept;

/// -1, 0 or 1; 0 for NaN.
template <class T>
  requires std::is_arithmetic_v<T>
constexpr Integer Sign(T x) noexcept {
  return x > T{} ? 1 : x < T{} ? -1 : 0;
}

/// The larger of two numbers of one type; b unless a is larger.
template <class T>
  requires std::is_arithmetic_v<T>
constexpr T Max(T a, T b) noexcept {
  return a > b ? a : b;
}
/// The smaller of two numbers of one type; b unless a is smaller.
template <class T>
  requires std::is_arithmetic_v<T>
constexpr T Min(T a, T b) noexcept {
  return a < b ? a : b;
}

/// x rounded to a multiple of 10^Digit, halves away from zero: Digit -2 leaves two decimals, Digit 3 thousands.
/// Int(x * 10^d + 0.5 with the sign of x) / 10^d with d = -Digit. Numbers that have no more digits to lose
/// (|x| * 10^d above 2^53) and non-finite ones come back as they are.
ZOR_API Double SimpleRoundTo(Double x, Integer Digit) noexcept;

/// Standard deviation, n - 1 in the denominator; 0 for fewer than two numbers and, exactly, for equal ones.
/// Two passes over the differences from the first number, so that a large common offset costs no digits.
ZOR_API Double StdDev(std::span<const Double> x) noexcept;

ZOR_API Double Sqrt(Double x) noexcept;
ZOR_API Double Exp(Double x) noexcept;
ZOR_API Double Ln(Double x) noexcept;
ZOR_API Double Sin(Double x) noexcept;
ZOR_API Double Cos(Double x) noexcept;
ZOR_API Double Tan(Double x) noexcept;
ZOR_API Double ArcTan(Double x) noexcept;
/// Angle of the point (x, y) to the x axis, from -pi to pi.
ZOR_API Double ArcTan2(Double y, Double x) noexcept;
ZOR_API Double ArcCos(Double x) noexcept;
ZOR_API Double Power(Double Base, Double Exponent) noexcept;

}  // namespace ZOR_runtime

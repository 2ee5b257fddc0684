#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Elementary functions.
/// Each is as accurate as the functions of the C library that it is made of: lg, ld, tgh, sinh and cosh within an ulp
/// or two, tg and cot within three. A NaN gives NaN unless said otherwise.

namespace zor::detail {

ZOR_API double hyperbolic_sine(double x) noexcept;
ZOR_API double hyperbolic_cosine(double x) noexcept;

}  // namespace zor::detail

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Hyperbolic sine and cosine. Templates, so that a plain sinh(1.0) means the function of the C library where both are
/// visible, instead of being ambiguous; the results are the same.
template <class = void>
Double sinh(Double x) noexcept {
  return zor::detail::hyperbolic_sine(x);
}
template <class = void>
Double cosh(Double x) noexcept {
  return zor::detail::hyperbolic_cosine(x);
}

/// Logarithm to the base 10; raises EMathError "logarithm: invalid argument" unless x > 0.
ZOR_API Double lg(Double x);
/// Logarithm to the base 2; raises EMathError "logarithm: invalid argument" unless x > 0.
ZOR_API Double ld(Double x);
/// Hyperbolic tangent.
ZOR_API Double tgh(Double x) noexcept;
/// Tangent, sin x / cos x; raises EMathError "tangens overflow" if cos x is exactly 0.
ZOR_API Double tg(Double x);
/// Cotangent, cos x / sin x; raises EMathError "cotangens overflow" if sin x is exactly 0.
ZOR_API Double cot(Double x);

}  // namespace ZOR_math1

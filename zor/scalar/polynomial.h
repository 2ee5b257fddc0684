#pragma once

#include <initializer_list>
#include <span>

#include "zor/base/ZOR_zorbase.h"

/// \file  Polynomials and a transfer function.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Sum of Coef[i] * x^i over i from 0 to Order, added up from the low order with a running power: rounded so, and not
/// as by Horner's scheme. Raises EZORMath1Error "Polynomial: invalid order of polynomial" if Order is negative or
/// Coef has no cell Order.
ZOR_API Double Polynomial(std::span<const Double> Coef, Integer Order, Double x);
ZOR_API Double Polynomial(std::initializer_list<Double> Coef, Integer Order, Double x);

/// The same in powers of x - Center, with the same message.
ZOR_API Double CenteredPolynomial(std::span<const Double> Coef, Integer Order, Double Center, Double x);
ZOR_API Double CenteredPolynomial(std::initializer_list<Double> Coef, Integer Order, Double Center, Double x);

/// Sigmoid through (Center, 0) with the slope Slope there and the limits -Amplitude and Amplitude:
/// Amplitude * (2 / (exp(d) + 1) - 1) with d = -2 * Slope / Amplitude * (x - Center), or the limit itself from
/// |d| = 200 on. Amplitude 0 gives a zero. NaN for x = NaN.
ZOR_API Double Squash(Double x, Double Center, Double Slope, Double Amplitude) noexcept;

}  // namespace ZOR_math1

#pragma once

#include <concepts>
#include <iosfwd>

#include "zor/base/ZOR_zorbase.h"
#include "zor/scalar/ZOR_complex_fwd.h"

/// \file  Records and routines of ZOR_complex; what holds for all of them stands in ZOR_complex.h.

namespace ZOR_complex {

using namespace ZOR_zorbase;

/// Failures of this unit.
ZOR_DECLARE_EXCEPTION(EZORComplexError, EZORError);

/// std::complex<double>, or a type like it. Told by its members: its header would make the programs of all users
/// compile longer.
template <class Z>
concept ComplexOfDouble = requires(const Z& z) {
  { z.real() } -> std::same_as<Double>;
  { z.imag() } -> std::same_as<Double>;
  Z(Double{}, Double{});
};

/// Complex number re + im i. Converts from and to std::complex<double>.
struct TComplex {
  Double re = 0.0, im = 0.0;

  constexpr TComplex() noexcept = default;
  constexpr TComplex(Double re_part, Double im_part) noexcept : re(re_part), im(im_part) {}
  template <ComplexOfDouble Z>
  constexpr TComplex(const Z& z) noexcept : re(z.real()), im(z.imag()) {}
  template <ComplexOfDouble Z>
  constexpr operator Z() const noexcept {
    return Z(re, im);
  }
  friend constexpr bool operator==(const TComplex&, const TComplex&) = default;
};

/// Complex number r (cos phi + i sin phi), phi in radians.
struct TComplexPolar {
  Double r = 0.0, phi = 0.0;
  friend bool operator==(const TComplexPolar&, const TComplexPolar&) = default;
};

inline constexpr TComplex COMPLEX_0{0.0, 0.0};
inline constexpr TComplex COMPLEX_1{1.0, 0.0};

/// Differences below it count as none in CpxIsNearEqual and CpxIsZero; 1e-15 at start. It is absolute, whatever the
/// size of the numbers. With 0, a negative number or NaN nothing is near, and only exact zeros are zero.
extern ZOR_API TSharedVar<Double> CpxNearZero;

/// The number with these parts.
constexpr TComplex Cpx(Double re, Double im) noexcept { return {re, im}; }

/// \name Arithmetic
/// @{
/// A + B
ZOR_API TComplex CpxAdd(const TComplex& A, const TComplex& B) noexcept;
/// A - B
ZOR_API TComplex CpxSub(const TComplex& A, const TComplex& B) noexcept;
/// A B: (A.re B.re - A.im B.im, A.re B.im + A.im B.re).
ZOR_API TComplex CpxMult(const TComplex& A, const TComplex& B) noexcept;
/// A / B: (A.re B.re + A.im B.im, A.im B.re - A.re B.im) / |B|^2.
/// Raises EZORComplexError "CpxDiv: division by zero" if |B|^2 is 0 or not finite as computed (|B| below 1.5e-162 or
/// above 1.3e154), or if a part of the result is not finite.
ZOR_API TComplex CpxDiv(const TComplex& A, const TComplex& B);
/// The conjugate, re - im i.
ZOR_API TComplex CpxConj(const TComplex& A) noexcept;
/// -A
ZOR_API TComplex CpxNeg(const TComplex& A) noexcept;
/// |A|, the root of re^2 + im^2.
ZOR_API Double CpxAbs(const TComplex& A) noexcept;
/// |A|^2
ZOR_API Double CpxAbsSqr(const TComplex& A) noexcept;
/// @}

/// \name Comparison
/// @{
/// Both parts are equal; NaN equals nothing. The same as A == B.
ZOR_API Boolean CpxIsEqual(const TComplex& A, const TComplex& B) noexcept;
/// Both parts differ by less than CpxNearZero.
ZOR_API Boolean CpxIsNearEqual(const TComplex& A, const TComplex& B) noexcept;
/// Both parts are 0 or smaller than CpxNearZero in absolute value.
ZOR_API Boolean CpxIsZero(const TComplex& A) noexcept;
/// @}

/// \name Polar form
/// @{
/// r = |A| and phi from -pi to pi: 0 for 0, pi for negative numbers, -pi for those with the imaginary part -0.0.
ZOR_API TComplexPolar ConvertRectToPolar(const TComplex& A) noexcept;
/// (r cos phi, r sin phi)
ZOR_API TComplex ConvertPolarToRect(const TComplexPolar& A) noexcept;
/// @}

/// The number as "1.5 - 2i", each part in at most six significant digits.
ZOR_API std::ostream& operator<<(std::ostream& out, const TComplex& z);

}  // namespace ZOR_complex

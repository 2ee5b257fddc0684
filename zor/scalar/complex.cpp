#include "zor/scalar/complex.h"

#include <cmath>
#include <ostream>

#include "zor/runtime/numbers.h"
#include "zor/runtime/print.h"

namespace ZOR_complex {
namespace {

Boolean near_zero(Double x) { return std::fabs(x) < CpxNearZero; }

}  // namespace

EZORComplexError::~EZORComplexError() = default;

constinit TSharedVar<Double> CpxNearZero{1.0e-15};

TComplex CpxAdd(const TComplex& A, const TComplex& B) noexcept { return {A.re + B.re, A.im + B.im}; }
TComplex CpxSub(const TComplex& A, const TComplex& B) noexcept { return {A.re - B.re, A.im - B.im}; }

TComplex CpxMult(const TComplex& A, const TComplex& B) noexcept {
  return {A.re * B.re - A.im * B.im, A.re * B.im + A.im * B.re};
}

TComplex CpxDiv(const TComplex& A, const TComplex& B) {
  const Double d = CpxAbsSqr(B);
  const TComplex quotient{(A.re * B.re + A.im * B.im) / d, (A.im * B.re - A.re * B.im) / d};
  if (d == 0.0 || !std::isfinite(d) || !std::isfinite(quotient.re) || !std::isfinite(quotient.im)) {
    zor::detail::Fail<EZORComplexError>("CpxDiv: division by zero");
  }
  return quotient;
}

TComplex CpxConj(const TComplex& A) noexcept { return {A.re, -A.im}; }
TComplex CpxNeg(const TComplex& A) noexcept { return {-A.re, -A.im}; }

Double CpxAbs(const TComplex& A) noexcept { return std::sqrt(CpxAbsSqr(A)); }
Double CpxAbsSqr(const TComplex& A) noexcept { return A.re * A.re + A.im * A.im; }

Boolean CpxIsEqual(const TComplex& A, const TComplex& B) noexcept { return A == B; }

Boolean CpxIsNearEqual(const TComplex& A, const TComplex& B) noexcept {
  return near_zero(A.re - B.re) && near_zero(A.im - B.im);
}

Boolean CpxIsZero(const TComplex& A) noexcept {
  return (A.re == 0.0 || near_zero(A.re)) && (A.im == 0.0 || near_zero(A.im));
}

TComplexPolar ConvertRectToPolar(const TComplex& A) noexcept { return {CpxAbs(A), ZOR_runtime::ArcTan2(A.im, A.re)}; }

TComplex ConvertPolarToRect(const TComplexPolar& A) noexcept {
  return {A.r * ZOR_runtime::Cos(A.phi), A.r * ZOR_runtime::Sin(A.phi)};
}

std::ostream& operator<<(std::ostream& out, const TComplex& z) {
  using zor::detail::cell_text;
  return out << cell_text(z.re) << (z.im < 0.0 ? " - " : " + ") << cell_text(std::fabs(z.im)) << 'i';
}

}  // namespace ZOR_complex

#pragma once

#include "zor/base/ZOR_zorbase.h"
#include "zor/scalar/ZOR_complex_fwd.h"
#include "zor/scalar/complex.h"

/// \file  Complex numbers in Cartesian and polar form.
/// The formulas are computed as they are written here, without scaling: parts above 1e154 overflow and parts below
/// 1e-162 vanish where they are squared. Only CpxDiv raises; everything else follows the rules of floating point. A
/// TComplex converts from and to std::complex<double>, whose operators scale and may thus differ in the last digits.
///
///     using namespace ZOR_complex;
///     const TComplex z = CpxDiv(Cpx(1, 7), Cpx(3, 1));        // 1 + 2i
///     const TComplexPolar p = ConvertRectToPolar(Cpx(0, 2));  // r 2, phi pi/2
///     const std::complex<double> w = std::exp(std::complex<double>(z));

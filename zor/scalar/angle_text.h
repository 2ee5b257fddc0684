#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Angles in degrees as text and back.
///
///     DegreeToStr(-0.5, dfDegMin, 1);              // "-0° 30.0'"
///     DegreeToStr(12.3456, dfDegMinSec, 0);        // "12° 20'  44""
///     Integer at = 1, kind;
///     ScanDegrees("-0° 30.0' N", at, false, kind); // -0.5, at = 10, kind = dfDegMin

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// An angle in degrees as text, its last part with Decimals (0 to 8) decimals: dfDecimal 12.5°, dfDegMin 12° 30.0',
/// dfDegMinSec 12° 30'  0.0", dfPlain 12.5; empty for an unknown Format. Degrees, minutes and seconds are parts of one
/// rounded number, so that 60' or 60" never appears; halves are rounded away from zero. Minutes stand in two places,
/// a last part without decimals in three. An angle that rounds to zero carries no "-".
/// Angles of more than 2^53 units of the last decimal, and those that are not finite, are written as dfPlain.
ZOR_API TString DegreeToStr(Double Angle, TDegreeFormat Format, Integer Decimals);

/// Reads an angle in any of these notations: from CurPos (from 1; below 1 counts as 1), behind blanks, a number without
/// exponent and the degree sign; behind whole degrees minutes, behind whole minutes seconds, each from 0 to 60, with or
/// without blanks in front. What is no such part is not read. The prime and the double prime of Unicode count like '
/// and
/// ", two apostrophes like ". The sign holds for the whole angle. A number without a degree sign counts only with
/// AllowPlain. Kind is the ordinal of the TDegreeFormat that was read; CurPos moves behind it. Without an angle 0.0,
/// Kind is -1 and CurPos stays.
ZOR_API Double ScanDegrees(const TString& Instring, Integer& CurPos, Boolean AllowPlain, Integer& Kind);

}  // namespace ZOR_math1

#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Floats in scientific and engineering notation, and Roman numerals.
///
///     strf(1234.5, 12, -2);        // " 1.23450E+03"
///     MakeEFormat(-1234.5, 8, 4);  // "-0.1234+04"
///     EEngStr(4700, 2);            // "4.7k"
///     Roman(1994);                 // "MCMXCIV"
/// NaN and infinities are the text of Str.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Str(x, Width, Decimals); with Decimals = -2 scientific in Width characters (8 at least) with an exponent of two
/// digits, asterisks if it needs more.
ZOR_API TString strf(Double x, Integer Width, Integer Decimals);

/// x as sign place, "0.", Digits digits (2 to 15), sign and at least two digits of the exponent, without an "E";
/// blanks on the left up to Width (8 to 40) characters.
ZOR_API TString MakeEFormat(Double x, Integer Width, Integer Digits);

/// x with |Digits| significant digits (at most 9; -1 to 1: none behind the point) and the letter of a power of 1000,
/// a f p n u m k M G T; with negative Digits the letter stands in the place of the point. Beyond the letters the number
/// grows. Rounding up does not change the letter: EEngStr(999.9, 2) is "1000".
ZOR_API TString EEngStr(Double x, Integer Digits);

/// n as a Roman numeral; empty outside 1 to 29999.
ZOR_API TString Roman(Integer n);

}  // namespace ZOR_math1

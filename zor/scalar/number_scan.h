#pragma once

#include <concepts>
#include <string_view>

#include "zor/base/ZOR_zorbase.h"

/// \file  Numbers that stand somewhere in a text, and tests whether a whole text is one.
/// A scanner starts at CurPos (from 1; below 1 counts as 1), skips blanks, reads one number and leaves CurPos on the
/// first character behind it. From behind the end of the text it gives 0 and CurPos stays. The locale never matters.
/// ScanDecimal and ScanFPNum, which readers call for each number, also take a view of units; nothing is allocated.
///
///     Integer at = 4;
///     ScanDecimal("ix=17,", at);                 // 17, at = 6
///     at = 1;
///     ScanFPNum("2.5E3 mm", true, 1, at);        // 2500, at = 6

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Digits of the radix, in either case of letters, without sign and prefix. All digits are taken, the low 32 bits of
/// the number are the result: what Hex, Octal and Bin write is read back. Without a digit 0, and CurPos stays.
ZOR_API Integer ScanHex(const TString& Instring, Integer& CurPos);
ZOR_API Integer ScanOctal(const TString& Instring, Integer& CurPos);
ZOR_API Integer ScanBin(const TString& Instring, Integer& CurPos);

/// One "-" or "+" and decimal digits, both of which may be missing: the result is then 0. Stops at the ends of Integer.
template <std::same_as<std::u16string_view> View>
ZOR_API Integer ScanDecimal(View Instring, Integer& CurPos);
inline Integer ScanDecimal(const TString& Instring, Integer& CurPos) { return ScanDecimal(Instring.units(), CurPos); }

/// A number with sign, digits, a decimal separator and, with AllowExp, an exponent ("E" or "e"). DecMode selects the
/// separator: 1 a point, 2 a comma, 3 either; others none. The result is the nearest double, at most 1.797...E308.
/// 0.0 if there is no number, the exponent lacks digits or a second separator follows; CurPos stands on the
/// character that says so. "." counts as 0.
template <std::same_as<std::u16string_view> View>
ZOR_API Double ScanFPNum(View Instring, Boolean AllowExp, Integer DecMode, Integer& CurPos);
inline Double ScanFPNum(const TString& Instring, Boolean AllowExp, Integer DecMode, Integer& CurPos) {
  return ScanFPNum(Instring.units(), AllowExp, DecMode, CurPos);
}

/// True if S is one number that ScanFPNum reads: finite, a digit in front of the exponent, nothing behind it. Leading
/// blanks pass.
ZOR_API Boolean IsValidDouble(const TString& S, Boolean AllowExp, TDecPSep DecPSep);
/// The same with exponents allowed.
ZOR_API Boolean IsValidFPNum(const TString& S, TDecPSep DecPSep);

/// True if S consists of digits of the radix, at least one, whose value is below 2^32.
ZOR_API Boolean IsValidHex(const TString& S);
ZOR_API Boolean IsValidOct(const TString& S);
ZOR_API Boolean IsValidBin(const TString& S);
/// True if S is an optional sign and decimal digits, at least one, whose value is an Integer.
ZOR_API Boolean IsValidDecInt(const TString& S);

/// StrToInt(S); Default if S is empty or no integer.
ZOR_API Integer StrToIntDefault(const TString& S, Integer Default);

}  // namespace ZOR_math1

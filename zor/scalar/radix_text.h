#pragma once

#include <concepts>

#include "zor/base/ZOR_zorbase.h"

/// \file  Integers of a fixed number of digits, and floats as the digits of their bytes.
///
///     Decimal(-5, 3);              // "-005"
///     Hex(-1, 8);                  // "FFFFFFFF"
///     FPNumToHex(1.0);             // "3FF0000000000000"
///     HexToDouble("3FF0000000000000");   // 1.0

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Value in exactly Digits decimal digits (limited to 1 to 255): zeros in front, high digits that find no place are
/// dropped. The "-" of a negative number is not counted.
ZOR_API TString Decimal(Integer Value, Integer Digits);

/// The low end of Value, taken as an unsigned word of 32 bits, in exactly Digits digits; zeros in front, upper case.
/// Digits is limited to 1 to 16 for Hex, to 11 for Octal, to 32 for Bin.
ZOR_API TString Hex(Integer Value, Integer Digits);
ZOR_API TString Octal(Integer Value, Integer Digits);
ZOR_API TString Bin(Integer Value, Integer Digits);

/// The bytes of x from the most significant on, two upper case hexadecimal digits each: 16 for Double, 8 for Single.
template <class Float>
  requires std::same_as<Float, Double> || std::same_as<Float, Single>
ZOR_API TString FPNumToHex(Float x);

/// The float of which S gives the bytes, two hexadecimal digits each in either case of letters; the most significant
/// byte comes first, unless HighByteFirst is false. Every pattern of bits is kept, signaling NaNs too.
/// Throws EZORError: HexToDouble: invalid hex string "<S>"; HexToSingle: invalid hex string "<S>". A text must have 16
/// (HexToSingle: 8) digits and nothing else.
ZOR_API Double HexToDouble(const TString& S);
ZOR_API Double HexToDouble(const TString& S, Boolean HighByteFirst);
ZOR_API Single HexToSingle(const TString& S);
ZOR_API Single HexToSingle(const TString& S, Boolean HighByteFirst);

}  // namespace ZOR_math1

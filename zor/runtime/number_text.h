#pragma once

#include <concepts>

#include "zor/runtime/number_reader.h"
#include "zor/runtime/number_writer.h"
#include "zor/runtime/tstring.h"

/// \file  Numbers as text and back. How numbers are written stands in number_writer.h, what is read as a number in
/// number_reader.h; both have forms that allocate nothing, for files of numbers.
///
///     Str(2.5, 8, 2);                       // "    2.50"
///     Str(-1234.5, 13);                     // "-1.2345E+0003"
///     Double x; Integer code;
///     Val("1.5x", x, code);                 // code 4: the place of the "x"

namespace ZOR_runtime {

/// x in a field of at least Width characters, blanks on the left. With Decimals from 0 on fixed notation with as many
/// decimals, else the scientific form of Str(x, Width). Width and Decimals are limited to 1100.
ZOR_API TString Str(Double x, Integer Width, Integer Decimals);

/// x in scientific notation, Width characters at least: a blank or "-", one digit, ".", Width - 9 decimals (at least 1,
/// at most 17), "E", "+" or "-", four digits of the exponent.
ZOR_API TString Str(Double x, Integer Width);

/// n in a field of at least Width characters, blanks on the left.
ZOR_API TString Str(Int64 n, Integer Width);
template <std::integral I>
TString Str(I n, Integer Width) {
  return Str(static_cast<Int64>(n), Width);
}

/// n in decimal digits.
ZOR_API TString IntToStr(Int64 n);

/// Reads the number that S consists of; leading blanks are allowed. Code is 0 on success, else the value is 0 and Code
/// the position of the first character that does not fit: Length(S) + 1 if S ends too early, the last digit if the
/// number is too large. Floats that are too small give 0.0.
ZOR_API void Val(const TString& S, Double& Value, Integer& Code);
ZOR_API void Val(const TString& S, Integer& Value, Integer& Code);
ZOR_API void Val(const TString& S, Int64& Value, Integer& Code);

/// The integer that S consists of; leading blanks are allowed.
/// Throws EConvertError: "<S>" is not an integer.
ZOR_API Integer StrToInt(const TString& S);

}  // namespace ZOR_runtime

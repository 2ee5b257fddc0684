#pragma once

#include <initializer_list>
#include <span>

#include "zor/base/ZOR_zorbase.h"

/// \file  Small routines on text.
/// Blanks are the units 9 to 13 and 32.
///
///     strff(1.5, 12, 3);                      // "       1.500"
///     StringIx("png", {"bmp", "png"});        // 2
///     TStrArray words;
///     Tokenize("red, green", ", ", words);    // 2: "red", "green"

namespace ZOR_stringl {

using namespace ZOR_zorbase;

/// x in fixed notation with d decimals (below 0: none), blanks on the left up to w characters. The decimal point is
/// "."; ties go to the even digit; a number that shows only zeros carries no minus; w and d are limited to 1100.
ZOR_API TString strff(Double x, Integer w, Integer d);

/// Position, from 1, of the first entry of Table that equals S; 0 if there is none. With Flag false the case of letters
/// doesn't matter.
ZOR_API Integer StringIx(const TString& S, Boolean Flag, std::span<const TString> Table) noexcept;
ZOR_API Integer StringIx(const TString& S, Boolean Flag, std::initializer_list<TString> Table) noexcept;
ZOR_API Integer StringIx(const TString& S, std::span<const TString> Table) noexcept;
ZOR_API Integer StringIx(const TString& S, std::initializer_list<TString> Table) noexcept;

/// True if Sub stands in S; every text contains the empty one.
ZOR_API Boolean StringContains(const TString& S, const TString& Sub) noexcept;

/// S without blanks at its ends.
ZOR_API TString StripLTBlanks(const TString& S);
/// S without the characters C at its end.
ZOR_API TString StripTrailingChars(Char C, const TString& S);
/// S with New in the place of each Old.
ZOR_API TString ReplaceCharInString(const TString& S, Char Old, Char New);
/// S without the units below 32 and from 127 to 159.
ZOR_API TString RemoveControlChars(const TString& S);

/// Splits S at the characters of Delimiters; a run of them counts as one, so that no token is empty. Gives the number
/// of tokens, which is the length that Tokens gets. Without delimiters S is the one token, unless it is empty.
ZOR_API Integer Tokenize(const TString& S, const TString& Delimiters, TStrArray& Tokens);

}  // namespace ZOR_stringl

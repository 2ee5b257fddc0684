#pragma once

#include <string_view>

#include "zor/runtime/tstring.h"

/// \file  Routines on text.
/// Positions count from 1. Letters change their case by the simple mappings of Unicode, one code point to one, whatever
/// the locale: "ß" stays as it is, "Ä" and "ä" are a pair.
///
///     TString name = "Größe";
///     Pos("ö", name);          // 3
///     UpperCase(name);         // "GRÖßE"
///     Copy(name, 2, 3);        // "röß"

namespace ZOR_runtime {

/// Number of code units.
inline Integer Length(const TString& S) noexcept { return S.Length(); }

/// Position of the first Sub in S; 0 if there is none or Sub is empty.
ZOR_API Integer Pos(const TString& Sub, const TString& S) noexcept;

/// At most Count units of S from position Index on. An Index below 1 counts as 1. Half of a surrogate pair becomes
/// U+FFFD.
ZOR_API TString Copy(const TString& S, Integer Index, Integer Count);

/// Takes at most Count units out of S from position Index on; nothing happens if Index lies outside of S.
ZOR_API void Delete(TString& S, Integer Index, Integer Count);

/// The letter in upper case.
ZOR_API Char UpCase(Char C) noexcept;
/// The text in lower case.
ZOR_API TString LowerCase(const TString& S);
/// The text in upper case.
ZOR_API TString UpperCase(const TString& S);

/// Extension of a file name with its point; empty if the last part of the path has none.
ZOR_API TString ExtractFileExt(const TString& FileName);
/// True if there is a file of this name; a folder is none.
ZOR_API Boolean FileExists(const TString& FileName);

}  // namespace ZOR_runtime

namespace zor::detail {

/// The code point in lower and in upper case.
ZOR_API char32_t to_lower(char32_t code) noexcept;
ZOR_API char32_t to_upper(char32_t code) noexcept;

/// Equality without regard to case: both are compared in lower case, code point by code point.
ZOR_API bool equal_ignoring_case(std::u16string_view a, std::u16string_view b) noexcept;

/// Blanks between words and around text: units 9 to 13 and 32.
constexpr bool is_blank(char16_t unit) noexcept { return unit == u' ' || (unit >= 9 && unit <= 13); }

/// The text without blanks at its ends.
constexpr std::u16string_view trim_blanks(std::u16string_view text) noexcept {
  while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace zor::detail

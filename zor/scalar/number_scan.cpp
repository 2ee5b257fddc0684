#include "zor/scalar/number_scan.h"

#include <cstdint>
#include <limits>
#include <string_view>

#include "zor/runtime/number_reader.h"
#include "zor/scalar/digits_internal.h"
#include "zor/scalar/scan_internal.h"

namespace ZOR_math1 {
namespace {

using zor::detail::NumberGrammar;
using zor::detail::NumberStatus;
using zor::detail::scan_from;
using zor::detail::Scanned;

constexpr Integer kLowest = std::numeric_limits<Integer>::min(), kHighest = std::numeric_limits<Integer>::max();

// The digits at the start of a text.
struct Word {
  std::uint64_t value = 0;  // low bits only if not `fits`
  std::size_t end = 0;
  bool fits = true;  // below 2^32
};
Word read_word(std::u16string_view text, int bits_per_digit) {
  Word word;
  for (; word.end < text.size(); ++word.end) {
    const int digit = zor::detail::digit_value(text[word.end]);
    if (digit >= 1 << bits_per_digit) break;
    word.value = word.value << bits_per_digit | static_cast<std::uint64_t>(digit);
    word.fits = word.fits && word.value >> 32 == 0;
  }
  return word;
}

Integer scan_word(const TString& Instring, Integer& CurPos, int bits_per_digit) {
  return scan_from(Instring.units(), CurPos, [=](std::u16string_view text) -> Scanned<Integer> {
    const Word word = read_word(text, bits_per_digit);
    if (word.end == 0) return {};
    return {static_cast<Integer>(static_cast<std::uint32_t>(word.value)), word.end};
  });
}

Boolean is_word(const TString& S, int bits_per_digit) {
  const Word word = read_word(S.units(), bits_per_digit);
  return word.fits && word.end != 0 && word.end == S.units().size();
}

bool is_separator(Char c, NumberGrammar grammar) {
  return (c == u'.' && grammar.point) || (c == u',' && grammar.comma);
}
bool is_sign(Char c) { return c == u'+' || c == u'-'; }
bool is_exponent_mark(Char c) { return c == u'E' || c == u'e'; }

// Place behind the "E" at i, its sign and its digits.
std::size_t pass_exponent(std::u16string_view text, std::size_t i) {
  ++i;
  i += i < text.size() && is_sign(text[i]);
  while (i < text.size() && zor::detail::digit_value(text[i]) < 10) ++i;
  return i;
}

Scanned<Double> scan_number(std::u16string_view text, NumberGrammar grammar) {
  const auto number = zor::detail::parse_number(text, grammar);
  std::size_t end = number.end;
  if (number.status == NumberStatus::kNone) {
    end = !text.empty() && is_sign(text[0]);
    if (end < text.size() && is_separator(text[end], grammar)) {
      ++end;
      if (end < text.size() && is_exponent_mark(text[end]) && grammar.exponent) end = pass_exponent(text, end);
    }
    return {0.0, end};
  }
  if (end < text.size()) {
    const bool mark = is_exponent_mark(text[end]) && grammar.exponent;
    if (mark || is_separator(text[end], grammar)) {
      // Both end a number with an exponent and spoil one without.
      const bool has_exponent = grammar.exponent && text.substr(0, end).find_first_of(u"eE") != text.npos;
      if (!has_exponent) return {0.0, mark ? pass_exponent(text, end) : end};
    }
  }
  if (number.status == NumberStatus::kTooLarge)
    return {text[0] == u'-' ? std::numeric_limits<Double>::lowest() : std::numeric_limits<Double>::max(), end};
  return {number.value, end};
}

}  // namespace

Integer ScanHex(const TString& Instring, Integer& CurPos) { return scan_word(Instring, CurPos, 4); }
Integer ScanOctal(const TString& Instring, Integer& CurPos) { return scan_word(Instring, CurPos, 3); }
Integer ScanBin(const TString& Instring, Integer& CurPos) { return scan_word(Instring, CurPos, 1); }

template <std::same_as<std::u16string_view> View>
Integer ScanDecimal(View Instring, Integer& CurPos) {
  return scan_from(Instring, CurPos, [](std::u16string_view text) -> Scanned<Integer> {
    const auto number = zor::detail::parse_integer(text, kLowest, kHighest);
    if (number.status == NumberStatus::kNone) return {0, static_cast<std::size_t>(!text.empty() && is_sign(text[0]))};
    if (number.status == NumberStatus::kTooLarge) return {text[0] == u'-' ? kLowest : kHighest, number.end};
    return {static_cast<Integer>(number.value), number.end};
  });
}

template <std::same_as<std::u16string_view> View>
Double ScanFPNum(View Instring, Boolean AllowExp, Integer DecMode, Integer& CurPos) {
  const NumberGrammar grammar{AllowExp, DecMode == 1 || DecMode == 3, DecMode == 2 || DecMode == 3};
  return scan_from(Instring, CurPos, [=](std::u16string_view text) { return scan_number(text, grammar); });
}

template ZOR_API Integer ScanDecimal(std::u16string_view, Integer&);
template ZOR_API Double ScanFPNum(std::u16string_view, Boolean, Integer, Integer&);

Boolean IsValidDouble(const TString& S, Boolean AllowExp, TDecPSep DecPSep) {
  const NumberGrammar grammar{AllowExp, DecPSep != dpsComma, DecPSep != dpsPoint};
  const std::u16string_view text = S.units().substr(zor::detail::skip_blanks(S.units()));
  const auto number = zor::detail::parse_number(text, grammar);
  return number.end == text.size() && (number || number.status == NumberStatus::kTooSmall);
}
Boolean IsValidFPNum(const TString& S, TDecPSep DecPSep) { return IsValidDouble(S, true, DecPSep); }

Boolean IsValidHex(const TString& S) { return is_word(S, 4); }
Boolean IsValidOct(const TString& S) { return is_word(S, 3); }
Boolean IsValidBin(const TString& S) { return is_word(S, 1); }
Boolean IsValidDecInt(const TString& S) {
  const auto number = zor::detail::parse_integer(S.units(), kLowest, kHighest);
  return number && number.end == S.units().size();
}

Integer StrToIntDefault(const TString& S, Integer Default) {
  Integer value = 0, code = 0;
  Val(S, value, code);
  return code == 0 ? value : Default;
}

}  // namespace ZOR_math1

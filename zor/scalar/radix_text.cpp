#include "zor/scalar/radix_text.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string>
#include <type_traits>

#include "zor/scalar/digits_internal.h"

namespace ZOR_math1 {
namespace {

constexpr char kDigits[] = "0123456789ABCDEF";

// The last `digits` digits of n in a radix that is a power of two.
std::string low_digits(std::uint64_t n, int digits, int bits_per_digit) {
  std::string text(static_cast<std::size_t>(digits), '0');
  for (auto at = text.rbegin(); at != text.rend(); ++at, n >>= bits_per_digit)
    *at = kDigits[n & ((std::uint64_t{1} << bits_per_digit) - 1)];
  return text;
}

TString word_text(Integer value, Integer digits, int most, int bits_per_digit) {
  return low_digits(static_cast<std::uint32_t>(value), std::clamp(digits, 1, most), bits_per_digit);
}

// The word of which S gives the bytes; `routine` speaks in the message.
template <class Word>
Word word_of(const char* routine, const TString& S, Boolean HighByteFirst) {
  const std::u16string_view text = S.units();
  bool valid = text.size() == 2 * sizeof(Word);
  Word word = 0;
  for (std::size_t i = 0; valid && i < text.size(); i += 2) {
    const int high = zor::detail::digit_value(text[i]), low = zor::detail::digit_value(text[i + 1]);
    valid = high < 16 && low < 16;
    const std::size_t byte = HighByteFirst ? sizeof(Word) - 1 - i / 2 : i / 2;
    if (valid) word |= static_cast<Word>(high * 16 + low) << (8 * byte);
  }
  if (!valid) throw EZORError(TString(routine) + ": invalid hex string \"" + S + "\"");
  return word;
}

}  // namespace

TString Decimal(Integer Value, Integer Digits) {
  std::uint32_t n = static_cast<std::uint32_t>(Value);
  if (Value < 0) n = 0 - n;
  std::string text(static_cast<std::size_t>(std::clamp(Digits, 1, 255)), '0');
  for (auto at = text.rbegin(); at != text.rend(); ++at, n /= 10) *at = kDigits[n % 10];
  return Value < 0 ? "-" + text : text;
}

TString Hex(Integer Value, Integer Digits) { return word_text(Value, Digits, 16, 4); }
TString Octal(Integer Value, Integer Digits) { return word_text(Value, Digits, 11, 3); }
TString Bin(Integer Value, Integer Digits) { return word_text(Value, Digits, 32, 1); }

template <class Float>
  requires std::same_as<Float, Double> || std::same_as<Float, Single>
TString FPNumToHex(Float x) {
  using Word = std::conditional_t<sizeof(Float) == 8, std::uint64_t, std::uint32_t>;
  return low_digits(std::bit_cast<Word>(x), static_cast<int>(2 * sizeof(Float)), 4);
}
template ZOR_API TString FPNumToHex(Double);
template ZOR_API TString FPNumToHex(Single);

Double HexToDouble(const TString& S) { return HexToDouble(S, true); }
Double HexToDouble(const TString& S, Boolean HighByteFirst) {
  return std::bit_cast<Double>(word_of<std::uint64_t>("HexToDouble", S, HighByteFirst));
}
Single HexToSingle(const TString& S) { return HexToSingle(S, true); }
Single HexToSingle(const TString& S, Boolean HighByteFirst) {
  return std::bit_cast<Single>(word_of<std::uint32_t>("HexToSingle", S, HighByteFirst));
}

}  // namespace ZOR_math1

#include "zor/scalar/float_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string_view>

#include "zor/runtime/pow10.h"
#include "zor/scalar/decades_internal.h"
#include "zor/scalar/text_buffer_internal.h"

namespace ZOR_math1 {

using zor::detail::TextBuffer;

TString strf(Double x, Integer Width, Integer Decimals) {
  if (Decimals != -2 || !std::isfinite(x)) return Str(x, Width, Decimals);
  TextBuffer longer;
  const std::string_view text = longer.add_scientific(x, std::clamp(Width, 0, zor::detail::kMaxField) + 2).view();
  const std::size_t digits = text.find('E') + 2;
  TextBuffer shorter;
  if (text.substr(digits, 2) == "00") {
    shorter.add(text.substr(0, digits)).add(text.substr(digits + 2));
  } else {
    for (std::size_t i = 2; i < text.size(); ++i) shorter.add("*");
  }
  return shorter;
}

TString MakeEFormat(Double x, Integer Width, Integer Digits) {
  const int width = std::clamp(Width, 8, 40), digits = std::clamp(Digits, 2, 15);
  if (!std::isfinite(x)) return Str(x, width);
  TextBuffer scientific;  // sign, digit, ".", digits - 1 decimals, "E", sign and four digits of the exponent
  const std::string_view s = scientific.add_scientific(x, digits + 8).view();
  const auto count = static_cast<std::size_t>(digits);
  int exponent = 0;
  std::from_chars(s.data() + count + 4, s.data() + s.size(), exponent);
  if (s[count + 3] == '-') exponent = -exponent;
  if (x != 0.0) ++exponent;
  const int size = std::abs(exponent);
  TextBuffer text;
  const int blanks = width - (digits + 4 + (size < 100 ? 2 : 3));
  for (int i = 0; i < blanks; ++i) text.add(" ");
  text.add(s.substr(0, 1)).add("0.").add(s.substr(1, 1)).add(s.substr(3, count - 1));
  text.add(exponent < 0 ? "-" : "+").add(size < 10 ? "0" : "");
  return text.add_fixed(size, 1, 0);
}

TString EEngStr(Double x, Integer Digits) {
  if (!std::isfinite(x)) return Str(x, 1, 0);
  const int wanted = std::clamp(Digits, -9, 9);
  const int decimals = std::max(std::abs(wanted) - 1, 0);
  if (x == 0.0) return Str(0.0, 1, decimals);
  const double a = std::fabs(x);
  const int decade = zor::detail::decade_of(a);
  const int power = std::clamp((decade + 999) / 3 - 333, -6, 4);
  const double scaled = power < 0 ? a * zor::detail::pow10(-3 * power) : a / zor::detail::pow10(3 * power);
  TextBuffer text;
  text.add(x < 0.0 ? "-" : "").add_fixed(scaled, 1, std::max(decimals - (decade - 3 * power), 0));
  if (power != 0) {
    const std::string_view letter = std::string_view("afpnum kMGT").substr(static_cast<std::size_t>(power + 6), 1);
    const std::size_t point = text.view().find('.');
    if (wanted < -1 && point != std::string_view::npos) {
      text[point] = letter[0];
    } else {
      text.add(letter);
    }
  }
  return text;
}

TString Roman(Integer n) {
  struct Numeral {
    Integer value;
    const char* letters;
  };
  constexpr Numeral kNumerals[] = {{1000, "M"}, {900, "CM"}, {500, "D"}, {400, "CD"}, {100, "C"}, {90, "XC"}, {50, "L"},
                                   {40, "XL"},  {10, "X"},   {9, "IX"},  {5, "V"},    {4, "IV"},  {1, "I"}};
  TextBuffer text;
  if (n < 1 || n > 29999) return text;
  for (const Numeral& numeral : kNumerals)
    for (; n >= numeral.value; n -= numeral.value) text.add(numeral.letters);
  return text;
}

}  // namespace ZOR_math1

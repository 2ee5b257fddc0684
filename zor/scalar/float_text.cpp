#include "zor/scalar/float_text.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

#include "zor/runtime/pow10.h"
#include "zor/scalar/decades_internal.h"

namespace ZOR_math1 {

TString strf(Double x, Integer Width, Integer Decimals) {
  if (Decimals != -2 || !std::isfinite(x)) return Str(x, Width, Decimals);
  std::string text = Str(x, std::clamp(Width, 0, 1100) + 2).utf8();
  const std::size_t digits = text.find('E') + 2;
  const bool fits = text.compare(digits, 2, "00") == 0;
  text.erase(digits, 2);
  return fits ? text : std::string(text.size(), '*');
}

TString MakeEFormat(Double x, Integer Width, Integer Digits) {
  const int width = std::clamp(Width, 8, 40), digits = std::clamp(Digits, 2, 15);
  if (!std::isfinite(x)) return Str(x, width);
  const std::string s = Str(x, digits + 8).utf8();  // sign, digit, ".", digits - 1 decimals, "E", exponent
  const auto count = static_cast<std::size_t>(digits);
  const int exponent = std::atoi(s.c_str() + count + 3) + (x != 0.0);
  const std::string power = std::to_string(std::abs(exponent));
  std::string text = s.substr(0, 1) + "0." + s[1] + s.substr(3, count - 1);
  text += exponent < 0 ? '-' : '+';
  if (power.size() < 2) text += '0';
  text += power;
  return std::string(static_cast<std::size_t>(width) - std::min(text.size(), static_cast<std::size_t>(width)), ' ') +
         text;
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
  std::string text = Str(scaled, 1, std::max(decimals - (decade - 3 * power), 0)).utf8();
  if (power != 0) {
    const char letter = "afpnum kMGT"[power + 6];
    const std::size_t point = text.find('.');
    if (wanted < -1 && point != std::string::npos)
      text[point] = letter;
    else
      text += letter;
  }
  return x < 0.0 ? "-" + text : text;
}

TString Roman(Integer n) {
  struct Numeral {
    Integer value;
    const char* letters;
  };
  constexpr Numeral kNumerals[] = {{1000, "M"}, {900, "CM"}, {500, "D"}, {400, "CD"}, {100, "C"}, {90, "XC"}, {50, "L"},
                                   {40, "XL"},  {10, "X"},   {9, "IX"},  {5, "V"},    {4, "IV"},  {1, "I"}};
  std::string text;
  if (n < 1 || n > 29999) return text;
  for (const Numeral& numeral : kNumerals)
    for (; n >= numeral.value; n -= numeral.value) text += numeral.letters;
  return text;
}

}  // namespace ZOR_math1

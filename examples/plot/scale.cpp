#include "examples/plot/scale.h"

#include <algorithm>
#include <charconv>

#include "zor/scalar/ZOR_math1.h"

namespace plot {
namespace {

constexpr const char* kMinus = "\u2212";
constexpr const char* kThinSpace = "\u202F";

std::string with_true_minus(std::string text) {
  for (std::size_t at = text.find('-'); at != std::string::npos; at = text.find('-', at)) text.replace(at, 1, kMinus);
  return text;
}

}  // namespace

Ticks ticks_125(double low, double high, int wanted) {
  if (!(low < high) || !std::isfinite(high - low) || wanted < 1) return {};
  Ticks ticks;
  ZOR_zorbase::Word minor = 0;
  // The scale has at least the intervals asked for, and up to 2.5 times as many.
  ZOR_math1::CalcScalePars((wanted + 1) / 2, low, high, ticks.first, ticks.step, minor);
  if (!(ticks.step > 0.0)) return {};
  const double slack = 1e-3;  // as at the first mark: a bound that is a multiple but for rounding gets its mark
  ticks.count = static_cast<int>((high - ticks.first) / ticks.step + slack) + 1;
  return ticks;
}

std::string number_text(double value, double step) {
  const double places = step > 0.0 ? -std::floor(std::log10(step) + 1e-9) : 0.0;
  char text[400];
  const int decimals = static_cast<int>(std::clamp(places, 0.0, 17.0));
  const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals).ptr;
  std::string out(text, end);
  if (out.find_first_of("123456789") == std::string::npos && out.front() == '-') out.erase(0, 1);
  const std::size_t first = out.front() == '-' ? 1 : 0;
  const std::size_t whole = std::min(out.find('.'), out.size());
  if (whole - first >= 5)
    for (std::size_t at = whole - 3; at > first; at = at > first + 3 ? at - 3 : first) out.insert(at, kThinSpace);
  return with_true_minus(out);
}

std::string short_text(double value, int digits) {
  if (std::isnan(value)) return "\u2013";
  char text[64];
  const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, digits).ptr;
  return with_true_minus({text, end});
}

int common_exponent(double largest) {
  if (!std::isfinite(largest) || largest == 0.0 || (largest >= 1e-3 && largest < 1e6)) return 0;
  return 3 * static_cast<int>(std::floor(std::log10(largest) / 3.0));
}

std::string exponent_text(int exponent) {
  constexpr const char* kRaised[] = {"\u2070", "\u00B9", "\u00B2", "\u00B3", "\u2074",
                                     "\u2075", "\u2076", "\u2077", "\u2078", "\u2079"};
  std::string out = "\u00D710";
  for (const char c : std::to_string(exponent)) out += c == '-' ? "\u207B" : kRaised[c - '0'];
  return out;
}

}  // namespace plot

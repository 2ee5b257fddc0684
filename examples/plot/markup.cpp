#include "examples/plot/markup.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace plot {

std::string escaped(std::string_view text) {
  std::string out;
  for (const char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

std::string base64(std::span<const std::byte> bytes) {
  constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string out;
  out.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t here = std::min<std::size_t>(3, bytes.size() - i);
    std::uint32_t group = 0;
    for (std::size_t k = 0; k < 3; ++k)
      group = group << 8 | (k < here ? std::to_integer<std::uint32_t>(bytes[i + k]) : 0u);
    for (std::size_t k = 0; k < 4; ++k) out += k <= here ? kDigits[group >> (18 - 6 * k) & 63] : '=';
  }
  return out;
}

std::string coordinate(double value) {
  char text[64];
  const double bounded = std::clamp(value, -1e6, 1e6);
  const auto end = std::to_chars(text, text + sizeof text, bounded, std::chars_format::fixed, 1).ptr;
  std::string out(text, end);
  if (out.ends_with(".0")) out.resize(out.size() - 2);
  return out == "-0" ? "0" : out;
}

}  // namespace plot

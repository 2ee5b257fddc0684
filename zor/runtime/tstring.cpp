#include "zor/runtime/tstring.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <span>

#include "zor/runtime/utf8.h"

namespace zor::detail {

char32_t take_utf8(std::string_view& bytes) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const unsigned lead = byte(0);
  std::size_t more = 0;
  char32_t code = lead;
  unsigned low = 0x80, high = 0xBF;
  if (lead < 0x80) {
    bytes.remove_prefix(1);
    return code;
  }
  if (lead >= 0xC2 && lead <= 0xDF) {
    more = 1, code = lead & 0x1F;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    more = 2, code = lead & 0x0F;
    if (lead == 0xE0) low = 0xA0;
    if (lead == 0xED) high = 0x9F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    more = 3, code = lead & 0x07;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
  } else {
    bytes.remove_prefix(1);
    return char32_t{0xFFFD};
  }
  for (std::size_t i = 1; i <= more; ++i) {
    if (i >= bytes.size() || byte(i) < low || byte(i) > high) {
      bytes.remove_prefix(i);
      return char32_t{0xFFFD};
    }
    code = (code << 6) | (byte(i) & 0x3F);
    low = 0x80, high = 0xBF;
  }
  bytes.remove_prefix(more + 1);
  return code;
}

}  // namespace zor::detail

namespace ZOR_runtime {
namespace {

using zor::detail::take_utf8;

constexpr char32_t kReplacement = 0xFFFD;

constexpr bool is_high(char32_t u) { return u >= 0xD800 && u <= 0xDBFF; }
constexpr bool is_low(char32_t u) { return u >= 0xDC00 && u <= 0xDFFF; }

void append_utf8(std::string& out, char32_t c) {
  const auto put = [&](char32_t b) { out += static_cast<char>(static_cast<unsigned char>(b)); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | (c >> 6)), put(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    put(0xE0 | (c >> 12)), put(0x80 | ((c >> 6) & 0x3F)), put(0x80 | (c & 0x3F));
  } else {
    put(0xF0 | (c >> 18)), put(0x80 | ((c >> 12) & 0x3F)), put(0x80 | ((c >> 6) & 0x3F)), put(0x80 | (c & 0x3F));
  }
}

// Widens the ASCII that the text begins with, or what fits of it, and gives the number of its characters.
std::size_t widen_ascii(std::string_view text, std::span<Char> units) {
  const std::size_t most = std::min(text.size(), units.size());
  std::size_t n = 0;
  for (; most - n >= 8; n += 8) {
    std::uint64_t eight;
    std::memcpy(&eight, text.data() + n, 8);
    if ((eight & 0x8080808080808080) != 0) break;
    for (std::size_t i = 0; i < 8; ++i) units[n + i] = static_cast<unsigned char>(text[n + i]);
  }
  for (; n < most && static_cast<unsigned char>(text[n]) < 0x80; ++n) units[n] = static_cast<Char>(text[n]);
  return n;
}

}  // namespace

TString::TString(std::string_view utf8_text) {
  // Short ASCII, such as a number, is made in one piece.
  Char ascii[64];
  const std::size_t count = widen_ascii(utf8_text, ascii);
  if (count < utf8_text.size()) units_.reserve(utf8_text.size());
  units_.append(ascii, count);
  utf8_text.remove_prefix(count);
  while (!utf8_text.empty()) {
    const char32_t c = take_utf8(utf8_text);
    if (c < 0x10000) {
      units_ += static_cast<Char>(c);
    } else {
      units_ += static_cast<Char>(0xD7C0 + (c >> 10));
      units_ += static_cast<Char>(0xDC00 + (c & 0x3FF));
    }
  }
}

TString::TString(std::u16string_view text) : units_(text) {
  for (std::size_t i = 0; i < units_.size(); ++i) {
    if (is_high(units_[i]) && i + 1 < units_.size() && is_low(units_[i + 1])) {
      ++i;
    } else if (is_high(units_[i]) || is_low(units_[i])) {
      units_[i] = static_cast<Char>(kReplacement);
    }
  }
}

std::string TString::utf8() const {
  std::string out;
  out.reserve(units_.size());
  for (std::size_t i = 0; i < units_.size(); ++i) {
    char32_t c = units_[i];
    if (is_high(c) && i + 1 < units_.size() && is_low(units_[i + 1])) {
      c = 0x10000 + ((c - 0xD800) << 10) + (units_[++i] - 0xDC00U);
    } else if (is_high(c) || is_low(c)) {
      c = kReplacement;
    }
    append_utf8(out, c);
  }
  return out;
}

std::ostream& operator<<(std::ostream& out, const TString& text) { return out << text.utf8(); }

}  // namespace ZOR_runtime

#pragma once

#include <compare>
#include <concepts>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

#include "zor/runtime/tstring.h"

/// \file  Short texts of fixed capacity, for names and identifiers: no heap block of their own.

namespace ZOR_datatable {

/// UTF-8 text of at most N bytes behind its length. Longer text is cut in front of the character that does not fit.
/// Bytes behind the length are zero. Texts compare by their bytes; of two of which one begins the other, the shorter
/// comes first.
template <std::size_t N>
struct TShortStr {
  static_assert(N < 256);
  std::uint8_t length = 0;
  char text[N] = {};

  constexpr TShortStr() noexcept = default;
  TShortStr(std::string_view utf8_text) {
    bool ascii = true;
    for (const char c : utf8_text.substr(0, N + 1)) ascii = ascii && static_cast<unsigned char>(c) < 0x80;
    if (ascii) {
      take(utf8_text);
    } else {
      take(ZOR_runtime::TString(utf8_text.substr(0, 4 * N)).utf8());  // what is no valid UTF-8 becomes U+FFFD
    }
  }
  TShortStr(const std::string& utf8_text) : TShortStr(std::string_view(utf8_text)) {}
  TShortStr(const char* utf8_text) : TShortStr(utf8_text ? std::string_view(utf8_text) : std::string_view()) {}
  TShortStr(const ZOR_runtime::TString& other) { take(other.utf8()); }

  std::string_view view() const noexcept { return {text, length}; }
  ZOR_runtime::TString str() const { return view(); }
  operator ZOR_runtime::TString() const { return view(); }
  bool empty() const noexcept { return length == 0; }

  friend bool operator==(const TShortStr& a, const TShortStr& b) noexcept { return a.view() == b.view(); }
  friend std::strong_ordering operator<=>(const TShortStr& a, const TShortStr& b) noexcept {
    return a.view() <=> b.view();
  }
  friend bool operator==(const TShortStr& a, const std::same_as<ZOR_runtime::TString> auto& b) { return a.str() == b; }
  friend std::ostream& operator<<(std::ostream& out, const TShortStr& a) { return out << a.view(); }

 private:
  void take(std::string_view utf8_text) noexcept {
    std::size_t n = utf8_text.size();
    if (n > N) {
      n = N;
      while (n > 0 && (static_cast<unsigned char>(utf8_text[n]) & 0xC0) == 0x80) --n;
    }
    length = static_cast<std::uint8_t>(n);
    utf8_text.copy(text, n);
  }
};

}  // namespace ZOR_datatable

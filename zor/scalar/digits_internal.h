#pragma once

/// \file  Single digits of a text.

namespace zor::detail {

/// What a digit of any radix up to 16 counts, letters in either case; 16 for all other characters.
constexpr int digit_value(char16_t c) noexcept {
  if (c >= u'0' && c <= u'9') return c - u'0';
  const char16_t upper = c >= u'a' && c <= u'f' ? static_cast<char16_t>(c - 32) : c;
  return upper >= u'A' && upper <= u'F' ? upper - u'A' + 10 : 16;
}

}  // namespace zor::detail

#pragma once

#include <cstddef>
#include <string_view>

#include "zor/runtime/text.h"

/// \file  The frame of all scanners.

namespace zor::detail {

/// Number of blanks from place i (from 0) on.
constexpr std::size_t skip_blanks(std::u16string_view text, std::size_t i = 0) noexcept {
  const std::size_t start = i;
  while (i < text.size() && is_blank(text[i])) ++i;
  return i - start;
}

/// What a scanner found at the start of a text; with read = kStay the position stays, blanks included.
inline constexpr std::size_t kStay = static_cast<std::size_t>(-1);
template <class Value>
struct Scanned {
  Value value{};
  std::size_t read = kStay;
};

/// The value of scan(text), where text is what stands behind the blanks from position `at` (from 1) on; moves `at`
/// behind what was read. Behind the end nothing is scanned.
template <class Scan>
auto scan_from(std::u16string_view text, ZOR_runtime::Integer& at, Scan scan) {
  const std::size_t start = at < 1 ? 0 : static_cast<std::size_t>(at) - 1;
  if (start >= text.size()) return decltype(scan(text).value){};
  text.remove_prefix(start);
  const std::size_t blanks = skip_blanks(text);
  text.remove_prefix(blanks);
  const auto [value, read] = scan(text);
  if (read != kStay) at = to_integer(start + blanks + read + 1);
  return value;
}

}  // namespace zor::detail

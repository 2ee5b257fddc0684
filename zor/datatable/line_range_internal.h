#pragma once

#include <algorithm>
#include <utility>

#include "zor/runtime/types.h"

/// \file  Ranges that are refused, not repaired.

namespace zor::detail {

/// (0, 0) becomes all n positions, counted from `base`; reversed bounds are exchanged. False, with the bounds
/// unchanged, if one lies outside.
constexpr bool resolve_range(std::int32_t& first, std::int32_t& last, std::int32_t n, std::int32_t base) noexcept {
  if (first == 0 && last == 0) {
    first = base;
    last = n + base - 1;
    return true;
  }
  const auto inside = [&](std::int32_t i) { return i >= base && i - base < n; };
  if (!inside(first) || !inside(last)) return false;
  if (first > last) std::swap(first, last);
  return true;
}

}  // namespace zor::detail

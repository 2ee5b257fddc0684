#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>

#include "zor/runtime/types.h"

/// \file  The rule by which the containers repair a range of element, column, row, layer or slot numbers.

namespace zor::detail {

/// (0, 0) becomes 1 to n; otherwise both bounds are moved into 1 to n, then exchanged if reversed. 0, or -1 if a bound
/// was moved. With n = 0 there is nothing to move them into: the range becomes 1 to 0, the result of other bounds is
/// -1.
constexpr std::int32_t make_valid_range(std::int32_t& lo, std::int32_t& hi, std::int32_t n) noexcept {
  const bool whole = lo == 0 && hi == 0;
  if (whole || n <= 0) {
    lo = 1;
    hi = n;
    return whole ? 0 : -1;
  }
  const std::int32_t low = std::clamp(lo, 1, n), high = std::clamp(hi, 1, n);
  const bool moved = low != lo || high != hi;
  lo = (std::min)(low, high);
  hi = (std::max)(low, high);
  return moved ? -1 : 0;
}

/// True unless i is an index, from 0, of n cells.
constexpr bool outside(std::int64_t i, std::size_t n) noexcept { return i < 0 || static_cast<std::size_t>(i) >= n; }

}  // namespace zor::detail

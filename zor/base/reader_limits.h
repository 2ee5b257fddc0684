#pragma once

#include <cstdint>

/// \file  How much a file may make its reader allocate.

namespace zor::detail {

/// Cells that a reader may allocate on the word of any file: 128 MiB of doubles.
inline constexpr std::int64_t kFreeCells = std::int64_t{1} << 24;

/// Bytes of the smallest cell in text ("0" and a separator) and in tagged text.
inline constexpr std::int64_t kSmallestTextCell = 2;
inline constexpr std::int64_t kSmallestXmlCell = 16;

/// Product of two counts; -1 if one is negative or the product exceeds 64 bits.
constexpr std::int64_t checked_product(std::int64_t a, std::int64_t b) noexcept {
  if (a < 0 || b < 0) return -1;
  return b != 0 && a > INT64_MAX / b ? -1 : a * b;
}

/// True if a file of which `remaining` bytes are left may announce so many cells: few enough for any file, or no more
/// than the bytes can hold. -1, as of an overflow, is refused.
constexpr bool may_allocate(std::int64_t cells, std::int64_t remaining, std::int64_t smallest_cell) noexcept {
  return cells >= 0 && (cells <= kFreeCells || cells <= remaining / smallest_cell);
}

}  // namespace zor::detail

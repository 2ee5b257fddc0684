#pragma once

#include <cstdint>

#include "zor/runtime/dyn_array.h"

/// \file  How much a file may make its reader allocate: 16 MiB, and 32 bytes for each byte that it holds.
/// A reader asks here before it makes room for what a file announces; what is made while reading is in proportion to
/// the bytes read anyway. A pipe holds no bytes that one could know of.

namespace zor::detail {

/// Bytes that a reader may allocate on the word of any file; its buffers take what is left of 16 MiB.
inline constexpr std::int64_t kFreeBytes = 16'000'000;
/// Cells of 8 bytes likewise.
inline constexpr std::int64_t kFreeCells = kFreeBytes / 8;
/// Bytes that a reader may allocate in addition for each byte of the file: what a column of one cell costs, for the two
/// bytes that it takes at least in a text.
inline constexpr std::int64_t kBytesForByte = 32;

/// Product of two counts; -1 if one is negative or the product exceeds 64 bits.
constexpr std::int64_t checked_product(std::int64_t a, std::int64_t b) noexcept {
  if (a < 0 || b < 0) return -1;
  return b != 0 && a > INT64_MAX / b ? -1 : a * b;
}

/// True if a file of which `remaining` bytes are left may make its reader allocate so many bytes. -1, as of an
/// overflow, is refused.
constexpr bool may_allocate(std::int64_t bytes, std::int64_t remaining) noexcept {
  return bytes >= 0 && (bytes <= kFreeBytes || (bytes - kFreeBytes - 1) / kBytesForByte < remaining);
}

/// Bytes of an array of so many columns, the columns' own included, and of one row beside it; -1 beyond 64 bits.
template <class T>
constexpr std::int64_t column_array_bytes(std::int64_t columns, std::int64_t rows) noexcept {
  constexpr std::int64_t kHead = sizeof(ZOR_runtime::TDynArray<T>) + sizeof(CellRun) + sizeof(T);
  constexpr std::int64_t kMostRows = INT64_MAX / 4 / static_cast<std::int64_t>(sizeof(T));
  if (rows < 0 || rows > kMostRows) return -1;
  const auto stride = static_cast<std::int64_t>(run_stride<T>(static_cast<std::size_t>(rows)));
  return checked_product(columns, kHead + stride * static_cast<std::int64_t>(sizeof(T)));
}

}  // namespace zor::detail

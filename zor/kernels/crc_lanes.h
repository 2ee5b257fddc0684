#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "zor/export.h"

/// \file  CRC-32 with the reflected polynomial EDB88320 (ISO 3309): one byte at a time, and for each byte position of
/// the cells of a run. States start with all bits set and are complemented at the end by the caller; "123456789" gives
/// CBF43926.

namespace zor::kernels {

/// The 256 changes of a state, one for each byte.
inline constexpr std::array<std::uint32_t, 256> kCrc32Table = [] {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t i = 0; i < 256; ++i) {
    std::uint32_t state = i;
    for (int bit = 0; bit < 8; ++bit) state = state & 1 ? state >> 1 ^ 0xEDB88320u : state >> 1;
    table[i] = state;
  }
  return table;
}();

/// The state after `byte`.
constexpr std::uint32_t crc32_step(std::uint32_t state, std::uint8_t byte) noexcept {
  return state >> 8 ^ kCrc32Table[(state ^ byte) & 0xFF];
}

/// Passes byte k of each cell, counted from the lowest one, to states[k], cell after cell.
ZOR_API void crc32_lanes(std::span<const double> cells, std::span<std::uint32_t, 8> states) noexcept;
ZOR_API void crc32_lanes(std::span<const std::int32_t> cells, std::span<std::uint32_t, 4> states) noexcept;

}  // namespace zor::kernels

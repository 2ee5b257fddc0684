#pragma once

#include <cstddef>
#include <cstdint>

/// \file  The inner loops of crc_lanes.h. A checksum is linear: a run is cut into segments that go side by side, each
/// with states of its own, which are joined at the end of a block. Bytes are looked up in registers, half a byte at a
/// time.

namespace zor::kernels {

/// Cells of a segment.
inline constexpr std::size_t kCrcSegment = 128;

struct CrcConstants {
  /// Byte j of the change by a lower ([0][j]) and an upper ([1][j]) half byte.
  alignas(16) std::uint8_t change[2][4][16];
  /// The state that a half byte, number [i] from the lowest, of a state becomes after kCrcSegment zero bytes.
  std::uint32_t ahead[8][16];
};

/// Passes whole blocks of the n cells to the states; returns the number of cells passed.
using CrcBlocks = std::size_t (*)(const std::uint8_t* cells, std::size_t n, std::uint32_t* states,
                                  const CrcConstants& constants);

struct CrcTable {
  CrcBlocks eight;  // cells of eight bytes
  CrcBlocks four;
};

}  // namespace zor::kernels

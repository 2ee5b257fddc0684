#pragma once

#include <array>
#include <cstdint>

#include "zor/imaging/graphic.h"

/// \file  The BMP format: a head of 14 bytes, a head of the picture with 12 (16-bit sizes) or at least 40 bytes, a
/// palette of blue, green, red bytes, and rows filled up to multiples of four bytes, the lowest row first unless the
/// height is negative. Little endian. In pictures of 16 and 32 bits masks tell the bits of the channels.

namespace zor::detail {

/// What the heads of a file say, checked against its length.
struct BmpLayout {
  std::int32_t width = 0, height = 0;
  bool top_down = false;
  int bits = 0;
  std::array<std::uint32_t, 3> masks{};  ///< Red, green, blue.
  std::size_t palette_at = 0, palette_entries = 0, palette_entry_bytes = 0;
  std::size_t pixels_at = 0, row_bytes = 0;
};

/// Raises EInvalidGraphic for what is no such file, or lacks rows of the picture that it announces.
BmpLayout read_bmp_layout(std::span<const std::byte> file);
/// Fills width * height pixels, row after row from the top; indices beyond the palette give black.
void read_bmp_pixels(std::span<const std::byte> file, const BmpLayout& layout, std::span<ZOR_imaging::TRGBPixel> to);
std::vector<std::byte> write_bmp(const ZOR_imaging::TGraphic& picture);

}  // namespace zor::detail

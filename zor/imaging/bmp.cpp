#include <algorithm>
#include <bit>
#include <concepts>

#include "zor/imaging/bmp_internal.h"

namespace zor::detail {
namespace {

using ZOR_imaging::EInvalidGraphic;
using ZOR_imaging::TRGBPixel;
using ByteSpan = std::span<const std::byte>;

constexpr std::size_t kFileHead = 14, kSmallHead = 12, kPictureHead = 40;
constexpr std::uint32_t kUncompressed = 0, kMasked = 3, kMaskedWithAlpha = 6;

[[noreturn]] void refuse(const char* why) { throw EInvalidGraphic(ZOR_runtime::TString("bad BMP file: ") + why); }

template <std::unsigned_integral T>
T number_at(ByteSpan file, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = sizeof(T); i-- > 0;) value = value << 8 | std::to_integer<std::uint32_t>(file[at + i]);
  return static_cast<T>(value);
}
std::uint16_t word_at(ByteSpan file, std::size_t at) { return number_at<std::uint16_t>(file, at); }
std::uint32_t dword_at(ByteSpan file, std::size_t at) { return number_at<std::uint32_t>(file, at); }

std::uint64_t padded_row(std::uint64_t width, std::uint64_t bits) { return (width * bits + 31) / 32 * 4; }

/// The bits of one channel, scaled to 0..255.
std::uint8_t channel(std::uint32_t pixel, std::uint32_t mask) {
  if (mask == 0) return 0;
  const std::uint32_t most = mask >> std::countr_zero(mask);
  const std::uint32_t value = (pixel & mask) >> std::countr_zero(mask);
  return static_cast<std::uint8_t>((std::uint64_t{value} * 255 + most / 2) / most);
}

/// Sizes, bits and masks; true if the file is of the kind with the small head.
bool read_heads(ByteSpan file, BmpLayout& layout, std::size_t& head_bytes) {
  if (file.size() < kFileHead + kSmallHead || word_at(file, 0) != 0x4D42) refuse("it does not begin with its mark");
  head_bytes = dword_at(file, kFileHead);
  const bool small = head_bytes == kSmallHead;
  if (!small && (head_bytes < kPictureHead || head_bytes > file.size() - kFileHead)) refuse("its head is incomplete");
  const std::size_t at = kFileHead;
  std::uint32_t compression = kUncompressed;
  if (small) {
    layout.width = word_at(file, at + 4);
    layout.height = word_at(file, at + 6);
    layout.bits = word_at(file, at + 10);
  } else {
    const auto height = static_cast<std::int32_t>(dword_at(file, at + 8));
    layout.width = static_cast<std::int32_t>(dword_at(file, at + 4));
    layout.top_down = height < 0;
    if (layout.width < 0 || height == INT32_MIN) refuse("its size is out of range");
    layout.height = height < 0 ? -height : height;
    layout.bits = word_at(file, at + 14);
    compression = dword_at(file, at + 16);
  }
  constexpr int kBits[] = {1, 4, 8, 16, 24, 32};
  if (!std::ranges::count(kBits, layout.bits)) refuse("its number of bits for a pixel is not known");

  const bool masked = compression == kMasked || compression == kMaskedWithAlpha;
  if (compression != kUncompressed && !(masked && (layout.bits == 16 || layout.bits == 32))) {
    refuse("its compression is not supported");
  }
  if (masked) {
    // The masks end the larger heads, and follow the usual one.
    if (file.size() < kFileHead + kPictureHead + 12) refuse("its head is incomplete");
    for (std::size_t i = 0; i < 3; ++i) layout.masks[i] = dword_at(file, kFileHead + kPictureHead + 4 * i);
    if (head_bytes == kPictureHead) head_bytes += compression == kMasked ? 12 : 16;
  } else if (layout.bits == 16) {
    layout.masks = {0x7C00, 0x03E0, 0x001F};
  } else {
    layout.masks = {0xFF0000, 0x00FF00, 0x0000FF};
  }
  return small;
}

}  // namespace

BmpLayout read_bmp_layout(ByteSpan file) {
  BmpLayout layout;
  std::size_t head_bytes = 0;
  const bool small = read_heads(file, layout, head_bytes);
  layout.pixels_at = dword_at(file, 10);
  const std::uint64_t row_bytes =
      padded_row(static_cast<std::uint64_t>(layout.width), static_cast<std::uint64_t>(layout.bits));
  const auto rows = static_cast<std::uint64_t>(layout.height);
  if (rows != 0 && row_bytes != 0 &&
      (layout.pixels_at > file.size() || rows > (file.size() - layout.pixels_at) / row_bytes)) {
    refuse("rows are missing");
  }
  layout.row_bytes = static_cast<std::size_t>(row_bytes);

  if (layout.bits <= 8) {
    layout.palette_at = kFileHead + head_bytes;
    layout.palette_entry_bytes = small ? 3 : 4;
    const std::size_t most = std::size_t{1} << layout.bits;
    const std::size_t told = small ? 0 : dword_at(file, kFileHead + 32);
    const std::size_t there =
        layout.palette_at < file.size() ? (file.size() - layout.palette_at) / layout.palette_entry_bytes : 0;
    layout.palette_entries = std::min({told == 0 ? most : told, most, there});
  }
  return layout;
}

void read_bmp_pixels(ByteSpan file, const BmpLayout& layout, std::span<TRGBPixel> to) {
  std::array<TRGBPixel, 256> palette{};
  for (std::size_t i = 0; i < layout.palette_entries; ++i) {
    const ByteSpan entry = file.subspan(layout.palette_at + i * layout.palette_entry_bytes, 3);
    palette[i] = {std::to_integer<std::uint8_t>(entry[2]), std::to_integer<std::uint8_t>(entry[1]),
                  std::to_integer<std::uint8_t>(entry[0])};
  }
  const auto width = static_cast<std::size_t>(layout.width), height = static_cast<std::size_t>(layout.height);
  const auto bits = static_cast<std::size_t>(layout.bits);
  if (width == 0) return;
  for (std::size_t y = 0; y < height; ++y) {
    const ByteSpan row = file.subspan(layout.pixels_at + y * layout.row_bytes, layout.row_bytes);
    const std::span<TRGBPixel> out = to.subspan((layout.top_down ? y : height - 1 - y) * width, width);
    if (bits == 24) {
      for (std::size_t x = 0; x < width; ++x) {
        out[x] = {std::to_integer<std::uint8_t>(row[3 * x + 2]), std::to_integer<std::uint8_t>(row[3 * x + 1]),
                  std::to_integer<std::uint8_t>(row[3 * x])};
      }
    } else if (bits <= 8) {
      for (std::size_t x = 0; x < width; ++x) {
        const std::size_t shift = 8 - bits - x * bits % 8;
        const unsigned index = std::to_integer<unsigned>(row[x * bits / 8]) >> shift & ((1u << bits) - 1);
        out[x] = palette[index];
      }
    } else {
      for (std::size_t x = 0; x < width; ++x) {
        const std::uint32_t pixel = bits == 16 ? word_at(row, 2 * x) : dword_at(row, 4 * x);
        out[x] = {channel(pixel, layout.masks[0]), channel(pixel, layout.masks[1]), channel(pixel, layout.masks[2])};
      }
    }
  }
}

std::vector<std::byte> write_bmp(const ZOR_imaging::TGraphic& picture) {
  const auto width = static_cast<std::uint64_t>(picture.Width()), height = static_cast<std::uint64_t>(picture.Height());
  const std::uint64_t row_bytes = padded_row(width, 24);
  constexpr std::uint64_t kHeads = kFileHead + kPictureHead;
  constexpr std::uint64_t kLargestFile = 0xFFFFFFFF;  // the format tells it in 32 bits
  if (height != 0 && row_bytes > (kLargestFile - kHeads) / height) {
    throw EInvalidGraphic("a picture of this size cannot be saved as BMP");
  }
  std::vector<std::byte> file(static_cast<std::size_t>(kHeads + row_bytes * height));
  const auto put = [&](std::size_t at, std::uint64_t value, std::size_t bytes) {
    for (std::size_t i = 0; i < bytes; ++i) file[at + i] = static_cast<std::byte>(value >> 8 * i & 0xFF);
  };
  put(0, 0x4D42, 2);
  put(2, file.size(), 4);
  put(10, kHeads, 4);
  put(14, kPictureHead, 4);
  put(18, width, 4);
  put(22, height, 4);
  put(26, 1, 2);
  put(28, 24, 2);
  put(34, row_bytes * height, 4);
  put(38, 2835, 4);  // pixels a metre: 72 an inch
  put(42, 2835, 4);
  if (picture.Empty()) return file;
  for (std::int32_t y = 0; y < picture.Height(); ++y) {
    std::byte* out = file.data() + kHeads + (height - 1 - static_cast<std::uint64_t>(y)) * row_bytes;
    for (const TRGBPixel p : picture.Row(y)) {
      *out++ = std::byte{p.Blue};
      *out++ = std::byte{p.Green};
      *out++ = std::byte{p.Red};
    }
  }
  return file;
}

}  // namespace zor::detail

#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "zor/runtime/dyn_array.h"
#include "zor/runtime/object.h"
#include "zor/runtime/streams.h"

/// \file  What all pictures share: true colour in memory, assignment between them, and files.
/// A class of picture is one file format (TBitmap, TPngImage, TJPEGImage). Pixels are the same 24 bits in all of them,
/// so that assigning one picture to another converts between formats.
///
///     TPngImage png;
///     png.Assign(&bitmap);
///     png.SaveToFile("spectrum.png");

namespace ZOR_imaging {

using ZOR_runtime::Byte;
using ZOR_runtime::Integer;
using ZOR_runtime::TString;

/// Colour as one number: red in the low byte, then green, then blue. The highest byte is ignored when a pixel is
/// written, and 0 when one is read.
using TColor = Integer;

/// One pixel in memory.
struct TRGBPixel {
  Byte Red = 0, Green = 0, Blue = 0;
  friend bool operator==(const TRGBPixel&, const TRGBPixel&) = default;
};
static_assert(sizeof(TRGBPixel) == 3, "libraries of pictures take rows of pixels as bytes");

constexpr TColor ToColor(TRGBPixel p) noexcept { return p.Red | p.Green << 8 | p.Blue << 16; }
constexpr TRGBPixel ToPixel(TColor c) noexcept {
  return {static_cast<Byte>(c & 0xFF), static_cast<Byte>(c >> 8 & 0xFF), static_cast<Byte>(c >> 16 & 0xFF)};
}

/// Bytes that are no picture of the format, a picture that the format cannot hold, or a format for which the library
/// was built without the library it needs.
ZOR_DECLARE_EXCEPTION(EInvalidGraphic, ZOR_runtime::Exception);

/// A picture in memory: Width by Height pixels, all black at first. What fails (EInvalidGraphic, EInOutError,
/// EOutOfMemory) leaves the picture as it was.
class ZOR_API TGraphic : public ZOR_runtime::TPersistent {
 public:
  Integer Width() const noexcept { return width_; }
  Integer Height() const noexcept { return height_; }
  /// True if there is no pixel.
  bool Empty() const noexcept { return pixels_.empty(); }
  /// All pixels, row after row from the top.
  std::span<const TRGBPixel> Pixels() const noexcept { return pixels_; }
  /// Row y, counted from 0 at the top; empty outside.
  std::span<const TRGBPixel> Row(Integer y) const noexcept {
    return y >= 0 && y < height_ ? Pixels().subspan(row_start(y), zor::detail::to_size(width_))
                                 : std::span<const TRGBPixel>();
  }

  /// Takes over the pixels of any other picture.
  void Assign(const TPersistent* Source) override;

  /// The picture as a file of its format. The same pixels give the same bytes.
  virtual std::vector<std::byte> Encode() const = 0;
  /// Replaces the picture by the one in a file of its format. Memory stays in proportion to the size of the file.
  virtual void Decode(std::span<const std::byte> File) = 0;

  /// Replaces the file as a whole: what fails, or is cut short, leaves the old one.
  void SaveToFile(const TString& FileName) const;
  void LoadFromFile(const TString& FileName);
  void SaveToStream(ZOR_runtime::TStream& Stream) const;
  /// Reads from the position of the stream to its end.
  void LoadFromStream(ZOR_runtime::TStream& Stream);

  const char* ClassName() const noexcept override;

 protected:
  using PixelArray = ZOR_runtime::TDynArray<TRGBPixel>;

  /// Black pixels for a picture of this size.
  static PixelArray blank(Integer width, Integer height);
  /// The same for a picture that a file of `file_bytes` bytes announces; raises EInvalidGraphic if no such file can
  /// hold so many pixels.
  static PixelArray blank_for_file(std::int64_t width, std::int64_t height, std::size_t file_bytes);
  void replace(PixelArray pixels, Integer width, Integer height) noexcept;
  PixelArray& cells() noexcept { return pixels_; }
  std::size_t row_start(Integer y) const noexcept { return zor::detail::to_size(y) * zor::detail::to_size(width_); }

 private:
  PixelArray pixels_;
  Integer width_ = 0, height_ = 0;
};

}  // namespace ZOR_imaging

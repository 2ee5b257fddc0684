#pragma once

#include "zor/imaging/graphic.h"

/// \file  Bitmaps: pictures to draw on, and the BMP format.
///
///     TBitmap picture;
///     picture.SetSize(640, 480);
///     picture.Canvas().SetPixels(10, 20, 0x0000FF);   // red
///     picture.SaveToFile("dot.bmp");

namespace ZOR_imaging {

class TBitmap;

/// The drawing side of a bitmap. Coordinates count from 0 at the top left corner.
class ZOR_API TCanvas {
 public:
  TCanvas(const TCanvas&) = delete;
  TCanvas& operator=(const TCanvas&) = delete;

  /// Colour of a pixel; 0 outside the bitmap.
  TColor Pixels(Integer X, Integer Y) const noexcept;
  /// Sets the colour of a pixel; nothing happens outside the bitmap.
  void SetPixels(Integer X, Integer Y, TColor Color) noexcept;

 private:
  friend class TBitmap;
  explicit TCanvas(TBitmap& bitmap) noexcept : bitmap_(bitmap) {}
  TBitmap& bitmap_;
};

/// A picture to draw on.
///
/// Files are BMP: written with 24 bits a pixel, read with 1, 4, 8, 16, 24 or 32 bits, uncompressed, rows in either
/// order; an alpha channel is ignored. Run-length compression is not read. A file that lacks rows is refused.
class ZOR_API TBitmap : public TGraphic {
 public:
  /// Sets both sizes; what lies in the old and in the new picture stays, the rest is black. A negative size counts as
  /// 0.
  void SetSize(Integer Width, Integer Height);
  void SetWidth(Integer Width) { SetSize(Width, Height()); }
  void SetHeight(Integer Height) { SetSize(Width(), Height); }

  TCanvas& Canvas() noexcept { return canvas_; }
  const TCanvas& Canvas() const noexcept { return canvas_; }
  /// All pixels, or row y, to be read or written directly; valid until the size changes.
  std::span<TRGBPixel> Pixels() noexcept { return cells(); }
  std::span<TRGBPixel> Row(Integer y) noexcept {
    return y >= 0 && y < Height() ? Pixels().subspan(row_start(y), zor::detail::to_size(Width()))
                                  : std::span<TRGBPixel>();
  }
  using TGraphic::Pixels;
  using TGraphic::Row;

  std::vector<std::byte> Encode() const override;
  void Decode(std::span<const std::byte> File) override;
  const char* ClassName() const noexcept override;

 private:
  TCanvas canvas_{*this};
};

inline TColor TCanvas::Pixels(Integer X, Integer Y) const noexcept {
  const auto row = static_cast<const TBitmap&>(bitmap_).Row(Y);
  return X >= 0 && X < bitmap_.Width() && !row.empty() ? ToColor(row[zor::detail::to_size(X)]) : 0;
}

inline void TCanvas::SetPixels(Integer X, Integer Y, TColor Color) noexcept {
  const auto row = bitmap_.Row(Y);
  if (X >= 0 && X < bitmap_.Width() && !row.empty()) row[zor::detail::to_size(X)] = ToPixel(Color);
}

}  // namespace ZOR_imaging

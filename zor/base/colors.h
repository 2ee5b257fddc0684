#pragma once

#include "zor/imaging/graphic.h"
#include "zor/runtime/dyn_array.h"
#include "zor/runtime/object.h"

/// \file  Colour values and tables of colours. Components run from 0 to 255; others are limited to that range.

namespace ZOR_zorcolors {

using ZOR_imaging::TColor;
using ZOR_runtime::Double;
using ZOR_runtime::Integer;

/// The colour with these components, red in the low byte.
ZOR_API TColor RGBtoColor(Integer R, Integer G, Integer B) noexcept;

/// Brightness of a colour, 0 to 255: 0.299 R + 0.587 G + 0.114 B (ITU-R BT.601), rounded, ties to the even value.
ZOR_API Integer RGBtoGray(Integer R, Integer G, Integer B) noexcept;

/// Hue H in degrees, 0 <= H < 360 (red 0, green 120, blue 240; 0 for grays); saturation S = 1 - 3 min / (R + G + B), 0
/// for black; intensity I = (R + G + B) / 765. S and I run from 0 to 1.
ZOR_API void RGBtoHSI(Integer R, Integer G, Integer B, Double& H, Double& S, Double& I) noexcept;

/// Table of colours, counted from 1.
class ZOR_API TColorArray : public ZOR_runtime::TComponent {
 public:
  /// An empty table.
  explicit TColorArray(ZOR_runtime::TComponent* AOwner = nullptr) : TComponent(AOwner) {}

  Integer NrOfColors() const noexcept { return ZOR_runtime::Length(colors_); }
  /// Colours that stay keep their values, new ones are black. A negative number counts as 0.
  void SetNrOfColors(Integer Count);
  /// Colour i; 0 outside the table.
  TColor GetColorElem(Integer i) const noexcept { return contains(i) ? colors_[i - 1] : 0; }
  /// Sets colour i; nothing happens outside the table.
  void SetColorElem(Integer i, TColor Color) noexcept {
    if (contains(i)) colors_[i - 1] = Color;
  }
  const char* ClassName() const noexcept override;

 private:
  bool contains(Integer i) const noexcept { return i >= 1 && i <= NrOfColors(); }
  ZOR_runtime::TDynArray<TColor> colors_;
};

}  // namespace ZOR_zorcolors

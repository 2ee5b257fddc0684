#pragma once

#include <iosfwd>

#include "zor/runtime/types.h"

/// \file  Points and rectangles.

namespace ZOR_zorbase {

using ZOR_runtime::Double;
using ZOR_runtime::Integer;

/// Point of the plane.
struct TPointDouble {
  Double x = 0.0, y = 0.0;
  friend bool operator==(const TPointDouble&, const TPointDouble&) = default;
};

/// Rectangle with sides parallel to the axes. Routines that take one accept the corners in either order.
struct TRectDouble {
  Double left = 0.0, top = 0.0, right = 0.0, bottom = 0.0;
  friend bool operator==(const TRectDouble&, const TRectDouble&) = default;
};

/// Point of a grid.
struct TPoint {
  Integer x = 0, y = 0;
  friend bool operator==(const TPoint&, const TPoint&) = default;
};

/// Rectangle of a grid, y counting downward: left <= right and top <= bottom.
struct TRect {
  Integer left = 0, top = 0, right = 0, bottom = 0;
  friend bool operator==(const TRect&, const TRect&) = default;
};

/// A point as "(x, y)", floats in at most six significant digits.
ZOR_API std::ostream& operator<<(std::ostream& out, const TPointDouble& point);
ZOR_API std::ostream& operator<<(std::ostream& out, const TPoint& point);

}  // namespace ZOR_zorbase

#include "zor/scalar/geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "zor/runtime/numbers.h"
#include "zor/scalar/rounding.h"

namespace ZOR_math1 {
namespace {

/// Whether B1 and B2 lie on the same side of the line through A1 and A2. Without a branch: the sides of random points
/// cannot be predicted.
bool on_same_side(const TPointDouble& A1, const TPointDouble& A2, const TPointDouble& B1, const TPointDouble& B2) {
  return CcwTriangle(A1, A2, B1) * CcwTriangle(A1, A2, B2) > 0;
}

/// From here on a doubled number overflows.
constexpr Double kHuge = 0x1p1023;
constexpr int kMostHalvings = 1075;
constexpr Double kFlattest = 1e-150;

/// The rules below for one point (x, y) with x, y >= 0 and an ellipse with half-axes a >= b > 0.
TPointDouble nearest_on_long_axis(Double x, Double a, Double b) {
  // Scaled by a power of two, so that the squares are in range and all digits stay.
  const int k = -std::ilogb(a);
  const Double along = std::scalbn(x, k), a1 = std::scalbn(a, k), b1 = std::scalbn(b, k);
  const Double n = a1 * along, m = (a1 - b1) * (a1 + b1);
  if (!(n < m)) return {a, 0.0};
  const Double t = n / m;
  return {a * t, b * std::sqrt((1.0 - t) * (1.0 + t))};
}

/// The nearest point is (r x / (s + r), y / (s + 1)) with r = (a / b)^2 and that s > -1 that puts it on the ellipse.
/// Bisects for u = s + 1: near the long axis u is tiny, and s would have lost its digits.
TPointDouble nearest_off_axes(Double x, Double y, Double a, Double b) {
  const Double z0 = x / a, z1 = y / b;
  const Double g = z0 * z0 + z1 * z1 - 1.0;
  if (g == 0.0) return {x, y};
  const Double r = (a / b) * (a / b), r_minus_1 = (a - b) / b * (a / b + 1.0);
  const Double n0 = r * z0;
  Double low = z1, high = 1.0;
  if (g > 0.0) high = std::sqrt(n0 * n0 + z1 * z1);
  if (!std::isfinite(high)) high = n0 + z1;
  if (!(high < kHuge)) {  // so far away that all normals of the ellipse seem to start at its centre
    const Double angle = std::atan(b / a * (y / x));
    return {a * std::cos(angle), b * std::sin(angle)};
  }
  Double u = low;
  for (int i = 0; i < kMostHalvings; ++i) {
    u = (low + high) / 2.0;
    if (u == low || u == high) break;
    const Double p = n0 / (u + r_minus_1), q = z1 / u;
    const Double h = p * p + q * q - 1.0;
    if (h == 0.0) break;
    (h > 0.0 ? low : high) = u;
  }
  const Double along = r * x, across = u + r_minus_1;
  return {std::isfinite(along) ? along / across : r / across * x, y / u};
}

TPointDouble nearest_in_quadrant(Double x, Double y, Double a, Double b) {
  if (!(b / a >= kFlattest)) return {std::min(x, a), 0.0};
  constexpr Double kSmallest = std::numeric_limits<Double>::min();
  if (a == b && x / a < kSmallest && y / b < kSmallest && (x != 0.0 || y != 0.0)) {
    const Double angle = std::atan2(y, x);  // close to the centre of a circle the direction alone counts
    return {a * std::cos(angle), b * std::sin(angle)};
  }
  if (y / b < kSmallest) return nearest_on_long_axis(x, a, b);
  if (x == 0.0) return {0.0, b};
  return nearest_off_axes(x, y, a, b);
}

/// sqrt(dx^2 + dy^2) where a square may overflow or vanish.
Double distance_of_any_size(Double dx, Double dy) {
  const Double larger = std::max(std::fabs(dx), std::fabs(dy));
  if (larger == 0.0 || (larger > 0x1p-400 && larger < 0x1p400)) return EuclideanDistance(0.0, 0.0, dx, dy);
  const int k = std::ilogb(larger);  // a power of two keeps all digits
  return std::scalbn(EuclideanDistance(0.0, 0.0, std::scalbn(dx, -k), std::scalbn(dy, -k)), k);
}

}  // namespace

Integer CcwTriangle(const TPointDouble& P0, const TPointDouble& P1, const TPointDouble& P2) noexcept {
  const Double d = (P1.x - P0.x) * (P2.y - P0.y) - (P2.x - P0.x) * (P1.y - P0.y);
  return (d > 0.0) - (d < 0.0);
}

Boolean SegmentsIntersect(const TPointDouble& A1, const TPointDouble& A2, const TPointDouble& B1,
                          const TPointDouble& B2) noexcept {
  return !(static_cast<int>(on_same_side(A1, A2, B1, B2)) | static_cast<int>(on_same_side(B1, B2, A1, A2)));
}

Double DistanceToSegment(const TPointDouble& P, const TPointDouble& A, const TPointDouble& B) noexcept {
  const Double dx = B.x - A.x, dy = B.y - A.y;
  const Double length_squared = dx * dx + dy * dy;
  const Double t = length_squared == 0.0 ? -1.0 : ((P.x - A.x) * dx + (P.y - A.y) * dy) / length_squared;
  if (t < 0.0) return EuclideanDistance(P, A);
  if (t > 1.0) return EuclideanDistance(P, B);
  return EuclideanDistance(P.x, P.y, A.x + t * dx, A.y + t * dy);
}

Integer DistFromRect(const TPoint& P, const TRect& R) noexcept {
  const Int64 x = P.x, y = P.y, left = R.left, right = R.right, top = R.top, bottom = R.bottom;
  Int64 distance;
  if (left < x && x < right) {
    distance = y < top ? top - y : y > bottom ? y - bottom : 0;
  } else if (top < y && y < bottom) {
    distance = x <= left ? left - x : x - right;
  } else {
    const auto corner = [=](Int64 cx, Int64 cy) {
      const auto dx = static_cast<Double>(cx - x), dy = static_cast<Double>(cy - y);
      return ZOR_runtime::Round(std::sqrt(dx * dx + dy * dy));
    };
    distance = std::min({corner(left, top), corner(right, top), corner(left, bottom), corner(right, bottom)});
  }
  return static_cast<Integer>(std::min<Int64>(distance, std::numeric_limits<Integer>::max()));
}

Double DistFromEllipse(const TPointDouble& P, Double Cx, Double Cy, Double A, Double B,
                       TPointDouble& Nearest) noexcept {
  Double x = P.x - Cx, y = P.y - Cy, a = std::fabs(A), b = std::fabs(B);
  if (!(std::isfinite(x) && std::isfinite(y) && std::isfinite(a) && std::isfinite(b))) {
    constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
    Nearest = {kNaN, kNaN};
    return kNaN;
  }
  const bool upright = a < b;
  if (upright) {
    std::swap(x, y);
    std::swap(a, b);
  }
  const bool flip_x = x < 0.0, flip_y = y < 0.0;
  x = std::fabs(x);
  y = std::fabs(y);
  TPointDouble foot = nearest_in_quadrant(x, y, a, b);
  const Double distance = distance_of_any_size(foot.x - x, foot.y - y);
  if (flip_x) foot.x = -foot.x;
  if (flip_y) foot.y = -foot.y;
  if (upright) std::swap(foot.x, foot.y);
  Nearest = {foot.x + Cx, foot.y + Cy};
  return distance;
}

Boolean WithinRect(const TPointDouble& P, const TRectDouble& R) noexcept {
  return WithinBounds(P.x, R.left, R.right) && WithinBounds(P.y, R.top, R.bottom);
}

Boolean ConfinePointToRect(TPointDouble& P, const TRectDouble& R) noexcept {
  if (std::isnan(P.x) || std::isnan(P.y)) return false;
  const TPointDouble inside{ConfineValue(P.x, R.left, R.right), ConfineValue(P.y, R.top, R.bottom)};
  return std::exchange(P, inside) != inside;
}

Double EuclideanDistance(const TPointDouble& P1, const TPointDouble& P2) noexcept {
  return EuclideanDistance(P1.x, P1.y, P2.x, P2.y);
}

Double EuclideanDistance(Double X1, Double Y1, Double X2, Double Y2) noexcept {
  const Double dx = X2 - X1, dy = Y2 - Y1;
  return std::sqrt(dx * dx + dy * dy);
}

}  // namespace ZOR_math1

#include "zor/base/colors.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ZOR_zorcolors {
namespace {

Integer limited(Integer component) noexcept { return std::clamp(component, 0, 255); }

}  // namespace

TColor RGBtoColor(Integer R, Integer G, Integer B) noexcept { return limited(R) | limited(G) << 8 | limited(B) << 16; }

Integer RGBtoGray(Integer R, Integer G, Integer B) noexcept {
  // In thousandths, so that a tie is a tie.
  const Integer sum = 299 * limited(R) + 587 * limited(G) + 114 * limited(B);
  const Integer whole = sum / 1000, rest = sum % 1000;
  return rest > 500 || (rest == 500 && whole % 2 != 0) ? whole + 1 : whole;
}

void RGBtoHSI(Integer R, Integer G, Integer B, Double& H, Double& S, Double& I) noexcept {
  const Integer r = limited(R), g = limited(G), b = limited(B);
  const Integer sum = r + g + b;
  I = sum / 765.0;
  S = sum == 0 ? 0.0 : 1.0 - 3.0 * std::min({r, g, b}) / sum;
  H = 0.0;
  if (r == g && g == b) return;
  H = std::atan2(std::numbers::sqrt3 * (g - b), 2.0 * r - g - b) * (180.0 / std::numbers::pi);
  if (H < 0.0) H += 360.0;
}

const char* TColorArray::ClassName() const noexcept { return "TColorArray"; }

void TColorArray::SetNrOfColors(Integer Count) { SetLength(colors_, Count); }

}  // namespace ZOR_zorcolors

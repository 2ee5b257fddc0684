#include "zor/analysis/curve_fit_sums.h"

#include <cmath>
#include <utility>

#include "zor/base/ZOR_univconst.h"
#include "zor/kernels/twofold.h"

namespace zor::detail {

namespace {

/// Numbers that are nearer to 0 have no reciprocal here.
constexpr double kTiny = 1e-30;

template <class Add>
void change_sum(TwofoldSum& sum, Add add) noexcept {
  kernels::DoubleDouble s{sum.hi, sum.lo};
  add(s);
  sum = {s.hi, s.lo};
}
void add(TwofoldSum& sum, double term) noexcept {
  change_sum(sum, [=](auto& s) { kernels::add(s, term); });
}
void add_product(TwofoldSum& sum, double a, double b) noexcept {
  change_sum(sum, [=](auto& s) { kernels::add_product(s, a, b); });
}

}  // namespace

void CurveFitSums::change(double px, double py, double sign) noexcept {
  const double sx = sign * px, sy = sign * py, d = px - py;
  add(x, sx);
  add(y, sy);
  add(diff, sx);
  add(diff, -sy);
  add_product(xx, sx, px);
  add_product(yy, sy, py);
  add_product(xy, sx, py);
  add_product(diff2, sign * d, d);
  add_product(xxy, sx * px, py);
  add_product(xyy, sx * py, py);
  add_product(xxx, sx * px, px);
  add_product(yyy, sy * py, py);
  add_product(xxxx, sx * px * px, px);
  add_product(yyyy, sy * py * py, py);

  constexpr double most = ZOR_univconst::uc_MaxReal;
  const bool has_x = std::abs(px) > kTiny, has_y = std::abs(py) > kTiny;
  const double rx = has_x ? 1.0 / px : most, ry = has_y ? 1.0 / py : most;
  inv_y += sign * ry;
  inv_yy += sign * (ry * ry);
  x_by_y += sign * (has_y ? px / py : px * most);
  inv_xy += sign * (has_y ? has_x ? rx / py : most / py : has_x ? most / px : most);
  inv_x += sign * rx;
  inv_xx += sign * (rx * rx);
  y_by_x += sign * (has_x ? py / px : py * most);
  const double lx = px > 0.0 ? std::log(px) : 0.0, ly = py > 0.0 ? std::log(py) : 0.0;
  if (px > 0.0) {
    ln_x += sign * lx;
    lnx_lnx += sign * (lx * lx);
    y_lnx += sign * (py * lx);
    x_lnx += sign * (px * lx);
    yy_lnx += sign * (py * py * lx);
    if (has_y) lnx_by_y += sign * (lx / py);
    if (py > kTiny) lnx_lny += sign * (lx * ly);
  }
  if (py > 0.0) {
    ln_y += sign * ly;
    y_lny += sign * (py * ly);
    lny_lny += sign * (ly * ly);
    x_lny += sign * (px * ly);
    xx_lny += sign * (px * px * ly);
    if (has_x) lny_by_x += sign * (ly / px);
  }
}

void CurveFitSums::flip() noexcept {
  using std::swap;
  swap(x, y);
  swap(xx, yy);
  swap(xxy, xyy);
  swap(xxx, yyy);
  swap(xxxx, yyyy);
  swap(inv_x, inv_y);
  swap(inv_xx, inv_yy);
  swap(x_by_y, y_by_x);
  swap(ln_x, ln_y);
  swap(lnx_lnx, lny_lny);
  swap(y_lnx, x_lny);
  swap(x_lnx, y_lny);
  swap(lnx_by_y, lny_by_x);
  swap(xx_lny, yy_lnx);
  diff = {-diff.hi, -diff.lo};
}

}  // namespace zor::detail

#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  The running sums over the pairs of a curve fit.

namespace zor::detail {

/// hi + lo, unevaluated: a sum with twice the precision.
struct TwofoldSum {
  double hi = 0.0, lo = 0.0;
};

/// What pairs (x, y) add to. The sums of powers carry twice the precision, so that taking a pair out again restores
/// their last bit. A term that is undefined for a pair is left out (logarithms) or made with the largest double in the
/// place of 1 / 0: the sums of reciprocals may then hold infinities and must not enter a result.
struct CurveFitSums {
  TwofoldSum x, y, xx, yy, diff, diff2, xy, xxy, xyy, xxx, yyy, xxxx, yyyy;
  double inv_y = 0, inv_xy = 0, inv_yy = 0, x_by_y = 0, y_by_x = 0, inv_x = 0, inv_xx = 0;
  double ln_x = 0, lnx_lny = 0, lnx_lnx = 0, y_lny = 0, y_lnx = 0, x_lnx = 0, lnx_by_y = 0, lny_by_x = 0;
  double ln_y = 0, lny_lny = 0, x_lny = 0, xx_lny = 0, yy_lnx = 0;

  /// Adds (sign 1) or takes out (sign -1) the terms of a pair.
  void change(double px, double py, double sign) noexcept;
  /// Exchanges the roles of x and y.
  void flip() noexcept;
};

}  // namespace zor::detail

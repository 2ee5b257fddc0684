#include <cmath>

#include "zor/analysis/curve_fit.h"
#include "zor/kernels/moments.h"

namespace ZOR_math2 {

void TCurveFit::CalcCircleFit(Double& r, Double& dx, Double& dy) {
  r = dx = dy = 0.0;
  if (FX.size() < 3) fail_fit("CalcCircleFit: not enough data points");
  const Double n = NumData();
  const auto& s = sums_;
  const Double squares = s.xx.hi + s.yy.hi;
  const Double a = n * s.xy.hi - s.x.hi * s.y.hi;
  const Double b = squares * s.y.hi - n * (s.xxy.hi + s.yyy.hi);
  const Double c = s.y.hi * s.y.hi - n * s.yy.hi;
  const Double e = squares * s.x.hi - n * (s.xyy.hi + s.xxx.hi);
  const Double f = s.x.hi * s.x.hi - n * s.xx.hi;
  const Double d = c * f - a * a;
  // The determinant of collinear pairs is rarely exactly 0: ask the pairs about their means as well.
  const zor::kernels::PairMoments m = zor::kernels::pair_moments(FX, FY);
  if (d == 0.0 || m.cxx * m.cyy - m.cxy * m.cxy <= 1e-14 * m.cxx * m.cyy) {
    fail_fit("CalcCircleFit: radius is infinite");
  }
  dx = (a * b + c * e) / 2.0 / d;
  dy = (a * e + b * f) / 2.0 / d;
  const Double square = (squares - 2.0 * (dx * s.x.hi + dy * s.y.hi) + (dx * dx + dy * dy) * n) / n;
  r = square > 0.0 ? std::sqrt(square) : 0.0;
  set_model(rmCircle, {dx, dy, r}, 0.0);
}

}  // namespace ZOR_math2

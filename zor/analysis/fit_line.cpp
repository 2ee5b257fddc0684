#include <cmath>

#include "zor/analysis/curve_fit.h"
#include "zor/analysis/fit_cores_internal.h"
#include "zor/kernels/moments.h"

namespace zor::detail {

LineFit fit_line(std::span<const double> x, std::span<const double> y) noexcept {
  const auto n = static_cast<double>(x.size());
  const double mx = kernels::mean_variance(x).mean, my = kernels::mean_variance(y).mean;
  double su = 0, sv = 0, suu = 0, svv = 0, suv = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    const double u = x[i] - mx, v = y[i] - my;
    su += u;
    sv += v;
    suu += u * u;
    svv += v * v;
    suv += u * v;
  }
  const double d = n * suu - su * su;
  LineFit fit;
  if (d == 0.0) {
    fit.infinite = true;
    return fit;
  }
  const double centered = (suu * sv - su * suv) / d;
  fit.slope = (n * suv - su * sv) / d;
  fit.intercept = centered - fit.slope * mx + my;
  const double spread = svv - sv * sv / n;
  // With the intercept about the means: shifted back it would bring its rounding error times the offset.
  fit.quality = spread != 0.0 ? (centered * sv + fit.slope * suv - sv * sv / n) / spread : 1.0;
  return fit;
}

}  // namespace zor::detail

namespace ZOR_math2 {

void TCurveFit::CalcLinFit(Double& k, Double& d, Double& FitQual) {
  k = d = FitQual = 0.0;
  if (FX.size() < 2) fail_fit("CalcLinFit: not enough data points");
  const zor::detail::LineFit fit = zor::detail::fit_line(FX, FY);
  if (fit.infinite) fail_fit("CalcLinFit: slope is infinite");
  k = fit.slope;
  d = fit.intercept;
  FitQual = fit.quality;
  set_model(rmLinear, {d, k}, FitQual);
}

void TCurveFit::CalcLinFitThroughOrigin(Double& k, Double& FitQual) {
  k = FitQual = 0.0;
  if (FX.size() < 2) fail_fit("CalcLinFitThroughOrigin: not enough data points");
  Double sxx = 0, syy = 0, sxy = 0, sse = 0;
  for (std::size_t i = 0; i < FX.size(); ++i) {
    sxx += FX[i] * FX[i];
    syy += FY[i] * FY[i];
    sxy += FX[i] * FY[i];
  }
  if (sxx == 0.0) fail_fit("CalcLinFitThroughOrigin: slope is infinite");
  if (syy == 0.0) fail_fit("CalcLinFitThroughOrigin: slope is undefined");
  k = sxy / sxx;
  for (std::size_t i = 0; i < FX.size(); ++i) {
    const Double residual = FY[i] - k * FX[i];
    sse += residual * residual;
  }
  FitQual = 1.0 - sse / syy;
  set_model(rmLinearOrigin, {0.0, k}, FitQual);
}

}  // namespace ZOR_math2

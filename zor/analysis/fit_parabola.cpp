#include "zor/analysis/curve_fit.h"
#include "zor/analysis/fit_cores_internal.h"
#include "zor/kernels/moments.h"

namespace zor::detail {

std::size_t distinct_up_to_3(std::span<const double> x) noexcept {
  std::size_t count = 0;
  double seen[2] = {};
  for (const double v : x) {
    if ((count > 0 && v == seen[0]) || (count > 1 && v == seen[1])) continue;
    if (count == 2) return 3;
    seen[count++] = v;
  }
  return count;
}

ParabolaFit fit_parabola(std::span<const double> x, std::span<const double> y) noexcept {
  const auto n = static_cast<double>(x.size());
  ParabolaFit fit;
  fit.mean_x = kernels::mean_variance(x).mean;
  fit.mean_y = kernels::mean_variance(y).mean;
  double su = 0, sv = 0, suu = 0, svv = 0, suv = 0, suuv = 0, suuu = 0, suuuu = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    const double u = x[i] - fit.mean_x, v = y[i] - fit.mean_y, uu = u * u;
    su += u;
    sv += v;
    suu += uu;
    svv += v * v;
    suv += u * v;
    suuv += uu * v;
    suuu += uu * u;
    suuuu += uu * uu;
  }
  const double a = n * suuv - suu * sv, b = n * suuu - su * suu, c = n * suv - su * sv, e = n * suu - su * su;
  const double g = e * (n * suuuu - suu * suu);
  // Rounding would make a parabola out of two places.
  if (g != b * b && distinct_up_to_3(x) == 3) fit.q = (e * a - b * c) / (g - b * b);
  if (e != 0.0) fit.l = (c - b * fit.q) / e;
  fit.m = (sv - fit.l * su - fit.q * suu) / n;
  const double spread = svv - sv * sv / n;
  fit.quality = spread != 0.0 ? (fit.m * sv + fit.l * suv + fit.q * suuv - sv * sv / n) / spread : 1.0;
  return fit;
}

}  // namespace zor::detail

namespace ZOR_math2 {

void TCurveFit::CalcParabolFit(Double& k0, Double& k1, Double& k2, Double& FitQual) {
  k0 = k1 = k2 = FitQual = 0.0;
  if (FX.size() < 3) fail_fit("CalcParabolFit: not enough data points");
  const zor::detail::ParabolaFit fit = zor::detail::fit_parabola(FX, FY);
  k2 = fit.q;
  k1 = fit.l - 2.0 * fit.q * fit.mean_x;
  k0 = fit.m + fit.q * fit.mean_x * fit.mean_x - fit.l * fit.mean_x + fit.mean_y;
  FitQual = fit.quality;
  set_model(rmParabolic, {k0, k1, k2}, FitQual);
}

}  // namespace ZOR_math2

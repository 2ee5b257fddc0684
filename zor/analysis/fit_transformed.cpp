#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include "zor/analysis/curve_fit.h"
#include "zor/analysis/fit_cores_internal.h"
#include "zor/kernels/moments.h"

namespace ZOR_math2 {

namespace {

using Cells = std::vector<Double>;
using zor::detail::LineFit;

constexpr Double kTiny = 1e-30;

/// What a model needs of one coordinate, and what it makes of it.
struct Transform {
  enum Kind { kPlain, kInverse, kLogarithm } kind;

  Double operator()(Double v) const noexcept {
    return kind == kInverse ? 1.0 / v : kind == kLogarithm ? std::log(v) : v;
  }
  bool defined(Double v) const noexcept {
    return kind == kInverse ? std::abs(v) > kTiny : kind == kLogarithm ? v > 0.0 : true;
  }
  /// What the message asks of the values.
  const char* demand() const noexcept {
    return kind == kInverse ? " values must not be 0" : " values must be greater than 0";
  }
};
constexpr Transform kPlain{Transform::kPlain}, kInverse{Transform::kInverse}, kLogarithm{Transform::kLogarithm};

Cells transformed(const Cells& cells, Transform of) {
  Cells result(cells.size());
  std::ranges::transform(cells, result.begin(), of);
  return result;
}

/// Both coordinates of the pairs as a model sees them; problem says why it cannot.
struct TransformedPairs {
  Cells x, y;
  std::string problem;

  TransformedPairs(std::string_view routine, const Cells& px, Transform of_x, const Cells& py, Transform of_y) {
    const auto bad = [](const Cells& cells, Transform of) {
      return !std::ranges::all_of(cells, [&](Double v) { return of.defined(v); });
    };
    if (px.size() < 3) {
      problem = std::string(routine) + ": not enough data points";
    } else if (bad(px, of_x)) {
      problem = std::string(routine) + ": x" + of_x.demand();
    } else if (bad(py, of_y)) {
      problem = std::string(routine) + ": y" + of_y.demand();
    } else {
      x = transformed(px, of_x);
      y = transformed(py, of_y);
    }
  }
};

/// The line through transformed pairs; y = ln of the model if exponential.
struct TransformedLine {
  Double k0 = 0.0, k1 = 0.0, quality = 0.0;
  std::string problem;

  TransformedLine(std::string_view routine, const Cells& px, Transform of_x, const Cells& py, Transform of_y) {
    const TransformedPairs pairs(routine, px, of_x, py, of_y);
    problem = pairs.problem;
    if (!problem.empty()) return;
    const LineFit fit = zor::detail::fit_line(pairs.x, pairs.y);
    k0 = of_y.kind == Transform::kLogarithm ? std::exp(fit.intercept) : fit.intercept;
    k1 = fit.slope;
    quality = fit.quality;
    if (fit.infinite)
      problem = std::string(routine) + ": slope is infinite";
    else if (!std::isfinite(k0) || !std::isfinite(k1))
      problem = std::string(routine) + ": numeric overflow";
  }
};

}  // namespace

/// Outputs are 0 until the fit has succeeded.
#define ZOR_TRANSFORMED_FIT(Routine, Model, of_x, of_y)              \
  void TCurveFit::Routine(Double& k0, Double& k1, Double& FitQual) { \
    k0 = k1 = FitQual = 0.0;                                         \
    const TransformedLine fit(#Routine, FX, of_x, FY, of_y);         \
    if (!fit.problem.empty()) fail_fit(fit.problem);                 \
    k0 = fit.k0;                                                     \
    k1 = fit.k1;                                                     \
    FitQual = fit.quality;                                           \
    set_model(Model, {k0, k1}, FitQual);                             \
  }
ZOR_TRANSFORMED_FIT(CalcReciLinFit, rmReciLin, kPlain, kInverse)
ZOR_TRANSFORMED_FIT(CalcHyperbolFit, rmHyperbolic, kInverse, kPlain)
ZOR_TRANSFORMED_FIT(CalcReciHyperbolFit, rmReciHyperbolic, kInverse, kInverse)
ZOR_TRANSFORMED_FIT(CalcLogFit, rmLog, kLogarithm, kPlain)
ZOR_TRANSFORMED_FIT(CalcReciLogFit, rmReciLog, kLogarithm, kInverse)
ZOR_TRANSFORMED_FIT(CalcPowerFit, rmPower, kLogarithm, kLogarithm)
ZOR_TRANSFORMED_FIT(CalcExponentialFit, rmExpo, kPlain, kLogarithm)
#undef ZOR_TRANSFORMED_FIT

void TCurveFit::CalcGaussFit(Double& k0, Double& k1, Double& k2, Double& FitQual) {
  k0 = k1 = k2 = FitQual = 0.0;
  const TransformedPairs pairs("CalcGaussFit", FX, kPlain, FY, kLogarithm);
  if (!pairs.problem.empty()) fail_fit(pairs.problem);
  const zor::detail::ParabolaFit fit = zor::detail::fit_parabola(pairs.x, pairs.y);
  if (fit.q == 0.0) fail_fit("CalcGaussFit: width is infinite");
  // From the parabola about the means, so that a narrow peak far from 0 keeps its digits.
  const Double width = -1.0 / fit.q, centre = fit.mean_x - fit.l / (2.0 * fit.q);
  const Double height = std::exp(fit.mean_y + fit.m - fit.l * fit.l / (4.0 * fit.q));
  if (!std::isfinite(width) || !std::isfinite(centre) || !std::isfinite(height))
    fail_fit("CalcGaussFit: numeric overflow");
  k0 = height;
  k1 = centre;
  k2 = width;
  FitQual = fit.quality;
  set_model(rmGaussian, {k0, k1, k2}, FitQual);
}

void TCurveFit::CalcHoerlFit(Double& k0, Double& k1, Double& k2, Double& FitQual) {
  k0 = k1 = k2 = FitQual = 0.0;
  const TransformedPairs pairs("CalcHoerlFit", FX, kLogarithm, FY, kLogarithm);
  if (!pairs.problem.empty()) fail_fit(pairs.problem);
  if (zor::detail::distinct_up_to_3(FX) < 3) fail_fit("CalcHoerlFit: slope is infinite");
  // ln y = c0 + c1 x + c2 ln x about the means.
  const Double mx = zor::kernels::mean_variance(FX).mean, ml = zor::kernels::mean_variance(pairs.x).mean,
               my = zor::kernels::mean_variance(pairs.y).mean;
  Double sxx = 0, sxl = 0, sll = 0, sxy = 0, sly = 0, syy = 0;
  for (std::size_t i = 0; i < FX.size(); ++i) {
    const Double u = FX[i] - mx, l = pairs.x[i] - ml, v = pairs.y[i] - my;
    sxx += u * u;
    sxl += u * l;
    sll += l * l;
    sxy += u * v;
    sly += l * v;
    syy += v * v;
  }
  const Double d = sxx * sll - sxl * sxl;
  if (d == 0.0) fail_fit("CalcHoerlFit: slope is infinite");
  const Double c1 = (sxy * sll - sly * sxl) / d, c2 = (sly * sxx - sxy * sxl) / d;
  const Double scale = std::exp(my - c1 * mx - c2 * ml), base = std::exp(c1);
  if (!std::isfinite(scale) || !std::isfinite(base) || !std::isfinite(c2)) fail_fit("CalcHoerlFit: numeric overflow");
  k0 = scale;
  k1 = base;
  k2 = c2;
  FitQual = syy != 0.0 ? (c1 * sxy + c2 * sly) / syy : 1.0;
  set_model(rmHoerl, {k0, k1, k2}, FitQual);
}

}  // namespace ZOR_math2

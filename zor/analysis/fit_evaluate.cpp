#include <algorithm>
#include <cmath>
#include <span>

#include "zor/analysis/curve_fit.h"
#include "zor/base/ZOR_univconst.h"
#include "zor/distributions/t_distribution.h"
#include "zor/kernels/moments.h"
#include "zor/scalar/polynomial.h"

namespace ZOR_math2 {

namespace {

constexpr Double kMost = ZOR_univconst::uc_MaxDouble;

/// Where a curve is not finite it takes the largest double of its sign; NaN counts as positive.
Double bounded(Double value) noexcept {
  if (std::isfinite(value)) return value;
  return value < 0.0 ? -kMost : kMost;
}

Double quotient(Double a, Double b) noexcept { return b == 0.0 ? kMost : a / b; }

bool polynomial(TRegModel model) noexcept { return model == rmPolynomial || model == rmCenteredPoly; }

}  // namespace

void TCurveFit::ClearModelParams() noexcept {
  FRegMod = rmNone;
  FPolyOrder = 0;
  FResids = {};
  FModR2 = FXShift = 0.0;
  std::ranges::fill(FModPars[0], 0.0);
  std::ranges::fill(FModPars[1], -1.0);
}

void TCurveFit::set_model(TRegModel model, std::initializer_list<Double> parameters, Double quality) noexcept {
  ClearModelParams();
  FRegMod = model;
  FModR2 = quality;
  std::ranges::copy(parameters, FModPars[0]);
}

void TCurveFit::fail_fit(std::string_view message) {
  ClearModelParams();
  zor::detail::Fail<EZORMath2Error>(message);
}

Double TCurveFit::GetModelPar(Integer ix, Integer iy) const noexcept {
  if (ix != 1 && ix != 2) return -1.0;
  if (iy < 0 || iy > 10 || FRegMod == rmNone) return ix == 1 ? 0.0 : -1.0;
  return FModPars[ix - 1][iy];
}

Double TCurveFit::GetResidual(Integer ix) const noexcept {
  return FRegMod != rmNone && ix >= 1 && ix <= Length(FResids) ? FResids[ix - 1] : 0.0;
}

TDoubleArray TCurveFit::Residuals() const { return TDoubleArray(FResids.begin(), FResids.end()); }

Double TCurveFit::StdDevResid() const noexcept {
  return std::sqrt(zor::kernels::mean_variance(std::span<const Double>(FResids)).variance);
}

Double TCurveFit::EvaluateIntern(TRegModel RegModel, Double x) const noexcept {
  const std::span<const Double, 11> k = FModPars[0];
  switch (RegModel) {
    case rmLinear:
      return bounded(k[0] + k[1] * x);
    case rmParabolic:
      return bounded(k[0] + k[1] * x + k[2] * x * x);
    case rmGaussian:
      return k[2] == 0.0 ? kMost : bounded(k[0] * std::exp(-(x - k[1]) * (x - k[1]) / k[2]));
    case rmReciLin:
      return bounded(quotient(1.0, k[0] + k[1] * x));
    case rmHyperbolic:
      return x == 0.0 ? kMost : bounded(k[0] + k[1] / x);
    case rmReciHyperbolic:
      return bounded(quotient(x, k[0] * x + k[1]));
    case rmLog:
      return x <= 0.0 ? -kMost : bounded(k[0] + k[1] * std::log(x));
    case rmReciLog:
      return x <= 0.0 ? -kMost : bounded(quotient(1.0, k[0] + k[1] * std::log(x)));
    case rmPower:
      if (x < 0.0) return kMost;
      return bounded(k[0] * std::pow(x, k[1]));
    case rmExpo:
      return bounded(k[0] * std::exp(k[1] * x));
    case rmHoerl:
      if (x < 0.0 || k[1] <= 0.0) return kMost;
      return bounded(k[0] * std::exp(x * std::log(k[1])) * std::pow(x, k[2]));
    case rmPolynomial:
      return bounded(ZOR_math1::Polynomial(k, FPolyOrder, x));
    case rmCenteredPoly:
      return bounded(ZOR_math1::CenteredPolynomial(k, FPolyOrder, FXShift, x));
    case rmLinearOrigin:
      return bounded(k[1] * x);
    default:
      return 0.0;
  }
}

void TCurveFit::fit_model(TRegModel RegModel, Integer PolyOrder) {
  using Two = void (TCurveFit::*)(Double&, Double&, Double&);
  static constexpr Two kLines[] = {
      &TCurveFit::CalcReciLinFit, &TCurveFit::CalcHyperbolFit, &TCurveFit::CalcReciHyperbolFit, &TCurveFit::CalcLogFit,
      &TCurveFit::CalcReciLogFit, &TCurveFit::CalcPowerFit,    &TCurveFit::CalcExponentialFit};
  Double k0, k1, k2, quality, shift = 0.0;
  TDoubleArray coefficients;
  Boolean near_singular;
  switch (RegModel) {
    case rmLinear:
      return CalcLinFit(k0, k1, quality);
    case rmParabolic:
      return CalcParabolFit(k0, k1, k2, quality);
    case rmGaussian:
      return CalcGaussFit(k0, k1, k2, quality);
    case rmHoerl:
      return CalcHoerlFit(k0, k1, k2, quality);
    case rmPolynomial:
      CalcPolyFit(PolyOrder, coefficients, quality, near_singular);
      return;
    case rmCenteredPoly:
      CalcCenteredPolyFit(PolyOrder, coefficients, shift, quality, near_singular);
      return;
    default:
      if (RegModel >= rmReciLin && RegModel <= rmExpo) (this->*kLines[RegModel - rmReciLin])(k0, k1, quality);
  }
}

Integer TCurveFit::CalcRegModel(TRegModel RegModel, Integer PolyOrder) {
  if (RegModel == rmNone || RegModel > rmLinearOrigin) return kNoModel;
  const Integer n = NumData();
  if (n < REG_MINDP[RegModel]) return kTooFewPairs;
  const bool in_force = RegModel == FRegMod && (PolyOrder == FPolyOrder || !polynomial(RegModel));
  if (!in_force) fit_model(RegModel, PolyOrder);
  TDoubleArray residuals;
  SetLength(residuals, n);
  for (Integer i = 0; i < n; ++i) residuals[i] = FY[place(i + 1)] - EvaluateIntern(FRegMod, FX[place(i + 1)]);
  FResids = residuals;
  return 0;
}

Integer TCurveFit::Predict(TRegModel RegModel, Double XVal, Double p, Integer PolyOrder, Double& PredVal,
                           Double& PredIv, Double& ConfIv) {
  PredVal = PredIv = ConfIv = 0.0;
  if (RegModel == rmNone || RegModel > rmLinearOrigin) return kNoModelToPredict;
  const Integer count = NumData();
  if (count < REG_MINDP[RegModel]) return kTooFewPairsToPredict;
  if (!(p >= 0.5 && p < 1.0)) return kBadProbability;
  if (const Integer code = CalcRegModel(RegModel, PolyOrder); code != 0) return code;
  PredVal = EvaluateIntern(RegModel, XVal);
  const Double n = count, mx = MeanX();
  Double sxx = 0.0, sse = 0.0;
  for (std::size_t i = 0; i < FX.size(); ++i) {
    const Double model = EvaluateIntern(RegModel, FX[i]);
    if (std::abs(model) >= kMost / 2.0) continue;
    sxx += (FX[i] - mx) * (FX[i] - mx);
    sse += (FY[i] - model) * (FY[i] - model);
  }
  const Double distance = XVal - mx;
  if (count < 3 || (sxx == 0.0 && distance != 0.0)) {
    PredIv = ConfIv = kMost;
    return 0;
  }
  const Double w = sxx == 0.0 ? 0.0 : distance * distance / sxx;
  const Double t = std::abs(ZOR_statis::tDistriQuantile((1.0 - p) / 2.0, n - 2.0));
  const Double s = std::sqrt(sse / (n - 2.0));
  PredIv = s * std::sqrt(1.0 + 1.0 / n + w) * t;
  ConfIv = s * std::sqrt(1.0 / n + w) * t;
  return 0;
}

}  // namespace ZOR_math2

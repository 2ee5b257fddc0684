#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include "zor/analysis/curve_fit.h"
#include "zor/analysis/least_squares.h"
#include "zor/base/feedback.h"
#include "zor/distributions/t_distribution.h"
#include "zor/kernels/moments.h"
#include "zor/matrices/matrix.h"

namespace ZOR_math2 {

namespace {

constexpr Integer kHighestOrder = 10;

/// Squared correlation of the data and the model, and the sum of squared residuals.
struct Agreement {
  Double quality = 0.0, sse = 0.0;
};

Agreement agreement(std::span<const Double> data, std::span<const Double> model) {
  const zor::kernels::PairMoments m = zor::kernels::pair_moments(data, model);
  Agreement of;
  for (std::size_t i = 0; i < data.size(); ++i) of.sse += (model[i] - data[i]) * (model[i] - data[i]);
  if (m.syy > 0.0 && m.sxx > 0.0 && m.cxx != 0.0 && m.cyy != 0.0) {
    const Double r = m.cxy / std::sqrt(std::abs(m.cxx * m.cyy));
    of.quality = r * r;
  }
  return of;
}

}  // namespace

/// Powers of (x - shift) / scale are fitted to y - mean.
struct TCurveFit::PolynomialTask {
  Integer order;
  TRegModel model;
  Double shift = 0.0, scale = 1.0, mean = 0.0;
};

Boolean TCurveFit::fit_polynomial(PolynomialTask& task, TDoubleArray& kArray, TDoubleArray& Alpha, Double& FitQual,
                                  Boolean& NearSingular) {
  const Integer n = NumData(), order = task.order;
  ZOR_matrix::TMatrix design;
  TVector target, b, deviations;
  design.Resize(order + 1, n);
  target.SetNrOfElem(n);
  b.SetNrOfElem(order + 1);
  deviations.SetNrOfElem(order + 1);
  TDoubleArray powers, model, parameters, significances;  // all memory before the model changes
  for (TDoubleArray* cells : {&powers, &model}) SetLength(*cells, n);
  for (TDoubleArray* cells : {&parameters, &significances}) SetLength(*cells, order + 1);
  {
    auto columns = design.Edit();
    const auto y = target.Edit();
    std::ranges::fill(powers, 1.0);
    for (Integer j = 1; j <= order; ++j) {
      const std::span<Double> column = columns.Column(j);
      for (std::size_t i = 0; i < powers.size(); ++i) column[i] = powers[i] *= (FX[i] - task.shift) / task.scale;
    }
    std::ranges::fill(columns.Column(order + 1), 1.0);
    for (std::size_t i = 0; i < powers.size(); ++i) y[i] = FY[i] - task.mean;
  }
  AbortMathProc = false;
  const Boolean solved = MultiLinReg(&design, &target, &b, &deviations, NearSingular);

  // The solver has overwritten the design: the powers are made once more.
  for (std::size_t i = 0; i < model.size(); ++i) {
    const Double z = (FX[i] - task.shift) / task.scale;
    Double power = 1.0;
    model[i] = b.GetVal(order + 1);
    for (Integer j = 1; j <= order; ++j) model[i] += b.GetVal(j) * (power *= z);
  }
  const Agreement of = agreement(target.Cells(), model);
  const Integer df = n - order - 1;
  const Double s = df >= 1 ? std::sqrt(of.sse / df) : 0.0;
  for (Integer j = 0; j <= order; ++j) {
    const Integer place = j == 0 ? order + 1 : j;
    const Double t = b.GetVal(place) / s / deviations.GetVal(place);
    parameters[j] = b.GetVal(place) / std::pow(task.scale, j);
    significances[j] =
        s == 0.0 || deviations.GetVal(place) == 0.0 ? 0.0 : 2.0 * ZOR_statis::tDistriIntegral(-std::abs(t), df);
  }
  parameters[0] += task.mean;
  ClearModelParams();
  FRegMod = task.model;
  FPolyOrder = order;
  FXShift = task.model == rmCenteredPoly ? task.shift : 0.0;
  FModR2 = FitQual = of.quality;
  std::ranges::copy(parameters, FModPars[0]);
  std::ranges::copy(significances, FModPars[1]);
  kArray = parameters;
  Alpha = significances;
  return solved;
}

Boolean TCurveFit::CalcPolyFit(Integer nOrder, TDoubleArray& kArray, TDoubleArray& Alpha, Double& FitQual,
                               Boolean& NearSingular) {
  FitQual = 0.0;
  NearSingular = false;
  if (nOrder < 0 || nOrder > kHighestOrder) fail_fit("CalcPolyFit: invalid order of polynomial");
  if (NumData() <= nOrder) fail_fit("CalcPolyFit: not enough data points");
  PolynomialTask task{nOrder, rmPolynomial};
  fit_polynomial(task, kArray, Alpha, FitQual, NearSingular);
  return true;
}

Boolean TCurveFit::CalcPolyFit(Integer nOrder, TDoubleArray& kArray, Double& FitQual, Boolean& NearSingular) {
  TDoubleArray significances;
  return CalcPolyFit(nOrder, kArray, significances, FitQual, NearSingular);
}

Boolean TCurveFit::CalcCenteredPolyFit(Integer nOrder, TDoubleArray& kArray, TDoubleArray& alpha, Double& XShift,
                                       Double& FitQual, Boolean& NearSingular) {
  FitQual = 0.0;
  NearSingular = false;
  if (nOrder < 0 || nOrder > kHighestOrder) fail_fit("CalcCenteredPolyFit: invalid order of polynomial");
  if (NumData() <= nOrder) fail_fit("CalcCenteredPolyFit: not enough data points");
  const zor::kernels::MeanVar x = zor::kernels::mean_variance(std::span<const Double>(FX));
  // The variance of fewer than three values counts as 1.
  const Double scale = FX.size() < 3 ? 1.0 : std::sqrt(x.variance);
  if (XShift == 0.0) XShift = x.mean;
  PolynomialTask task{nOrder, rmCenteredPoly, XShift, scale == 0.0 ? 1.0 : scale,
                      zor::kernels::mean_variance(std::span<const Double>(FY)).mean};
  return fit_polynomial(task, kArray, alpha, FitQual, NearSingular);
}

Boolean TCurveFit::CalcCenteredPolyFit(Integer nOrder, TDoubleArray& kArray, Double& XShift, Double& FitQual,
                                       Boolean& NearSingular) {
  TDoubleArray significances;
  return CalcCenteredPolyFit(nOrder, kArray, significances, XShift, FitQual, NearSingular);
}

}  // namespace ZOR_math2

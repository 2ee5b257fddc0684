#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "bits.h"
#include "zor/analysis/ZOR_math2.h"
#include "zor/portable_kernels.h"

using namespace ZOR_math2;

ZOR_BITS(analysis) {
  const std::vector<double> x = bits::noise(5003, 11);
  TVector signal, result;
  signal.SetNrOfElem(5003);
  result.SetNrOfElem(5003);
  std::ranges::copy(x, signal.Edit().begin());
  const auto print = [&](const char* name) { bits::print(name, std::vector<double>(result.begin(), result.end())); };
  MovingAverageSmooth(&signal, 1, 5003, &result, 9);
  print("moving average");
  WeightedAverageSmooth(&signal, 1, 5003, &result, 25);
  print("weighted average");
  MovingMedianSmooth(&signal, 1, 5003, &result, 25);
  print("moving median");
  MovingMedianSmooth(&signal, 1, 5003, &result, 51);
  print("moving median of long windows");
  PolynomialSmooth(&signal, 1, 5003, &result, 25);
  print("polynomial smoothing");
  SecondDeriv(&signal, 1, 5003, &result, 11);
  print("second derivative");
  FirstDeriv(&signal, 1, 5003, &result, 11);
  print("first derivative");

  TCurveFit fit;
  for (std::size_t i = 0; i < 2000; ++i)
    fit.EnterStatValue(2.0 + std::sin(x[i]), 3.0 + std::sin(x[i]) + 0.5 * std::sin(x[i + 2000]));
  const auto parameters = [&](std::string_view name) {
    std::vector<double> k(22);
    for (Integer i = 0; i < 22; ++i) k[static_cast<std::size_t>(i)] = fit.ModelPar(1 + i / 11, i % 11);
    k.push_back(fit.FitQual());
    bits::print(name, k);
  };
  for (const TRegModel model : {rmLinear, rmParabolic, rmGaussian, rmReciLin, rmHyperbolic, rmLog, rmPower, rmHoerl,
                                rmPolynomial, rmCenteredPoly}) {
    fit.CalcRegModel(model, 4);
    parameters(std::string("model ").append(std::to_string(model)));
  }
  Double quality, significance;
  Boolean valid;
  bits::print("correlations", std::vector{fit.CorrCoeff(), fit.SpearmanRankCorr(), fit.KendallsTau(significance)});
  bits::print("splines", std::vector{fit.CubicSpline(2.3), fit.SmoothedSpline(2.3, quality, valid), quality});

  TMatrix data;
  data.Resize(9, 500);
  {
    auto edit = data.Edit();
    for (Integer c = 1; c <= 9; ++c) std::ranges::copy_n(x.begin() + 500 * (c - 1), 500, edit.Column(c).begin());
  }
  TVector coefficients, deviations;
  Boolean singular;
  zor::use_portable_kernels(true);  // sums of products
  CalcPrincComp(&data, 1, 9, 0, 0, 2);
  zor::use_portable_kernels(false);
  std::vector<double> components;
  for (Integer k = 0; k < 90; ++k) components.push_back(GetEigenResult(k / 10 + 1, k % 10));
  bits::print("principal components", components);
  signal.SetNrOfElem(500);
  MultiLinReg(&data, &signal, &coefficients, &deviations, singular);
  bits::print("least squares", std::vector<double>(coefficients.begin(), coefficients.end()));
  bits::print("their deviations", std::vector<double>(deviations.begin(), deviations.end()));
}

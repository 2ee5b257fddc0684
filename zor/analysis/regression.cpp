#include "zor/analysis/regression.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string>
#include <vector>

#include "zor/analysis/decomposition_internal.h"
#include "zor/base/ZOR_univconst.h"
#include "zor/kernels/moments.h"
#include "zor/kernels/reflections.h"
#include "zor/vectors/store_internal.h"

namespace ZOR_math2 {

namespace {

using zor::detail::ColumnBlock;
using zor::detail::Decomposition;
using zor::detail::to_size;

std::vector<Double> ridge_gains(std::span<const Double> w, Double k) {
  std::vector<Double> gains(w.size(), 0.0);
  for (std::size_t i = 0; i < w.size(); ++i)
    if (w[i] != 0.0) gains[i] = w[i] / (w[i] * w[i] + k);
  return gains;
}

/// Coefficients and deviation factors; all 0 if the decomposition fails.
struct Solution {
  std::vector<Double> coefficients, factors, gains;
  ColumnBlock v{0, 0};
  bool near_singular = true, done = false;
};
Solution solve(const ColumnBlock& design, std::span<const Double> y, Double ridge) {
  const std::size_t n = design.size();
  Solution s{std::vector<Double>(n, 0.0), std::vector<Double>(n, 0.0), {}};
  Decomposition d(design.copy(n));  // the kernel wants as many rows as columns
  if (!d.done()) return s;
  s.done = true;
  s.near_singular = d.drop_small_values();
  s.gains = ridge_gains(d.w, ridge);
  zor::detail::apply_inverse(d.u, d.v, s.gains, y, s.coefficients, s.factors);
  s.v = std::move(d.v);
  return s;
}

void store(TVector* to, const std::vector<Double>& values) {
  if (to) zor::detail::store(*to, values);
}

/// Sum of the squares of y - a b.
Double residual_squares(const ColumnBlock& a, std::span<const Double> y, std::span<const Double> b) {
  std::vector<Double> model(a.rows);
  zor::kernels::combine_columns(a.columns.data(), b.data(), a.size(), 0, a.rows, model.data());
  Double sum = 0.0;
  for (std::size_t i = 0; i < y.size(); ++i) sum += (y[i] - model[i]) * (y[i] - model[i]);
  return sum;
}

/// Mean and standard deviation that are taken out of a column; a deviation of 0 of a constant one.
struct Scale {
  Double mean = 0.0, deviation = 0.0;
};
Scale standardize(std::span<Double> x) {
  const auto of = zor::kernels::mean_variance(std::span<const Double>(x));
  const Scale scale{of.mean, x.size() < 2 ? 0.0 : std::sqrt(of.variance)};
  for (Double& v : x) v = scale.deviation == 0.0 ? 0.0 : (v - scale.mean) / scale.deviation;
  return scale;
}

void check_ridge(const std::string& routine, const TMatrix* x, const TVector* y, Double factor) {
  const auto fail = [&](const char* text) { zor::detail::Fail<EZORMath2Error>(routine + text); };
  if (!(factor >= 0.0)) fail(": invalid ridge factor");
  if (!x || !y || x->NrOfRows() != y->NrOfElem()) fail(": numbers of rows do not match");
}

/// 1 / (1 - R^2) of column j of centred ones.
Double inflation(const ColumnBlock& centred, std::size_t j) {
  constexpr Double kMost = ZOR_univconst::uc_MaxDouble;
  const std::size_t n = centred.size(), rows = centred.rows;
  if (n == 1) return 1.0;
  if (rows <= n) return kMost;
  ColumnBlock others(n - 1, rows);
  for (std::size_t c = 0, to = 0; c < n; ++c)
    if (c != j) std::ranges::copy(centred[c], others.columns[to++]);
  const Solution s = solve(others, centred[j], 0.0);
  const Double total = zor::kernels::dot_twofold(centred[j], centred[j]).hi;
  const Double rest = residual_squares(others, centred[j], s.coefficients);
  return s.near_singular || total == 0.0 || 1.0 - rest / total >= 1.0 ? kMost : total / rest;
}

}  // namespace

void MultiLinReg(const TMatrix* InMat, const TIntArray& ColList, Integer TargetCol, Boolean IncludeConst,
                 Double& Value1, Double& Value2, Double& Value3, TVector* Coef, TVector* Dev, Boolean& NearSingular) {
  Value1 = Value2 = Value3 = 0.0;
  NearSingular = false;
  const auto inside = [&](Integer c) { return InMat && c >= 1 && c <= InMat->NrOfColumns(); };
  const std::size_t variables = ColList.size(), count = variables + (IncludeConst ? 1 : 0);
  if (count == 0 || !inside(TargetCol) || !std::ranges::all_of(ColList, inside))
    zor::detail::Fail<EZORMath2Error>("MultiLinReg: column index out of range");
  const std::size_t n = to_size(InMat->NrOfRows());
  if (n < count) zor::detail::Fail<EZORMath2Error>("MultiLinReg: not enough data points");

  ColumnBlock design(count, n);
  for (std::size_t c = 0; c < variables; ++c)
    std::ranges::copy(InMat->Column(ColList[zor::detail::to_integer(c)]), design.columns[c]);
  if (IncludeConst) std::ranges::fill(design[variables], 1.0);
  const std::vector<Double> y(InMat->Column(TargetCol).begin(), InMat->Column(TargetCol).end());
  const Solution s = solve(design, y, 0.0);
  NearSingular = s.near_singular;
  if (s.done) {
    const auto about = zor::kernels::mean_variance(std::span<const Double>(y));
    const Double total =
        IncludeConst ? about.variance * static_cast<Double>(n - 1) : zor::kernels::dot_twofold(y, y).hi;
    const Double rest = residual_squares(design, y, s.coefficients);
    const Double df = static_cast<Double>(n - count), regression = total - rest;
    Value1 = total > 0.0 ? 1.0 - rest / total : 0.0;
    Value2 = df < 1.0 ? 0.0 : std::sqrt(rest / df);
    if (variables > 0 && df >= 1.0) {
      const Double mean_regression = regression / static_cast<Double>(variables), mean_rest = rest / df;
      Value3 = mean_rest > 0.0 ? mean_regression / mean_rest : mean_regression > 0.0 ? 1e10 : 0.0;
    }
  }
  store(Coef, s.coefficients);
  store(Dev, s.factors);
}

void RidgeReg(const TMatrix* InMat, const TVector* Y, Double RidgeFactor, TVector* Coef, TVector* Dev,
              Boolean& NearSingular) {
  NearSingular = false;
  check_ridge("RidgeReg", InMat, Y, RidgeFactor);
  const Solution s = solve(ColumnBlock(*InMat), Y->Cells(), RidgeFactor);
  NearSingular = s.near_singular;
  store(Coef, s.coefficients);
  store(Dev, s.factors);
}

void RidgeRegStd(const TMatrix* InMat, const TVector* Y, Double RidgeFactor, TVector* V1, TVector* V2, TVector* V3,
                 TVector* V4, Boolean& NearSingular) {
  NearSingular = false;
  check_ridge("RidgeRegStd", InMat, Y, RidgeFactor);
  ColumnBlock x(*InMat);
  std::vector<Double> y(Y->begin(), Y->end());
  std::vector<Scale> scales;
  for (std::size_t c = 0; c < x.size(); ++c) scales.push_back(standardize(x[c]));
  const Scale of_y = standardize(y);
  const auto rows = static_cast<Double>(x.rows);
  const Solution s = solve(x, y, RidgeFactor);
  NearSingular = s.near_singular;

  const std::size_t p = scales.size();
  std::vector<Double> b(p + 1, 0.0), factors(p + 1, 0.0), shares(p, 0.0);  // shares: mean / deviation
  b[p] = s.done ? of_y.mean : 0.0;
  for (std::size_t c = 0; c < p; ++c) {
    if (scales[c].deviation == 0.0) continue;
    b[c] = s.coefficients[c] * (of_y.deviation / scales[c].deviation);
    factors[c] = s.factors[c] / scales[c].deviation;
    shares[c] = scales[c].mean / scales[c].deviation;
    b[p] -= b[c] * scales[c].mean;
  }
  if (s.done) {
    Double sum = 1.0 / rows;
    for (std::size_t k = 0; k < p; ++k) {
      const Double part = s.gains[k] * zor::kernels::dot_twofold(s.v[k], shares).hi;
      sum += part * part;
    }
    factors[p] = std::sqrt(sum);
  }
  store(V1, b);
  store(V2, factors);
  store(V3, s.coefficients);
  store(V4, s.factors);
}

void VarInflatFactor(const TMatrix* InMat, const TIntArray& ColList, TDoubleArray& VIF,
                     const TOnPercentDoneEvent& Feedback) {
  std::vector<Integer> list(ColList.begin(), ColList.end());
  if (list.empty() && InMat) {
    list.resize(to_size(InMat->NrOfColumns()));
    std::iota(list.begin(), list.end(), 1);
  }
  for (const Integer c : list)
    if (!InMat || c < 1 || c > InMat->NrOfColumns()) list.clear();
  if (list.empty()) zor::detail::Fail<EZORMath2Error>("VarInflatFactor: column index out of range");
  ColumnBlock centred(list.size(), to_size(InMat->NrOfRows()));
  for (std::size_t c = 0; c < list.size(); ++c) {
    std::ranges::copy(InMat->Column(list[c]), centred.columns[c]);
    const Double mean = zor::kernels::mean_variance(std::span<const Double>(centred[c])).mean;
    for (Double& x : centred[c]) x -= mean;
  }
  TDoubleArray found;
  SetLength(found, zor::detail::to_integer(list.size()));
  for (std::size_t j = 0; j < list.size(); ++j) {
    found[zor::detail::to_integer(j)] = inflation(centred, j);
    if (Feedback) Feedback(nullptr, static_cast<Integer>(100 * (j + 1) / list.size()));
  }
  VIF = found;
}

}  // namespace ZOR_math2

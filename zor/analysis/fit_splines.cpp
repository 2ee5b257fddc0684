#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "zor/analysis/curve_fit.h"
#include "zor/analysis/penalized_spline.h"

namespace ZOR_math2 {

Double TCurveFit::Spline::at(Double place) const noexcept {
  if (place < x.front()) return a.front() + b.front() * (place - x.front());
  const auto above = std::upper_bound(x.begin(), x.end(), place);
  const std::size_t i = static_cast<std::size_t>(above - x.begin()) - 1;
  const Double h = place - x[i];
  return a[i] + h * (b[i] + h * (c[i] + h * d[i]));
}

/// Distinct finite x in rising order with the mean of their y and their number. to.x is empty without any.
void TCurveFit::merged_points(Spline& to, std::vector<Double>& y, std::vector<Double>& weights) const {
  std::vector<std::pair<Double, Double>> points;
  points.reserve(FX.size());
  for (std::size_t i = 0; i < FX.size(); ++i) {
    if (std::isfinite(FX[i])) points.emplace_back(FX[i], FY[i]);
  }
  std::ranges::stable_sort(points, {}, [](const auto& p) { return p.first; });
  to = {};
  for (std::size_t i = 0, end = 0; i < points.size(); i = end) {
    Double sum = 0.0;
    for (end = i; end < points.size() && points[end].first == points[i].first; ++end) sum += points[end].second;
    to.x.push_back(points[i].first);
    weights.push_back(static_cast<Double>(end - i));
    y.push_back(sum / weights.back());
  }
  for (auto* part : {&to.a, &to.b, &to.c, &to.d}) part->assign(to.x.size(), 0.0);
}

Double TCurveFit::CubicSpline(Double x) const {
  if (!cubic_.valid) {
    Spline made;
    std::vector<Double> y, weights;
    merged_points(made, y, weights);
    const std::size_t n = made.x.size();
    // Second derivatives m by elimination in the tridiagonal system; row i: lower m[i-1] + diagonal m[i] + upper
    // m[i+1].
    std::vector<Double> m(n, 0.0), upper(n, 0.0);
    const auto h = [&](std::size_t i) { return made.x[i + 1] - made.x[i]; };
    const auto rise = [&](std::size_t i) { return (y[i + 1] - y[i]) / h(i); };
    for (std::size_t i = 0; n > 1 && i < n; ++i) {
      const bool first = i == 0, last = i + 1 == n, natural = (first && FNatural1) || (last && FNaturalN);
      const Double before = first ? FY1Dash : rise(i - 1), after = last ? FYNDash : rise(i);
      const Double hl = first || natural ? 0.0 : h(i - 1), hr = last || natural ? 0.0 : h(i);
      const Double diagonal = natural ? 1.0 : 2.0 * (hl + hr) - hl * (first ? 0.0 : upper[i - 1]);
      const Double right = natural ? 0.0 : 6.0 * (after - before) - hl * (first ? 0.0 : m[i - 1]);
      upper[i] = hr / diagonal;
      m[i] = right / diagonal;
    }
    for (std::size_t i = n > 1 ? n - 1 : 0; i-- > 0;) m[i] -= upper[i] * m[i + 1];
    made.a = y;
    for (std::size_t i = 0; i + 1 < n; ++i) {
      made.b[i] = rise(i) - h(i) * (2.0 * m[i] + m[i + 1]) / 6.0;
      made.c[i] = m[i] / 2.0;
      made.d[i] = (m[i + 1] - m[i]) / (6.0 * h(i));
    }
    if (n > 1) made.b[n - 1] = rise(n - 2) + h(n - 2) * (m[n - 2] + 2.0 * m[n - 1]) / 6.0;
    made.valid = true;
    cubic_ = std::move(made);
  }
  return cubic_.x.empty() ? 0.0 : cubic_.at(x);
}

Double TCurveFit::SmoothedSpline(Double x, Double& FitQual, Boolean& valid) const {
  FitQual = 0.0;
  valid = false;
  if (!smoothed_.valid) {
    Spline made;
    std::vector<Double> y, weights;
    merged_points(made, y, weights);
    if (made.x.size() >= 2 && FPSplineSmooth >= 0.0) {
      PenalizedCubicSpline(0, zor::detail::to_integer(made.x.size()) - 1, FPSplineSmooth, made.x, y, weights, made.a,
                           made.b, made.c, made.d);
      const Double mean = MeanY();
      Double sse = 0.0, sst = 0.0;
      for (std::size_t i = 0; i < FX.size(); ++i) {
        const Double residual = FY[i] - made.at(FX[i]);
        sse += residual * residual;
        sst += (FY[i] - mean) * (FY[i] - mean);
      }
      made.fit_qual = sst == 0.0 ? 1.0 : 1.0 - sse / sst;
    }
    made.valid = true;
    smoothed_ = std::move(made);
  }
  if (smoothed_.x.size() < 2 || !(FPSplineSmooth >= 0.0)) return MeanY();
  FitQual = smoothed_.fit_qual;
  valid = true;
  return smoothed_.at(x);
}

void TCurveFit::SetNatural1(Boolean v) noexcept {
  FNatural1 = v;
  cubic_.valid = false;
}
void TCurveFit::SetNaturalN(Boolean v) noexcept {
  FNaturalN = v;
  cubic_.valid = false;
}
void TCurveFit::SetY1Dash(Double v) noexcept {
  FY1Dash = v;
  cubic_.valid = false;
}
void TCurveFit::SetYNDash(Double v) noexcept {
  FYNDash = v;
  cubic_.valid = false;
}
void TCurveFit::SetSplineSmoothing(Double v) noexcept {
  FPSplineSmooth = v;
  smoothed_.valid = false;
}

}  // namespace ZOR_math2

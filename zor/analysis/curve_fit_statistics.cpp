#include <algorithm>
#include <cmath>
#include <numbers>

#include "zor/analysis/curve_fit.h"
#include "zor/kernels/moments.h"
#include "zor/matrices/percentile_internal.h"
#include "zor/vectors/statistics_internal.h"

namespace ZOR_math2 {

namespace kernels = zor::kernels;

namespace {

using Cells = std::vector<Double>;

kernels::DoubleDouble pair(const zor::detail::TwofoldSum& sum) noexcept { return {sum.hi, sum.lo}; }

Double mean(const zor::detail::TwofoldSum& sum, std::size_t n) noexcept {
  return n == 0 ? 0.0 : kernels::mean_of_sum(pair(sum), n);
}

zor::detail::SkewKurt shape(const Cells& cells) noexcept {
  if (cells.size() < 4) return {};
  const auto n = static_cast<Double>(cells.size());
  kernels::CentralSums powers;
  kernels::accumulate_in_order(powers, cells, kernels::mean_variance(cells).mean);
  return zor::detail::sample_skew_kurt(n, zor::detail::skew_kurt(n, powers));
}

Double mean_angle(const Cells& degrees) noexcept {
  constexpr Double kRadian = std::numbers::pi / 180.0;
  Double s = 0.0, c = 0.0;
  for (const Double a : degrees) {
    s += std::sin(a * kRadian);
    c += std::cos(a * kRadian);
  }
  if (c == 0.0) return s > 0.0 ? 90.0 : s < 0.0 ? 270.0 : 0.0;
  const Double m = std::atan(s / c) / std::numbers::pi * 180.0;
  if (c < 0.0) return m + 180.0;
  return s < 0.0 ? m + 360.0 : m;
}

Double percentile(Cells cells, Double prob) {
  if (cells.empty()) return 0.0;
  return std::isnan(prob) ? prob : zor::detail::nearest_percentile(cells, prob);
}

Boolean quartiles(Cells cells, Double& q1, Double& q2, Double& q3) {
  q1 = q2 = q3 = 0.0;
  if (cells.empty()) return false;
  const auto q = zor::detail::quartiles(std::span<Double>(cells));
  q1 = q[0];
  q2 = q[1];
  q3 = q[2];
  return true;
}

}  // namespace

bool TCurveFit::constant(const Cells& cells, Double lo, Double hi) const noexcept {
  if (lo == hi) return true;
  return removed_ && std::ranges::all_of(cells, [&](Double x) { return x == cells.front(); });
}

Double TCurveFit::deviation(const zor::detail::TwofoldSum& squares, const zor::detail::TwofoldSum& sum) const noexcept {
  const std::size_t n = FX.size();
  if (n < 3) return 0.0;
  const Double centered = kernels::centered(pair(squares), pair(sum), pair(sum), n);
  return std::sqrt(std::abs(centered / static_cast<Double>(n - 1)));
}

Double TCurveFit::MeanX() const noexcept { return mean(sums_.x, FX.size()); }
Double TCurveFit::MeanY() const noexcept { return mean(sums_.y, FX.size()); }
Double TCurveFit::MeanDiff() const noexcept { return mean(sums_.diff, FX.size()); }
Double TCurveFit::RMSDiff() const noexcept { return std::sqrt(mean(sums_.diff2, FX.size())); }
Double TCurveFit::StdDevX() const noexcept { return constant(FX, FMinX, FMaxX) ? 0.0 : deviation(sums_.xx, sums_.x); }
Double TCurveFit::StdDevY() const noexcept { return constant(FY, FMinY, FMaxY) ? 0.0 : deviation(sums_.yy, sums_.y); }
Double TCurveFit::StdDevDiff() const noexcept { return deviation(sums_.diff2, sums_.diff); }

Double TCurveFit::CorrCoeff() const noexcept {
  const std::size_t n = FX.size();
  if (n < 3 || constant(FX, FMinX, FMaxX) || constant(FY, FMinY, FMaxY)) return 0.0;
  kernels::PairMoments m;
  m.sxx = sums_.xx.hi;
  m.syy = sums_.yy.hi;
  m.cxx = kernels::centered(pair(sums_.xx), pair(sums_.x), pair(sums_.x), n);
  m.cyy = kernels::centered(pair(sums_.yy), pair(sums_.y), pair(sums_.y), n);
  m.cxy = kernels::centered(pair(sums_.xy), pair(sums_.x), pair(sums_.y), n);
  return zor::detail::correlation(m);
}

Double TCurveFit::SkewnessX() const noexcept { return shape(FX).skewness; }
Double TCurveFit::SkewnessY() const noexcept { return shape(FY).skewness; }
Double TCurveFit::KurtosisX() const noexcept { return shape(FX).kurtosis; }
Double TCurveFit::KurtosisY() const noexcept { return shape(FY).kurtosis; }
Double TCurveFit::MeanAngleX() const noexcept { return mean_angle(FX); }
Double TCurveFit::MeanAngleY() const noexcept { return mean_angle(FY); }

void TCurveFit::CalcStatistics(Integer& NumData, Double& MeanX, Double& MeanY, Double& StdevX, Double& StdevY,
                               Double& MeanDiff, Double& StdevDiff, Double& rxy) const noexcept {
  NumData = this->NumData();
  MeanX = this->MeanX();
  MeanY = this->MeanY();
  StdevX = StdDevX();
  StdevY = StdDevY();
  MeanDiff = this->MeanDiff();
  StdevDiff = StdDevDiff();
  rxy = CorrCoeff();
}

Double TCurveFit::PercentileX(Double prob) const { return percentile(FX, prob); }
Double TCurveFit::PercentileY(Double prob) const { return percentile(FY, prob); }
Boolean TCurveFit::QuartilesX(Double& q1, Double& q2, Double& q3) const { return quartiles(FX, q1, q2, q3); }
Boolean TCurveFit::QuartilesY(Double& q1, Double& q2, Double& q3) const { return quartiles(FY, q1, q2, q3); }

}  // namespace ZOR_math2

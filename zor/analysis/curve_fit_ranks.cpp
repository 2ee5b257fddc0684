#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "zor/analysis/curve_fit.h"
#include "zor/analysis/ranks_internal.h"
#include "zor/base/ZOR_univconst.h"
#include "zor/distributions/error_function.h"
#include "zor/scalar/kahan_sum.h"

namespace ZOR_math2 {

namespace {

using Cells = std::vector<Double>;
using Point = std::pair<Double, Double>;

std::int64_t pairs_of(std::size_t n) noexcept {
  return static_cast<std::int64_t>(n) * (static_cast<std::int64_t>(n) - 1) / 2;
}

/// Pairs of equal neighbours in a run that is sorted into groups.
template <class Equal>
std::int64_t tied_pairs(const std::vector<Point>& points, Equal equal) {
  std::int64_t count = 0;
  for (std::size_t i = 0, end = 0; i < points.size(); i = end) {
    for (end = i + 1; end < points.size() && equal(points[i], points[end]);) ++end;
    count += pairs_of(end - i);
  }
  return count;
}

/// Sorts by y and counts the pairs that stood in the wrong order.
std::int64_t sort_and_count(std::span<Point> points, std::span<Point> work) {
  constexpr std::size_t kShort = 8;
  const std::size_t n = points.size(), half = n / 2;
  std::int64_t count = 0;
  if (n <= kShort) {
    for (std::size_t i = 1; i < n; ++i) {
      for (std::size_t k = i; k > 0 && points[k].second < points[k - 1].second; --k, ++count) {
        std::swap(points[k], points[k - 1]);
      }
    }
    return count;
  }
  count = sort_and_count(points.first(half), work) + sort_and_count(points.subspan(half), work);
  std::ranges::copy(points.first(half), work.begin());
  std::size_t left = 0, right = half;
  for (Point& to : points) {
    if (left < half && (right == n || !(points[right].second < work[left].second))) {
      to = work[left++];
    } else {
      to = points[right++];
      count += static_cast<std::int64_t>(half - left);
    }
  }
  return count;
}

/// Smallest distance of two different ones of sorted values.
template <class Value>
Double smallest_step(const std::vector<Point>& points, Value value) {
  Double step = ZOR_univconst::uc_MaxDouble;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const Double d = value(points[i]) - value(points[i - 1]);
    if (d > 0.0 && d < step) step = d;
  }
  return step;
}

Double x_of(const Point& p) noexcept { return p.first; }
Double y_of(const Point& p) noexcept { return p.second; }

}  // namespace

void TCurveFit::count_ranks() const {
  if (ranks_.valid) return;
  Rank counts;
  counts.valid = true;
  const std::size_t n = FX.size();
  const auto plainly = [&] {
    for (std::size_t i = 0; i < n; ++i) {
      for (std::size_t j = i + 1; j < n; ++j) {
        const Double dx = FX[i] - FX[j], dy = FY[i] - FY[j], p = dx * dy;
        counts.concordant += p > 0.0;
        counts.discordant += p < 0.0;
        counts.ties_x += p == 0.0 && dx != 0.0;
        counts.ties_y += p == 0.0 && dy != 0.0;
      }
    }
  };
  // Sorting instead of comparing all pairs (W. R. Knight, J. Am. Stat. Assoc. 61 (1966), 436), unless a product of
  // differences may lose its sign by underflow, overflow or NaN.
  const auto by_sorting = [&] {
    std::vector<Point> points(n), work(n);
    for (std::size_t i = 0; i < n; ++i) points[i] = {FX[i], FY[i]};
    std::ranges::sort(points);
    const Double step_x = smallest_step(points, x_of), range_x = points.back().first - points.front().first;
    const std::int64_t same_x = tied_pairs(points, [](auto& a, auto& b) { return a.first == b.first; });
    const std::int64_t same_both = tied_pairs(points, [](auto& a, auto& b) { return a == b; });
    const std::int64_t discordant = sort_and_count(points, work);
    const Double step_y = smallest_step(points, y_of), range_y = points.back().second - points.front().second;
    const std::int64_t same_y = tied_pairs(points, [](auto& a, auto& b) { return a.second == b.second; });
    if (!std::isfinite(range_x) || !std::isfinite(range_y) || step_x * step_y == 0.0) return plainly();
    counts.discordant = discordant;
    counts.concordant = pairs_of(n) - same_x - same_y + same_both - discordant;
    counts.ties_x = same_y - same_both;
    counts.ties_y = same_x - same_both;
  };
  const auto finite = [](const Cells& cells) {
    return std::ranges::all_of(cells, [](Double x) { return std::isfinite(x); });
  };
  if (n >= 3) finite(FX) && finite(FY) ? by_sorting() : plainly();
  ranks_ = counts;
}

Double TCurveFit::KendallsTau(Double& p) const {
  p = 0.0;
  count_ranks();
  const auto c = static_cast<Double>(ranks_.concordant), d = static_cast<Double>(ranks_.discordant);
  const Double root =
      std::sqrt((c + d + static_cast<Double>(ranks_.ties_x)) * (c + d + static_cast<Double>(ranks_.ties_y)));
  if (root == 0.0) return 0.0;
  const Double n = NumData(), tau = (c - d) / root;
  const Double z = tau / std::sqrt((4.0 * n + 10.0) / (9.0 * n * (n - 1.0)));
  p = std::clamp(1.0 - ZOR_statis::ErfApprox(std::abs(z) / ZOR_univconst::uc_sqrt2), 0.0, 1.0);
  return tau;
}

Double TCurveFit::KruskalGamma() const {
  count_ranks();
  const auto c = static_cast<Double>(ranks_.concordant), d = static_cast<Double>(ranks_.discordant);
  return c + d == 0.0 ? 0.0 : (c - d) / (c + d);
}

Double TCurveFit::SpearmanRankCorr() const {
  const std::size_t count = FX.size();
  if (count < 3) return 0.0;
  Cells rank_x(count), rank_y(count);
  const Double tx = zor::detail::tied_ranks(FX, rank_x) / 12.0, ty = zor::detail::tied_ranks(FY, rank_y) / 12.0;
  ZOR_math1::TKahanSum squares;
  for (std::size_t i = 0; i < count; ++i) squares.Add((rank_x[i] - rank_y[i]) * (rank_x[i] - rank_y[i]));
  const auto n = static_cast<Double>(count);
  const Double a = n * (n * n - 1.0), d = squares.Sum;
  if (tx == 0.0 && ty == 0.0) return 1.0 - 6.0 * d / a;
  if (a == 12.0 * tx || a == 12.0 * ty) return 0.0;
  return (a - 6.0 * (d + ty + tx)) / std::sqrt((a - 12.0 * tx) * (a - 12.0 * ty));
}

}  // namespace ZOR_math2

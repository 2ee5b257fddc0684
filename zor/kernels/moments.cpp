#include "zor/kernels/moments.h"

#include <algorithm>
#include <cmath>

#include "zor/kernels/dispatch.h"
#include "zor/kernels/levels/moments.h"
#include "zor/kernels/twofold.h"

namespace zor::kernels {

ZOR_KERNEL_TABLE(MomentsTable, kMoments)

namespace {

void take(PartialSums& sums, std::size_t lane, double x, double error) {
  const DoubleDouble s = two_sum(sums.hi[lane], x);
  sums.hi[lane] = s.hi;
  sums.lo[lane] += s.lo + error;
}

/// A block of partial sums' cells that a run fills in part only; a zero changes no sum.
struct PartBlock {
  alignas(64) double cells[kPartialSums] = {};
  PartBlock(std::span<const double> x, std::size_t lane) { std::copy(x.begin(), x.end(), cells + lane); }
};

/// Cuts a run whose first cell goes to partial sum `lane` into whole blocks and the parts before and behind them:
/// part(first cell, count, lane), whole(first cell, blocks).
template <class Part, class Whole>
void for_blocks(std::size_t n, std::size_t lane, Part part, Whole whole) {
  std::size_t done = 0;
  if (lane != 0) {
    done = std::min(n, kPartialSums - lane);
    part(0, done, lane);
  }
  if (const std::size_t blocks = (n - done) / kPartialSums; blocks != 0) {
    whole(done, blocks);
    done += blocks * kPartialSums;
  }
  if (done < n) part(done, n - done, std::size_t{0});
}

/// Adds the products of x and y, the first one to partial sum `lane`.
void accumulate_products(PartialSums& sums, std::span<const double> x, std::span<const double> y, std::size_t lane) {
  for_blocks(
      x.size(), lane,
      [&](std::size_t start, std::size_t n, std::size_t at) {
        const PartBlock a(x.subspan(start, n), at), b(y.subspan(start, n), at);
        table().dot(a.cells, b.cells, 1, sums);
      },
      [&](std::size_t start, std::size_t blocks) { table().dot(x.data() + start, y.data() + start, blocks, sums); });
}

/// x[i] - origin, at most kChunk of them. A chunk fills the partial sums evenly.
constexpr std::size_t kChunk = 16 * kPartialSums;
template <class T>
std::span<const double> differences(std::span<const T> x, double origin, double (&room)[kChunk]) {
  for (std::size_t i = 0; i < x.size(); ++i) room[i] = static_cast<double>(x[i]) - origin;
  return {room, x.size()};
}

template <class T>
void accumulate_differences(MomentSums& sums, std::span<const T> x, double origin) {
  double room[kChunk];
  for (; !x.empty(); x = x.subspan(std::min(x.size(), kChunk))) {
    accumulate(sums, differences(x.first(std::min(x.size(), kChunk)), origin, room));
  }
}

/// Sum of the squared deviations, Q - S S / n.
double deviations(const MomentSums& sums, DoubleDouble s, DoubleDouble q) {
  if (sums.all_equal && std::isfinite(sums.first)) return 0.0;
  const double d = centered(q, s, s, sums.n);
  return d < 0.0 ? 0.0 : d;
}

}  // namespace

DoubleDouble fold(const PartialSums& sums) noexcept {
  PartialSums t = sums;
  for (std::size_t half = kPartialSums / 2; half > 0; half /= 2)
    for (std::size_t i = 0; i < half; ++i) take(t, i, t.hi[i + half], t.lo[i + half]);
  return normal(t.hi[0], t.lo[0]);
}

double centered(DoubleDouble a, DoubleDouble b, DoubleDouble c, std::size_t n) noexcept {
  // (b / n) c instead of (b c) / n, which may overflow where the result doesn't.
  return (a - b / static_cast<double>(n) * c).hi;
}

void accumulate(MomentSums& sums, std::span<const double> x, double origin) noexcept {
  accumulate_differences(sums, x, origin);
}

void accumulate(MomentSums& sums, std::span<const std::int32_t> x, double origin) noexcept {
  accumulate_differences(sums, x, origin);
}

void accumulate(MomentSums& sums, std::span<const double> x) noexcept {
  if (x.empty()) return;
  if (sums.n == 0) sums.first = x[0];
  sums.all_equal = sums.all_equal && table().same_bits(x.data(), x.size(), sums.first);
  for_blocks(
      x.size(), sums.n % kPartialSums,
      [&](std::size_t start, std::size_t n, std::size_t at) {
        table().moments(PartBlock(x.subspan(start, n), at).cells, 1, sums.sum, sums.squares);
      },
      [&](std::size_t start, std::size_t blocks) {
        table().moments(x.data() + start, blocks, sums.sum, sums.squares);
      });
  sums.n += x.size();
}

MeanVar mean_variance(const MomentSums& sums) noexcept {
  if (sums.n == 0) return {};
  const DoubleDouble s = fold(sums.sum);
  const auto n = static_cast<double>(sums.n);
  MeanVar result{sums.n, sums.all_equal ? sums.first : (s / n).hi, 0.0};
  if (sums.n > 1) result.variance = deviations(sums, s, fold(sums.squares)) / (n - 1.0);
  return result;
}

bool loses_bits(const MomentSums& sums) noexcept {
  if (sums.n < 2 || sums.all_equal) return false;
  const DoubleDouble q = fold(sums.squares);
  return deviations(sums, fold(sums.sum), q) < 0x1p-45 * q.hi;
}

MeanVar mean_variance(std::span<const double> x) noexcept {
  return mean_variance_of_runs([x](auto take) { take(x); });
}

MeanVar mean_variance(std::span<const std::int32_t> x) noexcept {
  return mean_variance_of_runs([x](auto take) { take(x); });
}

DoubleDouble sum_twofold(std::span<const double> x) noexcept {
  PartialSums sums;
  for_blocks(
      x.size(), 0,
      [&](std::size_t start, std::size_t n, std::size_t at) {
        table().sum(PartBlock(x.subspan(start, n), at).cells, 1, sums);
      },
      [&](std::size_t start, std::size_t blocks) { table().sum(x.data() + start, blocks, sums); });
  return fold(sums);
}

DoubleDouble dot_twofold(std::span<const double> x, std::span<const double> y) noexcept {
  PartialSums sums;
  accumulate_products(sums, x, y, 0);
  return fold(sums);
}

void accumulate(PairSums& sums, std::span<const double> x, std::span<const double> y) noexcept {
  // Three passes over cells that are still in the first cache.
  constexpr std::size_t kCellsInCache = 1024;
  for (std::size_t i = 0; i < x.size(); i += kCellsInCache) {
    const std::size_t n = std::min(kCellsInCache, x.size() - i);
    const auto a = x.subspan(i, n), b = y.subspan(i, n);
    accumulate_products(sums.products, a, b, sums.x.n % kPartialSums);
    accumulate(sums.x, a);
    accumulate(sums.y, b);
  }
}

void accumulate(PairSums& sums, std::span<const double> x, std::span<const double> y, double x_origin,
                double y_origin) noexcept {
  double x_room[kChunk], y_room[kChunk];
  for (std::size_t i = 0; i < x.size(); i += kChunk) {
    const std::size_t n = std::min(kChunk, x.size() - i);
    accumulate(sums, differences(x.subspan(i, n), x_origin, x_room), differences(y.subspan(i, n), y_origin, y_room));
  }
}

PairMoments pair_moments(const PairSums& sums) noexcept {
  if (sums.x.n == 0) return {};
  const DoubleDouble sx = fold(sums.x.sum), sy = fold(sums.y.sum);
  const DoubleDouble sxx = fold(sums.x.squares), syy = fold(sums.y.squares), sxy = fold(sums.products);
  PairMoments m{
      sums.x.n, sx.hi, sy.hi, sxx.hi, syy.hi, sxy.hi, deviations(sums.x, sx, sxx), deviations(sums.y, sy, syy)};
  const bool constant = (sums.x.all_equal && std::isfinite(sums.x.first) && std::isfinite(sy.hi)) ||
                        (sums.y.all_equal && std::isfinite(sums.y.first) && std::isfinite(sx.hi));
  m.cxy = constant ? 0.0 : centered(sxy, sx, sy, sums.x.n);
  return m;
}

PairMoments pair_moments(std::span<const double> x, std::span<const double> y) noexcept {
  return pair_moments_of_runs([x, y](auto take) { take(x, y); });
}

void accumulate_in_order(CentralSums& sums, std::span<const double> x, double mean) noexcept {
  CentralSums s = sums;
  for (const double v : x) {
    const double d = v - mean;
    const double d2 = d * d;
    s.d1 += d;
    s.d2 += d2;
    s.d3 += d2 * d;
    s.d4 += d2 * d2;
  }
  sums = s;
}

}  // namespace zor::kernels

#include "zor/kernels/moments.h"

#include <bit>
#include <cmath>

namespace zor::kernels {
namespace {

/// Errors of products below this are dropped: there the error itself may not be a double.
constexpr double kSmallProduct = 0x1p-960;

/// a + b and its rounding error.
DoubleDouble two_sum(double a, double b) {
  const double s = a + b;
  const double t = s - a;
  return {s, (a - (s - t)) + (b - t)};
}

/// a * b and its rounding error.
DoubleDouble two_product(double a, double b) {
  const double p = a * b;
  return {p, std::abs(p) >= kSmallProduct ? std::fma(a, b, -p) : 0.0};
}

/// Pair with |lo| <= ulp(hi) / 2. What is not finite has no low part.
DoubleDouble normal(double hi, double lo) {
  const double s = hi + lo;
  if (!std::isfinite(s)) return {hi, 0.0};
  return {s, lo - (s - hi)};
}

DoubleDouble operator-(DoubleDouble a, DoubleDouble b) {
  const DoubleDouble s = two_sum(a.hi, -b.hi);
  return normal(s.hi, s.lo + (a.lo - b.lo));
}
DoubleDouble operator*(DoubleDouble a, DoubleDouble b) {
  const DoubleDouble p = two_product(a.hi, b.hi);
  return normal(p.hi, p.lo + (a.hi * b.lo + a.lo * b.hi));
}
DoubleDouble operator/(DoubleDouble a, double b) {
  const double q = a.hi / b;
  const DoubleDouble p = two_product(q, b);
  return normal(q, ((a.hi - p.hi) - p.lo + a.lo) / b);
}

void take(PartialSums& sums, std::size_t lane, double x, double error) {
  const DoubleDouble s = two_sum(sums.hi[lane], x);
  sums.hi[lane] = s.hi;
  sums.lo[lane] += s.lo + error;
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

void accumulate(MomentSums& sums, std::span<const double> x) noexcept {
  for (const double v : x) {
    if (sums.n == 0) sums.first = v;
    sums.all_equal = sums.all_equal && std::bit_cast<std::uint64_t>(v) == std::bit_cast<std::uint64_t>(sums.first);
    const std::size_t lane = sums.n++ % kPartialSums;
    const DoubleDouble p = two_product(v, v);
    take(sums.sum, lane, v, 0.0);
    take(sums.squares, lane, p.hi, p.lo);
  }
}

MeanVar mean_variance(const MomentSums& sums) noexcept {
  if (sums.n == 0) return {};
  const DoubleDouble s = fold(sums.sum);
  const auto n = static_cast<double>(sums.n);
  MeanVar result{sums.n, sums.all_equal ? sums.first : (s / n).hi, 0.0};
  if (sums.n > 1) result.variance = deviations(sums, s, fold(sums.squares)) / (n - 1.0);
  return result;
}

MeanVar mean_variance(std::span<const double> x) noexcept {
  MomentSums sums;
  accumulate(sums, x);
  return mean_variance(sums);
}

MeanVar mean_variance(std::span<const std::int32_t> x) noexcept {
  MomentSums sums;
  for (const std::int32_t v : x) {
    const double cell = v;
    accumulate(sums, {&cell, 1});
  }
  return mean_variance(sums);
}

DoubleDouble sum_twofold(std::span<const double> x) noexcept {
  PartialSums sums;
  for (std::size_t i = 0; i < x.size(); ++i) take(sums, i % kPartialSums, x[i], 0.0);
  return fold(sums);
}

DoubleDouble dot_twofold(std::span<const double> x, std::span<const double> y) noexcept {
  PartialSums sums;
  for (std::size_t i = 0; i < x.size(); ++i) {
    const DoubleDouble p = two_product(x[i], y[i]);
    take(sums, i % kPartialSums, p.hi, p.lo);
  }
  return fold(sums);
}

void accumulate(PairSums& sums, std::span<const double> x, std::span<const double> y) noexcept {
  for (std::size_t i = 0; i < x.size(); ++i) {
    const DoubleDouble p = two_product(x[i], y[i]);
    take(sums.products, (sums.x.n + i) % kPartialSums, p.hi, p.lo);
  }
  accumulate(sums.x, x);
  accumulate(sums.y, y);
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
  PairSums sums;
  accumulate(sums, x, y);
  return pair_moments(sums);
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

#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <type_traits>

#include "zor/base/array_types.h"
#include "zor/kernels/moments.h"
#include "zor/runtime/numbers.h"
#include "zor/runtime/text.h"
#include "zor/vectors/ranked_internal.h"

/// \file  Statistics of a run of cells that vectors and matrices compute alike.

namespace zor::detail {

inline double interpolate(double lower, double upper, double fraction) noexcept {
  return lower + (upper - lower) * fraction;
}

/// Quartiles of the cells of `work`, not empty, interpolated at position (n + 1) p of their ascending order, counted
/// from 1. `work` is left in any order.
template <class T>
std::array<double, 3> quartiles(std::span<T> work) {
  const std::size_t n = work.size();
  std::array<std::size_t, 6> ranks;
  std::array<double, 3> fractions;
  for (std::size_t q = 0; q < 3; ++q) {
    const double position = (static_cast<double>(n) + 1.0) * (0.25 * static_cast<double>(q + 1));
    const double whole = std::floor(position);
    const auto k = static_cast<std::size_t>(whole);
    // Ranks count from 0 here: rank k - 1 is the k-th value.
    ranks[2 * q] = k == 0 ? 0 : std::min(k - 1, n - 1);
    ranks[2 * q + 1] = k == 0 || k >= n ? ranks[2 * q] : k;
    fractions[q] = k == 0 || k >= n ? 0.0 : position - whole;
  }
  std::array<T, 6> values;
  ranked_values<T>(work, ranks, values);
  std::array<double, 3> result;
  for (std::size_t q = 0; q < 3; ++q) {
    const auto lower = static_cast<double>(values[2 * q]), upper = static_cast<double>(values[2 * q + 1]);
    result[q] = ranks[2 * q] == ranks[2 * q + 1] ? lower : interpolate(lower, upper, fractions[q]);
  }
  return result;
}

struct SkewKurt {
  double skewness = 0.0, kurtosis = 0.0;
};

/// Skewness and excess kurtosis of n >= 2 values from the sums of the powers of their deviations, with the standard
/// deviation of n - 1; where that is 0.0 the sums of the third and fourth powers stand.
inline SkewKurt skew_kurt(double n, const kernels::CentralSums& d) noexcept {
  const double variance = (d.d2 - d.d1 * d.d1 / n) / (n - 1.0);
  const double s = std::sqrt(variance < 0.0 ? 0.0 : variance);
  if (s == 0.0) return {d.d3, d.d4};
  return {d.d3 / n / s / s / s, d.d4 / n / (s * s * (s * s)) - 3.0};
}

/// The same corrected to a sample, for n >= 4.
inline SkewKurt sample_skew_kurt(double n, const SkewKurt& of) noexcept {
  return {of.skewness * n * n / (n - 1.0) / (n - 2.0),
          (of.kurtosis + 3.0) * n * n * (n + 1.0) / (n - 1.0) / (n - 2.0) / (n - 3.0) -
              3.0 * (n - 1.0) * (n - 1.0) / (n - 2.0) / (n - 3.0)};
}

/// Correlation coefficient of Pearson; 0.0 where one of the quantities does not vary.
inline double correlation(const kernels::PairMoments& m) noexcept {
  if (m.sxx <= 0.0 || m.syy <= 0.0 || m.cxx == 0.0 || m.cyy == 0.0) return 0.0;
  const double product = std::abs(m.cxx * m.cyy);
  // Of very large or small deviations only the product leaves the range of a double.
  if (!std::isnormal(product)) return m.cxy / std::sqrt(std::abs(m.cxx)) / std::sqrt(std::abs(m.cyy));
  return m.cxy / std::sqrt(product);
}

/// The bins [first + b width, + width), the last of which begins at `last`, and what they count.
template <class T>
class BinCounter {
 public:
  /// Integers are counted in 64 bits, where neither limits nor distances can overflow.
  using Wide = std::conditional_t<std::is_floating_point_v<T>, double, std::int64_t>;

  /// An integer width below 1 counts as 1.
  BinCounter(T first, T last, T width, std::int64_t most) noexcept : first_(first), width_(width) {
    if constexpr (std::is_floating_point_v<T>) {
      end_ = last + width_;
      const double ratio = std::abs(last - first) / width;
      // Half a bin more would round to one bin too many.
      valid_ = width > 0.0 && std::isfinite(first_) && std::isfinite(end_) && ratio < static_cast<double>(most) - 0.5;
      if (valid_) bins_ = ZOR_runtime::Round(ratio) + 1;
    } else {
      width_ = std::max<Wide>(width, 1);
      end_ = last + width_;
      const std::int64_t distance = std::int64_t{last} - first;
      bins_ = (distance < 0 ? -distance : distance) / width_ + 1;
      valid_ = bins_ <= most;
    }
  }

  /// False for a width not above 0, limits that are not finite, or more than `most` bins.
  bool valid() const noexcept { return valid_; }

  /// Sizes and clears `histogram`, which put() counts into from then on.
  void start(ZOR_zorbase::TIntArray& histogram) {
    if (ZOR_runtime::Length(histogram) != bins_) ZOR_runtime::SetLength(histogram, bins_);
    std::ranges::fill(histogram, 0);
    counts_ = histogram.data();
  }

  /// Counts x `times` times.
  void put(Wide x, std::int64_t times = 1) noexcept {
    if (x < first_) return add(underflow, times);
    if (!(x < end_)) return add(overflow, times);
    const Wide offset = (x - first_) / width_;
    const auto bin = static_cast<std::int64_t>(offset);
    if (bin >= bins_) return add(overflow, times);  // no whole number of bins, or a quotient rounded up
    add(counts_[bin], times);
    largest = std::max(largest, counts_[bin]);
  }

  std::int32_t underflow = 0, overflow = 0, largest = 0;

 private:
  static void add(std::int32_t& counter, std::int64_t by) noexcept {
    counter = static_cast<std::int32_t>(std::min<std::int64_t>(std::int64_t{counter} + by, kMaxInteger));
  }

  Wide first_, width_, end_ = 0;
  std::int64_t bins_ = 0;
  bool valid_ = false;
  std::int32_t* counts_ = nullptr;
};

}  // namespace zor::detail

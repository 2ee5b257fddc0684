#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>

#include "zor/kernels/moments.h"
#include "zor/scalar/bin_counter_internal.h"
#include "zor/scalar/correlation_internal.h"
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

}  // namespace zor::detail

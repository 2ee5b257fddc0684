#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>

#include "zor/scalar/bin_counter_internal.h"
#include "zor/scalar/correlation_internal.h"
#include "zor/scalar/run_statistics_internal.h"
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

}  // namespace zor::detail

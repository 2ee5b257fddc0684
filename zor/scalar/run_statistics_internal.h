#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>

#include "zor/kernels/moments.h"
#include "zor/kernels/sums.h"

/// \file  Statistics of cells that lie in runs, whoever holds them.
/// A walk is a function that hands each run to what it is given, in order: walk(take) calls take(span of cells). It may
/// be asked for several times and gives the same cells each time.

namespace zor::detail {

/// Calls take with the cells of a run as doubles, part by part.
template <class Run, class Take>
void for_doubles(const Run& run, Take take) {
  if constexpr (std::same_as<typename Run::value_type, double>) {
    take(std::span<const double>(run));
  } else {
    std::array<double, 512> part;
    for (std::size_t i = 0; i < run.size(); i += part.size()) {
      const auto cells = run.subspan(i, (std::min)(part.size(), run.size() - i));
      std::ranges::copy(cells, part.begin());
      take(std::span<const double>(part.data(), cells.size()));
    }
  }
}

/// Sum in order, from 0; integers wrap.
template <class T, class Walk>
T sum_of(Walk walk) {
  T sum = 0;
  walk([&](std::span<const T> run) {
    if constexpr (std::floating_point<T>) {
      sum = kernels::sum_in_order(run, sum);
    } else {
      sum = static_cast<T>(static_cast<std::uint32_t>(sum) + static_cast<std::uint32_t>(kernels::sum_wrapping(run)));
    }
  });
  return sum;
}

/// Number of cells, their mean and variance.
template <class Walk>
kernels::MeanVar mean_variance_of(Walk walk) {
  return kernels::mean_variance_of_runs(
      [&](auto take) { walk([&](auto run) { for_doubles(run, [&](std::span<const double> x) { take(x); }); }); });
}

/// The same by the rule of the containers, whose variance is 1.0 below three cells.
template <class Walk>
kernels::MeanVar sample_mean_variance_of(Walk walk) {
  kernels::MeanVar result = mean_variance_of(walk);
  if (result.n < 3) result.variance = 1.0;
  return result;
}

/// Sum of the logarithms of the cells that are not 0, in order.
struct Logarithms {
  double sum = 0.0;
  bool zero = false, negative = false;  ///< There is such a cell.
};
template <class Walk>
Logarithms logarithms_of(Walk walk) {
  Logarithms result;
  walk([&](auto run) {
    for (const auto x : run) {
      result.zero |= x == 0;
      result.negative |= x < 0;
      if (x != 0 && !(x < 0)) result.sum += std::log(static_cast<double>(x));
    }
  });
  return result;
}

/// Sum of 1 / x, in order.
struct Reciprocals {
  double sum = 0.0;
  bool not_positive = false;  ///< There is a cell of 0 or below.
};
template <class Walk>
Reciprocals reciprocals_of(Walk walk) {
  Reciprocals result;
  walk([&](auto run) {
    for (const auto x : run) {
      result.not_positive |= x <= 0;
      result.sum += 1.0 / static_cast<double>(x);
    }
  });
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

/// The same of n >= 2 cells, whose mean is their sum in order divided by n.
template <class Walk>
SkewKurt skew_kurt_of(double n, Walk walk) {
  double sum = 0.0;
  walk([&](auto run) { for_doubles(run, [&](std::span<const double> x) { sum = kernels::sum_in_order(x, sum); }); });
  const double mean = sum / n;
  kernels::CentralSums powers;
  walk([&](auto run) {
    for_doubles(run, [&](std::span<const double> x) { kernels::accumulate_in_order(powers, x, mean); });
  });
  return skew_kurt(n, powers);
}

/// Number of cells with low <= x <= high.
template <class T, class Walk>
std::size_t count_between(T low, T high, Walk walk) {
  std::size_t count = 0;
  walk([&](std::span<const T> run) {
    for (const T x : run) count += static_cast<std::size_t>((low <= x) & (x <= high));
  });
  return count;
}

}  // namespace zor::detail

#pragma once

#include <cstddef>
#include <span>

/// \file  The least-squares line and parabola on which most models rest.
/// Both sum over the pairs about their means: x and y may lie anywhere.

namespace zor::detail {

/// y = slope x + intercept; R squared, 1 for constant y.
struct LineFit {
  double slope = 0.0, intercept = 0.0, quality = 0.0;
  bool infinite = false;  ///< all x are equal; all else is 0 then
};
LineFit fit_line(std::span<const double> x, std::span<const double> y) noexcept;

/// y = mean_y + m + l u + q u^2 with u = x - mean_x; with two distinct x a line, with one a constant.
struct ParabolaFit {
  double mean_x = 0.0, mean_y = 0.0, m = 0.0, l = 0.0, q = 0.0, quality = 0.0;
};
ParabolaFit fit_parabola(std::span<const double> x, std::span<const double> y) noexcept;

/// Number of distinct values, counted up to 3.
std::size_t distinct_up_to_3(std::span<const double> x) noexcept;

}  // namespace zor::detail

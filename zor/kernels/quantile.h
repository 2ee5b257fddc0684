#pragma once

#include <cmath>
#include <limits>

#include "zor/kernels/gamma_function.h"

/// \file  Quantiles of distributions of positive numbers.

namespace zor::kernels {

/// The x > 0 at which the lower tail is p and the upper one q = 1 - p: Newton steps on the logarithm of the smaller
/// tail over the logarithm of x, where a power law is a straight line, inside a bracket that only shrinks. At most 200
/// rounds. `tails(x)` and `density(x)` are called with 0 < x < infinity; `start` > 0. Underflow gives 0, overflow
/// infinity.
template <class TailsAt, class DensityAt>
double positive_quantile(double p, double q, double start, TailsAt tails, DensityAt density) {
  constexpr double kMost = std::numeric_limits<double>::max(), kLeast = std::numeric_limits<double>::min();
  const bool use_lower = p <= q;
  const double target = std::log(use_lower ? p : q), sign = use_lower ? 1.0 : -1.0;
  double low = kLeast, high = kMost, x = start > low && start < high ? start : 1.0;
  bool low_known = false, high_known = false;
  for (int round = 0; round < 200; ++round) {
    const Tails at = tails(x);
    const double tail = use_lower ? at.lower : at.upper;
    const double error = std::log(tail) - target;
    if (error == 0.0) return x;
    if (sign * error < 0.0) {
      if (x == kMost) return std::numeric_limits<double>::infinity();
      low = x;
      low_known = true;
    } else {
      if (x == kLeast) return 0.0;
      high = x;
      high_known = true;
    }
    const double slope = sign * x * density(x) / tail;
    double next = std::isfinite(slope) ? x * std::exp(-error / slope) : 0.0;
    if (!(next > low && next < high)) {
      if (!high_known) {
        next = low < kMost / 1e3 ? low * 1e3 : kMost;
      } else if (!low_known) {
        next = high > kLeast * 1e3 ? high * 1e-3 : kLeast;
      } else {
        next = high / 4.0 > low ? std::sqrt(low) * std::sqrt(high) : low + 0.5 * (high - low);
        if (!(next > low && next < high)) return x;
      }
    }
    if (std::abs(next - x) <= 2.0 * std::numeric_limits<double>::epsilon() * x) return next;
    x = next;
  }
  return x;
}

}  // namespace zor::kernels

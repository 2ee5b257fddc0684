#include "zor/runtime/numbers.h"

#include <algorithm>
#include <cstddef>

namespace ZOR_runtime {

Double SimpleRoundTo(Double x, Integer Digit) noexcept {
  if (!std::isfinite(x) || Digit < -zor::detail::kMaxPow10) return x;
  if (Digit > zor::detail::kMaxPow10) return std::copysign(0.0, x);
  const Double half = std::copysign(0.5, x);
  const Double unit = zor::detail::pow10(std::abs(Digit));
  if (Digit > 0) return std::trunc(x / unit + half) * unit;
  const Double scaled = x * unit;
  return std::fabs(scaled) > 0x1p53 ? x : std::trunc(scaled + half) / unit;
}

Double StdDev(std::span<const Double> x) noexcept {
  if (x.size() < 2) return 0.0;
  const auto n = static_cast<Double>(x.size());
  Double sum = 0.0;
  for (const Double v : x) sum += v - x[0];
  const Double mean = sum / n;
  Double squares = 0.0, rest = 0.0;
  for (const Double v : x) {
    const Double d = (v - x[0]) - mean;
    squares += d * d;
    rest += d;
  }
  // `rest` is what rounding left of a sum that is zero in exact arithmetic (Chan, Golub, LeVeque 1983).
  return std::sqrt((std::max)(0.0, squares - rest * rest / n) / (n - 1.0));
}

}  // namespace ZOR_runtime

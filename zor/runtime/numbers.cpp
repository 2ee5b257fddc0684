#include "zor/runtime/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

// Here and not in the header, since <cmath> would be a tenth of what every user of the library has to compile.

namespace zor::detail {

ZOR_runtime::Integer floor_to_integer(double x) noexcept { return saturate<ZOR_runtime::Integer>(std::floor(x)); }

}  // namespace zor::detail

namespace ZOR_runtime {

Int64 Floor(Double x) noexcept { return zor::detail::saturate<Int64>(std::floor(x)); }
Double Int(Double x) noexcept { return std::trunc(x); }
Double Frac(Double x) noexcept { return std::copysign(std::isinf(x) ? 0.0 : x - std::trunc(x), x); }

Double Sqrt(Double x) noexcept { return std::sqrt(x); }
Double Exp(Double x) noexcept { return std::exp(x); }
Double Ln(Double x) noexcept { return std::log(x); }
Double Sin(Double x) noexcept { return std::sin(x); }
Double Cos(Double x) noexcept { return std::cos(x); }
Double Tan(Double x) noexcept { return std::tan(x); }
Double ArcTan(Double x) noexcept { return std::atan(x); }
Double ArcTan2(Double y, Double x) noexcept { return std::atan2(y, x); }
Double ArcCos(Double x) noexcept { return std::acos(x); }
Double Power(Double Base, Double Exponent) noexcept { return std::pow(Base, Exponent); }

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

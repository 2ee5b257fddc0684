#include "zor/scalar/axis_scale.h"

#include <cmath>

#include "zor/runtime/pow10.h"
#include "zor/scalar/decades_internal.h"

namespace ZOR_math1 {
namespace {

struct Step {
  Double dist;
  Word minor;
};

/// The 1-2-5 step for a raw distance of ticks.
Step nice_step(Double raw) {
  constexpr Double kTolerance = 2.3e-10;
  if (!(raw > 0.0 && std::isfinite(raw))) return {0.0, 1};
  int e = zor::detail::decade_of(raw);
  if (raw >= zor::detail::pow10(e + 1) * (1.0 - kTolerance)) ++e;
  const auto at_most = [&](int digits) { return raw <= zor::detail::short_decimal(digits, e) * (1.0 + kTolerance); };
  const int digits = at_most(2) ? 1 : at_most(5) ? 2 : 5;
  return {zor::detail::short_decimal(digits, e), static_cast<Word>(digits == 2 ? 4 : 5)};
}

Double raw_distance(Integer intervals, Double low, Double high) {
  const Double length = std::fabs(high - low);
  return std::isfinite(length) ? length / intervals : std::fabs(high / intervals - low / intervals);
}

}  // namespace

void CalcScalePars(Integer NTicks, Double Low, Double High, Double& First, Double& Dist, Word& Minor) noexcept {
  const Double direction = High > Low ? 1.0 : -1.0;
  Step step{0.0, 1};
  if (std::isfinite(Low) && std::isfinite(High) && Low != High) {
    step = NTicks > 0 ? nice_step(raw_distance(NTicks, Low, High))
                      : Step{1.0, static_cast<Word>(std::fabs(High - Low) > 10.0 ? 1 : 5)};
  }
  const Double dist = direction * step.dist;
  Double first = Low;
  if (dist != 0.0) {
    first = NTicks > 0 ? dist * (std::trunc(Low / dist) - 1.0) : std::trunc(Low) - dist;
    while (direction * (Low - first) > 0.001 * step.dist) first = first + dist == first ? Low : first + dist;
  }
  First = first;
  Dist = dist;
  Minor = step.minor;
}

}  // namespace ZOR_math1

#include "zor/scalar/angles.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

#include "zor/runtime/numbers.h"
#include "zor/scalar/math1_errors.h"
#include "zor/scalar/rounding.h"

namespace ZOR_math1 {
namespace {

using std::numbers::pi;
using ZOR_runtime::Frac;
using ZOR_runtime::Int;

Double canonical(Double a, Double turn) {
  if (a > turn) a = modr(a, turn);
  if (a < -turn) a = modr(a, -turn);
  if (a > turn / 2.0) return a - turn;
  return a < -turn / 2.0 ? a + turn : a;
}

constexpr Integer kNiceSteps[] = {1, 2, 3, 5, 10, 15, 20, 30, 60, 90, 180, 360};
constexpr std::size_t kStepsToNextUnit = 9;

/// The first step not below an angle, or the last one not above it; at the ends the outermost step.
Integer nice_step(Int64 seconds, Int64 unit, std::span<const Integer> steps, Boolean up) {
  auto below = [=](Integer step) { return up ? step * unit < seconds : step * unit <= seconds; };
  const auto i = std::partition_point(steps.begin(), steps.end(), below) - steps.begin();
  const auto last = static_cast<std::ptrdiff_t>(steps.size()) - 1;
  return steps[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(up ? i : i - 1, 0, last))];
}

/// The part `unit` of an angle below one of the next unit, which takes over when the step is 60.
void round_part(Integer& next, Integer& part, Int64 seconds, Int64 unit, Boolean up) {
  const Integer step = nice_step(seconds, unit, std::span(kNiceSteps).first<kStepsToNextUnit>(), up);
  next = step == 60 ? 1 : 0;
  part = step == 60 ? 0 : step;
}

}  // namespace

Double AngleToXAxis(Double x, Double y) noexcept {
  if (x == 0.0) return y > 0.0 ? pi / 2.0 : 1.5 * pi;
  Double angle = std::atan(y / x);
  if (x < 0.0) angle += pi;
  if (angle < 0.0) angle += 2.0 * pi;
  return angle > 2.0 * pi ? angle - 2.0 * pi : angle;
}

Double CanonicalAngleRadians(Double a) noexcept { return canonical(a, 2.0 * pi); }
Double CanonicalAngleDegrees(Double a) noexcept { return canonical(a, 360.0); }

void ConvertDegrees(Double& Deg, Double& Min, Double& Sec, TDegreeFormat Source, TDegreeFormat Dest) {
  const auto in_range = [](Double part) { return part >= 0.0 && part <= 60.0; };
  if (!in_range(Min)) zor::detail::Fail<EZORMath1Error>("ConvertDegrees: invalid range of minutes");
  if (!in_range(Sec)) zor::detail::Fail<EZORMath1Error>("ConvertDegrees: invalid range of seconds");
  if (Source >= dfPlain || Dest >= dfPlain) return;
  if (Dest == dfDecimal) {
    if (Source == dfDegMin) Deg = Int(Deg) + Min / 60.0;
    if (Source == dfDegMinSec) Deg = Int(Deg) + Int(Min) / 60.0 + Sec / 3600.0;
    Min = Sec = 0.0;
  } else if (Dest == dfDegMin) {
    if (Source == dfDecimal) Min = Frac(std::fabs(Deg)) * 60.0;
    if (Source == dfDecimal) Deg = Int(Deg);
    if (Source == dfDegMinSec) Min += Sec / 60.0;
    Sec = 0.0;
  } else if (Source != dfDegMinSec) {
    const Double minutes = Source == dfDecimal ? Frac(std::fabs(Deg)) * 60.0 : Min;
    if (Source == dfDecimal) Deg = Int(Deg);
    Min = Int(minutes);
    Sec = Frac(minutes) * 60.0;
  }
}

void RoundDegrees(Integer& Deg, Integer& Min, Integer& Sec, Boolean Up) noexcept {
  if (Deg < 0 || Min < 0 || Sec < 0) {
    Deg = Min = Sec = 0;
    return;
  }
  const Integer minutes = std::min(Min, 59), seconds = std::min(Sec, 59);
  const Int64 all = Int64{Deg} * 3600 + minutes * 60 + seconds;
  if (Deg >= 1) {
    Deg = nice_step(all, 3600, kNiceSteps, Up);
    Min = Sec = 0;
  } else if (minutes >= 1) {
    round_part(Deg, Min, all, 60, Up);
    Sec = 0;
  } else if (seconds >= 1) {
    round_part(Min, Sec, all, 1, Up);
  }
}

}  // namespace ZOR_math1

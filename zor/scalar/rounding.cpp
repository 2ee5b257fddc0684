#include "zor/scalar/rounding.h"

#include <cmath>
#include <utility>

#include "zor/runtime/numbers.h"
#include "zor/scalar/decades_internal.h"

namespace ZOR_math1 {
namespace {

using zor::detail::short_decimal;

constexpr Integer kSteps[] = {1, 2, 5, 10};

/// What `step_of(a, e)` times 10^e gives for a = |x| and its decade e, with the sign of x.
template <class StepOf>
Double round_in_decade(Double x, StepOf step_of) {
  if (x == 0.0) return 0.0;
  if (!std::isfinite(x)) return x;
  const Double a = std::fabs(x);
  const int e = zor::detail::decade_of(a);
  return std::copysign(short_decimal(step_of(a, e), e), x);
}

Integer nearest_step(Double a, int e) {
  constexpr Integer kTenfoldBounds[] = {15, 30, 80};  // between the steps
  Integer i = 0;
  while (i < 3 && !(a < short_decimal(kTenfoldBounds[i], e - 1))) ++i;
  return kSteps[i];
}

Integer step_outward(Double a, int e) {
  Integer i = 0;
  while (i < 3 && a > short_decimal(kSteps[i], e)) ++i;
  return kSteps[i];
}

Integer step_inward(Double a, int e) {
  Integer i = 2;
  while (i > 0 && a < short_decimal(kSteps[i], e)) --i;
  return kSteps[i];
}

template <class T>
T confine(T x, T low, T high) {
  if (high < low) std::swap(low, high);
  return x < low ? low : x > high ? high : x;
}

}  // namespace

Double Round125(Double x) noexcept { return round_in_decade(x, nearest_step); }
Double RoundPos125(Double x) noexcept { return round_in_decade(x, x > 0.0 ? step_outward : step_inward); }
Double RoundNeg125(Double x) noexcept { return round_in_decade(x, x > 0.0 ? step_inward : step_outward); }

Int64 RoundLimit(Double x, Int64 Lo, Int64 Hi) noexcept {
  return ZOR_runtime::Min(ZOR_runtime::Max(ZOR_runtime::Round(x), Lo), Hi);
}

Integer IntPos(Double x) noexcept { return zor::detail::trunc_to_integer(std::ceil(x)); }
Integer IntNeg(Double x) noexcept { return zor::detail::floor_to_integer(x); }

Integer Signum(Double x) noexcept { return x < 0.0 ? -1 : 1; }

Double modr(Double a, Double b) noexcept {
  const Double quotient = a / b;
  return b * (quotient - std::trunc(quotient));
}

Boolean WithinBounds(Double x, Double b1, Double b2) noexcept { return WithinBounds(x, b1, b2, 0.0); }

Boolean WithinBounds(Double x, Double b1, Double b2, Double Eps) noexcept {
  if (b2 < b1) std::swap(b1, b2);
  return x >= b1 - Eps && x <= b2 + Eps;
}

Double ConfineValue(Double x, Double b1, Double b2) noexcept { return confine(x, b1, b2); }
Single ConfineValue(Single x, Single b1, Single b2) noexcept { return confine(x, b1, b2); }
Integer ConfineValue(Integer x, Integer b1, Integer b2) noexcept { return confine(x, b1, b2); }

}  // namespace ZOR_math1

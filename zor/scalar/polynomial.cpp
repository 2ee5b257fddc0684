#include "zor/scalar/polynomial.h"

#include <cmath>

#include "zor/scalar/math1_errors.h"

namespace ZOR_math1 {

Double Polynomial(std::span<const Double> Coef, Integer Order, Double x) {
  if (Order < 0 || zor::detail::to_size(Order) >= Coef.size())
    zor::detail::Fail<EZORMath1Error>("Polynomial: invalid order of polynomial");
  Double sum = 0.0, power = 1.0;
  for (const Double c : Coef.first(zor::detail::to_size(Order) + 1)) {
    sum += c * power;
    power *= x;
  }
  return sum;
}

Double Polynomial(std::initializer_list<Double> Coef, Integer Order, Double x) {
  return Polynomial(std::span(Coef.begin(), Coef.size()), Order, x);
}

Double CenteredPolynomial(std::span<const Double> Coef, Integer Order, Double Center, Double x) {
  return Polynomial(Coef, Order, x - Center);
}

Double CenteredPolynomial(std::initializer_list<Double> Coef, Integer Order, Double Center, Double x) {
  return Polynomial(Coef, Order, x - Center);
}

Double Squash(Double x, Double Center, Double Slope, Double Amplitude) noexcept {
  if (x != x) return x;
  const Double d = -2.0 * Slope / Amplitude * (x - Center);
  if (std::fabs(d) < 200.0) return Amplitude * (2.0 / (std::exp(d) + 1.0) - 1.0);
  return d > 0.0 ? -Amplitude : Amplitude;
}

}  // namespace ZOR_math1

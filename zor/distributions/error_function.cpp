#include "zor/distributions/error_function.h"

#include <cmath>

#include "zor/distributions/special_functions.h"

namespace ZOR_statis {

Double Erf(Double x) noexcept {
  const Double of = IncompleteGamma(x * x, 0.5);
  return x < 0.0 ? -of : of;
}

Double ErfApprox(Double x) noexcept {
  static constexpr Double kTerms[] = {0.17087277,  -0.82215223, 1.48851587, -1.13520398, 0.27886807,
                                      -0.18628806, 0.09678418,  0.37409196, 1.00002368};
  const Double z = std::abs(x), t = 1.0 / (1.0 + z / 2.0);
  Double sum = 0.0;
  for (const Double term : kTerms) sum = term + t * sum;
  const Double y = t * std::exp(-z * z - 1.26551223 + t * sum);
  return x >= 0.0 ? 1.0 - y : 1.0 - (2.0 - y);
}

}  // namespace ZOR_statis

#include "zor/distributions/weibull_distribution.h"

#include <cmath>

namespace ZOR_statis {

Double WeibullDensity(Double x, Double beta, Double eta) noexcept {
  if (!(x > 0.0 && beta > 0.0 && eta > 0.0)) return 0.0;
  const auto power = [](Double base, Double exponent) { return std::exp(exponent * std::log(base)); };
  return beta * power(x, beta - 1.0) / power(eta, beta) * std::exp(-power(x / eta, beta));
}

}  // namespace ZOR_statis

#include "zor/distributions/measures.h"

#include <algorithm>
#include <cmath>

#include "zor/distributions/normal_distribution.h"

namespace ZOR_statis {

Double FisherTransform(Double r) {
  if (!(r > -1.0 && r < 1.0)) zor::detail::Fail<EZORStatisError>("FisherTransform: argument out of range");
  return 0.5 * std::log((r + 1.0) / (1.0 - r));
}

Double FisherTransformInv(Double z) noexcept {
  if (std::abs(z) > 20.0) return z > 0.0 ? 1.0 : -1.0;
  const Double e = std::exp(2.0 * z);
  return (e - 1.0) / (e + 1.0);
}

Double CalcFishQ(Double m1, Double m2, Double s1, Double s2) noexcept {
  return (m1 - m2) * (m1 - m2) / (std::max)(s1 * s1 + s2 * s2, 1e-6);
}

Double ConfidenceInterval(Double alpha, Double sigma, Integer n) noexcept {
  if (n < 1 || !(alpha > 0.0 && alpha < 1.0)) return 0.0;
  return nDistriQuantile(1.0 - alpha / 2.0) * sigma / std::sqrt(n);
}

Double AkaikeInfCrit(Integer n, Integer k, Double rss) noexcept {
  if (n < 1 || !(rss > 0.0)) return 0.0;
  return n * std::log(rss / n) + 2.0 * k;
}

}  // namespace ZOR_statis

#include "zor/distributions/discrete_distributions.h"

#include <cmath>

#include "zor/distributions/special_functions.h"
#include "zor/kernels/beta_function.h"
#include "zor/runtime/numbers.h"

namespace ZOR_statis {

namespace {

bool usable(Integer n, Double p) noexcept { return n >= 0 && p >= 0.0 && p <= 1.0; }

zor::kernels::Tails binomial_tails(Integer n, Double p, Integer k) noexcept {
  if (!usable(n, p)) return {0.0, 0.0};
  if (k < 0) return {0.0, 1.0};
  if (k >= n) return {1.0, 0.0};
  return zor::kernels::incomplete_beta(1.0 - p, p, static_cast<Double>(n) - k, k + 1.0);
}

Double ln_choose(Int64 n, Int64 k) noexcept {
  const auto term = [](Int64 m) { return LnGamma(static_cast<Double>(m) + 1.0); };
  return term(n) - term(k) - term(n - k);
}

}  // namespace

Double BinomDistriDensity(Integer n, Double p, Integer k) noexcept {
  if (!usable(n, p) || k < 0 || k > n) return 0.0;
  return zor::kernels::binomial_term(k, static_cast<Double>(n) - k, p, 1.0 - p);
}

Double BinomDistriIntegral(Integer n, Double p, Integer k) noexcept { return binomial_tails(n, p, k).lower; }
Double BinomDistriUpperTail(Integer n, Double p, Integer k) noexcept { return binomial_tails(n, p, k).upper; }

Boolean BinomDistriQuantile(Integer n, Double p, Double prob, Double& quantile) noexcept {
  quantile = 0.0;
  if (!usable(n, p) || !(prob >= 0.0 && prob <= 1.0)) return false;
  if (prob == 1.0) {
    quantile = n;
    return true;
  }
  Integer low = -1, high = n;  // F(low) < prob <= F(high)
  while (high - low > 1) {
    const Integer middle = low + (high - low) / 2;
    (BinomDistriIntegral(n, p, middle) >= prob * (1.0 - 1e-14) ? high : low) = middle;
  }
  quantile = prob == 0.0 ? 0 : high;
  return true;
}

Double HyperGeoDistriDensity(Double p, Integer npop, Integer nsample, Integer k) {
  using zor::detail::Fail;
  if (!(p >= 0.0 && p <= 1.0))
    Fail<EZORStatisError>("HyperGeoDistriDensity: probability p must be between 0.0 and 1.0");
  if (npop < 1) Fail<EZORStatisError>("HyperGeoDistriDensity: npop must be greater than 0");
  if (nsample > npop) Fail<EZORStatisError>("HyperGeoDistriDensity: nsample must not be greater than npop");
  if (nsample < 1) Fail<EZORStatisError>("HyperGeoDistriDensity: nsample must not be less than 1");
  const Int64 successes = ZOR_runtime::Round(p * npop), all = npop, drawn = nsample, hits = k;
  if (hits < 0 || hits > successes || hits > drawn || hits < drawn - (all - successes)) return 0.0;
  return std::exp(ln_choose(successes, hits) + ln_choose(all - successes, drawn - hits) - ln_choose(all, drawn));
}

}  // namespace ZOR_statis

#include "zor/distributions/special_functions.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "zor/kernels/gamma_function.h"

namespace ZOR_statis {

namespace {

constexpr Double kTolerance = 1e-8;

Double gamma_series(Double x, Double a) noexcept {
  Double ap = a, del = 1.0 / a, sum = del;
  do {
    ap += 1.0;
    del *= x / ap;
    sum += del;
  } while (std::abs(del) >= std::abs(sum) * kTolerance);
  return sum;
}

Double gamma_fraction(Double x, Double a) noexcept {
  Double a0 = 1.0, a1 = x, b0 = 0.0, b1 = 1.0, fac = 1.0, old = 0.0, r = 0.0;
  for (int n = 1; n <= 99; ++n) {
    a0 = (a1 + a0 * (n - a)) * fac;
    b0 = (b1 + b0 * (n - a)) * fac;
    a1 = x * a0 + n * fac * a1;
    b1 = x * b0 + n * fac * b1;
    if (a1 == 0.0) continue;
    fac = 1.0 / a1;
    r = b1 * fac;
    if (std::abs((r - old) / r) < kTolerance) break;
    old = r;
  }
  return r;
}

Double beta_fraction(Double x, Double a, Double b) noexcept {
  Double am = 1.0, bm = 1.0, az = 1.0, bz = 1.0 - (a + b) * x / (a + 1.0);
  for (int m = 1; m <= 100; ++m) {
    const Double t = a + 2.0 * m;
    const Double d = m * (b - m) * x / ((t - 1.0) * t);
    const Double ap = az + d * am, bp = bz + d * bm;
    const Double d2 = -(a + m) * (a + b + m) * x / (t * (t + 1.0));
    const Double app = ap + d2 * az, bpp = bp + d2 * bz, old = az;
    am = ap / bpp;
    bm = bp / bpp;
    az = app / bpp;
    bz = 1.0;
    if (std::abs(az - old) < std::abs(az) * kTolerance) break;
  }
  return az;
}

}  // namespace

Double LnGamma(Double x) noexcept {
  static constexpr Double kTerms[] = {76.18009173,  -86.50532033,  24.01409822,
                                      -1.231739516, 0.00120858003, -5.36382e-06};
  if (std::isnan(x)) return x;
  if (x <= 0.0) return 0.0;
  if (x > 1e305) return std::numeric_limits<Double>::infinity();
  Double sum = 1.0;
  for (int k = 0; k < 6; ++k) sum += kTerms[k] / (x + k);
  return (x - 0.5) * std::log(x + 4.5) - (x + 4.5) + std::log(2.5066282746310007 * sum);
}

Double LnBeta(Double a, Double b) noexcept {
  return a >= 0.0 && b >= 0.0 ? LnGamma(a) + LnGamma(b) - LnGamma(a + b) : 0.0;
}

Double IncompleteGamma(Double x, Double a) noexcept {
  if (std::isnan(x) || std::isnan(a)) return x + a;
  if (x <= 0.0 || a <= 0.0) return 0.0;
  if (std::isinf(x)) return 1.0;
  if (a > 1e6) return zor::kernels::incomplete_gamma(a, x).lower;
  const Double g = std::exp(-x + a * std::log(x) - LnGamma(a));
  if (g == 0.0) return x < a + 1.0 ? 0.0 : 1.0;
  return x < a + 1.0 ? g * gamma_series(x, a) : 1.0 - g * gamma_fraction(x, a);
}

Double IncompleteBeta(Double x, Double a, Double b) noexcept {
  if (std::isnan(x) || std::isnan(a) || std::isnan(b)) return x + a + b;
  if (x < 0.0) return 0.0;
  if (x > 1.0) return 1.0;
  if (a <= 0.0 || b <= 0.0) return 0.0;
  const Double front =
      x == 0.0 || x == 1.0
          ? 0.0
          : std::exp(LnGamma(a + b) - LnGamma(a) - LnGamma(b) + a * std::log(x) + b * std::log(1.0 - x));
  if (x < (a + 1.0) / (a + b + 2.0)) return front * beta_fraction(x, a, b) / a;
  return 1.0 - front * beta_fraction(1.0 - x, b, a) / b;
}

Integer BinomCoeff(Integer n, Integer k) noexcept {
  if (k < 0 || k > n) return 0;
  const Int64 steps = (std::min)(k, n - k);
  Int64 c = 1;
  for (Int64 i = 1; i <= steps; ++i) {
    c = c * (n - steps + i) / i;  // below 2^31 times 2^31
    if (c > std::numeric_limits<Integer>::max()) return -1;
  }
  return static_cast<Integer>(c);
}

Double LnBinomCoeff(Integer n, Integer k) noexcept {
  if (k < 0 || k > n) return -1.0;
  return LnGamma(n + 1.0) - LnGamma(k + 1.0) - LnGamma(static_cast<Double>(n) - k + 1.0);
}

}  // namespace ZOR_statis

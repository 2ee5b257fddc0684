#include "zor/distributions/durbin_watson.h"

#include <cmath>

#include "zor/distributions/durbin_watson_table_internal.h"
#include "zor/distributions/normal_distribution.h"

namespace ZOR_statis {

namespace {

using namespace durbin_watson;

Double polynomial(const double (&c)[7], Double x) noexcept {
  Double sum = 0.0;
  for (int i = 6; i >= 0; --i) sum = sum * x + c[i];
  return sum;
}

Double correction(Integer n, const double (&from_101)[7], const double (&from_201)[7],
                  const double (&from_501)[2]) noexcept {
  if (n <= 200) return polynomial(from_101, n - 150.0);
  if (n <= 500) return polynomial(from_201, n - 350.0);
  return 1.0 / (from_501[0] + from_501[1] * n);
}

}  // namespace

Boolean DurbinWatsonCrit5pct(Integer n, Integer k, Double& dl, Double& du) noexcept {
  if (k < 1 || k > 20 || n < 5 || n > 2000 || n - k < 5) return false;
  const Integer row = k - 1;
  if (n <= 100) {
    dl = kLower[n - 6][row] / 1e5;
    du = kUpper[n - 6][row] / 1e5;
    return true;
  }
  const Double base = 2.0 + nDistriQuantile(0.05) * std::sqrt(4.0 / n);
  dl = base + correction(n, kLowerFrom101[row], kLowerFrom201[row], kLowerFrom501[row]);
  du = base + correction(n, kUpperFrom101[row], kUpperFrom201[row], kUpperFrom501[row]);
  return true;
}

}  // namespace ZOR_statis

#include "zor/scalar/number_theory.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <numeric>
#include <utility>

#include "zor/base/ZOR_univconst.h"
#include "zor/scalar/math1_errors.h"

namespace ZOR_math1 {
namespace {

constexpr Integer kHighestPrime = 46337;
constexpr std::size_t kPrimes = 4792;

// The primes that can be the smallest factor of a composite Integer, by the sieve of Eratosthenes over odd numbers.
constexpr auto kPrimeTable = [] {
  std::array<Word, kPrimes> primes{2};
  bool composite[(kHighestPrime + 1) / 2] = {};  // [i] stands for 2 i + 1
  std::size_t count = 1;
  for (Integer i = 1; 2 * i + 1 <= kHighestPrime; ++i) {
    if (composite[i]) continue;
    const Integer p = 2 * i + 1;
    primes[count++] = static_cast<Word>(p);
    if (p > kHighestPrime / p) continue;
    for (Integer k = p * p / 2; k < (kHighestPrime + 1) / 2; k += p) composite[k] = true;
  }
  return primes;
}();
static_assert(kPrimeTable.back() == kHighestPrime);

constexpr Cardinal magnitude(Integer n) { return n < 0 ? 0U - static_cast<Cardinal>(n) : static_cast<Cardinal>(n); }

Double smallest_divisor(Integer decimals) {
  Double eps = 1.0;
  for (Integer i = std::clamp(decimals, 0, 12); i > 0; --i) eps /= 10.0;
  return eps;
}

Double gcd_above(Double eps, Double a, Double b) {
  if (!std::isfinite(a) || !std::isfinite(b)) return std::numeric_limits<Double>::quiet_NaN();
  a = std::fabs(a);
  b = std::fabs(b);
  // Numbers of some hundred decades need some hundred rounds at most.
  for (Integer round = 0; round < 200; ++round) {
    if (b > a) std::swap(a, b);
    if (b < eps) break;
    const Double multiple = std::floor(a / b) * b;
    const Double rest = std::isfinite(multiple) ? std::fabs(a - multiple) : std::fmod(a, b);
    a = std::exchange(b, rest);
  }
  return a;
}

}  // namespace

Integer GreatestCommonDivisor(Integer a, Integer b) noexcept {
  return static_cast<Integer>(std::gcd(magnitude(a), magnitude(b)));
}

Integer GreatestCommonDivisor(const TIntArray& Numbers) noexcept {
  Integer divisor = 0;
  for (const Integer n : Numbers) divisor = GreatestCommonDivisor(n, divisor);
  return divisor;
}

Double GreatestCommonDivisor(Double a, Double b, Integer Decimals) noexcept {
  return gcd_above(smallest_divisor(Decimals), a, b);
}

Double GreatestCommonDivisor(const TDoubleArray& Numbers, Integer Decimals) noexcept {
  const Double eps = smallest_divisor(Decimals);
  Double divisor = 0.0;
  for (const Double x : Numbers) divisor = gcd_above(eps, x, divisor);
  return divisor;
}

void CancelFraction(Integer& a, Integer& b) noexcept {
  if (a == 0 || b == 0) return;
  const Int64 divisor = std::gcd(Int64{a}, Int64{b});
  const auto numerator = static_cast<Integer>(a / divisor), denominator = static_cast<Integer>(b / divisor);
  a = numerator;
  b = denominator;
}

Boolean IsPrime(Integer n) noexcept {
  const Cardinal m = magnitude(n);
  for (const Cardinal p : kPrimeTable) {
    if (p * p > m) return true;
    if (m % p == 0) return false;
  }
  return true;
}

Integer ListOfPrimes(Integer i) noexcept {
  return i < 1 || i > Integer{kPrimes} ? 0 : kPrimeTable[static_cast<std::size_t>(i) - 1];
}

TIntArray FindPrimeFactors(Integer n) {
  std::array<Integer, 32> factors;
  std::size_t count = 0;
  Integer rest = n;
  for (const Integer p : kPrimeTable) {
    if (p > rest / p) break;
    for (; rest % p == 0; rest /= p) factors[count++] = p;
  }
  if (rest > 1) factors[count++] = rest;
  return TIntArray(factors.begin(), factors.begin() + count);
}

Double Factorial(Integer n) {
  if (n < 0) zor::detail::Fail<EZORMath1Error>("Factorial: negative argument");
  if (n > 1000) zor::detail::Fail<EZORMath1Error>("Factorial: argument too big");
  Double product = 1.0;
  for (Integer i = 2; i <= n; ++i) product *= i;
  return product;
}

Int64 ProductConsecInts(Integer a, Integer b) noexcept {
  const auto [low, high] = std::minmax({Int64{a}, Int64{b}});
  if (low == 0) return 0;
  if (low < 0) return -2;
  Int64 product = low;
  for (Int64 i = low + 1; i <= high; ++i) {
    if (product >= ZOR_univconst::uc_MaxInt64 / high) return -1;
    product *= i;
  }
  return product;
}

Boolean CheckPowerOfTwo(Cardinal n) noexcept { return std::popcount(n) <= 1; }

}  // namespace ZOR_math1

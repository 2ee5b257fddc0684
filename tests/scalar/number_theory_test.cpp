#include "zor/scalar/number_theory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numeric>
#include <utility>
#include <vector>

#include "tests/message_of.h"
#include "zor/scalar/math1_errors.h"

namespace ZOR_math1 {
namespace {

using zor::test::message_of;

constexpr Integer kLowest = -2147483647 - 1, kHighest = 2147483647;

TEST(GreatestCommonDivisor, OfIntegersIsNeverNegative) {
  EXPECT_EQ(GreatestCommonDivisor(12, -18), 6);
  EXPECT_EQ(GreatestCommonDivisor(0, -7), 7);
  EXPECT_EQ(GreatestCommonDivisor(0, 0), 0);
  EXPECT_EQ(GreatestCommonDivisor(kLowest, 1 << 20), 1 << 20);
  EXPECT_EQ(GreatestCommonDivisor(kLowest, 0), kLowest);  // its absolute value is no Integer
  EXPECT_EQ(GreatestCommonDivisor({-6}), 6);
  EXPECT_EQ(GreatestCommonDivisor({30, 0, -42, 105}), 3);
  EXPECT_EQ(GreatestCommonDivisor(TIntArray()), 0);
}

TEST(GreatestCommonDivisor, OfRealNumbersStopsAtTheDecimals) {
  EXPECT_NEAR(GreatestCommonDivisor(0.3, 0.1, 6), 0.1, 1e-16);
  EXPECT_NEAR(GreatestCommonDivisor(2.25, -1.5, 6), 0.75, 1e-15);
  EXPECT_EQ(GreatestCommonDivisor(6.0, 4.5, 0), 1.5);
  EXPECT_EQ(GreatestCommonDivisor(6.0, 4.25, 0), 1.75);  // remainders below 1 count as 0
  EXPECT_EQ(GreatestCommonDivisor(6.0, 4.0, -3), 2.0);
  EXPECT_NEAR(GreatestCommonDivisor({1.2, 0.8, -2.0}, 9), 0.4, 1e-15);
  EXPECT_EQ(GreatestCommonDivisor(TDoubleArray{-6.0}, 3), 6.0);
  EXPECT_EQ(GreatestCommonDivisor(TDoubleArray(), 3), 0.0);
}

TEST(GreatestCommonDivisor, EndsForEveryArgument) {
  EXPECT_EQ(GreatestCommonDivisor(1e300, 1e-12, 99), GreatestCommonDivisor(1e-12, 1e300, 12));
  EXPECT_TRUE(std::isfinite(GreatestCommonDivisor(1.7e308, 3.3e-12, 12)));
  EXPECT_TRUE(std::isnan(GreatestCommonDivisor(std::numeric_limits<Double>::infinity(), 2.0, 3)));
  EXPECT_TRUE(std::isnan(GreatestCommonDivisor({1.0, std::numeric_limits<Double>::quiet_NaN(), 2.0}, 3)));
}

TEST(CancelFraction, KeepsSignsAndEndsCoprime) {
  const auto cancelled = [](Integer a, Integer b) {
    CancelFraction(a, b);
    return std::pair(a, b);
  };
  EXPECT_EQ(cancelled(6, -8), std::pair(3, -4));
  EXPECT_EQ(cancelled(-36, -36), std::pair(-1, -1));
  EXPECT_EQ(cancelled(0, 8), std::pair(0, 8));
  EXPECT_EQ(cancelled(8, 0), std::pair(8, 0));
  EXPECT_EQ(cancelled(kLowest, kHighest), std::pair(kLowest, kHighest));
  EXPECT_EQ(cancelled(kLowest, kLowest), std::pair(-1, -1));
}

// Number and sum of the primes, the 100th, the 1000th and the last one: a sieve in Python.
TEST(Primes, TableHoldsAllBelowTheRootOfTwoToThe31) {
  Int64 sum = 0;
  for (Integer i = 1; i <= 4792; ++i) {
    sum += ListOfPrimes(i);
    if (i > 1) {
      ASSERT_GT(ListOfPrimes(i), ListOfPrimes(i - 1));
    }
  }
  EXPECT_EQ(sum, 104578593);
  EXPECT_EQ(ListOfPrimes(1), 2);
  EXPECT_EQ(ListOfPrimes(100), 541);
  EXPECT_EQ(ListOfPrimes(1000), 7919);
  EXPECT_EQ(ListOfPrimes(4792), 46337);
  for (const Integer outside : {0, -1, 4793, kLowest, kHighest}) EXPECT_EQ(ListOfPrimes(outside), 0);
}

TEST(Primes, AreThoseWithoutADivisorUpToTheRoot) {
  const auto plain = [](Int64 n) {
    for (Int64 d = 2; d * d <= n; ++d)
      if (n % d == 0) return false;
    return true;
  };
  for (Integer n = 0; n < 20'000; ++n) {
    ASSERT_EQ(IsPrime(n), plain(n)) << n;
    ASSERT_EQ(IsPrime(-n), plain(n)) << n;
  }
  for (const Integer n : {kHighest, kHighest - 1, 46337 * 46337, 2147483629, 46349 * 46327})
    EXPECT_EQ(IsPrime(n), plain(n)) << n;
  EXPECT_FALSE(IsPrime(kLowest));
}

TEST(PrimeFactors, MultiplyToTheNumber) {
  EXPECT_EQ(FindPrimeFactors(12), (TIntArray{2, 2, 3}));
  EXPECT_EQ(FindPrimeFactors(46337 * 46337), (TIntArray{46337, 46337}));
  EXPECT_EQ(FindPrimeFactors(kHighest), TIntArray{kHighest});
  const std::vector<Integer> twos(30, 2);
  EXPECT_EQ(FindPrimeFactors(1 << 30), TIntArray(twos.begin(), twos.end()));
  for (const Integer n : {1, 0, -12, kLowest}) EXPECT_TRUE(FindPrimeFactors(n).empty());
  for (Integer n = 2; n < 3'000'000; n += 997) {
    const TIntArray factors = FindPrimeFactors(n);
    ASSERT_EQ(std::accumulate(factors.begin(), factors.end(), 1, std::multiplies<>()), n);
    ASSERT_TRUE(std::is_sorted(factors.begin(), factors.end()));
    ASSERT_TRUE(std::all_of(factors.begin(), factors.end(), IsPrime));
  }
}

TEST(Factorial, IsMultipliedUp) {
  EXPECT_EQ(Factorial(0), 1.0);
  EXPECT_EQ(Factorial(1), 1.0);
  EXPECT_EQ(Factorial(22), 1124000727777607680000.0);
  EXPECT_EQ(Factorial(170), 7.257415615307994e306);  // the product in doubles; 170! itself is 7.257415615307999e306
  EXPECT_EQ(Factorial(171), std::numeric_limits<Double>::infinity());
  EXPECT_EQ(Factorial(1000), std::numeric_limits<Double>::infinity());
  EXPECT_EQ(message_of<EZORMath1Error>([] { Factorial(-1); }), "Factorial: negative argument");
  EXPECT_EQ(message_of<EZORMath1Error>([] { Factorial(1001); }), "Factorial: argument too big");
}

TEST(ProductOfConsecutiveIntegers, TellsOverflowAndNegativeFactors) {
  EXPECT_EQ(ProductConsecInts(5, 3), 60);
  EXPECT_EQ(ProductConsecInts(7, 7), 7);
  EXPECT_EQ(ProductConsecInts(1, 20), 2432902008176640000);
  EXPECT_EQ(ProductConsecInts(1, 21), -1);
  EXPECT_EQ(ProductConsecInts(1, kHighest), -1);
  EXPECT_EQ(ProductConsecInts(kHighest, kHighest - 1), Int64{kHighest} * (kHighest - 1));
  EXPECT_EQ(ProductConsecInts(9, 0), 0);
  EXPECT_EQ(ProductConsecInts(0, -3), -2);
  EXPECT_EQ(ProductConsecInts(kLowest, kHighest), -2);
}

TEST(CheckPowerOfTwo, HasAtMostOneBit) {
  for (const Cardinal n : {0U, 1U, 2U, 1U << 31}) EXPECT_TRUE(CheckPowerOfTwo(n));
  for (const Cardinal n : {3U, 6U, (1U << 31) + 1}) EXPECT_FALSE(CheckPowerOfTwo(n));
}

}  // namespace
}  // namespace ZOR_math1

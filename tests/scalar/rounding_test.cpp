#include "zor/scalar/rounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <utility>

namespace ZOR_math1 {
namespace {

constexpr Double kInf = std::numeric_limits<Double>::infinity();
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

/// The double nearest to a decimal, as the C library reads it.
Double decimal(const char* digits, int exponent) {
  return std::strtod((std::string(digits) + "e" + std::to_string(exponent)).c_str(), nullptr);
}

struct Case125 {
  const char *x, *nearest, *up, *down;
};
// The bounds between the steps, the steps, and a place inside each interval.
constexpr Case125 kCases125[] = {
    {"1", "1", "1", "1"},    {"1.2", "1", "2", "1"}, {"1.5", "2", "2", "1"}, {"2", "2", "2", "2"},
    {"2.5", "2", "5", "2"},  {"3", "5", "5", "2"},   {"4", "5", "5", "2"},   {"5", "5", "5", "5"},
    {"7.9", "5", "10", "5"}, {"8", "10", "10", "5"}, {"9", "10", "10", "5"},
};

TEST(Rounding125, DecidesOnDecimalsInEveryDecade) {
  for (int e = -307; e <= 307; ++e) {
    for (const auto& c : kCases125) {
      const Double x = decimal(c.x, e);
      const Double nearest = decimal(c.nearest, e), up = decimal(c.up, e), down = decimal(c.down, e);
      ASSERT_EQ(Round125(x), nearest) << x;
      ASSERT_EQ(Round125(-x), -nearest) << x;
      ASSERT_EQ(RoundPos125(x), up) << x;
      ASSERT_EQ(RoundPos125(-x), -down) << x;
      ASSERT_EQ(RoundNeg125(x), down) << x;
      ASSERT_EQ(RoundNeg125(-x), -up) << x;
    }
  }
}

TEST(Rounding125, BracketsEveryNumber) {
  std::mt19937_64 bits(1);
  for (int i = 0; i < 200'000; ++i) {
    const Double x = std::ldexp(static_cast<Double>(bits() >> 11) * 0x1p-53, static_cast<int>(bits() % 2090) - 1070);
    const Double up = RoundPos125(x), down = RoundNeg125(x), near = Round125(x);
    ASSERT_LE(down, x);
    ASSERT_GE(up, x);
    ASSERT_TRUE(near == up || near == down) << x;
    ASSERT_EQ(RoundPos125(up), up);
    ASSERT_EQ(RoundNeg125(up), up);
  }
}

TEST(Rounding125, TakesTheEndsOfTheRange) {
  for (const auto round : {Round125, RoundPos125, RoundNeg125}) {
    EXPECT_EQ(round(0.0), 0.0);
    EXPECT_FALSE(std::signbit(round(-0.0)));
    EXPECT_EQ(round(kInf), kInf);
    EXPECT_EQ(round(-kInf), -kInf);
    EXPECT_TRUE(std::isnan(round(kNaN)));
  }
  constexpr Double kMax = std::numeric_limits<Double>::max(), kMin = std::numeric_limits<Double>::denorm_min();
  EXPECT_EQ(Round125(kMax), kInf);
  EXPECT_EQ(RoundNeg125(kMax), 1e308);
  EXPECT_EQ(Round125(1.4e308), 1e308);
  EXPECT_EQ(Round125(9e307), 1e308);
  EXPECT_EQ(Round125(kMin), kMin);
  EXPECT_EQ(Round125(3e-322), 5e-322);
}

TEST(RoundingToIntegers, StopsAtTheEndsOfTheInteger) {
  EXPECT_EQ(IntPos(2.1), 3);
  EXPECT_EQ(IntPos(-2.9), -2);
  EXPECT_EQ(IntNeg(2.9), 2);
  EXPECT_EQ(IntNeg(-2.1), -3);
  for (const auto round : {IntPos, IntNeg}) {
    EXPECT_EQ(round(7.0), 7);
    EXPECT_EQ(round(1e300), 2147483647);
    EXPECT_EQ(round(-kInf), -2147483647 - 1);
    EXPECT_EQ(round(kNaN), 0);
  }
  EXPECT_EQ(RoundLimit(2.5, 0, 10), 2);
  EXPECT_EQ(RoundLimit(3.5, 0, 10), 4);
  EXPECT_EQ(RoundLimit(-3.0, 0, 10), 0);
  EXPECT_EQ(RoundLimit(1e30, 0, 10), 10);
  EXPECT_EQ(RoundLimit(5.0, 8, 3), 3);
  EXPECT_EQ(RoundLimit(kNaN, -5, 5), 0);
}

TEST(Bounds, MayBeGivenInEitherOrder) {
  for (const auto& [b1, b2] : {std::pair{2.0, 5.0}, {5.0, 2.0}}) {
    EXPECT_TRUE(WithinBounds(2.0, b1, b2));
    EXPECT_TRUE(WithinBounds(5.0, b1, b2));
    EXPECT_FALSE(WithinBounds(5.5, b1, b2));
    EXPECT_TRUE(WithinBounds(5.5, b1, b2, 0.5));
    EXPECT_TRUE(WithinBounds(1.5, b1, b2, 0.5));
    EXPECT_FALSE(WithinBounds(kNaN, b1, b2));
    EXPECT_EQ(ConfineValue(1.0, b1, b2), 2.0);
    EXPECT_EQ(ConfineValue(3.0, b1, b2), 3.0);
    EXPECT_EQ(ConfineValue(9.0, b1, b2), 5.0);
    EXPECT_TRUE(std::isnan(ConfineValue(kNaN, b1, b2)));
  }
  EXPECT_EQ(ConfineValue(7.0F, 6.0F, 1.0F), 6.0F);
  EXPECT_EQ(ConfineValue(-2147483647 - 1, 3, -4), -4);
  EXPECT_EQ(ConfineValue(9.0, kNaN, 5.0), 5.0);
  EXPECT_EQ(ConfineValue(1.0, kNaN, 5.0), 1.0);
  EXPECT_EQ(ConfineValue(9.0, kNaN, kNaN), 9.0);
}

TEST(Rounding, SignAndRemainder) {
  EXPECT_EQ(Signum(-0.1), -1);
  EXPECT_EQ(Signum(0.0), 1);
  EXPECT_EQ(Signum(-0.0), 1);
  EXPECT_EQ(Signum(kNaN), 1);
  EXPECT_EQ(modr(7.5, 2.0), 1.5);
  EXPECT_EQ(modr(-7.5, 2.0), -1.5);
  EXPECT_EQ(modr(7.5, -2.0), 1.5);
  EXPECT_TRUE(std::isnan(modr(1.0, 0.0)));
}

}  // namespace
}  // namespace ZOR_math1

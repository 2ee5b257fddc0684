#include "zor/runtime/numbers.h"

#include <gtest/gtest.h>
#include <cmath>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

namespace ZOR_runtime {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity(), kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr Int64 kMin = std::numeric_limits<Int64>::min(), kMax = std::numeric_limits<Int64>::max();

TEST(Round, TakesTiesToTheEvenNumber) {
  const double x[] = {-3.5, -2.5, -1.5, -0.5, 0.5, 1.5, 2.5, 0.49999999999999994, 4503599627370495.5, -1e15 - 0.5};
  const Int64 rounded[] = {-4, -2, -2, 0, 0, 2, 2, 0, 4503599627370496, -1000000000000000};
  for (std::size_t i = 0; i < std::size(x); ++i) EXPECT_EQ(Round(x[i]), rounded[i]) << x[i];
  static_assert(Round(2.5) == 2);
}

TEST(Integers, SaturateAndTakeNaNAsZero) {
  for (const auto f : {&Round, &Trunc, &Floor}) {
    EXPECT_EQ(f(kInf), kMax);
    EXPECT_EQ(f(0x1p63), kMax);
    EXPECT_EQ(f(-0x1p63), kMin);
    EXPECT_EQ(f(-1e300), kMin);
    EXPECT_EQ(f(0x1.fffffffffffffp62), kMax - 1023);
    EXPECT_EQ(f(kNaN), 0);
  }
  using namespace zor::detail;
  EXPECT_EQ(round_to_integer(2147483647.4), 2147483647);
  EXPECT_EQ(round_to_integer(2147483647.5), 2147483647);
  EXPECT_EQ(round_to_integer(-2147483648.6), std::numeric_limits<Integer>::min());
  EXPECT_EQ(floor_to_integer(-0.5), -1);
  EXPECT_EQ(trunc_to_integer(-2147483648.9), std::numeric_limits<Integer>::min());
  EXPECT_EQ(trunc_to_integer(kNaN), 0);
}

TEST(WholeAndRest, HaveTheSignOfTheNumber) {
  EXPECT_EQ(Trunc(-2.7), -2);
  EXPECT_EQ(Floor(-2.2), -3);
  EXPECT_EQ(Int(-2.75), -2.0);
  EXPECT_EQ(Frac(-2.75), -0.75);
  EXPECT_TRUE(std::signbit(Frac(-3.0)));
  EXPECT_EQ(Frac(-kInf), 0.0);
  EXPECT_EQ(Sign(-0.0), 0);
  EXPECT_EQ(Sign(-3), -1);
  EXPECT_EQ(Sign(kNaN), 0);
  EXPECT_EQ(Max(2, 3), 3);
  EXPECT_EQ(Min(2.0, -3.0), -3.0);
}

TEST(SimpleRoundTo, RoundsHalvesAwayFromZero) {
  EXPECT_EQ(SimpleRoundTo(2.125, -2), 2.13);
  EXPECT_EQ(SimpleRoundTo(-2.125, -2), -2.13);
  EXPECT_EQ(SimpleRoundTo(1250.0, 2), 1300.0);
  EXPECT_EQ(SimpleRoundTo(2.5, 0), 3.0);
  EXPECT_EQ(SimpleRoundTo(1e17, -2), 1e17);
  EXPECT_EQ(SimpleRoundTo(1e308, -300), 1e308);
  EXPECT_EQ(SimpleRoundTo(-kInf, -2), -kInf);
  EXPECT_EQ(SimpleRoundTo(1e300, std::numeric_limits<Integer>::max()), 0.0);
  EXPECT_EQ(SimpleRoundTo(0.3, std::numeric_limits<Integer>::min()), 0.3);
}

TEST(StdDev, KeepsItsDigitsOnALargeOffset) {
  const std::vector<double> x = {1e8 + 1, 1e8 + 2, 1e8 + 3};
  EXPECT_EQ(StdDev(x), 1.0);
  EXPECT_EQ(StdDev(std::vector<double>(7, 0.3)), 0.0);
  EXPECT_EQ(StdDev(std::vector<double>{5.0}), 0.0);
  EXPECT_NEAR(StdDev(std::vector<double>{2, 4, 4, 4, 5, 5, 7, 9}), std::sqrt(32.0 / 7.0), 1e-15);
}

TEST(PowersOfTen, AreTheNearestDoubles) {
  using namespace zor::detail;
  for (int n = kMinPow10; n <= kMaxPow10; ++n)
    ASSERT_EQ(pow10(n), std::strtod(("1e" + std::to_string(n)).c_str(), nullptr)) << n;
  EXPECT_EQ(pow10(-324), 0.0);
  EXPECT_EQ(pow10(309), kInf);
}

}  // namespace
}  // namespace ZOR_runtime

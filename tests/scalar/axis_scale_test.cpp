#include "zor/scalar/axis_scale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <random>

#include "zor/scalar/rounding.h"

namespace ZOR_math1 {
namespace {

struct Scale {
  Double first, dist;
  Integer minor;
  friend bool operator==(const Scale&, const Scale&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Scale& s) {
    return out << "{" << s.first << ", " << s.dist << ", " << s.minor << "}";
  }
};

Scale scale(Integer n, Double low, Double high) {
  Scale s{};
  Word minor = 0;
  CalcScalePars(n, low, high, s.first, s.dist, minor);
  s.minor = minor;
  return s;
}

TEST(AxisScale, FollowsTheAxisInBothDirections) {
  EXPECT_EQ(scale(0, 2.5, 7.5), (Scale{3.0, 1.0, 5}));
  EXPECT_EQ(scale(0, 7.5, 2.5), (Scale{7.0, -1.0, 5}));
  EXPECT_EQ(scale(0, -20.5, 7.5), (Scale{-20.0, 1.0, 1}));
  EXPECT_EQ(scale(-3, 2.5, 7.5), scale(0, 2.5, 7.5));
  EXPECT_EQ(scale(7, 0.0, 10.0), (Scale{0.0, 1.0, 5}));
  EXPECT_EQ(scale(7, 10.0, 0.0), (Scale{10.0, -1.0, 5}));
  EXPECT_EQ(scale(4, 130.0, 590.0), (Scale{200.0, 100.0, 5}));
}

TEST(AxisScale, ARawDistanceOnAStepGivesTheFinerOne) {
  EXPECT_EQ(scale(5, 0.0, 10.0), (Scale{0.0, 1.0, 5}));         // 2
  EXPECT_EQ(scale(4, 0.0, 10.0), (Scale{0.0, 2.0, 4}));         // 2.5
  EXPECT_EQ(scale(2, 0.0, 10.0), (Scale{0.0, 2.0, 4}));         // 5
  EXPECT_EQ(scale(10, 0.0, 60.0), (Scale{0.0, 5.0, 5}));        // 6
  EXPECT_EQ(scale(10, 0.0, 10.0), (Scale{0.0, 1.0, 5}));        // 1
  EXPECT_EQ(scale(10, 0.0, 1.0), (Scale{0.0, 0.1, 5}));         // 0.1, the double nearest to it
  EXPECT_EQ(scale(1, 0.0, 1.0 - 1e-10), (Scale{0.0, 1.0, 5}));  // counts as 1
}

TEST(AxisScale, WithoutALengthThereIsOneTick) {
  constexpr Double kInf = std::numeric_limits<Double>::infinity(), kNaN = std::numeric_limits<Double>::quiet_NaN();
  EXPECT_EQ(scale(5, 3.0, 3.0), (Scale{3.0, 0.0, 1}));
  EXPECT_EQ(scale(5, 3.0, kInf), (Scale{3.0, 0.0, 1}));
  EXPECT_EQ(scale(0, 3.0, kNaN), (Scale{3.0, 0.0, 1}));
  EXPECT_EQ(scale(5, -kInf, 3.0).dist, 0.0);
  EXPECT_EQ(scale(10, 0.0, 5e-324), (Scale{0.0, 0.0, 1}));
}

TEST(AxisScale, MayBeLongerThanTheLargestDouble) {
  const Scale s = scale(10, -1.5e308, 1.5e308);
  EXPECT_EQ(s.dist, 2e307);
  EXPECT_DOUBLE_EQ(s.first, -1.4e308);
  EXPECT_EQ(scale(1, -1.5e308, 1.5e308), (Scale{-1.5e308, 0.0, 1}));
}

// Also where ticks lie closer than neighbouring doubles: each call must come to an end.
TEST(AxisScale, StepIsTheLargestNiceOneThatKeepsTheTicks) {
  std::mt19937_64 bits(3);
  const auto uniform = [&] { return static_cast<Double>(bits() >> 11) * 0x1p-52 - 1.0; };
  for (int i = 0; i < 100'000; ++i) {
    const Double low = uniform() * std::pow(10.0, static_cast<int>(bits() % 32) - 15);
    const Double high = low + uniform() * std::pow(10.0, static_cast<int>(bits() % 32) - 15);
    const Integer n = static_cast<Integer>(bits() % 20) + 1;
    if (low == high) continue;
    const Scale s = scale(n, low, high);
    const Double raw = std::fabs(high - low) / n, dist = std::fabs(s.dist);
    ASSERT_EQ(s.dist > 0.0, high > low);
    ASSERT_EQ(Round125(dist), dist);
    ASSERT_LE(dist, raw * (1.0 + 1e-9));
    ASSERT_GE(RoundPos125(dist * 1.01), raw * (1.0 - 1e-9)) << "a larger step would do";
    const Double offset = (s.first - low) / s.dist;
    const Double noise = std::fabs(low) / dist * 0x1p-50;
    ASSERT_GE(offset, -0.0011 - noise) << low << ' ' << high << ' ' << n;
    ASSERT_LT(offset, 1.0 + noise) << low << ' ' << high << ' ' << n;
  }
}

}  // namespace
}  // namespace ZOR_math1

#include "zor/scalar/angles.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>

#include "tests/message_of.h"
#include "zor/scalar/math1_errors.h"

namespace ZOR_math1 {
namespace {

using zor::test::message_of;

using std::numbers::pi;
constexpr Double kInf = std::numeric_limits<Double>::infinity();
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

TEST(AngleToXAxis, RunsOnceAroundTheCircle) {
  for (int degrees = 1; degrees < 360; ++degrees) {
    const Double a = degrees * pi / 180.0;
    ASSERT_NEAR(AngleToXAxis(3.0 * std::cos(a), 3.0 * std::sin(a)), a, 1e-15 * 8);
  }
  EXPECT_EQ(AngleToXAxis(2.0, 0.0), 0.0);
  EXPECT_EQ(AngleToXAxis(0.0, 2.0), pi / 2);
  EXPECT_EQ(AngleToXAxis(-2.0, 0.0), pi);
  EXPECT_EQ(AngleToXAxis(-0.0, -2.0), 3 * pi / 2);
  EXPECT_EQ(AngleToXAxis(0.0, 0.0), 3 * pi / 2);
  EXPECT_EQ(AngleToXAxis(1.0, -1e-320), 2 * pi);
  EXPECT_TRUE(std::isnan(AngleToXAxis(kNaN, 1.0)));
}

TEST(CanonicalAngle, LiesWithinHalfATurn) {
  EXPECT_EQ(CanonicalAngleDegrees(540.0), 180.0);
  EXPECT_EQ(CanonicalAngleDegrees(190.0), -170.0);
  EXPECT_EQ(CanonicalAngleDegrees(-190.0), 170.0);
  EXPECT_EQ(CanonicalAngleDegrees(370.0), 9.999999999999964);  // 360 times the fraction of 370 / 360
  for (const Double a : {180.0, -180.0, 12.5, 0.0}) EXPECT_EQ(CanonicalAngleDegrees(a), a);
  for (const Double a : {360.0, -360.0, 720.0}) EXPECT_EQ(CanonicalAngleDegrees(a), 0.0);
  EXPECT_EQ(CanonicalAngleRadians(pi), pi);
  EXPECT_NEAR(CanonicalAngleRadians(-3.5 * pi), 0.5 * pi, 1e-15);
  for (const Double a : {kInf, -kInf, kNaN}) EXPECT_TRUE(std::isnan(CanonicalAngleDegrees(a)));
  std::mt19937_64 bits(4);
  for (int i = 0; i < 10'000; ++i) {
    const Double a = static_cast<Double>(bits() % 100'000) - 50'000.0, canonical = CanonicalAngleDegrees(a);
    ASSERT_LE(std::fabs(canonical), 180.0);
    const Double turns = (a - canonical) / 360.0;
    ASSERT_NEAR(turns, std::round(turns), 1e-12) << a;
  }
}

struct Angle {
  Double deg, min, sec;
  friend bool operator==(const Angle&, const Angle&) = default;
};

Angle converted(Angle a, TDegreeFormat source, TDegreeFormat dest) {
  ConvertDegrees(a.deg, a.min, a.sec, source, dest);
  return a;
}

TEST(ConvertDegrees, RewritesEachNotation) {
  const Angle decimal{10.5125, 7.0, 8.0}, minutes{10.9, 30.75, 8.0}, seconds{10.9, 30.9, 45.0};
  EXPECT_EQ(converted(decimal, dfDecimal, dfDecimal), (Angle{10.5125, 0.0, 0.0}));
  EXPECT_EQ(converted(minutes, dfDegMin, dfDecimal), (Angle{10.5125, 0.0, 0.0}));
  EXPECT_EQ(converted(seconds, dfDegMinSec, dfDecimal), (Angle{10.5125, 0.0, 0.0}));
  EXPECT_EQ(converted({10.5, 7.0, 8.0}, dfDecimal, dfDegMin), (Angle{10.0, 30.0, 0.0}));
  EXPECT_EQ(converted(minutes, dfDegMin, dfDegMin), (Angle{10.9, 30.75, 0.0}));
  EXPECT_EQ(converted({10.0, 30.0, 45.0}, dfDegMinSec, dfDegMin), (Angle{10.0, 30.75, 0.0}));
  EXPECT_EQ(converted({10.5078125, 7.0, 8.0}, dfDecimal, dfDegMinSec), (Angle{10.0, 30.0, 28.125}));
  EXPECT_EQ(converted(minutes, dfDegMin, dfDegMinSec), (Angle{10.9, 30.0, 45.0}));
  EXPECT_EQ(converted(seconds, dfDegMinSec, dfDegMinSec), seconds);
  for (const TDegreeFormat f : {dfDecimal, dfDegMin, dfDegMinSec, dfPlain}) {
    EXPECT_EQ(converted(seconds, dfPlain, f), seconds);
    EXPECT_EQ(converted(seconds, f, dfPlain), seconds);
  }
  EXPECT_EQ(converted({0.0, 60.0, 60.0}, dfDegMinSec, dfDegMin), (Angle{0.0, 61.0, 0.0}));
}

TEST(ConvertDegrees, SplitsNegativeAnglesWithMinutesUpward) {
  EXPECT_EQ(converted({-10.5, 0.0, 0.0}, dfDecimal, dfDegMin), (Angle{-10.0, 30.0, 0.0}));
  EXPECT_EQ(converted({-10.0, 30.0, 0.0}, dfDegMin, dfDecimal), (Angle{-9.5, 0.0, 0.0}));
}

TEST(ConvertDegrees, ChecksMinutesThenSecondsInEveryNotation) {
  const auto message = [](Angle a, TDegreeFormat f) {
    return message_of<EZORMath1Error>([=] { converted(a, f, dfDecimal); });
  };
  for (const TDegreeFormat f : {dfDecimal, dfPlain}) {
    for (const Double bad : {-0.1, 60.1, kNaN}) {
      EXPECT_EQ(message({0.0, bad, bad}, f), "ConvertDegrees: invalid range of minutes");
      EXPECT_EQ(message({0.0, 60.0, bad}, f), "ConvertDegrees: invalid range of seconds");
    }
  }
}

using Parts = std::array<Integer, 3>;

Parts rounded(Parts a, Boolean up) {
  RoundDegrees(a[0], a[1], a[2], up);
  return a;
}

TEST(RoundDegrees, GoesToTheNextStepOfTheFirstUnit) {
  EXPECT_EQ(rounded({7, 0, 0}, true), (Parts{10, 0, 0}));
  EXPECT_EQ(rounded({7, 59, 0}, false), (Parts{5, 0, 0}));
  EXPECT_EQ(rounded({10, 0, 0}, true), (Parts{10, 0, 0}));
  EXPECT_EQ(rounded({10, 0, 1}, true), (Parts{15, 0, 0}));
  EXPECT_EQ(rounded({400, 0, 0}, true), (Parts{360, 0, 0}));
  EXPECT_EQ(rounded({400, 0, 0}, false), (Parts{360, 0, 0}));
  EXPECT_EQ(rounded({0, 7, 30}, true), (Parts{0, 10, 0}));
  EXPECT_EQ(rounded({0, 7, 30}, false), (Parts{0, 5, 0}));
  EXPECT_EQ(rounded({0, 31, 0}, true), (Parts{1, 0, 0}));
  EXPECT_EQ(rounded({0, 59, 59}, false), (Parts{0, 30, 0}));
  EXPECT_EQ(rounded({0, 0, 31}, true), (Parts{0, 1, 0}));
  EXPECT_EQ(rounded({0, 0, 4}, false), (Parts{0, 0, 3}));
}

TEST(RoundDegrees, LimitsItsParts) {
  EXPECT_EQ(rounded({0, 0, 0}, true), (Parts{0, 0, 0}));
  EXPECT_EQ(rounded({5, -1, 0}, true), (Parts{0, 0, 0}));
  EXPECT_EQ(rounded({0, 2147483647, 0}, false), (Parts{0, 30, 0}));
  EXPECT_EQ(rounded({2147483647, 59, 59}, false), (Parts{360, 0, 0}));
}

}  // namespace
}  // namespace ZOR_math1

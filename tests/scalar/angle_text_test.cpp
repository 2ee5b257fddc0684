#include "zor/scalar/angle_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "zor/runtime/text.h"

using namespace ZOR_math1;

namespace {

TEST(DegreeToStr, WritesTheFourNotations) {
  EXPECT_EQ(DegreeToStr(12.5, dfDecimal, 2), "12.50°");
  EXPECT_EQ(DegreeToStr(-12.5, dfPlain, 0), "-12");
  EXPECT_EQ(DegreeToStr(-0.5, dfDegMin, 1), "-0° 30.0'");
  EXPECT_EQ(DegreeToStr(10 + 5.0 / 60, dfDegMin, 0), "10°   5'");
  EXPECT_EQ(DegreeToStr(12.3456, dfDegMinSec, 0), "12° 20'  44\"");
  EXPECT_EQ(DegreeToStr(12.3456, dfDegMinSec, 2), "12° 20' 44.16\"");
  EXPECT_EQ(DegreeToStr(359.0, dfDegMinSec, 3), "359°  0'  0.000\"");
  EXPECT_EQ(DegreeToStr(1.0, static_cast<TDegreeFormat>(9), 2), "");
}

TEST(DegreeToStr, CarriesIntoTheNextPart) {
  EXPECT_EQ(DegreeToStr(59.0 + 59.999999 / 60, dfDegMin, 2), "60°  0.00'");
  EXPECT_EQ(DegreeToStr(512 + 11.0 / 60, dfDegMinSec, 0), "512° 11'   0\"");
  EXPECT_EQ(DegreeToStr(1 + 59.99999999 / 3600, dfDegMinSec, 8), "1°  0' 59.99999999\"");
  EXPECT_EQ(DegreeToStr(1 + 59.999999996 / 3600, dfDegMinSec, 8), "1°  1'  0.00000000\"");
}

TEST(DegreeToStr, TheSignIsThatOfTheRoundedAngle) {
  EXPECT_EQ(DegreeToStr(-0.99999999, dfDegMin, 0), "-1°   0'");
  EXPECT_EQ(DegreeToStr(-1e-9, dfDegMin, 2), "0°  0.00'");
  EXPECT_EQ(DegreeToStr(-0.0, dfDegMinSec, 0), "0°  0'   0\"");
}

TEST(DegreeToStr, WritesWhatHasNoPartsAsANumber) {
  EXPECT_EQ(DegreeToStr(1e15, dfDegMin, 8), "1000000000000000.00000000");
  EXPECT_EQ(DegreeToStr(std::numeric_limits<Double>::quiet_NaN(), dfDegMinSec, 2), "Nan");
  EXPECT_EQ(DegreeToStr(std::numeric_limits<Double>::max(), dfDecimal, 99).Length(), 309 + 1 + 8 + 1);
}

struct Reading {
  Double angle;
  Integer at, kind;
  friend bool operator==(const Reading&, const Reading&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Reading& r) {
    return out << r.angle << " up to " << r.at << ", kind " << r.kind;
  }
};

Reading scan(const TString& text, Boolean allow_plain = false, Integer at = 1) {
  Reading r{0.0, at, 99};
  r.angle = ScanDegrees(text, r.at, allow_plain, r.kind);
  return r;
}

TEST(ScanDegrees, StopsBehindTheLastPartThatFits) {
  EXPECT_EQ(scan("-0° 30.0' N"), (Reading{-0.5, 10, dfDegMin}));
  EXPECT_EQ(scan("x +12.5° E", false, 2), (Reading{12.5, 9, dfDecimal}));
  EXPECT_EQ(scan("10°20'30\""), (Reading{10 + 1230.0 / 3600, 10, dfDegMinSec}));
  EXPECT_EQ(scan("10° 20′ 30″"), (Reading{10 + 1230.0 / 3600, 12, dfDegMinSec}));
  EXPECT_EQ(scan("10° 20' 30''"), (Reading{10 + 1230.0 / 3600, 13, dfDegMinSec}));
  EXPECT_EQ(scan("10° 60' 60\""), (Reading{10 + 3660.0 / 3600, 12, dfDegMinSec}));
  EXPECT_EQ(scan("10° 61'"), (Reading{10, 4, dfDecimal}));
  EXPECT_EQ(scan("10° 20' 61\""), (Reading{10 + 20.0 / 60, 8, dfDegMin}));
  EXPECT_EQ(scan("10° 20\""), (Reading{10, 4, dfDecimal}));
  EXPECT_EQ(scan("10° 20''"), (Reading{10, 4, dfDecimal}));
  EXPECT_EQ(scan("10° -20'"), (Reading{10, 4, dfDecimal}));
  EXPECT_EQ(scan("10.5° 20'"), (Reading{10.5, 6, dfDecimal}));
  EXPECT_EQ(scan("10° 20.5' 30\""), (Reading{10 + 20.5 / 60, 10, dfDegMin}));
}

TEST(ScanDegrees, TakesAPlainNumberOnlyIfAllowed) {
  EXPECT_EQ(scan(" 12.5e3", true), (Reading{12.5, 6, dfPlain}));
  EXPECT_EQ(scan("10 20' 30\"", true), (Reading{10, 3, dfPlain}));
  for (const char* none : {" 12.5", "", "°", "- 1°", "Nan°", "  "}) EXPECT_EQ(scan(none), (Reading{0, 1, -1})) << none;
  EXPECT_EQ(scan(std::string(400, '9') + "°", true), (Reading{0, 1, -1}));
  EXPECT_EQ(scan("5°", true, 7), (Reading{0, 7, -1}));
}

TEST(ScanDegrees, ReadsWhatDegreeToStrWrites) {
  std::mt19937_64 bits(7);
  for (int i = 0; i < 50'000; ++i) {
    const Double angle = static_cast<Double>(static_cast<std::int64_t>(bits())) * 0x1p-63 * (i % 2 ? 500.0 : 1e5);
    const auto format = static_cast<TDegreeFormat>(i % 4);
    const Integer decimals = static_cast<Integer>(bits() % 6);
    const TString text = DegreeToStr(angle, format, decimals);
    const Reading r = scan(text, format == dfPlain);
    ASSERT_EQ(r.kind, format) << text;
    ASSERT_EQ(r.at, text.Length() + 1) << text;
    ASSERT_EQ(DegreeToStr(r.angle, format, decimals), text);
    ASSERT_NEAR(r.angle, angle, 0.51 * std::pow(10.0, -decimals)) << text;
    ASSERT_EQ(ZOR_runtime::Pos("° 60", text) + ZOR_runtime::Pos("' 60", text), 0) << text;
  }
}

}  // namespace

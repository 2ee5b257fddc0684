#include "zor/scalar/ZOR_sline.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <sstream>
#include <type_traits>

#include "tests/message_of.h"

namespace ZOR_sline {
namespace {

using std::numbers::pi;
constexpr Double kInf = std::numeric_limits<Double>::infinity();
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

std::array<Double, 3> parameters(const TSLine& line) { return {line.ParA(), line.ParB(), line.ParC()}; }

template <class Action>
std::string message_of(Action action) {
  return zor::test::message_of<EZORSLineError>(action);
}

static_assert(std::is_base_of_v<Exception, EZORSLineError> && !std::is_base_of_v<EZORError, EZORSLineError>);

TEST(TSLine, OfTheXAxisHasSlopeAndInterceptWithoutSign) {
  const TSLine line;
  EXPECT_FALSE(std::signbit(line.Slope()));
  EXPECT_FALSE(std::signbit(line.Intercept()));
}

TEST(TSLine, ExampleOfTheChiefHeaderRuns) {
  TSLine roof, wall;
  roof.LineFrom2Points(0, 3, 4, 5);
  wall.LineFrom2Points(2, 0, 2, 9);
  std::ostringstream out;
  Double x, y;
  if (roof.InterSection(&wall, x, y)) out << x << ' ' << y << '\n';
  out << roof << '\n' << TSLine();
  EXPECT_EQ(out.str(), "2 4\n-2 x + 4 y - 12 = 0\n0 x + 1 y + 0 = 0");
}

TEST(TSLine, StartsAsTheXAxis) {
  TComponent owner;
  TSLine line(&owner);
  EXPECT_EQ(line.Owner(), &owner);
  EXPECT_STREQ(line.ClassName(), "TSLine");
  EXPECT_EQ(line.GetSlope(), 0.0);
  EXPECT_EQ(line.GetIntercept(), 0.0);
  EXPECT_EQ(line.GetDirect(), 0.0);
  EXPECT_FALSE(std::signbit(line.Direction()));
  EXPECT_FALSE(line.SubstituteInf());
}

TEST(TSLine, KeepsADirection) {
  TSLine line;
  line.SetParA(0.0);
  const std::string text = "parameter A and B must not both be zero";
  EXPECT_EQ(message_of([&] { line.SetParB(0.0); }), text);
  EXPECT_EQ(line.ParB(), 1.0);
  line.SetParA(2.0);
  line.SetParB(-0.0);
  EXPECT_EQ(message_of([&] { line.SetParA(0.0); }), text);
  line.SetParC(-3.0);
  EXPECT_EQ(parameters(line), (std::array{2.0, 0.0, -3.0}));
}

TEST(TSLine, RefusesPointsThatDetermineNoLine) {
  TSLine line;
  line.LineFromSlopeIcpt(2, 3);
  EXPECT_EQ(parameters(line), (std::array{2.0, -1.0, 3.0}));
  const Double bad[][4] = {{1, 1, 1, 1},       {kNaN, 0, 1, 1}, {0, kInf, 1, 1},         {0, 0, -kInf, 1},
                           {kInf, 0, kInf, 1}, {0, 0, 1, kNaN}, {1e200, 1, 2e200, 1e200}};
  for (const auto& p : bad) EXPECT_FALSE(line.LineFrom2Points(p[0], p[1], p[2], p[3]));
  EXPECT_EQ(parameters(line), (std::array{2.0, -1.0, 3.0}));
}

TEST(TSLine, VerticalLineHasNeitherSlopeNorHeight) {
  TSLine line;
  ASSERT_TRUE(line.LineFrom2Points(1, 0, 1, 5));
  Double k = 7, d = 8;
  EXPECT_EQ(message_of([&] { line.Slope(); }), "slope is infinite");
  EXPECT_EQ(message_of([&] { line.Intercept(); }), "cannot calculate intercept (line is parallel to y axis)");
  EXPECT_EQ(message_of([&] { line.CalcKDForm(k, d); }), "cannot convert to k-d-form if ParB is zero");
  EXPECT_EQ(message_of([&] { line.CalcY(0); }), "cannot calculate y");
  EXPECT_EQ(k + d, 15.0);
  EXPECT_EQ(line.CalcX(3), 1.0);
  line.SetSubstituteInf(true);
  EXPECT_DOUBLE_EQ(line.CalcY(0), -5.0e100);
  EXPECT_EQ(line.CalcY(1), 0.0);
  TSLine level;
  EXPECT_EQ(message_of([&] { level.CalcX(1); }), "cannot calculate x");
}

TEST(TSLine, GoesThroughTheGivenPointAtTheGivenAngle) {
  TSLine line, other, normal;
  for (int degrees = 0; degrees < 360; degrees += 15) {
    const Double angle = degrees * pi / 180.0;
    line.LineThroughPoint(3, -2, angle);
    EXPECT_NEAR(line.Distance(3, -2), 0.0, 1e-15);
    EXPECT_NEAR(line.Distance(3 + std::cos(angle), -2 + std::sin(angle)), 0.0, 1e-15);
    EXPECT_NEAR(std::remainder(line.Direction() - angle, 2.0 * pi), 0.0, 2e-15) << degrees;
    other.ParallelLine(1, 1, &line);
    EXPECT_NEAR(std::fabs(other.Distance(3, -2)), std::fabs(line.Distance(1, 1)), 1e-14);
    EXPECT_EQ(other.AngleBetweenLines(&line), 0.0);
    normal.NormalLine(1, 1, &line);
    EXPECT_EQ(normal.AngleBetweenLines(&line), 1.5707963267948966);
    EXPECT_NEAR(normal.Distance(1, 1), 0.0, 1e-15);
  }
  line.LineThroughPoint(0, 0, pi / 2);
  EXPECT_GT(line.Slope(), 1e16);
}

TEST(TSLine, DirectionStaysBelowOneTurn) {
  TSLine line;
  const auto direction = [&](Double dx, Double dy) {  // dx is B and -dy is A
    EXPECT_TRUE(line.LineFrom2Points(0, 0, dx, dy));
    return line.Direction();
  };
  EXPECT_EQ(direction(1, 0), 0.0);
  EXPECT_EQ(direction(0, 1), pi / 2);
  EXPECT_EQ(direction(-1, 0), pi);
  EXPECT_EQ(direction(0, -1), 1.5 * pi);
  EXPECT_DOUBLE_EQ(direction(-1, -1), 1.25 * pi);
  EXPECT_DOUBLE_EQ(direction(1, -1), 1.75 * pi);
  EXPECT_EQ(direction(1e300, -1e-300), 0.0);
}

TEST(TSLine, MayBeBuiltFromItself) {
  TSLine line;
  line.LineFrom2Points(0, 1, 3, 2);
  line.NormalLine(5, 5, &line);
  EXPECT_EQ(line.Slope(), -3.0);
  EXPECT_EQ(line.Distance(5, 5), 0.0);
  line.ParallelLine(1, 0, &line);
  EXPECT_EQ(line.Intercept(), 3.0);
}

TEST(TSLine, AnswersNullWithNothing) {
  TSLine line;
  Double x = 1, y = 2;
  line.NormalLine(4, 5, nullptr);
  line.ParallelLine(4, 5, nullptr);
  EXPECT_EQ(parameters(line), parameters(TSLine()));
  EXPECT_FALSE(line.InterSection(nullptr, x, y));
  EXPECT_EQ(line.AngleBetweenLines(nullptr), 0.0);
  EXPECT_EQ(x + y, 3.0);
}

TEST(TSLine, MeetsEveryLineButItsParallels) {
  TSLine a, b;
  Double x = 1, y = 2;
  a.LineFromSlopeIcpt(2, 1);
  b.ParallelLine(7, 7, &a);
  EXPECT_FALSE(a.InterSection(&b, x, y));
  EXPECT_FALSE(a.InterSection(&a, x, y));
  EXPECT_EQ(x + y, 3.0);
  b.LineFrom2Points(3, -5, 3, 8);
  ASSERT_TRUE(a.InterSection(&b, x, y));
  EXPECT_EQ(x, 3.0);
  EXPECT_EQ(y, 7.0);
  b.LineFromSlopeIcpt(-3, 0);  // tan = (2 + 3) / (1 - 6) = -1
  EXPECT_DOUBLE_EQ(a.AngleBetweenLines(&b), pi / 4);
  EXPECT_DOUBLE_EQ(b.AngleBetweenLines(&a), pi / 4);
}

TEST(TSLine, DistanceHasASignForEachSide) {
  TSLine line;
  line.LineFrom2Points(0, 0, 4, 3);
  EXPECT_EQ(line.Distance(-3, 4), 5.0);
  EXPECT_EQ(line.Distance(3, -4), -5.0);
}

struct Clip {
  Boolean cut;
  std::array<Double, 4> ends;  // x1, y1, x2, y2
};

Clip clip(std::array<Double, 4> through, std::array<Double, 4> box) {
  TSLine line;
  EXPECT_TRUE(line.LineFrom2Points(through[0], through[1], through[2], through[3]));
  Clip c{};
  c.cut = line.ClipBox(box[0], box[1], box[2], box[3], c.ends[0], c.ends[1], c.ends[2], c.ends[3]);
  EXPECT_FALSE(line.SubstituteInf());
  return c;
}

constexpr std::array<Double, 4> kBox = {0, 0, 10, 10};

TEST(ClipBox, TakesTheSidesInOrder) {
  const std::pair<std::array<Double, 4>, std::array<Double, 4>> cases[] = {
      {{-1, 4, 7, 4}, {0, 4, 10, 4}},     // level: left, right
      {{3, 0, 3, 1}, {3, 0, 3, 10}},      // upright: bottom, top
      {{0, 8, 4, 10}, {0, 8, 4, 10}},     // left, top
      {{10, 6, 7, 0}, {10, 6, 7, 0}},     // right, bottom
      {{0, 0, 1, 1}, {0, 0, 10, 10}},     // both corners
      {{0, 10, 1, 9}, {0, 10, 10, 0}},    // the other diagonal
      {{0, 0, 5, 10}, {0, 0, 5, 10}},     // corner and opposite side
      {{-5, 5, 5, -5}, {0, 0, 0, 0}},     // touches a corner
      {{0, 1, 0, 2}, {0, 0, 0, 10}},      // along the left side
      {{4, 10, 5, 10}, {0, 10, 10, 10}},  // along the top
  };
  for (const auto& [through, ends] : cases) {
    const Clip c = clip(through, kBox);
    EXPECT_TRUE(c.cut);
    EXPECT_EQ(c.ends, ends);
  }
}

TEST(ClipBox, FindsASideThatPassesTheOrigin) {
  const Clip c = clip({0, 1, 0, 2}, {0, -5, 10, 5});
  EXPECT_TRUE(c.cut);
  EXPECT_EQ(c.ends, (std::array<Double, 4>{0, -5, 0, 5}));
}

TEST(ClipBox, MarksMissingPoints) {
  for (const auto& box : {kBox, {10, 0, 0, 10}, {0, 10, 10, 0}, {kNaN, 0, 10, 10}}) {
    const Clip c = clip({-1, 4 - 20, 7, 4 - 20}, box);
    EXPECT_FALSE(c.cut);
    for (const Double v : c.ends) EXPECT_TRUE(std::isnan(v));
  }
  EXPECT_FALSE(clip({0, 5, 1, 6}, {10, 0, 0, 10}).cut);
  EXPECT_TRUE(clip({0, 5, 1, 6}, kBox).cut);
}

TEST(ClipBox, EndsLieOnTheLineAndOnTheBox) {
  std::mt19937_64 bits(8);
  std::uniform_real_distribution<Double> coordinate(-3.0, 3.0);
  int cut = 0;
  for (int i = 0; i < 2000; ++i) {
    TSLine line;
    const Double px = coordinate(bits), py = coordinate(bits);
    line.LineThroughPoint(px, py, coordinate(bits));
    Double x1, y1, x2, y2;
    const bool inside = std::fabs(px) < 1.99 && std::fabs(py) < 0.99;
    if (!line.ClipBox(-2, -1, 2, 1, x1, y1, x2, y2)) {
      ASSERT_FALSE(inside);
      continue;
    }
    ++cut;
    for (const auto& [x, y] : {std::pair{x1, y1}, std::pair{x2, y2}}) {
      ASSERT_NEAR(line.Distance(x, y), 0.0, 1e-14);
      ASSERT_EQ(std::max(std::fabs(x) / 2.0, std::fabs(y)), 1.0);
    }
  }
  EXPECT_GT(cut, 500);
}

}  // namespace
}  // namespace ZOR_sline

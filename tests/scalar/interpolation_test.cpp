#include "zor/scalar/interpolation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <utility>

#include "tests/message_of.h"
#include "zor/scalar/math1_errors.h"

namespace ZOR_math1 {
namespace {

using zor::test::message_of;

constexpr Double kInf = std::numeric_limits<Double>::infinity();
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

TEST(InterpolTable, JoinsItsCellsByLinesAndExtendsTheEnds) {
  const TDoubleArray t = {0.0, 10.0, 40.0};  // at 0, 5 and 10
  const std::pair<Double, Double> known[] = {{0, 0}, {2.5, 5}, {5, 10}, {7.5, 25}, {10, 40}, {-5, -10}, {15, 70}};
  for (const auto& [x, y] : known) {
    EXPECT_DOUBLE_EQ(InterpolTable(x, 0.0, 10.0, t), y) << x;
    EXPECT_DOUBLE_EQ(InterpolTable(10.0 - x, 10.0, 0.0, t), y) << x;  // the same table, read from the right
    EXPECT_DOUBLE_EQ(InterpolTable(x, 0.0, 10.0, TIntArray{0, 10, 40}), y) << x;
    EXPECT_DOUBLE_EQ(InterpolTable(10.0 - x, 10.0, 0.0, TIntArray{0, 10, 40}), y) << x;
  }
  EXPECT_EQ(InterpolTable(-1.0, 0.0, 10.0, TDoubleArray{0.0, 10.0}), -1.0);
  EXPECT_EQ(InterpolTable(0.5, 0.0, 1.0, TIntArray{-2147483647, 2147483647}), 0.0);
}

TEST(InterpolTable, NeverReadsBehindTheLastCell) {
  EXPECT_EQ(InterpolTable(9.9, -1e17, 10.0, TDoubleArray{1.0, 2.0, 4.0}), 4.0);  // rounded to the place of High
  EXPECT_EQ(InterpolTable(9.9, 10.0, -1e17, TDoubleArray{4.0, 2.0, 1.0}), 4.0);
  const TDoubleArray t = {1.0, 2.0, 4.0};
  EXPECT_TRUE(std::isnan(InterpolTable(kNaN, 0.0, 1.0, t)));
  EXPECT_TRUE(std::isnan(InterpolTable(0.5, kNaN, 1.0, t)));
  EXPECT_TRUE(std::isnan(InterpolTable(0.5, 0.0, kNaN, t)));
  EXPECT_TRUE(std::isnan(InterpolTable(0.5, -kInf, 1.0, t)));
}

TEST(InterpolTable, RefusesTablesWithoutASegment) {
  const char* const few = "InterpolTable: pivot array must contain at least 2 values";
  EXPECT_EQ(message_of<EZORMath1Error>([] { InterpolTable(0.0, 1.0, 1.0, TDoubleArray{1.0}); }), few);
  EXPECT_EQ(message_of<EZORMath1Error>([] { InterpolTable(0.0, 0.0, 1.0, TIntArray()); }), few);
  EXPECT_EQ(message_of<EZORMath1Error>([] {
              InterpolTable(0.0, 1.0, 1.0, TDoubleArray{1.0, 2.0});
            }),
            "InterpolTable: specified range of pivot array is zero");
}

TEST(InterpolXYTable, AgreesForRisingAndFallingTables) {
  const TDouble2DArray rising = {{1.0, 2.0, 4.0, 5.0}, {10.0, 20.0, 0.0, 1.0}};
  const TDouble2DArray falling = {{5.0, 4.0, 2.0, 1.0}, {1.0, 0.0, 20.0, 10.0}};
  const std::pair<Double, Double> known[] = {{1.5, 15}, {2, 20}, {3, 10}, {4, 0}, {4.5, 0.5}};
  const std::pair<Double, Double> outside[] = {{1, 10}, {5, 1}, {0, 0}, {7, 3}};
  for (const auto& table : {rising, falling}) {
    for (const auto& [x, y] : known) {
      EXPECT_DOUBLE_EQ(InterpolXYTable(x, table, false), y) << x;
      EXPECT_DOUBLE_EQ(InterpolXYTable(x, table, true), y) << x;
    }
    for (const auto& [x, y] : outside) {
      EXPECT_EQ(InterpolXYTable(x, table, false), 0.0) << x;
      EXPECT_DOUBLE_EQ(InterpolXYTable(x, table, true), y) << x;
    }
    EXPECT_TRUE(std::isnan(InterpolXYTable(kNaN, table, false)));
  }
}

TEST(InterpolXYTable, FindsTheSegmentOfAWalk) {
  std::mt19937 bits(9);
  for (int round = 0; round < 500; ++round) {
    TDouble2DArray table;
    const Integer n = 2 + static_cast<Integer>(bits() % 20);
    SetLength(table, 2, n);
    for (Integer i = 0; i < n; ++i) {
      table[0][i] = (i > 0 ? table[0][i - 1] : 0.0) + 1.0 + static_cast<Double>(bits() % 5);
      table[1][i] = static_cast<Double>(bits() % 100);
    }
    const auto& xs = table[0];
    const auto& ys = table[1];
    for (Double x = xs[0] + 0.25; x < xs[n - 1]; x += 0.75) {
      Integer i = 0;
      while (xs[i] < x) ++i;
      ASSERT_EQ(InterpolXYTable(x, table, false), ys[i] + (x - xs[i]) / (xs[i] - xs[i - 1]) * (ys[i] - ys[i - 1]));
    }
  }
}

TEST(InterpolXYTable, RefusesOtherShapes) {
  const char* const rows = "InterpolXYTable: pivot array must contain at least 2 rows";
  const char* const columns = "InterpolXYTable: pivot array must contain 2 columns";
  const auto message = [](const TDouble2DArray& table) {
    return message_of<EZORMath1Error>([&] { InterpolXYTable(0.0, table, true); });
  };
  EXPECT_EQ(message({}), columns);
  EXPECT_EQ(message({{1.0, 2.0}}), columns);
  EXPECT_EQ(message({{1.0, 2.0}, {1.0, 2.0}, {1.0, 2.0}}), columns);
  EXPECT_EQ(message({{1.0}}), rows);
  EXPECT_EQ(message({{1.0}, {1.0}}), rows);
  EXPECT_EQ(message({{1.0, 2.0}, {1.0}}), rows);
  EXPECT_EQ(message({{1.0, 2.0}, nullptr}), rows);
}

TEST(InterpolZofXYRect, MeetsTheCorners) {
  EXPECT_EQ(InterpolZofXYRect(1.0, 2.0, 3.0, 5.0, 0.0, 0.0), 1.0);
  EXPECT_EQ(InterpolZofXYRect(1.0, 2.0, 3.0, 5.0, 0.0, 1.0), 2.0);
  EXPECT_EQ(InterpolZofXYRect(1.0, 2.0, 3.0, 5.0, 1.0, 0.0), 3.0);
  EXPECT_EQ(InterpolZofXYRect(1.0, 2.0, 3.0, 5.0, 1.0, 1.0), 5.0);
  EXPECT_EQ(InterpolZofXYRect(1.0, 2.0, 3.0, 5.0, 0.5, 0.5), 2.75);
}

}  // namespace
}  // namespace ZOR_math1

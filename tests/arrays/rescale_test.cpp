#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

using testing::ElementsAre;
using testing::NanSensitiveDoubleEq;

TEST(RescaleArray, MapsTheRangeByEachMode) {
  const TDoubleArray x = {100, 2, 4, 6, 100};
  const struct {
    TRescaleMode mode;
    Double value1, value2, low, mid, high;
  } cases[] = {{rsmRange, 2, 6, 0, 0.5, 1},
               {rsmStandardize, 4, 2, -1, 0, 1},
               {rsmCenter, 4, 1, -2, 0, 2},
               {rsmMaxAbs, 0, 6, 2.0 / 6.0, 4.0 / 6.0, 1}};
  for (const auto& c : cases) {
    TDoubleArray a = CopyOf(x);
    Double value1 = 9, value2 = 9;
    EXPECT_EQ(RescaleArray(a, 1, 3, c.mode, value1, value2), 0);
    EXPECT_THAT(cells(a), ElementsAre(100, c.low, c.mid, c.high, 100)) << c.mode;
    EXPECT_EQ(value1, c.value1);
    EXPECT_EQ(value2, c.value2);
  }
}

TEST(RescaleArray, TakesABlockOfAPlaneAsOneSetOfCells) {
  TDouble2DArray a = {{7, 7, 7}, {7, -1, 3}, {7, 0, -4}};
  const auto shares = a;
  Double value1 = 9, value2 = 9;
  EXPECT_EQ(RescaleArray(a, 1, 1, 2, 2, rsmMaxAbs, value1, value2), 0);
  EXPECT_EQ(a, (TDouble2DArray{{7, 7, 7}, {7, -0.25, 0.75}, {7, 0, -1}}));
  EXPECT_EQ(shares, a) << "works in place";
  EXPECT_EQ(value2, 4);
}

TEST(RescaleArray, EqualCellsGiveZeros) {
  for (const auto mode : {rsmRange, rsmStandardize, rsmCenter}) {
    TDoubleArray a = {0.1, 0.1, 0.1};
    Double value1 = 9, value2 = 9;
    EXPECT_EQ(RescaleArray(a, 0, 2, mode, value1, value2), 0);
    EXPECT_THAT(cells(a), ElementsAre(0.0, 0.0, 0.0));
    EXPECT_EQ(value1, 0.1);
  }
}

TEST(RescaleArray, NaNStaysAndDoesNotEnter) {
  for (const auto mode : {rsmRange, rsmStandardize, rsmMaxAbs}) {
    TDoubleArray a = {1, kNaN, 3}, without = {1, 3}, zeros = {0, kNaN, 0};
    Double value1 = 9, value2 = 9, plain1 = 9, plain2 = 9;
    EXPECT_EQ(RescaleArray(a, 0, 2, mode, value1, value2), 0);
    EXPECT_EQ(RescaleArray(without, 0, 1, mode, plain1, plain2), 0);
    EXPECT_THAT(cells(a), ElementsAre(without[0], NanSensitiveDoubleEq(kNaN), without[1]));
    EXPECT_EQ(value1, plain1);
    EXPECT_EQ(value2, plain2);
    EXPECT_EQ(RescaleArray(zeros, 0, 2, mode, value1, value2), 0);
    EXPECT_THAT(cells(zeros), ElementsAre(0.0, NanSensitiveDoubleEq(kNaN), 0.0));
  }
}

TEST(RescaleArray, TouchesNothingOnACode) {
  TDoubleArray a = {1, 2, kInf};
  Double value1 = 9, value2 = 8;
  const auto code = [&](Integer low, Integer high, int mode) {
    return RescaleArray(a, low, high, static_cast<TRescaleMode>(mode), value1, value2);
  };
  EXPECT_EQ(code(-1, 1, rsmRange), kBadRange);
  EXPECT_EQ(code(1, 0, rsmRange), kBadRange);
  EXPECT_EQ(code(0, 3, rsmRange), kBadRange);
  EXPECT_EQ(code(0, 1, 4), kNoScale);
  EXPECT_EQ(code(0, 3, 4), kNoScale) << "the test made last wins";
  for (const int mode : {rsmRange, rsmStandardize, rsmCenter, rsmMaxAbs}) EXPECT_EQ(code(0, 2, mode), kNoScale) << mode;
  EXPECT_THAT(cells(a), ElementsAre(1, 2, kInf));
  a = {-1.7e308, 1.7e308};
  EXPECT_EQ(code(0, 1, rsmRange), kNoScale) << "the range overflows";
  a = {kNaN, kNaN};
  for (const int mode : {rsmRange, rsmStandardize, rsmCenter, rsmMaxAbs}) EXPECT_EQ(code(0, 1, mode), kNoScale) << mode;
  a = nullptr;
  EXPECT_EQ(code(0, 0, rsmRange), kEmptyArray);
  TDouble2DArray ragged = {{1, 2}, {3}};
  EXPECT_EQ(RescaleArray(ragged, 0, 0, 0, 0, rsmRange, value1, value2), kEmptyArray);
  EXPECT_EQ(value1, 9);
  EXPECT_EQ(value2, 8);
}

}  // namespace
}  // namespace ZOR_openarrays

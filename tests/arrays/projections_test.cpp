#include <random>

#include "tests/arrays/array_util.h"
#include "zor/base/ZOR_univconst.h"

namespace ZOR_openarrays {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;

template <class A>
class Projections : public testing::Test {};
using Planes = testing::Types<TDouble2DArray, TInt2DArray>;
TYPED_TEST_SUITE(Projections, Planes);

TYPED_TEST(Projections, HorizontalGivesRowsAndVerticalColumns) {
  const TypeParam a = {{1, 2, 3}, {10, 20, 60}};
  TDoubleArray res;
  EXPECT_EQ(EdgeVector(a, orHorizontal, eoSum, res), 0);
  EXPECT_THAT(res, ElementsAre(11, 22, 63));
  EXPECT_EQ(EdgeVector(a, orVertical, eoMean, res), 0);
  EXPECT_THAT(res, ElementsAre(2, 30));
  EXPECT_EQ(EdgeVector(a, orVertical, eoMin, res), 0);
  EXPECT_THAT(res, ElementsAre(1, 10));
  EXPECT_EQ(EdgeVector(a, orHorizontal, eoMax, res), 0);
  EXPECT_THAT(res, ElementsAre(10, 20, 60));
  EXPECT_EQ(EdgeVector(a, orVertical, eoStdDev, res), 0);
  EXPECT_THAT(res, ElementsAre(DoubleNear(1, 1e-14), DoubleNear(std::sqrt(700.0), 1e-12)));
  EXPECT_EQ(EdgeVector(a, orHorizontal, eoStdDev, res), 0);
  EXPECT_THAT(res, ElementsAre(0, 0, 0)) << "two cells have no deviation";
}

TYPED_TEST(Projections, MeanDividesByCellsVerticallyAndByAllColumnsHorizontally) {
  const TypeParam a = {{2, 4, 6, 8}, {2, 4, 6, 8}, {2, 4, 6, 8}, {2, 4, 6, 8}};
  TDoubleArray res;
  EXPECT_EQ(EdgeVector(a, orVertical, eoMean, {1, 2}, res), 0);
  EXPECT_THAT(res, ElementsAre(5, 5, 5, 5));
  EXPECT_EQ(EdgeVector(a, orHorizontal, eoMean, {1, 2}, res), 0);
  EXPECT_THAT(res, ElementsAre(1, 2, 3, 4));
}

TYPED_TEST(Projections, BadIndicesAreSkippedAndRepeatedOnesCountAgain) {
  const TypeParam a = {{1, 2}, {10, 20}};
  TDoubleArray res;
  EXPECT_EQ(EdgeVector(a, orHorizontal, eoSum, {0, 2, -1, 0}, res), kBadEdgeIndex);
  EXPECT_THAT(res, ElementsAre(2, 4));
  EXPECT_EQ(EdgeVector(a, orVertical, eoMin, {7}, res), kBadEdgeIndex);
  EXPECT_THAT(res, testing::Each(ZOR_univconst::uc_MaxDouble));
  EXPECT_EQ(EdgeVector(a, orHorizontal, eoMax, {-1}, res), kBadEdgeIndex);
  EXPECT_THAT(res, testing::Each(-ZOR_univconst::uc_MaxDouble));
  EXPECT_EQ(EdgeVector(a, orVertical, eoMean, {7}, res), kBadEdgeIndex);
  EXPECT_THAT(res, ElementsAre(0, 0));
  const TDoubleArray before = res;
  EXPECT_EQ(EdgeVector(TypeParam{}, orVertical, eoSum, {7}, res), kEmptyArray);
  EXPECT_TRUE(res.SharesWith(before));
}

TEST(ProjectionsOfIntegers, SquareIn32Bits) {
  TDoubleArray res;
  EdgeVector(TInt2DArray{{46341, 1, 1}}, orVertical, eoStdDev, res);
  EXPECT_THAT(res, ElementsAre(0.0));
}

TEST(ProjectionsOfDoubles, ResultMayBeAColumnAndNaNIsNoExtreme) {
  TDouble2DArray a = {{1, kNaN, 3}, {4, 5, 6}};
  EXPECT_EQ(EdgeVector(a, orHorizontal, eoMax, a[0]), 0);
  EXPECT_EQ(a, (TDouble2DArray{{4, 5, 6}, {4, 5, 6}}));
  TDoubleArray res;
  EXPECT_EQ(EdgeVector(TDouble2DArray{{1, kNaN, 3}, {0.1, 0.1, 0.1}}, orVertical, eoStdDev, res), 0);
  EXPECT_TRUE(std::isnan(res[0])) << "but no deviation either";
  EXPECT_LT(res[1], 1e-8);
}

TYPED_TEST(Projections, BoundingRectIsThatOfAllCellsOtherThanZero) {
  std::mt19937 bits(11);
  for (int trial = 0; trial < 500; ++trial) {
    TypeParam a;
    SetLength(a, static_cast<Integer>(bits() % 7 + 1), static_cast<Integer>(bits() % 7 + 1));
    each(a, [&](auto& x) { x = bits() % 9 == 0 ? -1 : 0; });
    Integer want[4] = {-1, -1, -1, -1}, got[4];
    for (Integer c = 0; c < Length(a); ++c) {
      for (Integer r = 0; r < Length(a[0]); ++r) {
        if (a[c][r] == 0) continue;
        want[0] = want[0] < 0 ? c : want[0], want[1] = c;
        want[2] = want[2] < 0 ? r : std::min(want[2], r), want[3] = std::max(want[3], r);
      }
    }
    BoundingRect(a, got[0], got[1], got[2], got[3]);
    ASSERT_TRUE(std::equal(want, want + 4, got)) << trial;
  }
}

TEST(BoundingRectEdges, NaNIsACellAndEmptyArraysHaveNone) {
  Integer l = 0, r = 0, t = 0, b = 0;
  BoundingRect(TDouble2DArray{{0, 0}, {-0.0, kNaN}}, l, r, t, b);
  EXPECT_EQ((std::vector{l, r, t, b}), (std::vector{1, 1, 1, 1}));
  BoundingRect(TDouble2DArray{{1, 1}, {1}}, l, r, t, b);
  EXPECT_EQ((std::vector{l, r, t, b}), (std::vector{-1, -1, -1, -1}));
}

}  // namespace
}  // namespace ZOR_openarrays

#include <algorithm>
#include <numeric>
#include <random>
#include <set>

#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

using testing::ElementsAre;

TEST(LocalFilters, CentreCountsAlwaysAndDistancesRunFromThePlaceGiven) {
  const TDoubleArray ramp = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
  EXPECT_EQ(LocalMean(ramp, 0, 2, 0, 9), 1.0);
  EXPECT_EQ(LocalMean(ramp, -3, 5, 0, 9), 0.75) << "0, 0, 1, 2";
  EXPECT_EQ(LocalMean(ramp, 12, 5, 0, 9), (9 + 9 + 8 + 7) / 4.0);
  EXPECT_EQ(LocalMean(ramp, 5, 2, 7, 9), 6.0) << "5, 7";
  EXPECT_EQ(LocalMean(ramp, 5, 2, 8, 3), 5.0);
  EXPECT_EQ(LocalMean(ramp, 5, -2, 0, 9), 5.0);
  EXPECT_EQ(LocalMean(ramp, kMinInteger, 2147483647, kMinInteger, 2147483647), 0.0);
  EXPECT_EQ(LocalMean(TIntArray{2147483647, 2147483647}, 0, 9, 0, 9), 2147483647.0);
  EXPECT_EQ(LocalMean(TDoubleArray{}, 0, 1, 0, 1), 0.0);
  EXPECT_EQ(LocalMedian(TIntArray{}, 0, 1, 0, 1), 0.0);
}

TEST(LocalFilters, MedianIsThatOfTheSortedNeighbourhood) {
  std::mt19937 bits(3);
  for (int trial = 0; trial < 2000; ++trial) {
    TIntArray a;
    SetLength(a, static_cast<Integer>(bits() % 40 + 1));
    for (Integer& x : a) x = static_cast<Integer>(bits() % 20) - 10;
    TDoubleArray d(a.begin(), a.end());
    const auto ix = static_cast<Integer>(bits() % a.size()), radius = static_cast<Integer>(bits() % 12);
    const Integer last = Length(a) - 1, reach = std::min(radius, last);
    std::vector<double> near(d.begin() + std::max(0, ix - reach), d.begin() + std::min(last, ix + reach) + 1);
    std::sort(near.begin(), near.end());
    const double want = (near[(near.size() - 1) / 2] + near[near.size() / 2]) / 2;
    ASSERT_EQ(LocalMedian(d, ix, radius, 0, last), want);
    ASSERT_EQ(LocalMedian(a, ix, radius, 0, last), want);
  }
  EXPECT_EQ(LocalMedian(TIntArray{2147483647, 2147483647}, 0, 1, 0, 1), 2147483647.0);
}

TEST(Linearity, BreaksStandAtTheCorners) {
  TIntArray breaks = {42};
  EXPECT_EQ(CheckLinearity(TDoubleArray{1, 2, 3, 5, 7}, 1e-9, breaks), 1);
  EXPECT_THAT(breaks, ElementsAre(2));
  EXPECT_EQ(CheckLinearity(TDoubleArray{1, 2}, 0, breaks), 0);
  EXPECT_THAT(breaks, ElementsAre(2)) << "too short: untouched";
  EXPECT_EQ(CheckLinearity(TDoubleArray{0.1, 0.2, 0.3, 0.4}, 0, breaks), 2);
  EXPECT_EQ(CheckLinearity(TDoubleArray{1, 5, 2}, kNaN, breaks), 0);
  EXPECT_EQ(breaks, nullptr);
  TIntArray own = {kMinInteger, 2147483647, kMinInteger, 2147483647};
  EXPECT_EQ(CheckLinearity(own, own), 2) << "slopes need 33 bits";
  EXPECT_THAT(own, ElementsAre(1, 2));
  TDoubleArray zigzag;
  SetLength(zigzag, 1000);
  for (Integer i = 0; i < 1000; ++i) zigzag[i] = i % 2;
  EXPECT_EQ(CheckLinearity(zigzag, 0, breaks), 998);
  EXPECT_EQ(breaks[997], 998);
}

TEST(ObjectDistance, HasTheValuesOfItsFormulas) {
  const TDouble2DArray a = {{9, 9}, {1, 3}, {2, 0}, {0, 4}};  // rows (1 2 0) and (3 0 4) from column 1 on
  const auto distance = [&](TDistMode mode) {
    Double d = -1;
    EXPECT_EQ(DistanceOfObjects(a, mode, 0, 1, 1, 3, d), 0);
    return d;
  };
  EXPECT_EQ(distance(dmTanimoto), 3.0 / (5 + 25 - 3));
  EXPECT_EQ(distance(dmManhattan), 8.0);
  EXPECT_EQ(distance(dmEuclid), std::sqrt(24.0));
  EXPECT_EQ(distance(dmEuclidSqr), 24.0);
  EXPECT_EQ(distance(dmDice), 6.0 / 30.0);
  Double d = -1;
  DistanceOfObjects({{0, 0}}, dmTanimoto, 0, 1, 0, 0, d);
  EXPECT_EQ(d, 1.0);
  DistanceOfObjects({{0, 0}}, dmDice, 0, 1, 0, 0, d);
  EXPECT_EQ(d, 1.0);
}

TEST(ObjectDistance, LastFailingTestGivesTheCodeAndTheDistanceIsZero) {
  const TDouble2DArray a = {{1, 2}, {3, 4}};
  const auto code = [](const TDouble2DArray& data, TDistMode mode, Integer o1, Integer o2, Integer first,
                       Integer last) {
    Double d = 7;
    const Integer result = DistanceOfObjects(data, mode, o1, o2, first, last, d);
    EXPECT_EQ(d, 0.0);
    return result;
  };
  EXPECT_EQ(code(a, dmUserDef, 0, 1, 0, 1), kUserDistance);
  EXPECT_EQ(code(a, dmUserDef, 0, 2, 0, 1), kNoSuchObject);
  EXPECT_EQ(code(a, dmEuclid, -1, 2, 0, 2), kNoSuchVariable);
  EXPECT_EQ(code(a, dmUserDef, 0, 1, 1, 0), kReversedColumns);
  EXPECT_EQ(code({}, dmEuclid, 0, 0, 0, 0), kNoSuchVariable);
}

TEST(Discretizing, StepsAreClosedByTheLimits) {
  TDouble2DArray a = {{-1, 0, 5, 10, 11, kNaN}};
  EXPECT_EQ(DiscretizeArray(a, 3, 0, 10, 0, 2), 0);
  EXPECT_THAT(cells(a), ElementsAre(0, 0, 1, 2, 2, testing::NanSensitiveDoubleEq(kNaN)));
  TDouble2DArray below = {{std::nextafter(1.0, 0.0)}};
  DiscretizeArray(below, 199, -1, 1, 0, 198);
  EXPECT_EQ(below[0][0], 197.0) << "not the level of the upper limit";
  EXPECT_EQ(DiscretizeArray(a, 2, 0, 1, 0, 1), kTooFewSteps);
  EXPECT_EQ(DiscretizeArray(a, 2, 1, 1, 0, 1), kBadStepLimits);
  EXPECT_EQ(DiscretizeArray(a, 5, kNaN, 1, 0, 1), kBadStepLimits);
  EXPECT_EQ(DiscretizeArray(a, 5, -kInf, 1, 0, 1), kBadStepLimits);
  TDouble2DArray empty;
  EXPECT_EQ(DiscretizeArray(empty, 3, 0, 1, 0, 1), 0);
}

TEST(ColorMap, NumbersBecomeColoursFromOneOn) {
  ZOR_zorcolors::TColorArray colors;
  TInt2DArray a = {{-5, 1}, {2, 99}}, empty;
  EXPECT_EQ(ConvertToColorMap(a, &colors), kNoColors);
  EXPECT_EQ(ConvertToColorMap(empty, nullptr), kNoColors);
  colors.SetNrOfColors(2);
  colors.SetColorElem(1, 0x112233), colors.SetColorElem(2, 0x445566);
  EXPECT_EQ(ConvertToColorMap(empty, &colors), kNothingToMap);
  EXPECT_EQ(ConvertToColorMap(a, &colors), 0);
  EXPECT_EQ(a, (TInt2DArray{{0x112233, 0x112233}, {0x445566, 0x445566}}));
}

TEST(Resampling, CellsAreThoseOfTheIndices) {
  TDouble2DArray src;
  SetLength(src, 20, 30);
  for (Integer c = 0; c < 20; ++c) {
    for (Integer r = 0; r < 30; ++r) src[c][r] = 100 * c + r;
  }
  for (const bool bootstrap : {false, true}) {
    TDouble2DArray dest = {{0}};
    TIntArray col_ix = {0}, row_ix = {0};
    EXPECT_EQ(Resample2DArray(src, dest, 50, 100, bootstrap, col_ix, row_ix), 0);
    ASSERT_EQ(Length(dest), 10);
    for (Integer c = 0; c < 10; ++c) {
      ASSERT_EQ(Length(dest[c]), 30);
      for (Integer r = 0; r < 30; ++r) EXPECT_EQ(dest[c][r], 100 * (col_ix[c] - 1) + row_ix[r] - 1);
    }
    EXPECT_EQ(std::set<Integer>(col_ix.begin(), col_ix.end()).size(), 10u);
    const auto different = std::set<Integer>(row_ix.begin(), row_ix.end()).size();
    EXPECT_EQ(different == 30, !bootstrap);
    EXPECT_FALSE(std::is_sorted(row_ix.begin(), row_ix.end()));
  }
}

TEST(Resampling, AllColumnsStandInOrderAndTheSourceMayBeTheTarget) {
  TDouble2DArray a = {{1}, {2}, {3}};
  TIntArray col_ix = {0}, row_ix = {0};
  EXPECT_EQ(Resample2DArray(a, a, 100, 100, false, col_ix, row_ix), 0);
  EXPECT_EQ(a, (TDouble2DArray{{1}, {2}, {3}}));
  EXPECT_THAT(col_ix, ElementsAre(1, 2, 3));
  EXPECT_THAT(row_ix, ElementsAre(1));
}

TEST(Resampling, CodesComeInTheirOrderAndTouchNothing) {
  const TDouble2DArray src = {{1, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 10}};
  TDouble2DArray dest = {{42}}, none;
  TIntArray c = {42}, r = {42}, null;
  const auto code = [&](Double cols, Double rows) { return Resample2DArray(src, dest, cols, rows, false, c, r); };
  EXPECT_EQ(Resample2DArray(none, none, 50, 50, false, null, null), kNoSampleSource);
  EXPECT_EQ(Resample2DArray(src, none, 50, 50, false, null, r), kNoSampleDest);
  EXPECT_EQ(Resample2DArray(src, dest, 0, 50, false, null, r), kNoSampleIndices);
  EXPECT_EQ(Resample2DArray(src, dest, 50, 50, false, c, c), kNoSampleIndices);
  EXPECT_EQ(code(100.5, 100), kBadColumnShare);
  EXPECT_EQ(code(10, 100), kBadColumnShare) << "0.5 rounds to 0";
  EXPECT_EQ(code(kNaN, 100), kBadColumnShare);
  EXPECT_EQ(code(0, kNaN), kBadRowShare);
  EXPECT_EQ(code(50, -kInf), kBadRowShare);
  EXPECT_THAT(c, ElementsAre(42));
  EXPECT_EQ(dest, (TDouble2DArray{{42}}));
  EXPECT_EQ(code(50, 100), 0);
  EXPECT_EQ(c.size(), 2u) << "2.5 rounds to 2";
  TDouble2DArray tall;
  SetLength(tall, 1, 1'000'001);
  EXPECT_EQ(Resample2DArray(tall, dest, 100, 1, false, c, r), kSampleTooLarge);
  EXPECT_EQ(Resample2DArray(tall, dest, 100, 1, true, c, r), 0);
}

}  // namespace
}  // namespace ZOR_openarrays

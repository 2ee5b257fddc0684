#include <algorithm>
#include <random>

#include "tests/arrays/array_util.h"
#include "zor/scalar/ZOR_math1.h"

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

TEST(LocalFilters, MedianTakesTheStepsOfTheSortAndLeavesTheArray) {
  const TIntArray a = {5, 1, 4, 2, 3, 9, 0};
  TDoubleArray sorted = {2, 4, 3, 1, 9, 5, 0};  // by their distance from the centre
  const Double start = ProcStat;
  ZOR_math1::SortArray(sorted, true);
  const Double steps = ProcStat - start;
  EXPECT_EQ(LocalMedian(a, 3, 3, 0, 6), 3.0);
  EXPECT_EQ(ProcStat - start, 2 * steps);
  EXPECT_THAT(a, ElementsAre(5, 1, 4, 2, 3, 9, 0));
}

TEST(Linearity, BreaksStandAtTheCorners) {
  TIntArray breaks = {42};
  EXPECT_EQ(CheckLinearity(TDoubleArray{1, 2, 3, 5, 7}, 1e-9, breaks), 1);
  EXPECT_THAT(breaks, ElementsAre(2));
  EXPECT_EQ(CheckLinearity(TDoubleArray{1, 2}, 0, breaks), 0);
  EXPECT_THAT(breaks, ElementsAre(2)) << "too short: untouched";
  EXPECT_EQ(CheckLinearity(TDoubleArray{0.1, 0.2, 0.3, 0.4}, 0, breaks), 2);
  EXPECT_EQ(CheckLinearity(TDoubleArray{1, 2, 3, 4}, -1, breaks), 2) << "a negative tolerance breaks everywhere";
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

}  // namespace
}  // namespace ZOR_openarrays

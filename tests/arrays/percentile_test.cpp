#include <algorithm>
#include <cmath>
#include <random>

#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

TEST(Percentiles, AreTheCellAtTheRoundedRank) {
  const TDoubleArray four = {4, 2, 1, 3};
  EXPECT_EQ(PercentileArray(50, four), 3.0);
  EXPECT_EQ(PercentileArray(100, four), 4.0);
  EXPECT_EQ(PercentileArray(0, four), 1.0);
  EXPECT_EQ(PercentileArray(-7, four), 1.0);
  EXPECT_EQ(PercentileArray(700, four), 4.0);
  EXPECT_EQ(PercentileArray(50, TDoubleArray{1, 2, 3}), 3.0) << "1.5 rounds to 2";
  EXPECT_EQ(PercentileArray(50, TIntArray{5, 4, 3, 2, 1}), 3.0) << "2.5 rounds to 2";
  EXPECT_EQ(four, (TDoubleArray{4, 2, 1, 3})) << "the array itself is not sorted";
}

TEST(Percentiles, OfManyCellsAreThoseOfASort) {
  std::mt19937 bits(3);
  TDoubleArray a;
  SetLength(a, 20000);
  for (double& x : a) x = static_cast<double>(bits() % 5000);
  std::vector<double> sorted = cells(a);
  std::sort(sorted.begin(), sorted.end());
  for (const double pct : {0.0, 3.0, 49.9, 50.0, 97.5, 99.99}) {
    EXPECT_EQ(PercentileArray(pct, a), sorted[static_cast<std::size_t>(std::nearbyint(pct * 200))]) << pct;
  }
}

TEST(Percentiles, LimitAndOrderTheirBounds) {
  const TDoubleArray line = {9, 1, 2, 3, 4};
  EXPECT_EQ(PercentileArray(100, line, 1, 3), 3.0);
  EXPECT_EQ(PercentileArray(100, line, 3, 1), 3.0);
  EXPECT_EQ(PercentileArray(100, line, -5, kMinInteger), 9.0);
  EXPECT_EQ(PercentileArray(0, line, 2147483647, 3), 3.0);
  const TDouble2DArray plane = {{1, 2, 30}, {4, 5, 60}, {70, 80, 90}};
  EXPECT_EQ(PercentileArray(100, plane, 0, 0, 1, 1), 5.0);
  EXPECT_EQ(PercentileArray(100, plane, 1, 1, 0, -9), 5.0);
  EXPECT_EQ(PercentileArray(0, plane, 1, 2, 99, 99), 60.0);
}

TEST(Percentiles, OfNothingAndOfNaN) {
  EXPECT_EQ(PercentileArray(50, TDoubleArray{}), 0.0);
  EXPECT_EQ(PercentileArray(50, TDoubleArray{}, 0, 0), 0.0);
  EXPECT_EQ(PercentileArray(50, TDouble2DArray{{1}, {1, 2}}, 0, 0, 0, 0), 0.0);
  EXPECT_TRUE(std::isnan(PercentileArray(kNaN, TIntArray{1})));
  EXPECT_EQ(PercentileArray(0, TDoubleArray{kNaN, 2, 1}), 1.0);
  EXPECT_TRUE(std::isnan(PercentileArray(100, TDoubleArray{kNaN, 2, 1})));
}

}  // namespace
}  // namespace ZOR_openarrays

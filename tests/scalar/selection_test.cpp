#include "zor/scalar/selection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace ZOR_math1 {
namespace {

constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

TEST(QuickSelect, GivesTheCellOfTheSortedRange) {
  std::mt19937 bits(6);
  for (int round = 0; round < 3000; ++round) {
    std::vector<Double> cells(1 + bits() % 40);
    for (Double& c : cells) c = static_cast<Double>(bits() % 12);
    const auto n = static_cast<Integer>(cells.size());
    const Integer lo = static_cast<Integer>(bits()) & 31 % n, last = n - 1;
    const Integer low = std::min(lo, last), high = low + static_cast<Integer>(bits() % static_cast<unsigned>(n - low));
    const Integer k = low + static_cast<Integer>(bits() % static_cast<unsigned>(high - low + 1));
    std::vector<Double> sorted = cells;
    std::sort(sorted.begin() + low, sorted.begin() + high + 1);
    ASSERT_EQ(QuickSelect(std::span(cells), k, low, high), sorted[static_cast<std::size_t>(k)]);
  }
}

TEST(QuickSelect, TakesBoundsOutside) {
  const TDoubleArray cells = {4.0, 2.0, 8.0};
  const auto select = [&](Integer k, Integer lo, Integer hi) {
    TDoubleArray copy = CopyOf(cells);
    return QuickSelect(std::span<Double>(copy), k, lo, hi);
  };
  EXPECT_EQ(select(-5, 0, 2), 2.0);
  EXPECT_EQ(select(9, 0, 2), 4.0);  // what stood at Lo
  EXPECT_EQ(select(1, -7, 2147483647), 4.0);
  EXPECT_EQ(select(1, 2, 1), 0.0);
  EXPECT_EQ(select(1, 3, 7), 0.0);
  EXPECT_EQ(QuickSelect(std::span<Double>(), 0, 0, 0), 0.0);
}

TEST(QuickSelect, LeavesEqualCellsAlone) {
  TDoubleArray cells = {9.0, 0.0, -0.0, 0.0, 9.0};
  EXPECT_EQ(QuickSelect(std::span<Double>(cells), 2, 1, 3), 0.0);
  EXPECT_TRUE(std::signbit(cells[2]));
}

TEST(QuickSelectAroundAValue, FindsEveryRank) {
  const TDoubleArray cells = {5.0, 5.0, 1.0, 5.0, 9.0};
  const Double sorted[] = {1.0, 5.0, 5.0, 5.0, 9.0};
  for (Integer k = 0; k < 5; ++k) {
    EXPECT_EQ(QuickSelect(cells, k, 0, 4, 5.0), sorted[k]);
    EXPECT_EQ(QuickSelect(cells, k, 0, -1, 7.0), sorted[k]);
  }
  EXPECT_EQ(cells, (TDoubleArray{5.0, 5.0, 1.0, 5.0, 9.0}));
}

TEST(QuickSelectAroundAValue, TakesRanksOutside) {
  const TDoubleArray cells = {5.0, 9.0, 1.0, 5.0, 7.0};
  EXPECT_EQ(QuickSelect(cells, -3, 0, 4, 5.0), 1.0);
  EXPECT_EQ(QuickSelect(cells, -3, -9, 4, 5.0), 1.0);
  EXPECT_EQ(QuickSelect(cells, 5, 0, 4, 5.0), 9.0);  // the first of the others
  EXPECT_EQ(QuickSelect(cells, 3, 1, 4, 5.0), 1.0);  // 1 and 7 from index 1 on
  EXPECT_EQ(QuickSelect(TDoubleArray{5.0, 5.0}, 2, 0, 1, 5.0), 0.0);
  EXPECT_EQ(QuickSelect(TDoubleArray{5.0, 5.0}, 1, 0, 1, 5.0), 5.0);
  EXPECT_EQ(QuickSelect(std::span<const Double>(), 0, 0, 0, 5.0), 0.0);
}

TEST(QuickSelectAroundAValue, NaNEqualsNothing) {
  const TDoubleArray cells = {3.0, kNaN, 1.0};
  EXPECT_EQ(QuickSelect(cells, 0, 0, 2, kNaN), 1.0);
  EXPECT_EQ(QuickSelect(cells, 1, 0, 2, 1.0), 3.0);
  EXPECT_TRUE(std::isnan(QuickSelect(cells, 2, 0, 2, 1.0)));
}

}  // namespace
}  // namespace ZOR_math1

#include "zor/scalar/sorting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace ZOR_math1 {
namespace {

/// Installs a feedback procedure for the length of a test.
struct FeedBack {
  explicit FeedBack(TMathFeedBackProc proc) { MathFeedBackProc = proc; }
  ~FeedBack() { MathFeedBackProc = nullptr; }
};

int told;

template <class T>
struct SortArrayOf : testing::Test {
  std::vector<T> random_cells(std::size_t n) {
    std::mt19937 bits(static_cast<unsigned>(n));
    std::vector<T> cells(n);
    for (T& c : cells) c = static_cast<T>(static_cast<Integer>(bits() % 1000) - 500);
    return cells;
  }
};
using CellTypes = testing::Types<Double, Single, Integer>;
TYPED_TEST_SUITE(SortArrayOf, CellTypes);

TYPED_TEST(SortArrayOf, SortsBothWaysWithAndWithoutAListener) {
  for (const std::size_t n : {0U, 1U, 2U, 3U, 10U, 100U, 5000U}) {
    const auto cells = this->random_cells(n);
    auto sorted = cells, ascending = cells, told_ascending = cells, descending = cells;
    std::sort(sorted.begin(), sorted.end());
    SortArray(ascending, true);
    EXPECT_EQ(ascending, sorted);
    {
      const FeedBack listener([](Double) {});
      SortArray(told_ascending, true);
    }
    EXPECT_EQ(told_ascending, sorted);
    std::reverse(sorted.begin(), sorted.end());
    SortArray(descending, false);
    EXPECT_EQ(descending, sorted);
  }
}

// The lengths of the gap sequence max(1, floor(10 gap / 13)), counted apart.
TYPED_TEST(SortArrayOf, CountsItsPasses) {
  const std::pair<Integer, Double> passes[] = {{0, 0}, {1, 0},  {2, 1},    {3, 2},     {4, 3},
                                               {8, 5}, {11, 6}, {100, 13}, {1000, 22}, {1'000'000, 49}};
  for (const auto& [n, expected] : passes) {
    std::vector<TypeParam> cells(static_cast<std::size_t>(n));
    std::iota(cells.begin(), cells.end(), TypeParam{});
    const Double before = ProcStat;
    SortArray(cells, true);
    EXPECT_EQ(ProcStat - before, expected) << n;
    if (n > 1000) continue;
    told = 0;
    const FeedBack listener([](Double) { ++told; });
    SortArray(cells, true);
    EXPECT_EQ(told, expected) << n;
  }
}

TYPED_TEST(SortArrayOf, MakesTheSamePassesForAListener) {
  auto cells = this->random_cells(777), again = cells;
  const Double before = ProcStat;
  SortArray(cells, false);
  const Double silent = ProcStat - before;
  told = 0;
  const FeedBack listener([](Double) { ++told; });
  SortArray(again, false);
  EXPECT_EQ(told, silent);
}

TYPED_TEST(SortArrayOf, UntypedCellsFollowTheirKind) {
  const auto kinds = std::is_same_v<TypeParam, Double>   ? std::vector{vkDouble, vkExtended}
                     : std::is_same_v<TypeParam, Single> ? std::vector{vkSingle}
                                                         : std::vector{vkInteger, vkLongint};
  for (const TVarKind kind : kinds) {
    auto cells = this->random_cells(50), sorted = cells;
    std::sort(sorted.begin(), sorted.begin() + 40);
    SortArray(cells.data(), 40, kind, true);
    EXPECT_EQ(cells, sorted);
    SortArray(cells.data(), -3, kind, false);
    SortArray(nullptr, 3, kind, false);
    SortArray(cells.data(), 40, static_cast<TVarKind>(9), false);
    EXPECT_EQ(cells, sorted);
  }
}

TEST(SortArray, GoesOnWhereTheListenerTakesItselfOff) {
  std::vector<Double> cells(1000);
  std::iota(cells.rbegin(), cells.rend(), 0.0);
  const FeedBack listener([](Double) { MathFeedBackProc = nullptr; });
  SortArray(cells, true);
  EXPECT_TRUE(std::is_sorted(cells.begin(), cells.end()));
}

TEST(SortArray, IgnoresTheAbortFlagAndSortsPartsOfArrays) {
  AbortMathProc = true;
  TDoubleArray cells = {9.0, 3.0, 2.0, 1.0, 0.0};
  SortArray(std::span<Double>(cells).subspan(1, 3), true);
  EXPECT_EQ(cells, (TDoubleArray{9.0, 1.0, 2.0, 3.0, 0.0}));
  EXPECT_TRUE(AbortMathProc);
  AbortMathProc = false;
}

TEST(SortArray, NaNNeverMoves) {
  TDoubleArray cells = {3.0, std::numeric_limits<Double>::quiet_NaN(), 2.0, 1.0};
  SortArray(cells, true);
  EXPECT_TRUE(std::isnan(cells[1]));
}

TEST(SortSwap, TellsEqualValuesAscendingOnly) {
  const auto swapped = [](Double a, Double b, Boolean ascending) {
    const Boolean told_swapped = SortSwap(a, b, ascending);
    return std::tuple(a, b, told_swapped);
  };
  EXPECT_EQ(swapped(1, 2, true), std::tuple(1.0, 2.0, false));
  EXPECT_EQ(swapped(2, 1, true), std::tuple(1.0, 2.0, true));
  EXPECT_EQ(swapped(1, 2, false), std::tuple(2.0, 1.0, true));
  EXPECT_EQ(swapped(2, 1, false), std::tuple(2.0, 1.0, false));
  EXPECT_TRUE(std::get<2>(swapped(1, 1, true)));
  EXPECT_FALSE(std::get<2>(swapped(1, 1, false)));
}

}  // namespace
}  // namespace ZOR_math1

#include "zor/kernels/selection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <type_traits>
#include <vector>

#include "zor/kernels/dispatch.h"

namespace zor::kernels {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// Inputs of n cells without NaN: distinct, few values, runs, extremes of the type.
template <class T>
std::vector<std::vector<T>> inputs(std::size_t n) {
  std::mt19937 random(static_cast<std::uint32_t>(n) + 3);
  std::vector<std::vector<T>> all(8, std::vector<T>(n));
  const T extremes[] = {std::numeric_limits<T>::lowest(), std::numeric_limits<T>::max(), T(0), T(-1)};
  for (std::size_t i = 0; i < n; ++i) {
    all[0][i] = static_cast<T>(static_cast<std::int32_t>(random()));
    all[1][i] = static_cast<T>(random() % 3);
    all[2][i] = static_cast<T>(i);
    all[3][i] = static_cast<T>(n - i);
    all[4][i] = static_cast<T>(i < n / 2 ? i : n - i);
    all[5][i] = T(7);
    all[6][i] = extremes[random() % 4];
    all[7][i] = random() % 10 == 0 ? static_cast<T>(random() % 1000) : T(500);  // one abundant value
  }
  if constexpr (std::is_floating_point_v<T>) {
    const T special[] = {-T(0), T(0), std::numeric_limits<T>::infinity(), -std::numeric_limits<T>::infinity(),
                         std::numeric_limits<T>::denorm_min()};
    for (T& v : all.emplace_back(n)) v = special[random() % 5];
  }
  return all;
}

template <class T>
class Selection : public testing::Test {
 protected:
  ~Selection() override { limit_level(Level::v4); }

  template <class Check>
  void for_all(const std::vector<std::size_t>& sizes, Check check) {
    for (int level = 0; level <= static_cast<int>(best_level()); ++level) {
      limit_level(static_cast<Level>(level));
      for (const std::size_t n : sizes) {
        for (const std::vector<T>& x : inputs<T>(n)) {
          std::vector<T> sorted = x;
          std::sort(sorted.begin(), sorted.end());
          check(x, sorted);
        }
      }
    }
  }
};

using Cells = testing::Types<double, std::int32_t>;
TYPED_TEST_SUITE(Selection, Cells);

TYPED_TEST(Selection, FindsWhatASortPutsAtTheRankAndKeepsTheCells) {
  this->for_all({1, 2, 3, 10, 100, 1025, 3001, 20000}, [](const auto& x, const auto& sorted) {
    const std::size_t n = x.size();
    for (const std::size_t k : {std::size_t{0}, n / 100, n / 3, n / 2, n - n / 50 - 1, n - 1}) {
      auto work = x;
      EXPECT_EQ(select_kth(std::span(work), k), sorted[k]) << k << " of " << n;
      std::sort(work.begin(), work.end());
      EXPECT_EQ(work, sorted) << "some cell was lost, " << k << " of " << n;
    }
  });
}

TYPED_TEST(Selection, FindsNeighbours) {
  this->for_all({2, 50, 1500, 9000}, [](const auto& x, const auto& sorted) {
    const std::size_t n = x.size();
    for (const std::size_t k : {std::size_t{0}, n / 4, n / 2, n - 2}) {
      auto work = x;
      const auto [lower, upper] = select_pair(std::span(work), k);
      EXPECT_EQ(lower, sorted[k]);
      EXPECT_EQ(upper, sorted[std::min(k + 1, n - 1)]);
    }
  });
}

TYPED_TEST(Selection, FindsManyRanksInOneCallAlsoOutOfOrder) {
  this->for_all({5, 4000}, [](const auto& x, const auto& sorted) {
    const std::size_t n = x.size();
    const std::vector<std::size_t> ranks = {0,         1,     n / 4,          n / 4,          n / 4 + 1, n / 2,
                                            n / 2 + 1, n - 1, 3 * n / 4,      n / 2 + n / 60, 2,         n,
                                            n + 100,   n / 3, n / 3 + n / 40, n / 5};
    std::vector<TypeParam> values(ranks.size());
    auto work = x;
    select_many(std::span(work), ranks, std::span(values));
    for (std::size_t j = 0; j < ranks.size(); ++j) EXPECT_EQ(values[j], sorted[std::min(ranks[j], n - 1)]) << ranks[j];
  });
}

TYPED_TEST(Selection, UnmovedFindsTheSame) {
  this->for_all({1, 2, 77, 1000}, [](const auto& x, const auto& sorted) {
    for (std::size_t k = 0; k < x.size(); k += 1 + x.size() / 7)
      EXPECT_EQ(select_unmoved(std::span(x), k), sorted[k]) << k << " of " << x.size();
  });
}

TYPED_TEST(Selection, RanksBeyondTheEndMeanTheLastCell) {
  std::vector<TypeParam> x = {3, 1, 2};
  constexpr std::size_t far = std::numeric_limits<std::size_t>::max();
  EXPECT_EQ(select_kth(std::span(x), 3), TypeParam(3));
  EXPECT_EQ(select_pair(std::span(x), far).lower, TypeParam(3));
  EXPECT_EQ(select_pair(std::span(x), 2).upper, TypeParam(3));
  EXPECT_EQ(select_unmoved(std::span<const TypeParam>(x), far), TypeParam(3));
}

TYPED_TEST(Selection, OfNoCellsIsZero) {
  std::span<TypeParam> none;
  EXPECT_EQ(select_kth(none, 0), TypeParam(0));
  EXPECT_EQ(select_pair(none, 5).upper, TypeParam(0));
  EXPECT_EQ(select_unmoved(std::span<const TypeParam>(), 0), TypeParam(0));
}

TEST(SelectionOfNaN, CountsNaNAsGreatest) {
  for (const std::size_t n : {4u, 100u, 2500u}) {
    std::mt19937 random(5);
    std::vector<double> x(n), numbers;
    for (double& v : x) {
      v = random() % 3 == 0 ? kNaN : static_cast<double>(random());
      if (!std::isnan(v)) numbers.push_back(v);
    }
    std::sort(numbers.begin(), numbers.end());
    for (std::size_t k = 0; k < n; k += 1 + n / 20) {
      std::vector<double> work = x;
      const double moved = select_kth(work, k), unmoved = select_unmoved(x, k);
      if (k < numbers.size()) {
        EXPECT_EQ(moved, numbers[k]) << k;
        EXPECT_EQ(unmoved, numbers[k]) << k;
      } else {
        EXPECT_TRUE(std::isnan(moved) && std::isnan(unmoved)) << k;
      }
    }
  }
}

TEST(SelectionOfZeros, GivesAZeroOfTheCells) {
  std::vector<double> negative(3000, -0.0), positive(3000, 0.0);
  EXPECT_TRUE(std::signbit(select_kth(negative, 10)) && std::signbit(select_unmoved(negative, 10)));
  EXPECT_FALSE(std::signbit(select_kth(positive, 10)) || std::signbit(select_unmoved(positive, 10)));
}

TEST(QuickSelect, KnowsTheSmallCases) {
  std::vector<double> x = {3, 0};
  EXPECT_EQ(quick_select(x, 1, 0, 1), 3);
  x = {1, 3, 2};
  EXPECT_EQ(quick_select(x, 1, 0, 2), 2);
  EXPECT_EQ(quick_select(x, 1, 2, 1), 0.0);
  EXPECT_EQ(quick_select({}, 0, 0, 0), 0.0);
  x = {4, 4, 4, 1};
  EXPECT_EQ(quick_select(x, 1, 0, 2), 4);
  EXPECT_EQ(x, (std::vector<double>{4, 4, 4, 1}));
}

// Orders from a transcription of the rules of the declaration into Python.
TEST(QuickSelect, LeavesTheCellsInTheOrderOfThePlainAlgorithm) {
  const std::vector<double> cells = {5, 2, 9, 1, 7, 3, 2, 8};
  std::vector<double> x = cells;
  EXPECT_EQ(quick_select(x, 2, 0, 7), 2);
  EXPECT_EQ(x, (std::vector<double>{1, 2, 2, 5, 3, 7, 9, 8}));
  x = cells;
  EXPECT_EQ(quick_select(x, 4, 1, 6), 3);
  EXPECT_EQ(x, (std::vector<double>{5, 1, 2, 2, 3, 7, 9, 8}));
}

TEST(QuickSelect, EndsForEveryRankOfAllSmallArrays) {
  const double values[] = {0, 1, 2, kNaN};
  for (std::size_t n = 1; n <= 5; ++n) {
    for (std::size_t code = 0; code < std::size_t{1} << (2 * n); ++code) {
      std::vector<double> x(n);
      for (std::size_t i = 0; i < n; ++i) x[i] = values[code >> (2 * i) & 3];
      std::vector<double> sorted = x;
      const bool numbers = std::none_of(x.begin(), x.end(), [](double v) { return std::isnan(v); });
      if (numbers) std::sort(sorted.begin(), sorted.end());
      const auto last = static_cast<std::int64_t>(n) - 1;
      for (std::int64_t k = -1; k <= last + 1; ++k) {
        std::vector<double> work = x;
        const double value = quick_select(work, k, -3, last + 4);
        if (!numbers) continue;
        EXPECT_EQ(value, k > last ? x[0] : sorted[static_cast<std::size_t>(std::max<std::int64_t>(k, 0))]);
      }
    }
  }
}

}  // namespace
}  // namespace zor::kernels

#include "zor/kernels/comb_sort.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <type_traits>
#include <utility>
#include <vector>

#include "zor/kernels/dispatch.h"

namespace zor::kernels {
namespace {

template <class T>
using Fill = std::function<T(std::size_t i, std::size_t n, std::mt19937& random)>;

// Kinds of input; the floating types get NaN, zeros of both signs and infinities among equal keys as well.
template <class T>
std::vector<Fill<T>> fills() {
  std::vector<Fill<T>> all = {
      [](std::size_t, std::size_t, std::mt19937& r) { return static_cast<T>(static_cast<std::int32_t>(r()) / 7); },
      [](std::size_t, std::size_t, std::mt19937& r) { return static_cast<T>(r() % 5); },
      [](std::size_t i, std::size_t, std::mt19937&) { return static_cast<T>(i); },
      [](std::size_t i, std::size_t n, std::mt19937&) { return static_cast<T>(n - i); },
      [](std::size_t i, std::size_t n, std::mt19937&) { return static_cast<T>(i < n / 2 ? i : n - i); },
  };
  if constexpr (std::is_floating_point_v<T>) {
    all.push_back([](std::size_t, std::size_t, std::mt19937& r) {
      const T values[] = {T(0), -T(0), std::numeric_limits<T>::infinity(), -std::numeric_limits<T>::infinity(), T(1)};
      return values[r() % 5];
    });
    all.push_back([](std::size_t, std::size_t, std::mt19937& r) {
      return r() % 4 == 0 ? std::numeric_limits<T>::quiet_NaN() : static_cast<T>(r() % 100);
    });
  }
  return all;
}

// The plain loop of the header's preamble.
template <class T>
bool plain_pass(std::vector<T>& x, std::size_t gap, bool ascending) {
  bool exchanged = false;
  for (std::size_t i = 0; i + gap < x.size(); ++i) {
    if (ascending ? x[i] > x[i + gap] : x[i] < x[i + gap]) {
      std::swap(x[i], x[i + gap]);
      exchanged = true;
    }
  }
  return exchanged;
}

template <class T>
std::size_t plain_sort(std::vector<T>& x, std::size_t gap, bool ascending) {
  if (x.size() < 2 || gap < 1) return 0;
  std::size_t passes = 0;
  bool exchanged = false;
  do {
    gap = gap * 10 / 13 < 1 ? 1 : gap * 10 / 13;
    exchanged = plain_pass(x, gap, ascending);
    ++passes;
  } while (gap > 1 || exchanged);
  return passes;
}

template <class T>
bool same_bits(const std::vector<T>& a, const std::vector<T>& b) {
  return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
}

template <class T>
class CombSort : public testing::Test {
 protected:
  ~CombSort() override { limit_level(Level::v4); }

  // Calls check(input, ascending) for all kinds of input, both directions, every level of this processor.
  template <class Check>
  void for_all(const std::vector<std::size_t>& sizes, Check check) {
    for (int level = 0; level <= static_cast<int>(best_level()); ++level) {
      limit_level(static_cast<Level>(level));
      std::mt19937 random(20);
      for (const std::size_t n : sizes) {
        for (const Fill<T>& fill : fills<T>()) {
          std::vector<T> x(n);
          for (std::size_t i = 0; i < n; ++i) x[i] = fill(i, n, random);
          check(x, true);
          check(x, false);
          if (testing::Test::HasFailure()) return;
        }
      }
    }
  }

  void expect_plain_sort(const std::vector<T>& input, std::size_t start_gap, bool ascending) {
    std::vector<T> plain = input, ours = input;
    const std::size_t passes = plain_sort(plain, start_gap, ascending);
    EXPECT_EQ(comb_sort(std::span<T>(ours), start_gap, ascending), passes) << input.size() << " from " << start_gap;
    EXPECT_TRUE(same_bits(ours, plain)) << input.size() << " cells from gap " << start_gap;
  }
};

using Cells = testing::Types<double, float, std::int32_t>;
TYPED_TEST_SUITE(CombSort, Cells);

TYPED_TEST(CombSort, HasTheBitsAndPassesOfThePlainLoopForAllSmallSizes) {
  std::vector<std::size_t> sizes(201);
  for (std::size_t n = 0; n < sizes.size(); ++n) sizes[n] = n;
  this->for_all(sizes, [this](const auto& x, bool ascending) {
    this->expect_plain_sort(x, x.size(), ascending);
    if (!x.empty()) this->expect_plain_sort(x, x.size() - 1, ascending);
  });
}

TYPED_TEST(CombSort, HasTheBitsAndPassesOfThePlainLoopForLargeSizes) {
  this->for_all({997, 1024, 4099, 10000, 65536},
                [this](const auto& x, bool ascending) { this->expect_plain_sort(x, x.size(), ascending); });
}

TYPED_TEST(CombSort, StartsFromAnyGap) {
  this->for_all({2, 7, 40, 150}, [this](const auto& x, bool ascending) {
    for (const std::size_t gap : {0u, 1u, 2u, 3u, 4u, 5u, 7u, 12u, 30u, 77u, 149u, 151u, 1000u})
      this->expect_plain_sort(x, gap, ascending);
  });
}

TYPED_TEST(CombSort, PassTellsWhetherAnythingWasExchanged) {
  this->for_all({0, 1, 2, 5, 33, 100}, [](const auto& x, bool ascending) {
    for (const std::size_t gap : {1u, 2u, 3u, 4u, 7u, 8u, 17u, 32u, 99u, 100u, 200u}) {
      auto plain = x, ours = x;
      const bool exchanged = plain_pass(plain, gap, ascending);
      EXPECT_EQ(comb_pass(std::span<TypeParam>(ours), gap, ascending), exchanged) << x.size() << " with gap " << gap;
      EXPECT_TRUE(same_bits(ours, plain)) << x.size() << " with gap " << gap;
    }
  });
}

using CombSortPairs = CombSort<double>;

TEST_F(CombSortPairs, CompanionsGoWithTheirKeys) {
  for_all({0, 1, 2, 3, 5, 17, 40, 100, 997, 4099}, [](const std::vector<double>& x, bool ascending) {
    if (x.empty()) return;
    using Pair = std::pair<double, std::int64_t>;
    std::vector<Pair> plain;
    std::vector<double> keys = x, sorted;
    std::vector<std::int64_t> companions, expected;
    for (const double key : x)
      companions.push_back(static_cast<std::int64_t>(plain.size())), plain.emplace_back(key, companions.back());
    const std::size_t passes = comb_sort_with(
        x.size(), x.size() - 1,
        [&](std::size_t i, std::size_t j) {
          return ascending ? plain[i].first > plain[j].first : plain[i].first < plain[j].first;
        },
        [&](std::size_t i, std::size_t j) { std::swap(plain[i], plain[j]); }, [] {});
    for (const Pair& p : plain) sorted.push_back(p.first), expected.push_back(p.second);
    EXPECT_EQ(comb_sort_pairs(keys, companions, x.size() - 1, ascending), passes) << x.size();
    EXPECT_TRUE(same_bits(keys, sorted)) << x.size();
    EXPECT_EQ(companions, expected) << x.size();
  });
}

TEST(CombSortPasses, OfSortedInputAreTheLengthOfTheGapSequence) {
  const std::pair<std::size_t, std::size_t> known[] = {{0, 0},  {1, 0},  {2, 1},    {3, 2},     {4, 3},       {8, 5},
                                                       {10, 5}, {11, 6}, {100, 13}, {1000, 22}, {1000000, 49}};
  for (const auto& [n, passes] : known) {
    std::vector<double> x(n);
    for (std::size_t i = 0; i < n; ++i) x[i] = static_cast<double>(i);
    EXPECT_EQ(comb_sort(std::span<double>(x), n, true), passes) << n;
  }
}

TEST(CombSortPasses, GapOfTheLargestSizesDoesNotOverflow) {
  EXPECT_EQ(next_comb_gap(214748365), 165191050u);
  EXPECT_EQ(next_comb_gap(std::size_t{13} << 59), std::size_t{10} << 59);
  EXPECT_EQ(next_comb_gap(1), 1u);
  std::vector<double> x = {2, 1};
  EXPECT_EQ(comb_sort(std::span<double>(x), std::numeric_limits<std::size_t>::max(), true), 166u);
  EXPECT_EQ(x, (std::vector<double>{1, 2}));
}

TEST(CombSortWith, ShowsEachExchangeAndEachPassInTurn) {
  std::vector<int> x = {5, 1, 4, 1, 3, 9, 2, 6}, carried = {0, 1, 2, 3, 4, 5, 6, 7};
  const std::vector<int> before = x;
  std::vector<std::size_t> exchanges_of_pass = {0};
  const std::size_t passes = comb_sort_with(
      x.size(), x.size() - 1, [&](std::size_t i, std::size_t j) { return x[i] > x[j]; },
      [&](std::size_t i, std::size_t j) {
        std::swap(x[i], x[j]);
        std::swap(carried[i], carried[j]);
        ++exchanges_of_pass.back();
      },
      [&] { exchanges_of_pass.push_back(0); });
  std::vector<std::int32_t> same(before.begin(), before.end());
  EXPECT_EQ(comb_sort(std::span<std::int32_t>(same), same.size() - 1, true), passes);
  EXPECT_TRUE(std::equal(x.begin(), x.end(), same.begin()));
  for (std::size_t i = 0; i < x.size(); ++i) EXPECT_EQ(before[static_cast<std::size_t>(carried[i])], x[i]);
  ASSERT_EQ(exchanges_of_pass.size(), passes + 1);
  EXPECT_EQ(exchanges_of_pass[passes - 1], 0u) << "the last pass exchanges nothing";
}

}  // namespace
}  // namespace zor::kernels

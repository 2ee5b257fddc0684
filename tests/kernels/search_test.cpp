#include "zor/kernels/search.h"

#include <gtest/gtest.h>

#include "tests/kernels/runs.h"

namespace zor::kernels {
namespace {

using test::kInf;
using test::kLengths;
using test::kNaN;
using test::noise;
using test::on_every_level;
using Int = std::int32_t;

TEST(Search, FindsTheFirstOfEqualCellsAtEveryPlace) {
  on_every_level([] {
    for (const std::size_t n : kLengths) {
      for (std::size_t at = 0; at < n; at += n / 7 + 1) {
        std::vector<double> x(n, 1.0);
        std::vector<Int> k(n, 1);
        x[at] = x[n - 1] = -0.0;
        k[at] = k[n - 1] = -5;
        EXPECT_EQ(find_equal(x, 0.0), at);
        EXPECT_EQ(find_equal(k, -5), at);
        EXPECT_EQ(count_equal(x, 0.0), at == n - 1 ? 1u : 2u);
        EXPECT_EQ(count_equal(k, 1), at == n - 1 ? n - 1 : n - 2);
        EXPECT_EQ(first_difference(x, std::vector<double>(n, 1.0)), at);
        EXPECT_EQ(first_difference(k, std::vector<Int>(n, 1)), at);
        EXPECT_EQ(all_equal(x), n <= 1 || (at == 0 && n == 2));
      }
      EXPECT_EQ(find_equal(std::vector<double>(n, kNaN), kNaN), kNone);
      EXPECT_EQ(find_equal(std::vector<Int>(n, 3), 4), kNone);
    }
  });
}

TEST(Search, NearestIsThatOfThePlainLoop) {
  on_every_level([] {
    for (const std::size_t n : kLengths) {
      for (const auto& x : {noise<double>(n), test::edges(n), std::vector<double>(n, 0.5)}) {
        double expected = 1e300, difference = 1e300;
        std::size_t at = kNone;
        for (std::size_t i = 0; i < n; ++i)
          if (std::abs(x[i] - 0.1) < expected) expected = std::abs(x[i] - 0.1), at = i;
        EXPECT_EQ(nearest(x, 0.1, difference), at);
        EXPECT_EQ(difference, expected);
      }
    }
  });
}

TEST(Search, NearestTakesDifferencesOfIntegersIn64Bits) {
  std::int64_t difference = std::numeric_limits<std::int64_t>::max();
  const std::vector<Int> x{-2'147'483'647 - 1, 2'147'483'647, 0, 2'147'483'647};
  EXPECT_EQ(nearest(x, 2'147'483'646, difference), 1u);
  EXPECT_EQ(difference, 1);
  difference = std::numeric_limits<std::int64_t>::max();
  EXPECT_EQ(nearest(std::span(x).first(1), 2'147'483'647, difference), 0u);
  EXPECT_EQ(difference, 4'294'967'295);
}

TEST(Search, NothingIsNearerThanTheStart) {
  double difference = 0.5;
  EXPECT_EQ(nearest(std::vector<double>{1.0, 2.0, kNaN}, 0.5, difference), kNone);
  EXPECT_EQ(difference, 0.5);
  EXPECT_EQ(nearest(std::vector<double>{kInf}, kInf, difference), kNone);  // infinity - infinity is NaN
}

TEST(Search, RunsAreEqualIfTheirLengthsAndCellsAre) {
  const std::vector<double> x{1.0, 0.0}, y{1.0, -0.0}, z{1.0}, nan{kNaN};
  EXPECT_TRUE(equal(x, y));
  EXPECT_FALSE(equal(x, z));
  EXPECT_FALSE(equal(nan, nan));
  EXPECT_FALSE(all_equal(nan));
  EXPECT_TRUE(all_equal(std::vector<double>{}));
  EXPECT_TRUE(all_equal(std::vector<Int>(70, 2)));
  EXPECT_TRUE(equal(std::vector<Int>{1, 2}, std::vector<Int>{1, 2}));
}

}  // namespace
}  // namespace zor::kernels

#include "zor/kernels/sums.h"

#include <gtest/gtest.h>

#include "tests/kernels/runs.h"

namespace zor::kernels {
namespace {

using test::kLengths;
using test::noise;
using test::same;

/// The plain loop, which the compiler may not reorder.
template <class Term>
double plain(std::size_t n, Term term, double start = 0.0) {
  volatile double sum = start;
  for (std::size_t i = 0; i < n; ++i) sum = sum + term(i);
  return sum;
}

TEST(Sums, InOrderHaveTheBitsOfThePlainLoop) {
  for (const std::size_t n : kLengths) {
    for (const bool wild : {false, true}) {
      const auto x = wild ? test::edges(n, 1) : noise<double>(n, 1);
      const auto y = wild ? test::edges(n, 5) : noise<double>(n, 5);
      EXPECT_TRUE(same(sum_in_order(x), plain(n, [&](std::size_t i) { return x[i]; })));
      EXPECT_TRUE(same(dot_in_order(x, y), plain(n, [&](std::size_t i) { return x[i] * y[i]; })));
      EXPECT_TRUE(same(sum_of_squares_in_order(x), plain(n, [&](std::size_t i) { return x[i] * x[i]; })));
      EXPECT_TRUE(same(squared_distance_in_order(x, y),
                       plain(n, [&](std::size_t i) { return (x[i] - y[i]) * (x[i] - y[i]); })));
    }
  }
}

TEST(Sums, OfTwoRunsIsTheSumOfTheWhole) {
  const auto x = noise<double>(101), y = noise<double>(101, 2);
  const std::span<const double> xs = x, ys = y;
  EXPECT_EQ(sum_in_order(xs.subspan(40), sum_in_order(xs.first(40))), sum_in_order(xs));
  EXPECT_EQ(dot_in_order(xs.subspan(7), ys.subspan(7), dot_in_order(xs.first(7), ys.first(7))), dot_in_order(xs, ys));
}

TEST(Sums, StridedTakeEveryKthCellAlsoBackwards) {
  const std::vector<double> x{1, 2, 3, 4, 5, 6}, y{10, 20, 30};
  EXPECT_EQ(dot_strided_in_order(x.data(), 2, y.data(), 1, 3), 1 * 10 + 3 * 20 + 5 * 30);
  EXPECT_EQ(dot_strided_in_order(x.data(), 2, y.data() + 2, -1, 3, 0.5), 0.5 + 1 * 30 + 3 * 20 + 5 * 10);
  EXPECT_EQ(sum_strided_in_order(x.data() + 1, 2, 3), 2 + 4 + 6);
}

TEST(Sums, OfIntegersWrapAroundOrAreExactIn64Bits) {
  const std::vector<std::int32_t> x{2'147'483'647, 2, 65'536}, y{1, 0, 65'537};
  EXPECT_EQ(sum_wrapping(x), -2'147'418'111);
  EXPECT_EQ(dot_wrapping(x, y), -2'147'418'113);
  EXPECT_EQ(sum_wide(x), 2'147'549'185);
  for (const std::size_t n : kLengths) {
    const auto a = noise<std::int32_t>(n, 1), b = noise<std::int32_t>(n, 2);
    std::uint64_t sum = 0, dot = 0;
    for (std::size_t i = 0; i < n; ++i) {
      sum += static_cast<std::uint64_t>(std::int64_t{a[i]});
      dot += static_cast<std::uint64_t>(std::int64_t{a[i]} * b[i]);
    }
    EXPECT_EQ(sum_wrapping(a), static_cast<std::int32_t>(static_cast<std::uint32_t>(sum)));
    EXPECT_EQ(dot_wrapping(a, b), static_cast<std::int32_t>(static_cast<std::uint32_t>(dot)));
    EXPECT_EQ(sum_wide(a), static_cast<std::int64_t>(sum));
  }
}

}  // namespace
}  // namespace zor::kernels

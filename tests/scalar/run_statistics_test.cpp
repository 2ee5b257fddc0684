#include <gtest/gtest.h>

#include <numeric>
#include <vector>

#include "zor/scalar/run_statistics_internal.h"

namespace zor::detail {
namespace {

/// A walk over cells in runs of `length`.
template <class T>
auto in_runs(const std::vector<T>& cells, std::size_t length) {
  return [&cells, length](auto take) {
    for (std::size_t i = 0; i < cells.size(); i += length)
      take(std::span<const T>(cells).subspan(i, std::min(length, cells.size() - i)));
  };
}

TEST(RunStatistics, DoNotDependOnTheRunsNorOnTheKindOfCells) {
  std::vector<std::int32_t> whole(1300);
  std::iota(whole.begin(), whole.end(), 1);
  const std::vector<double> real(whole.begin(), whole.end());
  const double n = 1300.0;
  for (const std::size_t length : {1U, 7U, 512U, 1300U}) {
    const auto check = [&](auto walk) {
      const auto moments = sample_mean_variance_of(walk);
      EXPECT_EQ(moments.mean, (n + 1.0) / 2.0);
      EXPECT_EQ(moments.variance, n * (n + 1.0) / 12.0);
      EXPECT_NEAR(logarithms_of(walk).sum, std::lgamma(n + 1.0), 1e-9);
      EXPECT_NEAR(skew_kurt_of(n, walk).skewness, 0.0, 1e-12);
    };
    check(in_runs(whole, length));
    check(in_runs(real, length));
    EXPECT_EQ(sum_of<double>(in_runs(real, length)), n * (n + 1.0) / 2.0);
    EXPECT_EQ(sum_of<std::int32_t>(in_runs(whole, length)), 1300 * 1301 / 2);
    EXPECT_EQ(count_between(2.0, 10.5, in_runs(real, length)), 9U);
  }
}

TEST(RunStatistics, KnowTheCellsThatAMeanRefuses) {
  const std::vector<double> cells = {4.0, 0.0, -1.0};
  EXPECT_TRUE(logarithms_of(in_runs(cells, 1)).zero);
  EXPECT_TRUE(logarithms_of(in_runs(cells, 2)).negative);
  EXPECT_TRUE(reciprocals_of(in_runs(cells, 2)).not_positive);
  EXPECT_EQ(reciprocals_of(in_runs(std::vector<std::int32_t>{2, 4}, 1)).sum, 0.75);
  const std::vector<std::int32_t> huge = {2147483647, 1};
  EXPECT_EQ(sum_of<std::int32_t>(in_runs(huge, 1)), std::numeric_limits<std::int32_t>::min()) << "integers wrap";
}

}  // namespace
}  // namespace zor::detail

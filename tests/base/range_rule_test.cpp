#include "zor/base/range_rule.h"

#include <gtest/gtest.h>

#include <tuple>
#include <utility>

namespace zor::detail {
namespace {

TEST(RangeRule, GivesAnEmptyRangeWhereThereIsNothing) {
  for (const auto& [low, high, result] : {std::tuple(0, 0, 0), std::tuple(1, 1, -1), std::tuple(-3, 7, -1)}) {
    std::int32_t lo = low, hi = high;
    EXPECT_EQ(make_valid_range(lo, hi, 0), result);
    EXPECT_EQ(std::pair(lo, hi), std::pair(1, 0));
  }
}

}  // namespace
}  // namespace zor::detail

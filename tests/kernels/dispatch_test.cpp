#include "zor/kernels/dispatch.h"

#include <gtest/gtest.h>

namespace zor::kernels {
namespace {

TEST(Dispatch, LimitLowersTheLevelAndNeverRaisesItAboveTheProcessor) {
  limit_level(Level::v2);
  EXPECT_EQ(active_level(), Level::v2);
  limit_level(Level::v4);
  EXPECT_EQ(active_level(), best_level());
}

}  // namespace
}  // namespace zor::kernels

#include "zor/kernels/dispatch.h"

#include <gtest/gtest.h>

#include "tests/level_from_environment.h"

namespace zor::kernels {
namespace {

/// Each test begins on the level that the environment names: on processors with more levels the lower ones are tested
/// too.
class LevelFromEnvironment : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override { ASSERT_TRUE(test::limit_level_from_environment()); }
};
[[maybe_unused]] const bool listens = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new LevelFromEnvironment);
  return true;
}();

TEST(Dispatch, LimitLowersTheLevelAndNeverRaisesItAboveTheProcessor) {
  limit_level(Level::v2);
  EXPECT_EQ(active_level(), Level::v2);
  limit_level(Level::v4);
  EXPECT_EQ(active_level(), best_level());
}

}  // namespace
}  // namespace zor::kernels

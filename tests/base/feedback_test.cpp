#include "zor/base/feedback.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "zor/base/feedback_scope.h"

namespace ZOR_zorbase {
namespace {

using zor::detail::feedback_listens;
using zor::detail::feedback_step;
using zor::detail::feedback_step_aborts;

std::vector<double> g_told;
void write_down(double steps) { g_told.push_back(steps); }

/// The hooks as they are at program start, and given back so.
class Hooks : public ::testing::Test {
 protected:
  Hooks() { reset(); }
  ~Hooks() override { reset(); }
  static void reset() {
    MathFeedBackProc = nullptr;
    AbortMathProc = false;
    ProcStat = 0.0;
    g_told.clear();
  }
};
using FeedbackStep = Hooks;
using FeedbackScope = Hooks;

TEST_F(FeedbackStep, CountsWithAndWithoutAProcedure) {
  feedback_step();
  EXPECT_FALSE(feedback_listens());
  MathFeedBackProc = write_down;
  EXPECT_TRUE(feedback_listens());
  feedback_step();
  feedback_step(2.5);
  EXPECT_EQ(g_told, (std::vector<double>{2.0, 4.5}));
  EXPECT_EQ(ProcStat, 4.5);
}

TEST_F(FeedbackStep, StopsInTheStepInWhichTheFlagIsSet) {
  MathFeedBackProc = [](double steps) { AbortMathProc = steps >= 2.0; };
  EXPECT_FALSE(feedback_step_aborts());
  EXPECT_TRUE(feedback_step_aborts());
  MathFeedBackProc = nullptr;
  EXPECT_TRUE(feedback_step_aborts()) << "the flag stays until somebody clears it";
}

TEST_F(FeedbackScope, InstallsAndRestoresTheHooks) {
  MathFeedBackProc = write_down;
  AbortMathProc = true;
  std::vector<double> told;
  {
    const TFeedbackScope scope([&](double steps) { told.push_back(steps); });
    EXPECT_FALSE(AbortMathProc);
    EXPECT_FALSE(feedback_step_aborts());
    AbortMathProc = true;
    EXPECT_TRUE(feedback_step_aborts());
  }
  EXPECT_EQ(told, (std::vector<double>{1.0, 2.0}));
  EXPECT_TRUE(g_told.empty());
  EXPECT_TRUE(MathFeedBackProc == write_down);
  EXPECT_TRUE(AbortMathProc);
}

TEST_F(FeedbackScope, RestoresWhenAnExceptionLeavesTheBlock) {
  const auto run = [] {
    const TFeedbackScope scope([](double) { throw std::runtime_error("enough"); });
    AbortMathProc = true;
    feedback_step();
  };
  EXPECT_THROW(run(), std::runtime_error);
  EXPECT_FALSE(feedback_listens());
  EXPECT_FALSE(AbortMathProc);
}

TEST_F(FeedbackScope, RequestToStopAbortsTheStepInWhichItIsMade) {
  std::stop_source stop;
  const TFeedbackScope scope(
      [&](double steps) {
        if (steps == 2.0) stop.request_stop();
      },
      stop.get_token());
  EXPECT_FALSE(feedback_step_aborts());
  EXPECT_TRUE(feedback_step_aborts());
}

TEST_F(FeedbackScope, TakesATokenAlone) {
  std::stop_source stop;
  {
    const TFeedbackScope scope(stop.get_token());
    EXPECT_FALSE(feedback_step_aborts());
    std::jthread([&] { stop.request_stop(); }).join();
    EXPECT_TRUE(feedback_step_aborts());
  }
  EXPECT_FALSE(feedback_step_aborts());
}

TEST_F(FeedbackScope, InnermostIsTold) {
  std::string told;
  const TFeedbackScope outer([&](double) { told += 'o'; });
  feedback_step();
  {
    const TFeedbackScope inner([&](double) { told += 'i'; });
    feedback_step();
  }
  feedback_step();
  EXPECT_EQ(told, "oio");
}

TEST_F(FeedbackScope, MayBeOpenedInsideAFeedbackFunction) {
  int inner_steps = 0;
  const TFeedbackScope outer([&](double steps) {
    if (steps > 1.0) return;
    const TFeedbackScope inner([&](double) { ++inner_steps; });
    feedback_step();
  });
  feedback_step();
  feedback_step();
  EXPECT_EQ(inner_steps, 1);
}

}  // namespace
}  // namespace ZOR_zorbase

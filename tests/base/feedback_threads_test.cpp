#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <stop_token>
#include <thread>
#include <vector>

#include "zor/base/feedback.h"
#include "zor/base/feedback_scope.h"

namespace ZOR_zorbase {
namespace {

using zor::detail::feedback_step;

TEST(FeedbackThreads, LosesNoStepOfSeveralThreads) {
  ProcStat = 0.0;
  {
    std::vector<std::jthread> workers;
    for (int i = 0; i < 4; ++i)
      workers.emplace_back([] {
        for (int k = 0; k < 5000; ++k) feedback_step();
      });
    for (int k = 0; k < 1000; ++k) MathFeedBackProc = k % 2 ? nullptr : static_cast<TMathFeedBackProc>([](double) {});
  }
  EXPECT_EQ(ProcStat, 20000.0);
  MathFeedBackProc = nullptr;
}

TEST(FeedbackThreads, ScopeEndsSafelyWhileAnotherThreadSteps) {
  std::jthread worker([](std::stop_token end) {
    while (!end.stop_requested()) feedback_step();
  });
  for (int i = 0; i < 300; ++i) {
    auto count = std::make_shared<std::atomic<int>>(0);
    const TFeedbackScope scope([count](double) { ++*count; });
  }
}

}  // namespace
}  // namespace ZOR_zorbase

#include "zor/runtime/threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <vector>

namespace {

using namespace ZOR_runtime;

class Counter : public TThread {
 public:
  ~Counter() override { EndThread(); }
  std::vector<int> seen;

 protected:
  void Execute() override {
    while (!Terminated()) seen.push_back(static_cast<int>(seen.size()));
  }
};

TEST(TThread, IsCreatedSuspendedAndRunsOnce) {
  std::atomic<int> runs = 0;
  TThread thread([&](TThread&) { ++runs; });
  thread.WaitFor();
  EXPECT_FALSE(thread.Finished());
  EXPECT_EQ(runs, 0);
  thread.Start();
  thread.Start();
  thread.WaitFor();
  EXPECT_TRUE(thread.Finished());
  thread.Start();
  thread.WaitFor();
  EXPECT_EQ(runs, 1);
}

TEST(TThread, EndsWhenAskedAndWhatItWroteIsSeen) {
  Counter counter;
  counter.Start();
  counter.Terminate();
  counter.WaitFor();
  for (std::size_t i = 0; i < counter.seen.size(); ++i) ASSERT_EQ(counter.seen[i], static_cast<int>(i));
}

TEST(TThread, IsEndedByItsDestructor) {
  auto ended = std::make_shared<std::atomic<bool>>(false);
  {
    TThread thread([ended](TThread& self) {
      while (!self.Terminated()) {
      }
      *ended = true;
    });
    thread.Start();
    Counter counter;
    counter.Start();
  }
  EXPECT_TRUE(*ended);
}

TEST(TThread, HandsAnExceptionToWhoWaits) {
  TThread thread([](TThread&) { throw std::runtime_error("lost"); });
  EXPECT_EQ(thread.FatalException(), nullptr);
  thread.Start();
  EXPECT_THROW(thread.WaitFor(), std::runtime_error);
  EXPECT_NE(thread.FatalException(), nullptr);
  EXPECT_NO_THROW(thread.WaitFor());
}

TEST(TCriticalSection, LetsOneThreadPassAndTheSameAgain) {
  TCriticalSection section;
  int total = 0;  // unguarded otherwise
  const auto add = [&](TThread&) {
    for (int i = 0; i < 10000; ++i) {
      const TCriticalGuard outer(section);
      const TCriticalGuard inner(section);
      ++total;
    }
  };
  TThread a(add), b(add);
  a.Start(), b.Start();
  a.WaitFor(), b.WaitFor();
  EXPECT_EQ(total, 20000);

  section.Enter();
  bool entered = true;
  TThread other([&](TThread&) { entered = section.TryEnter(); });
  other.Start();
  other.WaitFor();
  section.Leave();
  EXPECT_FALSE(entered);
}

TEST(CPUCount, IsAtLeastOne) { EXPECT_GE(CPUCount(), 1); }

}  // namespace

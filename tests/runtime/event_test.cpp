#include "zor/runtime/event.h"

#include <gtest/gtest.h>

#include <functional>

#include <memory>
#include <string>

namespace ZOR_runtime {
namespace {

using Event = TEvent<int>;

int g_last = 0;
void plain(int x) { g_last = x; }

struct Receiver {
  int sum = 0;
  void take(int x) { sum += x; }
};

TEST(TEvent, UnsetIsSkipped) {
  Event event;
  EXPECT_FALSE(event);
  EXPECT_EQ(event, nullptr);
  event(1);
  event = static_cast<void (*)(int)>(nullptr);
  EXPECT_FALSE(event) << "a null pointer is no handler";
  event = std::function<void(int)>();
  EXPECT_FALSE(event);
}

TEST(TEvent, TakesEveryKindOfCallable) {
  Receiver receiver;
  Event event = plain;
  event(3);
  EXPECT_EQ(g_last, 3);
  event = [&](int x) { receiver.take(x); };
  event(4);
  event = std::bind_front(&Receiver::take, &receiver);
  event(5);
  EXPECT_EQ(receiver.sum, 9);
  event = [](int) {};
  EXPECT_TRUE(event);
  event = [calls = 0](int) mutable { ++calls; };
  event(0);
}

TEST(TEvent, EqualsItsCopiesOnly) {
  Event a = plain;
  Event b = a;
  EXPECT_EQ(a, b);
  b = plain;
  EXPECT_NE(a, b);
  a = nullptr;
  b = nullptr;
  EXPECT_EQ(a, b);
}

TEST(TEvent, HandlerMayReplaceItsOwnEvent) {
  Event event;
  std::string told;
  // The text is a member of the running closure, which must outlive the assignment.
  event = [&, own = std::string("a long text that lives in the closure on the heap")](int) {
    event = [&](int) { told += "second"; };
    told += own.substr(0, 6) + ' ';
  };
  event(0);
  event(0);
  EXPECT_EQ(told, "a long second");
}

TEST(TEvent, HandlerMayClearItsOwnEvent) {
  Event event;
  const auto alive = std::make_shared<int>(0);
  event = [&event, alive](int x) {
    event = nullptr;
    *alive += x;
  };
  event(5);
  event(5);
  EXPECT_EQ(*alive, 5);
  EXPECT_EQ(alive.use_count(), 1) << "the closure is gone";
}

TEST(TEvent, HandlerMayCallItsOwnEvent) {
  Event event;
  int depth = 0;
  event = [&](int x) {
    ++depth;
    if (x > 0) event(x - 1);
  };
  event(3);
  EXPECT_EQ(depth, 4);
}

TEST(TEvent, ExceptionsOfTheHandlerPassAndKeepTheEvent) {
  Event event = [](int x) {
    if (x == 0) throw std::string("no");
  };
  EXPECT_THROW(event(0), std::string);
  EXPECT_TRUE(event);
  event(1);
}

TEST(TEvent, WritesThroughReferences) {
  TEvent<bool&> ask = [](bool& abort) { abort = true; };
  bool abort = false;
  ask(abort);
  EXPECT_TRUE(abort);
}

TEST(TEvent, RefusesHandlersOfAnotherShape) {
  static_assert(!std::is_assignable_v<Event&, void (*)(std::string)>);
  static_assert(!std::is_assignable_v<Event&, int>);
  static_assert(std::is_assignable_v<Event&, int (*)(double)>, "a result is ignored, arguments convert");
}

}  // namespace
}  // namespace ZOR_runtime

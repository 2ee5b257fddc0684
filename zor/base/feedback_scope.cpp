#include "zor/base/feedback_scope.h"

#include <mutex>

namespace zor::detail {

struct FeedbackListener {
  std::function<void(double)> progress;
  std::function<bool()> stop_requested;
};

namespace {

using ListenerHandle = std::shared_ptr<const FeedbackListener>;

// The hook is a plain procedure without data, so what it calls must be found here. A handle of its own keeps the
// function alive while it runs, even if its scope ends on another thread.
struct Slot {
  ListenerHandle exchange(ListenerHandle next) {
    const std::lock_guard lock(mutex);
    return std::exchange(listener, std::move(next));
  }
  ListenerHandle get() {
    const std::lock_guard lock(mutex);
    return listener;
  }

  std::mutex mutex;
  ListenerHandle listener;
};

Slot& slot() {
  static Slot the_slot;
  return the_slot;
}

void tell_listener(double steps) {
  const ListenerHandle listener = slot().get();
  if (!listener) return;
  if (listener->progress) listener->progress(steps);
  if (listener->stop_requested && listener->stop_requested()) ZOR_zorbase::AbortMathProc = true;
}

}  // namespace
}  // namespace zor::detail

namespace ZOR_zorbase {

using zor::detail::slot;

TFeedbackScope::TFeedbackScope(std::function<void(ZOR_runtime::Double)> progress, std::function<bool()> stop_requested)
    : former_listener_(slot().exchange(std::make_shared<const zor::detail::FeedbackListener>(
          zor::detail::FeedbackListener{std::move(progress), std::move(stop_requested)}))),
      former_proc_(MathFeedBackProc.load()),
      former_abort_(AbortMathProc.load()) {
  MathFeedBackProc = zor::detail::tell_listener;
  AbortMathProc = false;
}

TFeedbackScope::~TFeedbackScope() {
  MathFeedBackProc = former_proc_;
  AbortMathProc = former_abort_;
  slot().exchange(std::move(former_listener_));
}

}  // namespace ZOR_zorbase

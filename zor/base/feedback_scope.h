#pragma once

#include <concepts>
#include <functional>
#include <memory>
#include <utility>

#include "zor/base/feedback.h"

/// \file  Progress and abort for one block of code.

namespace zor::detail {

struct FeedbackListener;

/// std::stop_token, or what else can be asked whether to stop.
template <class T>
concept StopToken = requires(const T& token) {
  { token.stop_requested() } -> std::convertible_to<bool>;
};

}  // namespace zor::detail

namespace ZOR_zorbase {

/// Tells a function of every feedback step, and stops computations on request, until the end of the block.
///
/// The constructor sets MathFeedBackProc and clears AbortMathProc; the destructor gives both back the values they had,
/// also when an exception leaves the block. A request to stop sets AbortMathProc at the next step, after the function
/// has been called, so that a computation that can be aborted leaves in that very step. Scopes nest: the innermost one
/// is told. The hooks belong to the process, so scopes of different threads should not overlap; if they do, a step is
/// told to one of them, and no function is called after it has been destroyed.
///
///     std::stop_source stop;
///     TFeedbackScope scope([&](double steps) { if (steps > 1e6) stop.request_stop(); }, stop.get_token());
///     SortArray(cells, true);
class ZOR_API TFeedbackScope {
 public:
  /// The function takes ProcStat; an empty one is skipped. It runs on the thread of the computation's caller.
  explicit TFeedbackScope(std::function<void(ZOR_runtime::Double)> progress)
      : TFeedbackScope(std::move(progress), std::function<bool()>()) {}
  /// The same with a std::stop_token, or a token like it.
  template <zor::detail::StopToken Token>
  TFeedbackScope(std::function<void(ZOR_runtime::Double)> progress, Token stop)
      : TFeedbackScope(std::move(progress),
                       std::function<bool()>([stop = std::move(stop)] { return stop.stop_requested(); })) {}
  template <zor::detail::StopToken Token>
  explicit TFeedbackScope(Token stop) : TFeedbackScope(nullptr, std::move(stop)) {}
  ~TFeedbackScope();
  TFeedbackScope(const TFeedbackScope&) = delete;
  TFeedbackScope& operator=(const TFeedbackScope&) = delete;

 private:
  TFeedbackScope(std::function<void(ZOR_runtime::Double)> progress, std::function<bool()> stop_requested);

  std::shared_ptr<const zor::detail::FeedbackListener> former_listener_;
  TMathFeedBackProc former_proc_;
  ZOR_runtime::Boolean former_abort_;
};

}  // namespace ZOR_zorbase

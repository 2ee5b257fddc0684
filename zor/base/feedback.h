#pragma once

#include <atomic>
#include <cstddef>

#include "zor/runtime/types.h"

/// \file  Progress and abort of long computations.
/// A long computation performs, once for each step of its outer loop: ProcStat += 1; MathFeedBackProc(ProcStat) if it
/// is set; and, if it can be aborted, a test of AbortMathProc. The library only adds to ProcStat, which is thus no
/// percentage; an application that wants a count for each run sets it to 0 before. The procedure runs on the caller's
/// thread, never on a worker's.
///
///     MathFeedBackProc = [](double steps) { if (steps > 1e6) AbortMathProc = true; };

namespace ZOR_zorbase {

/// A plain procedure with one argument.
using TMathFeedBackProc = void (*)(ZOR_runtime::Double);

/// Variable of type T that may be read and written from several threads; used like a plain one.
template <class T>
class TSharedVar {
 public:
  constexpr TSharedVar(T value) noexcept : value_(value) {}
  TSharedVar(const TSharedVar&) = delete;
  TSharedVar& operator=(const TSharedVar&) = delete;
  T operator=(T value) noexcept {
    value_.store(value, std::memory_order_relaxed);
    return value;
  }
  operator T() const noexcept { return load(); }
  T load() const noexcept { return value_.load(std::memory_order_relaxed); }
  /// One atomic step.
  T operator+=(T step) noexcept
    requires requires(std::atomic<T> a) { a.fetch_add(step); }
  {
    return value_.fetch_add(step, std::memory_order_relaxed) + step;
  }

 private:
  std::atomic<T> value_;
};

/// Variable that holds a procedure; callable, and comparable with nullptr. A call reads it once.
template <>
class TSharedVar<TMathFeedBackProc> {
 public:
  constexpr TSharedVar(TMathFeedBackProc proc) noexcept : proc_(proc) {}
  TSharedVar(const TSharedVar&) = delete;
  TSharedVar& operator=(const TSharedVar&) = delete;
  TSharedVar& operator=(TMathFeedBackProc proc) noexcept {
    proc_.store(proc, std::memory_order_release);
    return *this;
  }
  TMathFeedBackProc load() const noexcept { return proc_.load(std::memory_order_acquire); }
  explicit operator bool() const noexcept { return load() != nullptr; }
  void operator()(ZOR_runtime::Double steps) const {
    if (const TMathFeedBackProc proc = load()) proc(steps);
  }
  friend bool operator==(const TSharedVar& a, TMathFeedBackProc b) noexcept { return a.load() == b; }

 private:
  std::atomic<TMathFeedBackProc> proc_;
};

/// Called with ProcStat by long computations; null at start.
extern ZOR_API TSharedVar<TMathFeedBackProc> MathFeedBackProc;
/// Set to true to stop the running computation; false at start. It stays true until somebody clears it; which routines
/// clear it on entry is said at each.
extern ZOR_API TSharedVar<ZOR_runtime::Boolean> AbortMathProc;
/// Running count of steps; 0 at start.
extern ZOR_API TSharedVar<ZOR_runtime::Double> ProcStat;

}  // namespace ZOR_zorbase

namespace zor::detail {

/// One feedback step of a computation that cannot be aborted: adds `steps`, then calls the procedure.
ZOR_API void feedback_step(double steps = 1.0);

/// `count` feedback steps of a computation that cannot be aborted; at once where no procedure is set.
ZOR_API void feedback_steps(std::size_t count);

/// One feedback step of a computation that can be aborted; true if it shall stop.
ZOR_API bool feedback_step_aborts(double steps = 1.0);

/// True if a feedback procedure is set, so that the steps must be told one by one.
inline bool feedback_listens() noexcept { return static_cast<bool>(ZOR_zorbase::MathFeedBackProc); }

}  // namespace zor::detail

#pragma once

#include <atomic>
#include <exception>
#include <functional>
#include <memory>

#include "zor/runtime/object.h"
#include "zor/runtime/types.h"

/// \file  Threads, critical sections, and the number of processors.
///
///     TThread worker([](TThread& self) { while (!self.Terminated()) step(); });
///     worker.Start();
///     worker.Terminate();
///     worker.WaitFor();

namespace ZOR_runtime {

/// Thread of execution, created suspended.
///
/// The work is either a function given to the constructor or Execute of a derived class. The destructor asks a running
/// thread to end and waits for it. A derived class must call EndThread in its own destructor: its members would
/// otherwise be gone while Execute still uses them.
class ZOR_API TThread : public TObject {
 public:
  TThread();
  explicit TThread(std::function<void(TThread&)> work);
  ~TThread() override;

  /// Runs Execute on a new thread; nothing after the first call, since a thread runs once. Raises EOutOfMemory if the
  /// system has no thread to give.
  void Start();
  /// Asks the thread to end: sets Terminated, which Execute must look at.
  void Terminate() noexcept { terminated_.store(true, std::memory_order_relaxed); }
  Boolean Terminated() const noexcept { return terminated_.load(std::memory_order_relaxed); }
  /// True once Execute has returned; what it wrote is then visible to the caller.
  Boolean Finished() const noexcept { return finished_.load(std::memory_order_acquire); }
  /// Waits until the thread has ended; returns at once if it was not started. Then raises the exception that left
  /// Execute, if there was one, to the first caller.
  void WaitFor();
  /// The exception that left Execute; null before the thread has finished, or if there was none.
  std::exception_ptr FatalException() const noexcept { return Finished() ? failure_ : nullptr; }
  const char* ClassName() const noexcept override;

 protected:
  /// The work; this form calls the function given to the constructor.
  virtual void Execute();
  /// Terminate, then wait; exceptions of Execute stay in FatalException.
  void EndThread() noexcept;

 private:
  struct Handle;

  std::function<void(TThread&)> work_;
  std::unique_ptr<Handle> handle_;  // null unless started and not yet waited for
  std::atomic<bool> terminated_ = false, finished_ = false;
  std::exception_ptr failure_;
};

/// Lock that lets one thread at a time pass; the same thread may enter again and leaves as often.
class ZOR_API TCriticalSection : public TObject {
 public:
  TCriticalSection();
  ~TCriticalSection() override;

  void Enter();
  void Leave();
  /// Enters if no other thread is inside; false otherwise.
  Boolean TryEnter();
  const char* ClassName() const noexcept override;

 private:
  struct Lock;
  std::unique_ptr<Lock> lock_;
};

/// Enters a critical section, and leaves it at the end of the scope.
class TCriticalGuard {
 public:
  explicit TCriticalGuard(TCriticalSection& section) : section_(section) { section_.Enter(); }
  ~TCriticalGuard() { section_.Leave(); }
  TCriticalGuard(const TCriticalGuard&) = delete;
  TCriticalGuard& operator=(const TCriticalGuard&) = delete;

 private:
  TCriticalSection& section_;
};

/// Number of processors that threads can use; at least 1.
ZOR_API Integer CPUCount() noexcept;

}  // namespace ZOR_runtime

#include "zor/runtime/threads.h"

#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "zor/runtime/exception.h"

namespace ZOR_runtime {

// The headers of the standard library for threads are large, and every unit includes threads.h.
struct TThread::Handle {
  std::thread thread;
};

TThread::TThread() = default;

TThread::TThread(std::function<void(TThread&)> work) : work_(std::move(work)) {}

TThread::~TThread() { EndThread(); }

const char* TThread::ClassName() const noexcept { return "TThread"; }

void TThread::Execute() {
  if (work_) work_(*this);
}

void TThread::Start() {
  if (handle_ || Finished()) return;
  auto handle = std::make_unique<Handle>();
  try {
    handle->thread = std::thread([this] {
      try {
        Execute();
      } catch (...) {
        failure_ = std::current_exception();
      }
      finished_.store(true, std::memory_order_release);
    });
  } catch (const std::system_error&) {
    throw EOutOfMemory("the system has no thread to give");
  }
  handle_ = std::move(handle);
}

void TThread::EndThread() noexcept {
  Terminate();
  if (const auto handle = std::move(handle_)) handle->thread.join();
}

void TThread::WaitFor() {
  const auto handle = std::move(handle_);
  if (!handle) return;
  handle->thread.join();
  if (failure_) std::rethrow_exception(failure_);
}

struct TCriticalSection::Lock {
  std::recursive_mutex mutex;
};

TCriticalSection::TCriticalSection() : lock_(std::make_unique<Lock>()) {}

TCriticalSection::~TCriticalSection() = default;

void TCriticalSection::Enter() { lock_->mutex.lock(); }

void TCriticalSection::Leave() { lock_->mutex.unlock(); }

Boolean TCriticalSection::TryEnter() { return lock_->mutex.try_lock(); }

const char* TCriticalSection::ClassName() const noexcept { return "TCriticalSection"; }

Integer CPUCount() noexcept {
  const unsigned n = std::thread::hardware_concurrency();
  return n == 0 ? 1 : static_cast<Integer>(n);
}

}  // namespace ZOR_runtime

#include "zor/runtime/threads.h"

#include <system_error>
#include <utility>

#include "zor/runtime/exception.h"

namespace ZOR_runtime {

TThread::~TThread() { EndThread(); }

const char* TThread::ClassName() const noexcept { return "TThread"; }

void TThread::Execute() {
  if (work_) work_(*this);
}

void TThread::Start() {
  if (thread_.joinable() || Finished()) return;
  try {
    thread_ = std::thread([this] {
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
}

void TThread::EndThread() noexcept {
  Terminate();
  if (thread_.joinable()) thread_.join();
}

void TThread::WaitFor() {
  if (!thread_.joinable()) return;
  thread_.join();
  if (failure_) std::rethrow_exception(failure_);
}

const char* TCriticalSection::ClassName() const noexcept { return "TCriticalSection"; }

Integer CPUCount() noexcept {
  const unsigned n = std::thread::hardware_concurrency();
  return n == 0 ? 1 : static_cast<Integer>(n);
}

}  // namespace ZOR_runtime

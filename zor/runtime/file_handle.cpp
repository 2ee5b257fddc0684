#include "zor/runtime/file_handle.h"

#include <fcntl.h>
#include <locale.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <limits>
#include <string>
#include <utility>

#include "zor/runtime/exception.h"

namespace zor::detail {
namespace {

// The operating system refuses or cuts larger blocks.
constexpr std::size_t kLargestBlock = std::size_t{1} << 30;

int flags_of(FileAccess access) {
  switch (access) {
    case FileAccess::kRead:
      return O_RDONLY;
    case FileAccess::kWrite:
      return O_WRONLY;
    case FileAccess::kReadWrite:
      return O_RDWR;
    case FileAccess::kAppend:
      return O_RDWR | O_CREAT;
    case FileAccess::kCreate:
      break;
  }
  return O_RDWR | O_CREAT | O_TRUNC;
}

template <class Call>
auto again_if_interrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

constinit std::atomic<const FileCallWatch*> g_watch{nullptr};

}  // namespace

FileCallScope::FileCallScope(FileCallWatch watch) : watch_(std::move(watch)) { g_watch = &watch_; }

FileCallScope::~FileCallScope() { g_watch = nullptr; }

int refusal(FileCall call) {
  const FileCallWatch* const watch = g_watch.load(std::memory_order_acquire);
  return watch ? (*watch)(call) : 0;
}

std::string reason_of(int number) {
  // What strerror gives follows the program's language.
  static const locale_t plain = ::newlocale(LC_ALL_MASK, "C", locale_t{});
  return plain ? ::strerror_l(number, plain) : "error " + std::to_string(number);
}

void fail_io(std::string_view action, const ZOR_runtime::TString& name, std::string_view reason) {
  throw ZOR_runtime::EInOutError(ZOR_runtime::TString(action) + " \"" + name + "\": " + ZOR_runtime::TString(reason));
}

void FileHandle::fail(const char* action, int reason) const { fail_io(action, name_, reason_of(reason)); }

void FileHandle::fail_changing(const char* action, int reason) {
  failed_ = true;
  fail(action, reason);
}

FileHandle::FileHandle(const ZOR_runtime::TString& name, FileAccess access) : name_(name) {
  const char* const action = access == FileAccess::kCreate ? "cannot create" : "cannot open";
  const std::string path = name.utf8();
  if (path.find('\0') != std::string::npos) fail(action, EINVAL);
  if (const int refused = access == FileAccess::kCreate ? refusal(FileCall::kCreate) : 0) fail(action, refused);
  descriptor_ = again_if_interrupted([&] { return ::open(path.c_str(), flags_of(access) | O_CLOEXEC, 0666); });
  if (descriptor_ < 0) fail(action, errno);
  struct stat about {};
  if (::fstat(descriptor_, &about) == 0 && S_ISDIR(about.st_mode)) {
    ::close(std::exchange(descriptor_, -1));
    fail(action, EISDIR);
  }
  has_position_ = ::lseek(descriptor_, 0, SEEK_CUR) >= 0;
}

FileHandle::FileHandle(ZOR_runtime::TString name, int descriptor) noexcept
    : name_(std::move(name)), descriptor_(descriptor), has_position_(::lseek(descriptor, 0, SEEK_CUR) >= 0) {}

FileHandle::~FileHandle() {
  if (is_open()) ::close(descriptor_);
}

std::size_t FileHandle::read_at(std::int64_t position, void* to, std::size_t count) {
  std::size_t done = 0;
  // The system refuses blocks that would end beyond the highest position; no file reaches so far.
  if (position > std::numeric_limits<std::int64_t>::max() - static_cast<std::int64_t>(kLargestBlock)) return 0;
  while (done < count) {
    const std::size_t block = std::min(count - done, kLargestBlock);
    char* const at = static_cast<char*>(to) + done;
    const auto got = again_if_interrupted([&] {
      return has_position_ ? ::pread(descriptor_, at, block, position + static_cast<std::int64_t>(done))
                           : ::read(descriptor_, at, block);
    });
    if (got < 0) fail("cannot read", errno);
    done += static_cast<std::size_t>(got);
    if (got == 0 || !has_position_) break;
  }
  return done;
}

void FileHandle::write_at(std::int64_t position, const void* from, std::size_t count) {
  std::size_t done = 0;
  while (done < count) {
    const std::size_t block = std::min(count - done, kLargestBlock);
    const char* const at = static_cast<const char*>(from) + done;
    if (const int refused = refusal(FileCall::kWrite)) fail_changing("cannot write", refused);
    const auto put = again_if_interrupted([&] {
      return has_position_ ? ::pwrite(descriptor_, at, block, position + static_cast<std::int64_t>(done))
                           : ::write(descriptor_, at, block);
    });
    if (put < 0) fail_changing("cannot write", errno);
    if (put == 0) fail_changing("cannot write", ENOSPC);
    done += static_cast<std::size_t>(put);
  }
}

std::int64_t FileHandle::size() const {
  struct stat about {};
  if (::fstat(descriptor_, &about) != 0) fail("cannot read", errno);
  return S_ISREG(about.st_mode) ? static_cast<std::int64_t>(about.st_size) : 0;
}

void FileHandle::set_size(std::int64_t size) {
  if (const int refused = refusal(FileCall::kResize)) fail_changing("cannot resize", refused);
  if (again_if_interrupted([&] { return ::ftruncate(descriptor_, size); }) != 0) fail_changing("cannot resize", errno);
}

void FileHandle::sync() {
  if (failed_) fail("cannot write", EIO);
  if (const int refused = refusal(FileCall::kSync)) fail_changing("cannot write", refused);
  // EINVAL: a file system without such a call.
  if (again_if_interrupted([&] { return ::fsync(descriptor_); }) != 0 && errno != EINVAL && errno != ENOTSUP)
    fail_changing("cannot write", errno);
}

void FileHandle::close() {
  if (!is_open()) return;
  const int refused = refusal(FileCall::kClose);
  if (::close(std::exchange(descriptor_, -1)) != 0 && errno != EINTR) fail_changing("cannot close", errno);
  if (refused) fail_changing("cannot close", refused);
}

}  // namespace zor::detail

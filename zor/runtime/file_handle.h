#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "zor/runtime/tstring.h"
#include "zor/runtime/types.h"

/// \file  One open file of the operating system, without a buffer.

namespace zor::detail {

enum class FileAccess { kRead, kWrite, kReadWrite, kCreate, kAppend };

/// File that is closed with its handle. Failures raise EInOutError with the name of the file and the reason. What has
/// no position (a pipe, a terminal) is read and written in sequence, whatever position is asked for, and has size 0.
class ZOR_API FileHandle {
 public:
  FileHandle() noexcept = default;
  /// Opens a file; kCreate makes it, or empties it if it exists, kAppend makes it if there is none. A folder cannot be
  /// opened.
  FileHandle(const ZOR_runtime::TString& name, FileAccess access);
  /// Takes over an open descriptor; messages speak of `name`.
  FileHandle(ZOR_runtime::TString name, int descriptor) noexcept;
  ~FileHandle();
  FileHandle(FileHandle&& other) noexcept
      : name_(std::move(other.name_)),
        descriptor_(std::exchange(other.descriptor_, -1)),
        has_position_(other.has_position_),
        failed_(other.failed_) {}
  FileHandle& operator=(FileHandle&&) = delete;

  bool is_open() const noexcept { return descriptor_ >= 0; }
  const ZOR_runtime::TString& name() const noexcept { return name_; }
  bool has_position() const noexcept { return has_position_; }

  /// Reads up to count bytes from a position; fewer only at the end of the file, or of what a pipe holds now.
  std::size_t read_at(std::int64_t position, void* to, std::size_t count);
  void write_at(std::int64_t position, const void* from, std::size_t count);
  std::int64_t size() const;
  void set_size(std::int64_t size);
  /// Returns when the bytes are on the device, as far as its file system can say so. Raises also if a write failed
  /// before, since the file then has a gap.
  void sync();
  /// Closes the file; some file systems report a failed write only here.
  void close();

 private:
  [[noreturn]] void fail(const char* action, int reason) const;
  [[noreturn]] void fail_changing(const char* action, int reason);

  ZOR_runtime::TString name_;
  int descriptor_ = -1;
  bool has_position_ = false;
  bool failed_ = false;  // a change of the file did not succeed
};

/// Calls that change files.
enum class FileCall { kCreate, kWrite, kResize, kSync, kClose, kRename };
/// Asked before each such call; a number other than 0 makes the call fail for this reason, a number of errno.
using FileCallWatch = std::function<int(FileCall)>;

/// Sets a watch on all calls of the process that change files, for the lifetime of the scope; for tests. Not to be
/// set while other threads write.
class ZOR_API FileCallScope {
 public:
  explicit FileCallScope(FileCallWatch watch);
  ~FileCallScope();
  FileCallScope(const FileCallScope&) = delete;
  FileCallScope& operator=(const FileCallScope&) = delete;

 private:
  FileCallWatch watch_;
};

/// What the watch says of a call; 0 without one.
ZOR_API int refusal(FileCall call);
/// The operating system's words for a number of errno, in English whatever the locale.
ZOR_API std::string reason_of(int number);

/// Raises EInOutError with `<action> "<name>": <reason>`.
[[noreturn]] ZOR_API void fail_io(std::string_view action, const ZOR_runtime::TString& name, std::string_view reason);

}  // namespace zor::detail

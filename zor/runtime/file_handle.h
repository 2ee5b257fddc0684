#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

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
  ~FileHandle();
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;

  bool is_open() const noexcept { return descriptor_ >= 0; }
  const ZOR_runtime::TString& name() const noexcept { return name_; }
  bool has_position() const noexcept { return has_position_; }

  /// Reads up to count bytes from a position; fewer only at the end of the file, or of what a pipe holds now.
  std::size_t read_at(std::int64_t position, void* to, std::size_t count);
  void write_at(std::int64_t position, const void* from, std::size_t count);
  std::int64_t size() const;
  void set_size(std::int64_t size);
  /// Closes the file; some file systems report a failed write only here.
  void close();

 private:
  [[noreturn]] void fail(const char* action, int reason) const;

  ZOR_runtime::TString name_;
  int descriptor_ = -1;
  bool has_position_ = false;
};

/// Raises EInOutError with `<action> "<name>": <reason>`.
[[noreturn]] ZOR_API void fail_io(std::string_view action, const ZOR_runtime::TString& name, std::string_view reason);

}  // namespace zor::detail

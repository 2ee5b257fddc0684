#pragma once

#include <string>

#include "zor/runtime/streams.h"

/// \file  How files are written as a whole.

namespace zor::detail {

/// Stream on a file that takes the place of another one.
///
/// The bytes go to a file of their own beside the old one, ".zor-<process>-<number>.tmp", which gets its permissions
/// and, where the system allows it, its owner. Close stores them on the device and puts that file in the place of the
/// old one, in one step. Whatever happens before (a failure, a kill, the end of the stream's life without Close) leaves
/// the old file as it was; only a kill leaves the temporary file too.
///
/// A symbolic link stays, and the file that it names is replaced; other names of the same file (hard links) keep the
/// old one. What is no regular file (a pipe, a device, a name for an open descriptor) is written directly. Besides the
/// right to write the old file the program needs that to create files in its folder.
class ZOR_API FileReplacement : public ZOR_runtime::TFileStream {
 public:
  /// Raises EInOutError if the file may not be written, or none can be created beside it.
  explicit FileReplacement(const ZOR_runtime::TString& FileName);
  ~FileReplacement() override;

  /// Replaces the old file; raises EInOutError, and leaves it, if that fails or any write failed before.
  void Close() override;
  const char* ClassName() const noexcept override;

 private:
  struct Place {
    FileHandle file;
    std::string target, temporary;  // both empty: written directly
  };
  static Place make(const ZOR_runtime::TString& name);
  explicit FileReplacement(Place place) noexcept;
  void abandon() noexcept;

  std::string target_, temporary_;
};

}  // namespace zor::detail

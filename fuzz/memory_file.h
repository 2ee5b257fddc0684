#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "zor/runtime/tstring.h"

/// \file  Bytes as a file with a name, for readers that take nothing else.

namespace fuzz {

inline void require(bool claim) {
  if (!claim) std::abort();
}

/// A file in memory with a name.
class MemoryFile {
 public:
  MemoryFile(const std::uint8_t* data, std::size_t size) : handle_(::memfd_create("zor_fuzz", 0)) {
    require(handle_ >= 0 && ::write(handle_, data, size) == static_cast<ssize_t>(size));
  }
  ~MemoryFile() { ::close(handle_); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  ZOR_runtime::TString name() const { return "/proc/self/fd/" + std::to_string(handle_); }

 private:
  int handle_;
};

}  // namespace fuzz

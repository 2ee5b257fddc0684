#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "zor/base/reader_limits.h"

#if defined(__SANITIZE_ADDRESS__)
#define ZOR_SEES_HEAP 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZOR_SEES_HEAP 1
#endif
#endif
#ifdef ZOR_SEES_HEAP
#include <sanitizer/allocator_interface.h>
#endif

/// \file  The bound that holds for every reader, watched while a fuzz target runs.

namespace fuzz {

/// Ends the program if the heap grows during its life by more than a reader may ask for. Sees the heap only in builds
/// with the address sanitizer.
class HeapBound {
 public:
  explicit HeapBound(std::size_t input) {
    live_ = 0;
    // An input is held twice at most besides: as the bytes of a stream and in a buffer.
    most_ = (std::int64_t{1} << 24) + (zor::detail::kBytesForByte + 2) * static_cast<std::int64_t>(input);
#ifdef ZOR_SEES_HEAP
    [[maybe_unused]] static const int installed = __sanitizer_install_malloc_and_free_hooks(
        [](const volatile void*, std::size_t n) {
          live_ += static_cast<std::int64_t>(n);
          if (live_ > most_) std::abort();
        },
        [](const volatile void* p) { live_ -= static_cast<std::int64_t>(__sanitizer_get_allocated_size(p)); });
#endif
  }
  ~HeapBound() { most_ = INT64_MAX; }
  HeapBound(const HeapBound&) = delete;
  HeapBound& operator=(const HeapBound&) = delete;

 private:
  static inline std::int64_t live_ = 0, most_ = INT64_MAX;
};

}  // namespace fuzz

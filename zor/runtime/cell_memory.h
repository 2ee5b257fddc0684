#pragma once

#include <cstddef>

#include "zor/export.h"

/// \file  Where the cells of all dynamic arrays come from, and the one seam through which tests make memory run out.

namespace zor::detail {

/// Cells start at a multiple of this many bytes, one cache line.
inline constexpr std::size_t kCellAlignment = 64;

/// Memory of `bytes` bytes, aligned to kCellAlignment; all zero if `zeroed`. Throws EOutOfMemory.
/// One large freed block is kept for the next request of its size: fresh memory costs a page fault for every 4 KiB.
ZOR_API void* allocate_cells(std::size_t bytes, bool zeroed);
ZOR_API void free_cells(void* memory) noexcept;

/// Limits that make allocations of cells fail on purpose; for tests. Not to be changed while other threads allocate.
struct AllocationLimits {
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t largest = kNone;       ///< A request for more bytes than this fails.
  std::size_t failing_call = kNone;  ///< The k-th request from now on fails, counted from 1.
  bool for_good = false;             ///< All requests behind that one fail too.
};

/// Sets the limits for the lifetime of the scope and restores the former ones.
class ZOR_API AllocationLimitScope {
 public:
  explicit AllocationLimitScope(const AllocationLimits& limits) noexcept;
  ~AllocationLimitScope();
  AllocationLimitScope(const AllocationLimitScope&) = delete;
  AllocationLimitScope& operator=(const AllocationLimitScope&) = delete;

 private:
  AllocationLimits former_;
};

/// n * size in bytes; throws EOutOfMemory if that is more than PTRDIFF_MAX, before any memory is touched.
ZOR_API std::size_t checked_bytes(std::size_t n, std::size_t size);
/// a + b likewise.
ZOR_API std::size_t checked_sum(std::size_t a, std::size_t b);

}  // namespace zor::detail

#include "zor/runtime/cell_memory.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

#include "zor/runtime/exception.h"

#if defined(__SANITIZE_ADDRESS__)
#define ZOR_KEEP_SPARE 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZOR_KEEP_SPARE 0
#endif
#endif
#ifndef ZOR_KEEP_SPARE
#define ZOR_KEEP_SPARE 1
#endif

namespace zor::detail {
namespace {

// Sits in the cache line in front of the cells.
struct Head {
  void* raw;
  std::size_t bytes;
};
static_assert(sizeof(Head) <= kCellAlignment);

Head* head_of(void* cells) noexcept {
  return std::launder(reinterpret_cast<Head*>(static_cast<std::byte*>(cells) - kCellAlignment));
}

constexpr std::size_t kSpareFrom = std::size_t{1} << 16;
constexpr std::size_t kSpareTo = std::size_t{1} << 28;
constinit std::atomic<void*> g_spare{nullptr};

constinit AllocationLimits g_limits;
constinit std::atomic<bool> g_limited{false};
constinit std::atomic<std::size_t> g_calls{0};

[[noreturn]] void fail() { throw ZOR_runtime::EOutOfMemory("not enough memory for the cells of an array"); }

void apply_limits(std::size_t bytes) {
  if (!g_limited.load(std::memory_order_relaxed)) return;
  if (bytes > g_limits.largest) fail();
  const std::size_t call = g_calls.fetch_add(1, std::memory_order_relaxed) + 1;
  if (call == g_limits.failing_call || (g_limits.for_good && call > g_limits.failing_call)) fail();
}

}  // namespace

std::size_t checked_bytes(std::size_t n, std::size_t size) {
  if (size != 0 && n > static_cast<std::size_t>(PTRDIFF_MAX) / size) fail();
  return n * size;
}

std::size_t checked_sum(std::size_t a, std::size_t b) {
  if (a > static_cast<std::size_t>(PTRDIFF_MAX) || b > static_cast<std::size_t>(PTRDIFF_MAX) - a) fail();
  return a + b;
}

void* allocate_cells(std::size_t bytes, bool zeroed) {
  apply_limits(bytes);
  if (ZOR_KEEP_SPARE && bytes >= kSpareFrom && bytes <= kSpareTo) {
    if (void* spare = g_spare.exchange(nullptr, std::memory_order_acquire)) {
      const std::size_t has = head_of(spare)->bytes;
      if (has >= bytes && has / 2 <= bytes) {
        if (zeroed) std::memset(spare, 0, bytes);
        return spare;
      }
      std::free(head_of(spare)->raw);
    }
  }
#if !ZOR_KEEP_SPARE
  // Without slack behind the cells, so that the sanitizer sees every access beyond them.
  void* exact = nullptr;
  if (::posix_memalign(&exact, kCellAlignment, checked_sum(bytes, kCellAlignment)) != 0) fail();
  new (exact) Head{exact, bytes};
  void* const own = static_cast<std::byte*>(exact) + kCellAlignment;
  if (zeroed) std::memset(own, 0, bytes);
  return own;
#else
  const std::size_t total = checked_sum(bytes, 2 * kCellAlignment);
  // calloc knows which memory is fresh from the system and need not be cleared again.
  void* raw = zeroed ? std::calloc(total, 1) : std::malloc(total);
  if (!raw) fail();
  const auto address = reinterpret_cast<std::uintptr_t>(raw) + kCellAlignment;
  const std::size_t shift = (kCellAlignment - address % kCellAlignment) % kCellAlignment;
  void* cells = static_cast<std::byte*>(raw) + kCellAlignment + shift;
  new (static_cast<std::byte*>(cells) - kCellAlignment) Head{raw, bytes};
  return cells;
#endif
}

void free_cells(void* memory) noexcept {
  if (!memory) return;
  const std::size_t bytes = head_of(memory)->bytes;
  if (ZOR_KEEP_SPARE && bytes >= kSpareFrom && bytes <= kSpareTo) {
    memory = g_spare.exchange(memory, std::memory_order_acq_rel);
    if (!memory) return;
  }
  std::free(head_of(memory)->raw);
}

AllocationLimitScope::AllocationLimitScope(const AllocationLimits& limits) noexcept : former_(g_limits) {
  g_limits = limits;
  g_calls = 0;
  g_limited = true;
}

AllocationLimitScope::~AllocationLimitScope() {
  g_limits = former_;
  g_calls = 0;
  g_limited = former_.largest != AllocationLimits::kNone || former_.failing_call != AllocationLimits::kNone;
}

}  // namespace zor::detail

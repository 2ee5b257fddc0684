#include "zor/portable_kernels.h"

#include <atomic>

namespace zor {
namespace {
std::atomic<bool> portable{false};
}

void use_portable_kernels(bool chosen) noexcept { portable.store(chosen, std::memory_order_relaxed); }
bool uses_portable_kernels() noexcept { return portable.load(std::memory_order_relaxed); }

}  // namespace zor

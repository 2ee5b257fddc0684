#include "zor/kernels/dispatch.h"

#include <atomic>

namespace zor::kernels {
namespace {

constexpr int kUnknown = -1;
// Constant-initialised, so that a kernel works also while other static objects are being made.
constinit std::atomic<int> g_level{kUnknown};
constinit std::atomic<int> g_limit{static_cast<int>(Level::v4)};

Level detect() noexcept {
#if defined(ZOR_X86_LEVELS)
  __builtin_cpu_init();
  const bool v3 = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2") &&
                  __builtin_cpu_supports("fma");
  const bool v4 = v3 && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                  __builtin_cpu_supports("avx512cd") && __builtin_cpu_supports("avx512dq") &&
                  __builtin_cpu_supports("avx512vl");
  return v4 ? Level::v4 : v3 ? Level::v3 : Level::v2;
#else
  return Level::v2;
#endif
}

}  // namespace

Level best_level() noexcept {
  static const Level level = detect();
  return level;
}

Level active_level() noexcept {
  int level = g_level.load(std::memory_order_relaxed);
  if (level == kUnknown) {
    const int best = static_cast<int>(best_level());
    const int limit = g_limit.load(std::memory_order_relaxed);
    level = best < limit ? best : limit;
    g_level.store(level, std::memory_order_relaxed);
  }
  return static_cast<Level>(level);
}

void limit_level(Level highest) noexcept {
  g_limit.store(static_cast<int>(highest), std::memory_order_relaxed);
  g_level.store(kUnknown, std::memory_order_relaxed);
}

}  // namespace zor::kernels

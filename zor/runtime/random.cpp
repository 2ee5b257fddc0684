#include "zor/runtime/random.h"

#include <chrono>
#include <cmath>

namespace ZOR_runtime {

constinit TRandSeed RandSeed{zor::detail::kStartDraws * zor::detail::kRandomStep};

namespace {

std::uint64_t draw() noexcept { return zor::detail::random_bits(RandSeed.advance(1) + zor::detail::kRandomStep); }

__extension__ typedef unsigned __int128 Wide;

}  // namespace

Double Random() noexcept { return zor::detail::unit_interval(draw()); }

Integer Random(Integer n) noexcept {
  const std::uint64_t bits = draw();
  return n > 0 ? static_cast<Integer>(Wide{bits} * static_cast<std::uint64_t>(n) >> 64) : 0;
}

void Randomize() noexcept {
  static constinit std::atomic<std::uint64_t> calls{0};
  const auto ticks = static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
  const std::uint64_t count = calls.fetch_add(zor::detail::kRandomStep, std::memory_order_relaxed);
  RandSeed = static_cast<Int64>(zor::detail::random_bits(zor::detail::random_bits(ticks) + count));
}

Double RandG(Double Mean, Double StdDev) noexcept {
  for (;;) {
    const Double u = 2.0 * Random() - 1.0;
    const Double v = 2.0 * Random() - 1.0;
    const Double s = u * u + v * v;
    if (s > 0.0 && s < 1.0) return Mean + StdDev * (u * std::sqrt(-2.0 * std::log(s) / s));
  }
}

}  // namespace ZOR_runtime

namespace zor::detail {

void fill_random(std::span<double> cells, double low, double width) noexcept {
  std::uint64_t state = ZOR_runtime::RandSeed.advance(cells.size());
  for (double& cell : cells) {
    state += kRandomStep;
    cell = low + width * unit_interval(random_bits(state));
  }
}

}  // namespace zor::detail

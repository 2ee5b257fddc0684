#include "zor/kernels/crc_lanes.h"

#include <bit>

#include "bench/pair.h"

namespace zor::kernels {
namespace {

struct Cells {
  std::vector<double> x;
};

ZOR_BENCH_PAIR(
    CrcLanes, [](std::size_t n) { return Cells{bench::noise(n)}; },
    [](Cells& c) {
      std::array<std::uint32_t, 8> states{};
      crc32_lanes(c.x, states);
      return states;
    },
    [](Cells& c) {
      std::array<std::uint32_t, 8> states{};
      for (const double v : c.x)
        for (std::size_t k = 0; k < 8; ++k)
          states[k] = crc32_step(states[k], static_cast<std::uint8_t>(std::bit_cast<std::uint64_t>(v) >> 8 * k));
      return states;
    },
    bench::equal)
    .against("one table step a byte")
    .goal(0.5)
    .sizes({1000, 1'000'000});

}  // namespace
}  // namespace zor::kernels

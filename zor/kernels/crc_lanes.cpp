#include "zor/kernels/crc_lanes.h"

#include <bit>

namespace zor::kernels {
namespace {

template <class Bits, class T>
void lanes(std::span<const T> cells, std::uint32_t* states) {
  for (const T& cell : cells) {
    auto bits = std::bit_cast<Bits>(cell);
    for (std::size_t k = 0; k < sizeof(T); ++k, bits >>= 8)
      states[k] = crc32_step(states[k], static_cast<std::uint8_t>(bits));
  }
}

}  // namespace

void crc32_lanes(std::span<const double> cells, std::span<std::uint32_t, 8> states) noexcept {
  lanes<std::uint64_t>(cells, states.data());
}
void crc32_lanes(std::span<const std::int32_t> cells, std::span<std::uint32_t, 4> states) noexcept {
  lanes<std::uint32_t>(cells, states.data());
}

}  // namespace zor::kernels

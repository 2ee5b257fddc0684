#include "zor/kernels/crc_lanes.h"

#include <bit>

#include "zor/kernels/dispatch.h"
#include "zor/kernels/levels/crc_lanes.h"

namespace zor::kernels {

ZOR_KERNEL_TABLE(CrcTable, kCrc)

namespace {

constexpr CrcConstants kConstants = [] {
  CrcConstants c{};
  for (std::size_t i = 0; i < 16; ++i) {
    for (std::size_t j = 0; j < 4; ++j) {
      c.change[0][j][i] = static_cast<std::uint8_t>(kCrc32Table[i] >> 8 * j);
      c.change[1][j][i] = static_cast<std::uint8_t>(kCrc32Table[i << 4] >> 8 * j);
    }
  }
  for (std::size_t half = 0; half < 8; ++half) {
    std::uint32_t bit[4]{};
    for (std::size_t k = 0; k < 4; ++k) {
      bit[k] = std::uint32_t{1} << (4 * half + k);
      for (std::size_t i = 0; i < kCrcSegment; ++i) bit[k] = crc32_step(bit[k], 0);
    }
    for (std::size_t i = 0; i < 16; ++i)
      for (std::size_t k = 0; k < 4; ++k)
        if (i >> k & 1) c.ahead[half][i] ^= bit[k];
  }
  return c;
}();

template <class Bits, class T>
void lanes(std::span<const T> cells, std::uint32_t* states, CrcBlocks blocks) {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(cells.data());
  for (const T& cell : cells.subspan(blocks(bytes, cells.size(), states, kConstants))) {
    auto bits = std::bit_cast<Bits>(cell);
    for (std::size_t k = 0; k < sizeof(T); ++k, bits >>= 8)
      states[k] = crc32_step(states[k], static_cast<std::uint8_t>(bits));
  }
}

}  // namespace

void crc32_lanes(std::span<const double> cells, std::span<std::uint32_t, 8> states) noexcept {
  lanes<std::uint64_t>(cells, states.data(), table().eight);
}
void crc32_lanes(std::span<const std::int32_t> cells, std::span<std::uint32_t, 4> states) noexcept {
  lanes<std::uint32_t>(cells, states.data(), table().four);
}

}  // namespace zor::kernels

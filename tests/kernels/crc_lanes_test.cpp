#include "zor/kernels/crc_lanes.h"

#include <gtest/gtest.h>

#include <bit>

#include "tests/kernels/runs.h"

namespace zor::kernels {
namespace {

TEST(Crc32, GivesTheCheckValueOfItsPolynomial) {
  std::uint32_t state = 0xFFFFFFFF;
  for (const char c : {'1', '2', '3', '4', '5', '6', '7', '8', '9'})
    state = crc32_step(state, static_cast<std::uint8_t>(c));
  EXPECT_EQ(~state, 0xCBF43926u);
}

TEST(CrcLanes, PassByteKToStateK) {
  std::vector<std::size_t> lengths = test::kLengths;
  lengths.insert(lengths.end(), {4095, 4096, 4097, 10'000});
  test::on_every_level([&] {
    for (const std::size_t n : lengths) {
      const auto x = test::noise<double>(n);
      const auto k = test::noise<std::int32_t>(n);
      std::array<std::uint32_t, 8> states, expected;
      std::array<std::uint32_t, 4> states4, expected4;
      for (std::size_t i = 0; i < 8; ++i) states[i] = expected[i] = 0xFFFFFFFF - static_cast<std::uint32_t>(i);
      states4 = expected4 = {0xFFFFFFFF, 1, 2, 3};
      for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t b = 0; b < 8; ++b)
          expected[b] = crc32_step(expected[b], static_cast<std::uint8_t>(std::bit_cast<std::uint64_t>(x[i]) >> 8 * b));
        for (std::size_t b = 0; b < 4; ++b)
          expected4[b] = crc32_step(expected4[b], static_cast<std::uint8_t>(static_cast<std::uint32_t>(k[i]) >> 8 * b));
      }
      crc32_lanes(x, states);
      crc32_lanes(k, states4);
      EXPECT_EQ(states, expected) << n;
      EXPECT_EQ(states4, expected4) << n;
    }
  });
}

}  // namespace
}  // namespace zor::kernels

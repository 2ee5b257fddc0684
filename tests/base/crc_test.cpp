#include "zor/base/crc.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace ZOR_dstruct {
namespace {

using zor::detail::CellChecksum;
using zor::detail::crc_of_cells;
using ZOR_runtime::Byte;
using ZOR_runtime::Integer;

Integer crc_of(const std::string& bytes) {
  Integer crc = -1;
  for (const char c : bytes) crc = CalcNextCRC32(static_cast<Byte>(c), crc);
  return ~crc;
}

TEST(CalcNextCRC32, GivesThePublishedCheckValues) {
  // The check value of CRC-32 in ISO 3309 and ITU-T V.42, and of 32 zero bytes (computed apart).
  EXPECT_EQ(static_cast<std::uint32_t>(crc_of("123456789")), 0xCBF43926u);
  EXPECT_EQ(static_cast<std::uint32_t>(crc_of(std::string(32, '\0'))), 0x190A55ADu);
  EXPECT_EQ(crc_of(""), 0);
}

/// The same by the definition: divide bit by bit, for one byte position of all cells.
template <class T>
std::string slow_text(const std::vector<T>& cells) {
  std::string text;
  for (std::size_t k = 0; k < sizeof(T); ++k) {
    std::uint32_t state = ~0u;
    for (const T& cell : cells) {
      unsigned char bytes[sizeof(T)];
      std::memcpy(bytes, &cell, sizeof(T));
      state ^= bytes[k];
      for (int bit = 0; bit < 8; ++bit) state = state & 1 ? state >> 1 ^ 0xEDB88320u : state >> 1;
    }
    char digits[9];
    std::snprintf(digits, sizeof digits, "%08X", ~state);
    text += digits;
  }
  return text;
}

template <class T>
class Fingerprint : public ::testing::Test {};
using CellTypes = ::testing::Types<double, std::int32_t>;
TYPED_TEST_SUITE(Fingerprint, CellTypes);

TYPED_TEST(Fingerprint, IsTheChecksumOfEachBytePosition) {
  std::mt19937 bits(7);
  std::vector<TypeParam> cells;
  for (int n = 0; n < 70; ++n) {
    EXPECT_EQ(crc_of_cells<TypeParam>(cells), slow_text(cells)) << n;
    cells.push_back(static_cast<TypeParam>(static_cast<double>(bits()) / 3.0 - 7e8));
  }
}

TYPED_TEST(Fingerprint, MayBeFedInPieces) {
  const std::vector<TypeParam> cells = {1, 2, 3, 4, 5, 6, 7};
  CellChecksum<TypeParam> checksum;
  const std::span<const TypeParam> all(cells);
  checksum.add(all.first(3));
  checksum.add(all.subspan(3, 0));
  checksum.add(all.subspan(3));
  EXPECT_EQ(checksum.text(), crc_of_cells(all));
}

TEST(FingerprintOfDoubles, TellsTheZerosOfBothSignsApart) {
  EXPECT_NE(crc_of_cells<double>(std::vector{0.0}), crc_of_cells<double>(std::vector{-0.0}));
}

}  // namespace
}  // namespace ZOR_dstruct

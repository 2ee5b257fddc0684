#include "zor/scalar/bits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <bitset>
#include <string>

namespace ZOR_math1 {
namespace {

TEST(Bits, NeighboursInGrayCodeDifferInOneBit) {
  for (Integer n = 0; n < 65535; ++n)
    ASSERT_EQ(std::popcount(static_cast<Word>(GrayCode(static_cast<Word>(n)) ^ GrayCode(static_cast<Word>(n + 1)))), 1);
  EXPECT_EQ(GrayCode(1000), 540);  // 1000 xor 500
  EXPECT_EQ(GrayCode(65535), 32768);
}

TEST(Bits, OfEveryByte) {
  for (Integer n = 0; n < 256; ++n) {
    const auto b = static_cast<Byte>(n);
    const std::string text = std::bitset<8>(b).to_string();
    ASSERT_EQ(BitReversal(b), std::bitset<8>(std::string(text.rbegin(), text.rend())).to_ulong());
    ASSERT_EQ(CountBits(b), std::count(text.begin(), text.end(), '1'));
  }
}

TEST(Bits, IndexAndMaskAreInverse) {
  for (Integer i = 0; i < 32; ++i) {
    EXPECT_EQ(EncodeLong(DecodeLong(i)), i);
    EXPECT_EQ(DecodeBit(i), i < 8 ? DecodeLong(i) : 0);
  }
  EXPECT_EQ(DecodeLong(31), -2147483647 - 1);
  EXPECT_EQ(EncodeLong(0), 31);
  EXPECT_EQ(EncodeLong(-1), 0);
  EXPECT_EQ(EncodeLong(24), 3);
  for (const Integer outside : {-1, 32, -2147483647 - 1}) {
    EXPECT_EQ(DecodeLong(outside), 0);
    EXPECT_EQ(DecodeBit(outside), 0);
  }
}

}  // namespace
}  // namespace ZOR_math1

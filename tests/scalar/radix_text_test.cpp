#include "zor/scalar/radix_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <string>

using namespace ZOR_math1;

namespace {

constexpr Integer kLowest = std::numeric_limits<Integer>::min();

TEST(RadixText, DecimalFillsAndCutsToTheDigitsAskedFor) {
  EXPECT_EQ(Decimal(-5, 3), "-005");
  EXPECT_EQ(Decimal(1234, 2), "34");
  EXPECT_EQ(Decimal(7, 0), "7");
  EXPECT_EQ(Decimal(kLowest, 10), "-2147483648");
  EXPECT_EQ(Decimal(1, 1 << 30).Length(), 255);
}

TEST(RadixText, NegativeNumbersShowTheirTwosComplementIn32Bits) {
  EXPECT_EQ(Hex(-1, 8), "FFFFFFFF");
  EXPECT_EQ(Hex(-1, 16), "00000000FFFFFFFF");
  EXPECT_EQ(Octal(-1, 11), "37777777777");
  EXPECT_EQ(Bin(kLowest, 32), TString("1" + std::string(31, '0')));
}

TEST(RadixText, DigitsAreLimitedAndHighDigitsCut) {
  EXPECT_EQ(Hex(255, 4), "00FF");
  EXPECT_EQ(Hex(0x1234, 2), "34");
  EXPECT_EQ(Hex(1, 0), "1");
  EXPECT_EQ(Hex(1, 300).Length(), 16);
  EXPECT_EQ(Octal(8, 3), "010");
  EXPECT_EQ(Octal(8, 300).Length(), 11);
  EXPECT_EQ(Bin(5, 4), "0101");
  EXPECT_EQ(Bin(5, -1), "1");
  EXPECT_EQ(Bin(5, 300).Length(), 32);
}

TEST(RadixText, FloatsAreTheirBytes) {
  EXPECT_EQ(FPNumToHex(1.0), "3FF0000000000000");
  EXPECT_EQ(FPNumToHex(-2.0F), "C0000000");
  EXPECT_EQ(HexToDouble("3ff0000000000000"), 1.0);
  EXPECT_EQ(HexToDouble("000000000000F03F", false), 1.0);
  EXPECT_EQ(HexToSingle("c0000000"), -2.0F);
  EXPECT_EQ(HexToSingle("000000C0", false), -2.0F);
}

TEST(RadixText, SignalingNaNsKeepTheirBits) {
  const Double x = HexToDouble("7FF4000000000001");
  EXPECT_EQ(std::bit_cast<std::uint64_t>(x), 0x7FF4000000000001U);
  EXPECT_EQ(FPNumToHex(x), "7FF4000000000001");
}

TEST(RadixText, WhatIsNoPatternOfBitsIsNamedInFull) {
  EXPECT_THROW(HexToDouble("3FF000000000000"), EZORError);
  try {
    HexToSingle("3F80000G");
    ADD_FAILURE();
  } catch (const EZORError& e) {
    EXPECT_STREQ(e.what(), "HexToSingle: invalid hex string \"3F80000G\"");
  }
  try {
    HexToDouble("");
    ADD_FAILURE();
  } catch (const EZORError& e) {
    EXPECT_STREQ(e.what(), "HexToDouble: invalid hex string \"\"");
  }
  EXPECT_THROW(HexToDouble("3FF00000000000000"), EZORError);
  EXPECT_THROW(HexToDouble(TString(std::u16string(16, u'\uFF11'))), EZORError);
}

}  // namespace

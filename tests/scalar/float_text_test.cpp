#include "zor/scalar/float_text.h"

#include <gtest/gtest.h>

using namespace ZOR_math1;

namespace {

TEST(FloatText, ShortExponentsOrAsterisks) {
  EXPECT_EQ(strf(1234.5, 12, -2), " 1.23450E+03");
  EXPECT_EQ(strf(1e100, 12, -2), "************");
  EXPECT_EQ(strf(-1e-100, 3, -2), "********");
  EXPECT_EQ(strf(1.5, 40, -2).Length(), 40);
  EXPECT_EQ(strf(1.25, 7, 1), "    1.2");
}

TEST(FloatText, MakeEFormatHasNoLetterAndKeepsAllDigitsOfTheExponent) {
  EXPECT_EQ(MakeEFormat(-1234.5, 8, 4), "-0.1234+04");
  EXPECT_EQ(MakeEFormat(1e100, 8, 4), " 0.1000+101");
  EXPECT_EQ(MakeEFormat(-1e-150, 8, 4), "-0.1000-149");
  EXPECT_EQ(MakeEFormat(0.0, 12, 4), "   0.0000+00");
  EXPECT_EQ(MakeEFormat(-1234.5, 14, 4), "    -0.1234+04");
  EXPECT_EQ(MakeEFormat(9.9999e99, 14, 3), "     0.100+101");
}

TEST(FloatText, EngineeringNotationChangesTheLetterAtPowersOfThousand) {
  EXPECT_EQ(EEngStr(0.0047, 2), "4.7m");
  EXPECT_EQ(EEngStr(0.0047, -2), "4m7");
  EXPECT_EQ(EEngStr(-4700, 2), "-4.7k");
  EXPECT_EQ(EEngStr(1000, 2), "1.0k");
  EXPECT_EQ(EEngStr(1e6, 3), "1.00M");
  EXPECT_EQ(EEngStr(5, 3), "5.00");
  EXPECT_EQ(EEngStr(999.9, 2), "1000");
  EXPECT_EQ(EEngStr(1e15, 2), "1000T");
  EXPECT_EQ(EEngStr(1e-20, 3), "0.0100a");
}

TEST(FloatText, RomanNumeralsEndAt29999) {
  EXPECT_EQ(Roman(1994), "MCMXCIV");
  EXPECT_EQ(Roman(3888), "MMMDCCCLXXXVIII");
  EXPECT_EQ(Roman(0), "");
  EXPECT_EQ(Roman(30000), "");
}

}  // namespace

#include "zor/scalar/number_scan.h"

#include <gtest/gtest.h>

#include <limits>

using namespace ZOR_math1;

namespace {

constexpr Double kMaxDouble = std::numeric_limits<Double>::max();

TEST(ScanFPNum, GivesValueAndPlaceOfTheStop) {
  struct Case {
    const char* text;
    Boolean exponent;
    Integer mode;
    Double value;
    Integer stop;
  };
  // Value and place were found by hand from the table of states.
  const Case cases[] = {
      {"2.5E3 mm", true, 1, 2500, 6},
      {"  -7x", true, 1, -7, 5},
      {"1e5", false, 1, 1, 2},
      {"1,5", true, 1, 1, 2},
      {"1,5", true, 2, 1.5, 4},
      {"1.5", true, 2, 1, 2},
      {".5,", true, 3, 0, 3},
      {"1..2", true, 1, 0, 3},
      {"1.5.2", true, 1, 0, 4},
      {"1e5.2", true, 1, 1e5, 4},
      {"1e5e", true, 1, 1e5, 4},
      {".", true, 1, 0, 2},
      {"+.e", true, 1, 0, 4},
      {".e-05x", true, 1, 0, 6},
      {"1e", true, 1, 0, 3},
      {"1ex", true, 1, 0, 3},
      {"1e+", true, 1, 0, 4},
      {"1e+ 2", true, 1, 0, 4},
      {"-", true, 1, 0, 2},
      {"--1", true, 1, 0, 2},
      {"   ", true, 1, 0, 4},
      {"x", true, 1, 0, 1},
      {"1.e2", true, 1, 100, 5},
      {"1e999", true, 1, kMaxDouble, 6},
      {"-1e99999", true, 1, -kMaxDouble, 9},
      {"1e-999", true, 1, 0, 7},
      {"1+2", true, 1, 1, 2},
  };
  for (const Case& c : cases) {
    Integer at = 1;
    EXPECT_EQ(ScanFPNum(c.text, c.exponent, c.mode, at), c.value) << c.text;
    EXPECT_EQ(at, c.stop) << c.text;
  }
}

TEST(Scanners, StartAtOneAndStayBehindTheEnd) {
  Integer at = -5;
  EXPECT_EQ(ScanDecimal("42", at), 42);
  EXPECT_EQ(at, 3);
  EXPECT_EQ(ScanDecimal("42", at), 0);
  EXPECT_EQ(ScanFPNum("42", true, 1, at), 0.0);
  EXPECT_EQ(ScanHex("42", at), 0);
  EXPECT_EQ(at, 3);
  at = std::numeric_limits<Integer>::max();
  EXPECT_EQ(ScanDecimal("", at), 0);
  EXPECT_EQ(at, std::numeric_limits<Integer>::max());
}

TEST(ScanDecimal, TakesASignAndStopsAtTheEndsOfInteger) {
  Integer at = 4;
  EXPECT_EQ(ScanDecimal("ix=17,", at), 17);
  EXPECT_EQ(at, 6);
  at = 1;
  EXPECT_EQ(ScanDecimal(" -2147483648", at), std::numeric_limits<Integer>::min());
  at = 1;
  EXPECT_EQ(ScanDecimal("99999999999999999999;", at), std::numeric_limits<Integer>::max());
  EXPECT_EQ(at, 21);
  at = 1;
  EXPECT_EQ(ScanDecimal("-x", at), 0);
  EXPECT_EQ(at, 2);
}

TEST(Scanners, TakeViewsOfUnits) {
  const std::u16string_view text = u"17 2.5";
  Integer at = 1;
  EXPECT_EQ(ScanDecimal(text, at), 17);
  EXPECT_EQ(ScanFPNum(text, true, 1, at), 2.5);
  EXPECT_EQ(at, 7);
}

// Units whose low byte is a digit are none: U+0131, U+FF31, and the full-width digits.
TEST(ScanFPNum, TakesOnlyAsciiDigits) {
  for (const char16_t* text : {u"123456\u01317890", u"123456\uFF317890", u"123456\uFF117890", u"123456\u80317890"}) {
    Integer at = 1;
    EXPECT_EQ(ScanFPNum(text, true, 1, at), 123456.0);
    EXPECT_EQ(at, 7);
  }
}

TEST(ScanRadix, TakesAllDigitsAndKeepsTheLow32Bits) {
  Integer at = 1;
  EXPECT_EQ(ScanHex(" 00000000fffffffeG", at), -2);
  EXPECT_EQ(at, 18);
  at = 1;
  EXPECT_EQ(ScanOctal("178", at), 15);
  EXPECT_EQ(at, 3);
  at = 1;
  EXPECT_EQ(ScanBin("102", at), 2);
  EXPECT_EQ(at, 3);
  at = 1;
  EXPECT_EQ(ScanBin("  2", at), 0);
  EXPECT_EQ(at, 1);
}

TEST(Validators, TakeWholeTextsOnly) {
  for (const char* good : {"1", "-1.5", "+.5", "1.", "  2e-3", "1E5", "1e-999"})
    EXPECT_TRUE(IsValidFPNum(good, dpsPoint)) << good;
  for (const char* bad : {"", " ", "1E", ".", "1e999", "1 ", "1,5", "inf", "nan", "0x1", "1.2.3", "-", "E5", ".E5"})
    EXPECT_FALSE(IsValidFPNum(bad, dpsPoint)) << bad;
  EXPECT_FALSE(IsValidDouble("1e5", false, dpsPoint));
  EXPECT_TRUE(IsValidDouble("1,5", false, dpsComma));
  EXPECT_FALSE(IsValidDouble("1.5", false, dpsComma));
  EXPECT_TRUE(IsValidDouble("1.5", false, dpsBoth) && IsValidDouble("1,5", false, dpsBoth));
  EXPECT_TRUE(IsValidHex("fF") && IsValidHex("0000000000000000000FFFFFFFF"));
  EXPECT_FALSE(IsValidHex("100000000") || IsValidHex("") || IsValidHex("-1") || IsValidHex("1 ") || IsValidHex("G"));
  EXPECT_TRUE(IsValidOct("37777777777") && IsValidBin("01"));
  EXPECT_FALSE(IsValidOct("40000000000") || IsValidOct("8") || IsValidBin("2"));
  EXPECT_TRUE(IsValidDecInt("-2147483648") && IsValidDecInt("+7"));
  EXPECT_FALSE(IsValidDecInt("2147483648") || IsValidDecInt("") || IsValidDecInt("-") || IsValidDecInt("1.0"));
}

TEST(StrToIntDefault, GivesTheDefaultForWhatIsNoInteger) {
  EXPECT_EQ(StrToIntDefault("", 7), 7);
  EXPECT_EQ(StrToIntDefault("x", 7), 7);
  EXPECT_EQ(StrToIntDefault("2147483648", 7), 7);
  EXPECT_EQ(StrToIntDefault("-12", 7), -12);
}

}  // namespace

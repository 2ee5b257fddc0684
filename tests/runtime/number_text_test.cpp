#include "zor/runtime/number_text.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "zor/runtime/exception.h"

namespace ZOR_runtime {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity(), kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Str, WritesFixedNotationRightAligned) {
  EXPECT_EQ(Str(2.5, 8, 2), "    2.50");
  EXPECT_EQ(Str(2.5, 0, 0), "2");
  EXPECT_EQ(Str(-0.0004, 1, 3), "0.000") << "only zeros: no minus";
  EXPECT_EQ(Str(-0.0, 5, 1), "  0.0");
  EXPECT_EQ(Str(-1e-300, 1, 400).units().front(), u'-');
  EXPECT_EQ(Str(kNaN, 5, 2), "  Nan");
  EXPECT_EQ(Str(kInf, 1, 2), "+Inf");
  EXPECT_EQ(Str(-kInf, 6, -1), "  -Inf");
}

TEST(Str, WritesScientificNotationOfTheWidthAskedFor) {
  EXPECT_EQ(Str(-1234.5, 13), "-1.2345E+0003");
  EXPECT_EQ(Str(-1234.5, 12, -1), "-1.234E+0003") << "an exact tie goes to the even digit";
  EXPECT_EQ(Str(1.0, 0), " 1.0E+0000");
  EXPECT_EQ(Str(9.96, 10), " 1.0E+0001");
  EXPECT_EQ(Str(0.1, 26), " 1.00000000000000006E-0001");
  EXPECT_EQ(Str(0.1, 30), "     1.00000000000000006E-0001");
  EXPECT_EQ(Str(5e-324, 13), " 4.9407E-0324");
  EXPECT_EQ(Str(-0.0, 11), " 0.00E+0000");
}

TEST(Str, LimitsWidthAndDecimals) {
  EXPECT_EQ(Str(1.0, 2147483647, 0).Length(), 1100);
  EXPECT_EQ(Str(-1.7976931348623157e308, 1, 2147483647).Length(), 1 + 309 + 1 + 1100);
  EXPECT_EQ(Str(1.0, -5, 2147483647).Length(), 1102);
}

TEST(Str, WritesIntegers) {
  EXPECT_EQ(Str(-42, 6), "   -42");
  EXPECT_EQ(Str(std::numeric_limits<Int64>::min(), 1), "-9223372036854775808");
  EXPECT_EQ(IntToStr(-7), "-7");
}

struct ValCase {
  const char* text;
  double value;
  Integer code;
};

class ValOfFloats : public testing::TestWithParam<ValCase> {};

TEST_P(ValOfFloats, GivesTheValueOrThePlaceOfTheFault) {
  Double value = -1.0;
  Integer code = -1;
  Val(GetParam().text, value, code);
  EXPECT_EQ(value, GetParam().value) << GetParam().text;
  EXPECT_EQ(code, GetParam().code) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Table, ValOfFloats,
    testing::Values(ValCase{" \t+1.5e2", 150, 0}, ValCase{"5.", 5, 0}, ValCase{".5", 0.5, 0},
                    ValCase{"-1E-2", -0.01, 0}, ValCase{"1e-400", 0, 0}, ValCase{"0e999999999999999999999", 0, 0},  //
                    ValCase{"", 0, 1}, ValCase{"  ", 0, 3}, ValCase{"-", 0, 2}, ValCase{".", 0, 2}, ValCase{"1e", 0, 3},
                    ValCase{"1e+", 0, 4},  // these end too early
                    ValCase{"1.5x", 0, 4}, ValCase{"1.5 ", 0, 4}, ValCase{"1e+x", 0, 4}, ValCase{"1.2.3", 0, 4},
                    ValCase{"--1", 0, 2}, ValCase{"..5", 0, 2}, ValCase{"1,5", 0, 2}, ValCase{"0x10", 0, 2},
                    ValCase{"inf", 0, 1}, ValCase{"nan", 0, 1}, ValCase{"\xC3\xA9", 0, 1},  //
                    ValCase{"1e400", 0, 5}, ValCase{"-1.8e308", 0, 8}, ValCase{"1e99999999999999999999", 0, 22}));

TEST(Val, OfIntegersStaysWithinTheType) {
  Integer n = 1, code = -1;
  Val("-2147483648", n, code);
  EXPECT_EQ(n, std::numeric_limits<Integer>::min());
  EXPECT_EQ(code, 0);
  Val(" 2147483648", n, code);
  EXPECT_EQ(n, 0);
  EXPECT_EQ(code, 11) << "the last digit";
  Val("12.", n, code);
  EXPECT_EQ(code, 3);
  Int64 wide = 0;
  Val("-9223372036854775808", wide, code);
  EXPECT_EQ(wide, std::numeric_limits<Int64>::min());
  Val("9223372036854775808", wide, code);
  EXPECT_EQ(code, 19);
}

TEST(StrToInt, RaisesWithTheText) {
  EXPECT_EQ(StrToInt(" +17"), 17);
  for (const char* bad : {"", "1.0", "2147483648", "7 "}) {
    try {
      StrToInt(bad);
      FAIL() << bad;
    } catch (const EConvertError& error) {
      EXPECT_EQ(error.Message(), TString("\"") + bad + "\" is not an integer");
    }
  }
}

TEST(ReaderOfNumbers, TakesTheLongestNumberAndLeavesTheRest) {
  using namespace zor::detail;
  const auto read = [](std::string_view text, NumberGrammar grammar = {}) { return parse_number(text, grammar); };
  EXPECT_EQ(read("12e5x").end, 4U);
  EXPECT_EQ(read("12ex").end, 2U);
  EXPECT_EQ(read("12e+").end, 2U);
  EXPECT_EQ(read("1.e2;").value, 100.0);
  EXPECT_EQ(read("1,5").end, 1U);
  EXPECT_EQ(read("1,5", {.comma = true}).value, 1.5);
  EXPECT_EQ(read("1.5", {.point = false}).end, 1U);
  EXPECT_EQ(read("15e1", {.exponent = false}).end, 2U);
  EXPECT_EQ(read(" 1").status, NumberStatus::kNone);
  EXPECT_EQ(read("1e-400").status, NumberStatus::kTooSmall);
  EXPECT_EQ(read("-1e309").status, NumberStatus::kTooLarge);
  EXPECT_EQ(read("0e999").status, NumberStatus::kNumber);
  EXPECT_TRUE(std::signbit(read("-0.0").value));
  EXPECT_EQ(parse_integer(std::string_view("-12.5"), -100, 100).end, 3U);
  EXPECT_EQ(parse_integer(std::string_view("101"), -100, 100).status, NumberStatus::kTooLarge);
}

// The decimal digits of x / 2, where x has `decimals` of them behind the first in scientific notation.
std::string half_of_decimal(double x, int decimals) {
  char digits[1200];
  const auto end = std::to_chars(digits, digits + sizeof digits, x, std::chars_format::scientific, decimals).ptr;
  std::string half;
  int rest = 0;
  for (const char* c = digits; c != end && *c != 'e'; ++c) {
    if (*c != '.') rest = rest % 2 * 10 + (*c - '0');
    half += *c == '.' ? '.' : static_cast<char>('0' + rest / 2);
  }
  return half + (rest % 2 ? "5" : "");
}

TEST(ReaderOfNumbers, IsExactWhereItIsHard) {
  const auto value = [](const std::string& text) { return zor::detail::parse_number(text).value; };
  // Halfway between two doubles: to even, and a digit however far behind decides.
  EXPECT_EQ(value("9007199254740993"), 9007199254740992.0);
  EXPECT_EQ(value("9007199254740993." + std::string(2000, '0') + "1"), 9007199254740994.0);
  EXPECT_EQ(value(std::string(3000, '0') + "9007199254740993.0"), 9007199254740992.0);
  // Half of the smallest subnormal, in all its digits, is 0; with one more digit it is the subnormal.
  const std::string half = half_of_decimal(0x1p-1074, 750) + "e-324";
  EXPECT_EQ(half.substr(0, 8), "2.470328");
  EXPECT_EQ(zor::detail::parse_number(std::string_view(half)).status, zor::detail::NumberStatus::kTooSmall);
  EXPECT_EQ(value(half.substr(0, half.size() - 5) + "1e-324"), 0x1p-1074);
  EXPECT_EQ(zor::detail::parse_number(std::string_view("2.4703282292062327e-324")).status,
            zor::detail::NumberStatus::kTooSmall);
  EXPECT_EQ(value("2.4703282292062328e-324"), 0x1p-1074);
  EXPECT_EQ(value("1.7976931348623158e308"), std::numeric_limits<double>::max());
  EXPECT_EQ(value("0." + std::string(5000, '0') + "1e5001"), 1.0);
  EXPECT_EQ(value("1" + std::string(5000, '0') + "e-5000"), 1.0);
}

}  // namespace
}  // namespace ZOR_runtime

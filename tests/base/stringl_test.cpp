#include "zor/base/ZOR_stringl.h"

#include <gtest/gtest.h>

namespace ZOR_stringl {
namespace {

TEST(Strff, PadsToTheWidthAndNeverCuts) {
  EXPECT_EQ(strff(1.5, 12, 3), "       1.500");
  EXPECT_EQ(strff(1.5, 1, 3), "1.500");
  EXPECT_EQ(strff(-2.5, 1, -4), "-2") << "no decimals, the tie goes to the even digit";
  EXPECT_EQ(strff(-0.001, 1, 2), "0.00");
}

TEST(StringIx, GivesTheFirstEqualEntry) {
  const TStrArray table = {"bmp", "PNG", "png", "Größe"};
  EXPECT_EQ(StringIx("png", table), 3);
  EXPECT_EQ(StringIx("png", true, table), 3);
  EXPECT_EQ(StringIx("png", false, table), 2);
  EXPECT_EQ(StringIx("GRÖßE", false, table), 4);
  EXPECT_EQ(StringIx("jpg", table), 0);
  EXPECT_EQ(StringIx("jpg", false, TStrArray()), 0);
  EXPECT_EQ(StringIx("png", {"bmp", "png"}), 2);
  EXPECT_EQ(StringIx("b", false, {"A", "B"}), 2);
}

TEST(StringContains, FindsTheEmptyTextEverywhere) {
  EXPECT_TRUE(StringContains("abc", "bc"));
  EXPECT_FALSE(StringContains("abc", "cb"));
  EXPECT_TRUE(StringContains("", ""));
}

TEST(Stripping, TakesBlanksOfAllKinds) {
  EXPECT_EQ(StripLTBlanks("\t\r\n\v\f a b \n"), "a b");
  EXPECT_EQ(StripLTBlanks("  "), "");
  EXPECT_EQ(StripTrailingChars('0', "100"), "1");
  EXPECT_EQ(StripTrailingChars('0', "000"), "");
  EXPECT_EQ(StripTrailingChars('x', "100"), "100");
  EXPECT_EQ(ReplaceCharInString("a\nb\n", '\n', ' '), "a b ");
  EXPECT_EQ(RemoveControlChars("a\tb\u007f\u009fc\u00a0\n"), "abc\u00a0");
}

TEST(Tokenize, GivesNoEmptyTokens) {
  TStrArray tokens = {"old"};
  EXPECT_EQ(Tokenize(",, red,green ;", ", ;", tokens), 2);
  EXPECT_EQ(tokens, (TStrArray{"red", "green"}));
  EXPECT_EQ(Tokenize("a b", "", tokens), 1);
  EXPECT_EQ(tokens, TStrArray{"a b"});
  EXPECT_EQ(Tokenize("", "", tokens), 0);
  EXPECT_EQ(Tokenize(";;", ";", tokens), 0);
  EXPECT_EQ(tokens, nullptr);
}

}  // namespace
}  // namespace ZOR_stringl

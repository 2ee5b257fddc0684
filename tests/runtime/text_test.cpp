#include "zor/runtime/text.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>

namespace ZOR_runtime {
namespace {

TEST(Text, PositionsCountFromOne) {
  EXPECT_EQ(Pos("ö", "Größe"), 3);
  EXPECT_EQ(Pos("x", "Größe"), 0);
  EXPECT_EQ(Pos("", "Größe"), 0);
  EXPECT_EQ(Copy("Größe", 2, 3), "röß");
  EXPECT_EQ(Copy("abc", -7, 2), "ab");
  EXPECT_EQ(Copy("abc", 2, 2147483647), "bc");
  EXPECT_EQ(Copy("abc", 4, 1), "");
  EXPECT_EQ(Copy("abc", 1, -1), "");
  EXPECT_EQ(Copy("a\U0001F600", 1, 2), "a\uFFFD") << "half of a pair";
}

TEST(Text, DeleteOutsideChangesNothing) {
  const auto without = [](TString s, Integer index, Integer count) {
    Delete(s, index, count);
    return s;
  };
  EXPECT_EQ(without("abcd", 2, 2), "ad");
  EXPECT_EQ(without("abcd", 3, 2147483647), "ab");
  EXPECT_EQ(without("abcd", 0, 2), "abcd");
  EXPECT_EQ(without("abcd", 5, 1), "abcd");
  EXPECT_EQ(without("abcd", 1, -1), "abcd");
}

TEST(Case, FollowsTheSimpleMappingsOfUnicode) {
  EXPECT_EQ(UpperCase("größe, ÿ, ё, ω, \U00010428"), "GRÖßE, Ÿ, Ё, Ω, \U00010400");
  EXPECT_EQ(LowerCase("GRÖẞE, Ÿ, Ё, Ω, \U00010400"), "größe, ÿ, ё, ω, \U00010428");
  EXPECT_EQ(UpCase(u'ä'), u'Ä');
  EXPECT_EQ(UpCase(u'7'), u'7');
  using zor::detail::to_lower, zor::detail::to_upper;
  EXPECT_EQ(to_lower(U'\u0130'), U'i');       // dotted capital I
  EXPECT_EQ(to_upper(U'\u0131'), U'I');       // dotless i
  EXPECT_EQ(to_upper(U'\u1F80'), U'\u1F88');  // iota subscript: the title form
  EXPECT_EQ(to_lower(U'\u01C5'), U'\u01C6');  // titlecase digraph
  EXPECT_EQ(to_upper(U'\u0149'), U'\u0149');  // only a full mapping exists
  EXPECT_EQ(to_lower(U'\u0101'), U'\u0101');  // between two capitals
}

TEST(Case, LettersThatLoseTheirCaseComeBackToIt) {
  int letters = 0;
  for (char32_t c = 0; c < 0x110000; ++c) {
    const char32_t low = zor::detail::to_lower(c);
    ASSERT_EQ(zor::detail::to_lower(low), low);
    ASSERT_EQ(zor::detail::to_upper(zor::detail::to_upper(c)), zor::detail::to_upper(c));
    letters += low != c;
  }
  EXPECT_EQ(letters, 1433) << "of Unicode 14";
}

TEST(Case, IsIgnoredCodePointByCodePoint) {
  using zor::detail::equal_ignoring_case;
  EXPECT_TRUE(equal_ignoring_case(u"Größe\U00010400", u"gRÖßE\U00010428"));
  EXPECT_FALSE(equal_ignoring_case(u"abc", u"ab"));
  EXPECT_FALSE(equal_ignoring_case(u"strasse", u"straße"));
}

TEST(FileNames, ExtensionBelongsToTheLastPart) {
  EXPECT_EQ(ExtractFileExt("dir.d/image.tar.PNG"), ".PNG");
  EXPECT_EQ(ExtractFileExt("dir.d/image"), "");
  EXPECT_EQ(ExtractFileExt("c:\\dir.d\\image"), "");
  EXPECT_EQ(ExtractFileExt("name."), ".");
  EXPECT_EQ(ExtractFileExt(""), "");
}

TEST(FileNames, AFolderIsNoFile) {
  const std::string name = testing::TempDir() + "zor_text_tést.txt";
  EXPECT_FALSE(FileExists(name));
  std::ofstream(name) << "x";
  EXPECT_TRUE(FileExists(name));
  std::remove(name.c_str());
  EXPECT_FALSE(FileExists(testing::TempDir()));
  EXPECT_FALSE(FileExists(""));
}

}  // namespace
}  // namespace ZOR_runtime

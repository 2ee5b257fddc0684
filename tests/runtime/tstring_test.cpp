#include "zor/runtime/tstring.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <unordered_set>
#include <vector>

#include "zor/runtime/utf8.h"

namespace ZOR_runtime {
namespace {

std::u16string units(const TString& s) { return std::u16string(s.units()); }

TEST(TString, ReadsUtf8OfEveryLength) {
  EXPECT_EQ(units("a"), u"a");
  EXPECT_EQ(units("ß"), u"\u00DF");
  EXPECT_EQ(units("€"), u"\u20AC");
  EXPECT_EQ(units("\U0001F600"), u"\xD83D\xDE00");
  EXPECT_EQ(units("\xF4\x8F\xBF\xBF"), u"\xDBFF\xDFFF") << "the last code point";
  EXPECT_EQ(units(std::string("a\0b", 3)), std::u16string(u"a\0b", 3));
}

TEST(TString, EveryCodePointSurvivesTheRoundTrip) {
  std::u16string all;
  for (char32_t c = 0; c < 0xD800; ++c) all += static_cast<char16_t>(c);
  for (char32_t c = 0xE000; c < 0x10000; ++c) all += static_cast<char16_t>(c);
  for (char32_t c = 0x10000; c < 0x110000; c += 0x3FF) {
    all += static_cast<char16_t>(0xD7C0 + (c >> 10));
    all += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
  }
  const TString text(all);
  EXPECT_EQ(text.units(), all);
  EXPECT_EQ(TString(text.utf8()), text);
}

TEST(TString, BadUtf8BecomesOneReplacementForEachMaximalSubpart) {
  const std::u16string r = u"\uFFFD";
  struct Case {
    std::string bytes;
    std::u16string units;
  };
  // The first is the example of table 3-8 in the Unicode Standard.
  const Case cases[] = {
      {"a\xF1\x80\x80\xE1\x80\xC2"
       "b\x80"
       "c\x80\xBF"
       "d",
       u"a" + r + r + r + u"b" + r + u"c" + r + r + u"d"},
      {"\xC0\xAF", r + r},                  // overlong "/"
      {"\xE0\x80\xAF", r + r + r},          // overlong
      {"\xED\xA0\x80", r + r + r},          // a surrogate
      {"\xF4\x90\x80\x80", r + r + r + r},  // beyond the last code point
      {"\xF5\xFF", r + r},
      {"\xE2\x82", r},  // cut off
      {"\xF0\x9F\x98", r},
      {"\xC3", r},
      {"\xE2\x82z", r + u"z"},
  };
  for (const Case& c : cases) EXPECT_EQ(units(c.bytes), c.units) << ::testing::PrintToString(c.bytes);
}

TEST(TString, AnyBytesGiveValidUtf8ThatStays) {
  std::uint32_t state = 5;
  for (int round = 0; round < 2000; ++round) {
    std::string bytes;
    for (int i = 0; i < 12; ++i) {
      state = state * 1664525u + 1013904223u;
      bytes += static_cast<char>(state >> 24 | (round % 2 ? 0x80 : 0));
    }
    const TString text(bytes);
    ASSERT_EQ(TString(text.utf8()), text) << ::testing::PrintToString(bytes);
  }
}

TEST(TString, LoneSurrogatesBecomeReplacements) {
  EXPECT_EQ(units(std::u16string_view(u"\xD83D")), u"\uFFFD");
  EXPECT_EQ(units(std::u16string_view(u"\xDE00\xD83D")), u"\uFFFD\uFFFD");
  EXPECT_EQ(units(std::u16string_view(u"\xD83D\xD83D\xDE00")), u"\uFFFD\xD83D\xDE00");
  EXPECT_EQ(TString(Char{0xDC00}), u"\uFFFD");
}

TEST(TString, HalvesAppendedOneByOneJoin) {
  TString text;
  text.append_unit(0xD83D);
  EXPECT_EQ(text.utf8(), "\uFFFD");
  text.append_unit(0xDE00);
  EXPECT_EQ(text.utf8(), "\U0001F600");
}

TEST(TString, NullPointerIsTheEmptyText) {
  const char* none = nullptr;
  const Char* none16 = nullptr;
  EXPECT_TRUE(TString(none).empty());
  EXPECT_TRUE(TString(none16).empty());
}

TEST(TString, PositionsCountFromOne) {
  const TString text = "aß";
  EXPECT_EQ(text.Length(), 2);
  EXPECT_EQ(text[1], u'a');
  EXPECT_EQ(text[2], u'\u00DF');
  EXPECT_EQ(text[0], 0);
  EXPECT_EQ(text[3], 0);
  EXPECT_EQ(text[-2147483647 - 1], 0);
}

TEST(TString, IsAValue) {
  TString a = "x";
  TString b = a;
  b += "y";
  EXPECT_EQ(a, "x");
  EXPECT_EQ("x" + b + std::string("z") + u"w", "xxyzw");
  b += b;
  EXPECT_EQ(b, "xyxy");
  b.clear();
  EXPECT_TRUE(b.empty());
}

TEST(TString, ComparesByUnits) {
  EXPECT_LT(TString("a"), "b");
  EXPECT_LT(TString("a"), "aa");
  EXPECT_GT(TString("\uFFFD"), "\U0001F600") << "a surrogate pair stands below the last units";
  EXPECT_EQ("é" <=> TString(u"\u00E9"), std::strong_ordering::equal);
  EXPECT_NE(TString("A"), "a");
}

TEST(TString, HashesAndPrints) {
  std::unordered_set<TString> set = {"a", "ß", "a"};
  EXPECT_EQ(set.size(), 2u);
  EXPECT_TRUE(set.contains(u"\u00DF"));
  std::ostringstream out;
  out << TString("Größe");
  EXPECT_EQ(out.str(), "Größe");
}

}  // namespace
}  // namespace ZOR_runtime

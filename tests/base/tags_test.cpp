#include "zor/base/tags.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/temp_file.h"

namespace {

using namespace ZOR_zorbase;

const std::vector<TString> kTags = {"x", "y", "box", "/box", "$invalidtag$"};
constexpr Integer kOther = 4;

struct Element {
  Integer tag;
  std::string attr, content;
  Int64 place;  // from 0
  friend bool operator==(const Element&, const Element&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Element& e) {
    return out << "{" << e.tag << ", '" << e.attr << "', '" << e.content << "', " << e.place << "}";
  }
};

std::vector<Element> elements_by_reader(const std::string& text) {
  std::vector<Element> elements;
  TString attr, content;
  zor::detail::TagReader reader(text, 1, kTags);
  while (reader.place() <= static_cast<Int64>(text.size())) {
    const Integer tag = reader.next(attr, content);
    elements.push_back({tag, attr.utf8(), content.utf8(), reader.place() - 1});
  }
  return elements;
}

// All elements up to the end, by both forms of the reader, which must agree. The text must be plain ASCII.
std::vector<Element> elements_of(const std::string& text) {
  std::vector<Element> in_string, in_file;
  TString attr = "?", content = "?";
  Integer ix = 1;
  const TString s = text;
  const auto length = static_cast<Int64>(text.size());
  while (ix <= length) {
    const Integer tag = ZOR_stringl::ReadNextTagInString(s, ix, kTags, attr, content);
    in_string.push_back({tag, attr.utf8(), content.utf8(), ix - 1});
  }
  TTextFile file;
  file.AssignText(text);
  file.Reset();
  while (file.Position() < length) {
    const Integer tag = ZOR_streams::ReadNextTagInTextFile(file, kTags, attr, content);
    in_file.push_back({tag, attr.utf8(), content.utf8(), file.Position()});
  }
  EXPECT_EQ(in_string, in_file) << text;
  EXPECT_EQ(in_string, elements_by_reader(text)) << text;
  return in_string;
}

using Elements = std::vector<Element>;

TEST(ReadNextTag, DeliversIndexAttributesContentAndPlace) {
  EXPECT_EQ(elements_of("<x>1</x>, <y  id=\"1\" >two\nlines</y >."),
            (Elements{{0, "", "1", 8}, {1, "id=\"1\"", "two\nlines", 36}, {kOther, "", "", 37}}));
}

TEST(ReadNextTag, ExampleOfItsHeader) {
  TString attr, content;
  Integer ix = 1;
  const TString tags[] = {"x", "y", "$invalidtag$"};
  EXPECT_EQ(ZOR_stringl::ReadNextTagInString("<y id=\"1\">2</y>", ix, tags, attr, content), 1);
  EXPECT_EQ(attr, "id=\"1\"");
  EXPECT_EQ(content, "2");
  EXPECT_EQ(ix, 16);
}

TEST(ReadNextTag, OfAPairInTheListEachTagCountsAlone) {
  EXPECT_EQ(elements_of("<box id='a'>1<x>2</x></box >"),
            (Elements{{2, "id='a'", "", 12}, {0, "", "2", 21}, {3, "", "", 28}}));
}

TEST(ReadNextTag, TakesClosedTagsWithoutTheirStroke) {
  EXPECT_EQ(elements_of("<x/><y a=\"/\" / ><x b=\"c\"/>"),
            (Elements{{0, "", "", 4}, {1, "a=\"/\"", "", 16}, {0, "b=\"c\"", "", 26}}));
}

TEST(ReadNextTag, NestsInnerElementsOfTheSameName) {
  EXPECT_EQ(elements_of("<x>a<x>b</x><x/>c<xx></x>"), (Elements{{0, "", "a<x>b</x><x/>c<xx>", 25}}));
}

TEST(ReadNextTag, DoesNotEndATagInsideQuotes) {
  EXPECT_EQ(elements_of("<x a=\"1>2\" b='\">'>c</x>"), (Elements{{0, "a=\"1>2\" b='\">'", "c", 23}}));
}

TEST(ReadNextTag, PassesOverDeclarationsAndComments) {
  EXPECT_EQ(
      elements_of("<?xml version=\"1.0\"?><!DOCTYPE a [<!ENTITY x \"]>\">]><!-- <x>0</x> -- > --><x>1<!--</x>--></x>"),
      (Elements{{0, "", "1<!--</x>-->", 93}}));
  EXPECT_EQ(elements_of("<x><![CDATA[</x>]]></x><!-->"),
            (Elements{{0, "", "<![CDATA[</x>]]>", 23}, {kOther, "", "", 28}}));
}

TEST(ReadNextTag, PassesOverUnknownElementsAsAWhole) {
  EXPECT_EQ(elements_of("<z a=1><x>1</x><z></z></z><x>2</x>"), (Elements{{kOther, "", "", 26}, {0, "", "2", 34}}));
  EXPECT_EQ(elements_of("</z></x><X>1</X>"), (Elements{{kOther, "", "", 16}}));
}

TEST(ReadNextTag, GoesOnBehindAnOpeningTagWithoutItsEnd) {
  EXPECT_EQ(elements_of("<x a>1<y>2</y>"), (Elements{{kOther, "a", "", 5}, {1, "", "2", 14}}));
  EXPECT_EQ(elements_of("<z><y>2</y>"), (Elements{{kOther, "", "", 3}, {1, "", "2", 11}}));
}

TEST(ReadNextTag, TakesBareAndUnfinishedSignsForText) {
  EXPECT_EQ(elements_of("1 < 2 <> << x <x <y>3</y> <x"), (Elements{{1, "", "3", 25}, {kOther, "", "", 28}}));
  EXPECT_EQ(elements_of("<x>1</x"), (Elements{{kOther, "", "", 3}, {kOther, "", "", 7}}));
  EXPECT_EQ(elements_of("<y a=\">1</y>"), (Elements{{kOther, "", "", 12}}));
}

TEST(ReadNextTag, EndsAtLengthPlusOneWithEmptyTexts) {
  TString attr = "old", content = "old";
  Integer ix = -5;
  EXPECT_EQ(ZOR_stringl::ReadNextTagInString("no tag", ix, kTags, attr, content), kOther);
  EXPECT_EQ(ix, 7);
  EXPECT_EQ(attr, "");
  EXPECT_EQ(content, "");
  ix = 2147483647;
  EXPECT_EQ(ZOR_stringl::ReadNextTagInString("<x>1</x>", ix, kTags, attr, content), kOther);
  EXPECT_EQ(ix, 9);
  ix = 3;
  EXPECT_EQ(ZOR_stringl::ReadNextTagInString("<x>1</x>", ix, {}, attr, content), -1);
  EXPECT_EQ(ix, 3);
}

TEST(ReadNextTag, TextMayBeTheVariableThatReceivesTheContent) {
  TString attr, text = "<x>a<y>b</y></x>";
  Integer ix = 1;
  EXPECT_EQ(ZOR_stringl::ReadNextTagInString(text, ix, kTags, attr, text), 0);
  EXPECT_EQ(text, "a<y>b</y>");
}

TEST(ReadNextTag, FindsNamesAndContentBeyondAscii) {
  const std::string text = "<gr\u00F6\u00DFe \u20AC>\U0001F600</gr\u00F6\u00DFe>";
  const TString tags[] = {"gr\u00F6\u00DFe", ""};
  TString attr, content;
  Integer ix = 1;
  EXPECT_EQ(ZOR_stringl::ReadNextTagInString(text, ix, tags, attr, content), 0);
  EXPECT_EQ(content, "\U0001F600");
  TTextFile file;
  file.AssignText(text);
  file.Reset();
  EXPECT_EQ(ZOR_streams::ReadNextTagInTextFile(file, tags, attr, content), 0);
  EXPECT_EQ(attr, "\u20AC");
  EXPECT_EQ(content, "\U0001F600");
}

TEST(ReadNextTag, TakesBytesThatAreNoTextForTheReplacementInNamesToo) {
  const std::string text = "<y\xA4><x>1</x></y\x93><x>2</x>";  // one name where both bytes read as U+FFFD
  TString attr, content;
  Integer ix = 1;
  EXPECT_EQ(ZOR_stringl::ReadNextTagInString(text, ix, kTags, attr, content), kOther);
  EXPECT_EQ(ix, 18);
  TTextFile file;
  file.AssignText(text);
  file.Reset();
  EXPECT_EQ(ZOR_streams::ReadNextTagInTextFile(file, kTags, attr, content), kOther);
  EXPECT_EQ(file.Position(), 17);
}

TEST(ReadNextTagInTextFile, StopsInsideALineAndGoesBackInALargeFile) {
  const std::string filler(200000, '.');
  const zor::test::TempFile temp("<x>1</x> rest of line\n<y>" + filler + "<x>2</x>" + filler);
  TTextFile file(temp.path());
  file.Reset();
  TString attr, content;
  EXPECT_EQ(ZOR_streams::ReadNextTagInTextFile(file, kTags, attr, content), 0);
  EXPECT_EQ(file.ReadLn(), " rest of line");
  EXPECT_EQ(ZOR_streams::ReadNextTagInTextFile(file, kTags, attr, content), kOther);
  EXPECT_EQ(file.Position(), 25);
  EXPECT_EQ(ZOR_streams::ReadNextTagInTextFile(file, kTags, attr, content), 0);
  EXPECT_EQ(content, "2");
}

TEST(TagReader, ReadsAHostileDocumentInLinearTime) {
  // 100000 opening tags without an end before elements that have theirs: quadratic work would take minutes.
  std::string text;
  for (int i = 0; i < 100000; ++i) text += i % 2 ? "<x>" : "<z>";
  for (int i = 0; i < 50000; ++i) text += "<y><x></x></y>";
  const auto elements = elements_by_reader(text);
  EXPECT_EQ(elements.size(), 150000u);
  EXPECT_EQ(elements[99999], (Element{kOther, "", "", 300000}));
  EXPECT_EQ(elements.back(), (Element{1, "", "<x></x>", 1000000}));

  TTextFile file;
  file.AssignText(text);
  file.Reset();
  zor::detail::TagReader reader(file, kTags);
  TString attr, content;
  for (int i = 0; i < 150000; ++i) reader.next(attr, content);
  EXPECT_EQ(file.Position(), 1000000);
}

// Depth costs no stack and no time beyond the length: quadratic work on these would take minutes.
TEST(ReadNextTag, TakesDeepNestingInOnePass) {
  std::string deep, open;
  for (int i = 0; i < 300000; ++i) deep += "<x>", open += "<x>";
  for (int i = 0; i < 300000; ++i) deep += "</x>";
  TString attr, content;
  Integer ix = 1;
  EXPECT_EQ(ZOR_stringl::ReadNextTagInString(deep, ix, kTags, attr, content), 0);
  EXPECT_EQ(content.Length(), static_cast<Integer>(deep.size()) - 7);
  ix = 1;
  EXPECT_EQ(ZOR_stringl::ReadNextTagInString(open, ix, kTags, attr, content), kOther);
  EXPECT_EQ(ix, 4);
}

}  // namespace

#include "zor/base/xml_text.h"

#include <gtest/gtest.h>

namespace zor::detail {
namespace {

TEST(XmlText, IsEscapedAndDecodedOnce) {
  const std::string text("a<b>&\"'\n\x7F\0\xC3\xA4", 12);
  EXPECT_EQ(xml_escaped(text), "a&lt;b&gt;&amp;&quot;'&#10;&#127;&#0;\xC3\xA4");
  EXPECT_EQ(xml_unescaped(xml_escaped(text)), text);
  EXPECT_EQ(xml_unescaped("&amp;lt; &#8364;&#x41;&#;&#99999999;&no;&apos;&"),
            "&lt; \xE2\x82\xAC&#x41;&#;&#99999999;&no;'&");
}

TEST(XmlText, FindsElementsInPlace) {
  const std::string_view text = "<?p <x> ?><!-- <y> --><a b = '>' c=\"1\"/ ><d>in</d></e><f>";
  const auto a = next_xml_tag(text, 0);
  ASSERT_TRUE(a);
  EXPECT_EQ(a->name, "a");
  EXPECT_EQ(xml_attribute(a->attributes, "b"), ">");
  EXPECT_EQ(xml_integer(a->attributes, "c", 1, 9), 1);
  EXPECT_FALSE(xml_integer(a->attributes, "c", 2, 9));
  EXPECT_FALSE(xml_attribute(a->attributes, ""));
  const auto d = next_xml_element(text, a->end);
  ASSERT_TRUE(d);
  EXPECT_EQ(d->content, "in");
  EXPECT_FALSE(next_xml_element(text, d->end));      // an end tag
  EXPECT_FALSE(next_xml_element(text, d->end + 4));  // no end
  EXPECT_FALSE(next_xml_tag("<a b='>", 0));
  EXPECT_FALSE(next_xml_tag("<!-- -", 0));
}

}  // namespace
}  // namespace zor::detail

#include "zor/base/quoted_name.h"

#include <gtest/gtest.h>

#include <vector>

namespace ZOR_stringl {
namespace {

using ZOR_runtime::TString;

struct Fed {
  std::vector<TString> complete;
  TString rest;
  TQuotedStrState state = qsOutside;
};

Fed feed(const TString& text) {
  Fed fed;
  for (const char16_t c : text.units())
    if (ParseQuotedName(c, '"', fed.rest, fed.state)) fed.complete.push_back(fed.rest);
  return fed;
}

TEST(ParseQuotedName, SkipsWhatStandsOutside) {
  const Fed fed = feed("ab \"first\" , \"second\nline\"");
  EXPECT_EQ(fed.complete, (std::vector<TString>{"first", "second\nline"}));
  EXPECT_EQ(fed.state, qsDone);
}

TEST(ParseQuotedName, KeepsAnUnfinishedName) {
  const Fed fed = feed("\"half");
  EXPECT_TRUE(fed.complete.empty());
  EXPECT_EQ(fed.rest, "half");
  EXPECT_EQ(fed.state, qsInside);
}

TEST(ParseQuotedName, TwoQuotesAreAnEmptyName) {
  EXPECT_EQ(feed("\"\"").complete, std::vector<TString>{""});
  EXPECT_EQ(feed("\"a\"\"b\"").complete, (std::vector<TString>{"a", "b"})) << "there is no escape";
  EXPECT_EQ(feed("\"\U0001F600\"").complete, std::vector<TString>{"\U0001F600"});
}

}  // namespace
}  // namespace ZOR_stringl

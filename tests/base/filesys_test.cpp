#include "zor/base/ZOR_filesys.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/temp_file.h"

namespace {

using namespace ZOR_filesys;
using zor::test::TempFile;

struct Header {
  Integer code = 0;
  TString Comment = "untouched";
  Integer NrCols = -5, NrRows = -5;
  Boolean RowAttrib = true, ColNames = false, RowNames = true, NomVars = false;
};

Header header_of_file(const std::string& name) {
  Header h;
  h.code = ReadHeaderOfASC(name, h.Comment, h.NrCols, h.NrRows, h.RowAttrib, h.ColNames, h.RowNames, h.NomVars);
  return h;
}

TEST(ReadHeaderOfASC, DeliversCommentCountsAndFlags) {
  const TempFile temp(
      "What it is, \u00B5m\r\n3\t;nr. of columns\r\n12\t;nr. of rows\r\nFALSE TRUE false True\t;row attributes\r\n");
  const Header h = header_of_file(temp.path());
  EXPECT_EQ(h.code, 0);
  EXPECT_EQ(h.Comment, "What it is, \u00B5m");
  EXPECT_EQ(h.NrCols, 3);
  EXPECT_EQ(h.NrRows, 12);
  EXPECT_FALSE(h.RowAttrib);
  EXPECT_TRUE(h.ColNames);
  EXPECT_FALSE(h.RowNames);
  EXPECT_TRUE(h.NomVars);
}

TEST(ReadHeaderOfASC, TellsOneFaultFromAnother) {
  const std::string good[] = {"c\n", "1\n", "2\n", "TRUE FALSE TRUE FALSE"};
  struct Case {
    int line;
    const char* text;
    Integer code;
  };
  const Case cases[] = {
      {1, "x\n", -3},
      {1, "-1\n", -3},
      {1, "1.0\n", -3},
      {1, "\n", -3},
      {1, ";1\n", -3},
      {2, "2147483648\n", -3},
      {2, "2x\n", -3},
      {1, "1 2\n", -3},
      {3, "TRUE TRUE", -4},
      {3, "TRUE TRUE YES", -4},
      {3, "", -2},
      {3, "\n", -4},
      {3, "TRUE TRUE TRUE TRUE TRUE", -4},
      {3, ";TRUE TRUE TRUE", -4},
      {1, "0\n", 0},
      {2, "2147483647;rows\n", 0},
      {2, "  +7 \t8\n", 0},
      {3, "TRUE FALSE TRUE", 0},
      {3, "\ttrue\tfalse true", -4},
  };
  for (const Case& c : cases) {
    std::string text;
    for (int i = 0; i < 4; ++i) text += i == c.line ? c.text : good[i];
    EXPECT_EQ(header_of_file(TempFile(text).path()).code, c.code) << c.text;
  }
}

TEST(ReadHeaderOfASC, ThreeFlagsMeanNoNominalVariables) {
  const TempFile temp("\n1\n2\nTRUE TRUE TRUE");
  const Header h = header_of_file(temp.path());
  EXPECT_EQ(h.code, 0);
  EXPECT_TRUE(h.RowNames);
  EXPECT_FALSE(h.NomVars);
  EXPECT_EQ(h.Comment, "");
}

TEST(ReadHeaderOfASC, LeavesOutputsUnchangedOnACode) {
  const TempFile temp("comment\n1\nx\nTRUE TRUE TRUE");
  const Header bad = header_of_file(temp.path()), missing = header_of_file(temp.path() + ".missing");
  EXPECT_EQ(bad.code, -3);
  EXPECT_EQ(missing.code, -1);
  EXPECT_EQ(header_of_file("/").code, -1);
  for (const Header& h : {bad, missing}) {
    EXPECT_EQ(h.Comment, "untouched");
    EXPECT_EQ(h.NrCols, -5);
    EXPECT_TRUE(h.RowAttrib);
  }
}

TEST(ReadNextWordInTextFile, GoesThroughTheWordsOfAFile) {
  const TempFile temp("one\ttwo\r\n\n \u00A0three\u00A0 \uFEFFfour\n");
  TTextFile file(temp.path());
  file.Reset();
  for (const char* word : {"one", "two", "three", "four", "", ""}) EXPECT_EQ(ReadNextWordInTextFile(file), word);
}

}  // namespace

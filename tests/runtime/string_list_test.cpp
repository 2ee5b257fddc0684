#include "zor/runtime/string_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/temp_file.h"

namespace {

using namespace ZOR_runtime;
using ::testing::ElementsAre;
using zor::test::TempFile;

TEST(TStringList, EditsByNumberAndIgnoresNumbersOutside) {
  TStringList list;
  EXPECT_EQ(list.Add("b"), 0);
  EXPECT_EQ(list.Add("d"), 1);
  list.Insert(0, "a");
  list.Insert(3, "e");
  list.Insert(5, "x");
  list.Insert(-1, "x");
  list.SetStrings(2, "D");
  list.SetStrings(9, "x");
  list.Delete(3);
  list.Delete(-1);
  EXPECT_THAT(list, ElementsAre("a", "b", "D"));
  EXPECT_EQ(list.Strings(-1), "");
  EXPECT_EQ(list.Strings(3), "");
  EXPECT_EQ(list.IndexOf("D"), 2);
  EXPECT_EQ(list.IndexOf("d"), -1);
}

TEST(TStringList, TextSplitsAtBothLineEnds) {
  TStringList list;
  list.SetText("a\r\n\nb");
  EXPECT_THAT(list, ElementsAre("a", "", "b"));
  EXPECT_EQ(list.Text(), "a\n\nb\n");
  list.SetText("");
  EXPECT_EQ(list.Count(), 0);
}

TEST(TStringList, GoesToAFileAndBackAndSurvivesAMissingOne) {
  TempFile temp;
  TStringList list, again;
  list.Add("Gr\u00F6\u00DFe");
  list.Add("");
  list.Add("\U0001F600");
  list.SaveToFile(temp.path());
  again.LoadFromFile(temp.path());
  EXPECT_EQ(again.Text(), list.Text());
  EXPECT_THROW(again.LoadFromFile(temp.path() + ".missing"), EInOutError);
  EXPECT_EQ(again.Count(), 3);
  EXPECT_THROW(list.SaveToFile("/dev/full"), EInOutError);
}

TEST(TStringList, AssignCopiesAnotherListOnly) {
  TStringList list, copy;
  list.Add("a");
  copy.Assign(&list);
  list.SetStrings(0, "b");
  EXPECT_THAT(copy, ElementsAre("a"));
  EXPECT_THROW(copy.Assign(nullptr), EConvertError);
}

}  // namespace

#include "zor/base/asc_codec.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using namespace zor::detail;
using ZOR_runtime::TMemoryStream;

// What `write` writes into a text file.
template <class Write>
std::string written(Write write) {
  TMemoryStream stream;
  TTextFile file;
  file.AssignStream(&stream);
  file.Rewrite();
  write(file);
  file.Close();
  return {reinterpret_cast<const char*>(stream.Bytes().data()), stream.Bytes().size()};
}

class AscReader : public ::testing::Test {
 protected:
  TTextFile& file(std::string_view text) {
    file_.AssignText(text);
    file_.Reset();
    return file_;
  }
  TTextFile file_;
};

TEST_F(AscReader, HeaderIsReadBackAndTheFileStandsBehindIt) {
  const AscHeader header{"two\r\nlines", 3, 7, true, false, true, true};
  const std::string text = written([&](TTextFile& f) { write_asc_header(f, header); });
  EXPECT_EQ(text,
            "two  lines\n3\t;nr. of columns\n7\t;nr. of rows\n"
            "TRUE FALSE TRUE TRUE\t;row attributes, column names, row names, nominal variables\n");
  AscHeader read;
  const std::string more = text + "first";
  EXPECT_EQ(read_asc_header(file(more), read), 0);
  EXPECT_EQ(read.Comment, "two  lines");
  EXPECT_EQ(read.NrRows, 7);
  EXPECT_TRUE(read.NomVars);
  EXPECT_EQ(file_.ReadWord(), "first");
}

TEST_F(AscReader, HeaderOfThreeFlagsIsReadBack) {
  AscHeader header, read;
  header.ColNames = true;
  const std::string text = written([&](TTextFile& f) { write_asc_header(f, header, 3); });
  EXPECT_EQ(text.substr(text.find("FALSE")), "FALSE TRUE FALSE\t;row attributes, column names, row names\n");
  EXPECT_EQ(read_asc_header(file(text), read), 0);
  EXPECT_TRUE(read.ColNames);
}

TEST_F(AscReader, HugeAnnouncedRowsAreCutToTheFile) {
  AscHeader header;
  const std::string text = "c\n1\n2147483647\nFALSE FALSE FALSE\n1\n2\n";
  EXPECT_EQ(read_asc_header(file(text), header), 0);
  EXPECT_EQ(asc_rows_to_read(header, file_), 5);
  header.NrRows = 3;
  EXPECT_EQ(asc_rows_to_read(header, file_), 3);
}

TEST_F(AscReader, NamesAreQuotedAndInnerQuotesBecomeApostrophes) {
  const std::string text = written([](TTextFile& f) {
    write_asc_name(f, "a \"b\"\tc\n");
    write_asc_name(f, "");
  });
  EXPECT_EQ(text, "\"a 'b'\tc \"\"\"");
  TString name;
  EXPECT_TRUE(read_asc_name(file(text), name));
  EXPECT_EQ(name, "a 'b'\tc ");
  EXPECT_TRUE(read_asc_name(file_, name));
  EXPECT_EQ(name, "");
  EXPECT_FALSE(read_asc_name(file_, name));
  EXPECT_FALSE(read_asc_name(file("xx \"unfinished \u00E4"), name));
  EXPECT_EQ(name, "unfinished \u00E4");
}

TEST_F(AscReader, ColumnNamesMayBeQuotedOrBare) {
  std::vector<TString> names(3);
  read_asc_column_names(file("\n \"a b\"\t\"\"\n\"c\"\n1.5"), 3, names.data());
  EXPECT_EQ(names, (std::vector<TString>{"a b", "", "c"}));
  EXPECT_EQ(file_.ReadWord(), "1.5");
  read_asc_column_names(file("  x      y\r\n1.5"), 3, names.data());
  EXPECT_EQ(names, (std::vector<TString>{"x", "y", ""}));
  EXPECT_EQ(file_.ReadWord(), "1.5");
  skip_asc_column_names(file("x y\n1.5"), 2147483647);
  EXPECT_EQ(file_.ReadWord(), "1.5");
  read_asc_column_names(file("\"a\" \"b"), 3, names.data());
  EXPECT_EQ(names, (std::vector<TString>{"a", "b", ""}));
  skip_asc_column_names(file(""), 2147483647);
}

TEST_F(AscReader, RowsBeginWithWhatTheHeaderAnnounces) {
  AscHeader header;
  Double attribute = 0.0, cell = 0.0;
  TString name;
  file("7 \"a b\"\t1.5\n8 \"c\"2.5 NAN \"d\" 3");
  EXPECT_EQ(read_asc_row_head(file_, header, &attribute, &name), 0);
  EXPECT_EQ(file_.Position(), 0);
  header.RowAttrib = header.RowNames = true;
  EXPECT_EQ(read_asc_row_head(file_, header, &attribute, &name), 0);
  EXPECT_EQ(attribute, 7.0);
  EXPECT_EQ(name, "a b");
  EXPECT_EQ(read_asc_cell(file_, cell), AscCell::kNumber);
  EXPECT_EQ(read_asc_row_head(file_, header, nullptr, nullptr), 0);
  EXPECT_EQ(read_asc_cell(file_, cell), AscCell::kNumber);
  EXPECT_EQ(cell, 2.5);
  EXPECT_EQ(read_asc_row_head(file_, header, &attribute, &name), kAscBadAttribute);
}

TEST_F(AscReader, CellsAreNumbersMissingOrBad) {
  file("1.5 NAN ### nan inf 1e400 abc");
  Double x = 9.0;
  EXPECT_EQ(read_asc_cell(file_, x), AscCell::kNumber);
  EXPECT_EQ(x, 1.5);
  for (int i = 0; i < 2; ++i) {
    x = 9.0;
    EXPECT_EQ(read_asc_cell(file_, x), AscCell::kMissing);
    EXPECT_EQ(x, 0.0);
  }
  for (int i = 0; i < 5; ++i) EXPECT_EQ(read_asc_cell(file_, x), AscCell::kBad);  // the last one is the end
  EXPECT_EQ(x, 0.0);
}

}  // namespace

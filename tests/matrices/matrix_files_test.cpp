#include <array>
#include <cstring>
#include <limits>
#include <sstream>

#include "tests/matrices/matrix_util.h"
#include "tests/temp_file.h"
#include "zor/base/asc_codec.h"

namespace ZOR_matrix {
namespace {

using zor::test::TempFile;
using Limits = std::numeric_limits<Double>;

const std::string kFlags = "FALSE FALSE FALSE FALSE\t;\n";

/// A matrix of 2 columns and 1 row that holds 99, so that it shows what a reader left alone.
struct Target {
  Target() {
    m.Resize(2, 1);
    m.Fill(99.0);
  }
  TMatrix m;
  TString comment = "before";
};

TEST(TMatrixAsc, TheFileHasAHeaderAndOneLineForEachRow) {
  TMatrix m;
  set(m, Columns<TMatrix>{{1, 2}, {0.5, -3.25}});
  TempFile file;
  EXPECT_EQ(m.ExportAsASC(file.path(), 2, "note"), 0);
  EXPECT_EQ(file.contents(),
            "note\n2\t;nr. of columns\n2\t;nr. of rows\n"
            "FALSE FALSE FALSE FALSE\t;row attributes, column names, row names, nominal variables\n"
            "        1.00\t        0.50\n        2.00\t       -3.25\n");
  EXPECT_EQ(m.ExportAsASC(file.path(), 2, ""), 0);
  EXPECT_TRUE(file.contents().starts_with("Exported by ZOR TMatrix component: " + file.path() + "\n"));
  EXPECT_EQ(m.ExportAsASC("/nowhere/at/all", 2, ""), kCannotCreateFile);
}

TEST(TMatrixAsc, CellsAndCustomTextsComeBack) {
  TMatrix m, back;
  number_cells(m, 3, 4);
  const TStr2DArray texts = {{"a\tb", "\"q\" \\n"}, {"", "line\nbreak \xC3\xA4;custdata"}};
  TempFile file;
  EXPECT_EQ(m.ExportAsASC(file.path(), 25, "c", texts), 0);
  TString comment;
  TStr2DArray read = {{"old"}};
  Listener told(back);
  EXPECT_EQ(back.ImportASC(file.path(), comment, read), 0);
  EXPECT_EQ(told.take(), "CR" + std::string(12, 'C'));
  EXPECT_EQ(comment, "c");
  EXPECT_EQ(read, texts);
  EXPECT_EQ(columns_of(back), columns_of(m));
  EXPECT_EQ(m.ExportAsASC(file.path(), 1, "c", TStr2DArray{{"a"}, {}}), 0) << "ragged counts as empty";
  EXPECT_EQ(back.ImportASC(file.path(), comment, read), 0);
  EXPECT_TRUE(read.empty());
}

TEST(TMatrixAsc, NamesAndAttributesAreDroppedAndMissingValuesAreZero) {
  const TempFile file(
      "x\r\n2\r\n2\r\nTRUE TRUE TRUE FALSE\r\n\"c 1\"\t\"c2\"\r\n1 \"r 1\" 5 NAN\r\n2 \"r2\"\r\n### 8\r\n");
  Target t;
  EXPECT_EQ(t.m.ImportASC(file.path(), t.comment), 0);
  EXPECT_EQ(columns_of(t.m), (Columns<TMatrix>{{5, 0}, {0, 8}}));
}

TEST(TMatrixAsc, AReadThatStopsKeepsTheRowsReached) {
  struct Case {
    std::string text;
    Integer code;
    Columns<TMatrix> columns;
  };
  const Columns<TMatrix> untouched = {{99}, {99}};
  const std::string head = "c\n2\n3\n";
  for (const Case& k : {Case{head + kFlags + "1 2\n3 x\n5 6\n", kBadValue, {{1, 3}, {2, 0}}},
                        Case{head + kFlags + "1 2\n3", kBadValue, {{1, 3}, {2, 0}}},
                        Case{head + "TRUE FALSE FALSE FALSE\n1 1 2\nx 3 4\n", kBadRowAttribute, {{1, 0}, {2, 0}}},
                        Case{"c\n0\n3\n" + kFlags, kNoCells, untouched},
                        Case{"c\n100000\n100000\n" + kFlags + "1 2\n", kNoCells, untouched},
                        Case{"c\n2147483647\n2147483647\n" + kFlags, kNoCells, untouched},
                        Case{"c\n2\n", zor::detail::kAscTooShort, untouched},
                        Case{"c\nx\n3\n" + kFlags, zor::detail::kAscBadCount, untouched},
                        Case{head + "TRUE\n", zor::detail::kAscBadFlags, untouched}}) {
    const TempFile file(k.text);
    Target t;
    EXPECT_EQ(t.m.ImportASC(file.path(), t.comment), k.code) << k.text;
    EXPECT_EQ(columns_of(t.m), k.columns) << k.text;
  }
  Target t;
  EXPECT_EQ(t.m.ImportASC("/nowhere/at/all", t.comment), kNoSuchFile);
}

TEST(TMatrixAsc, ADamagedBlockOfCustomTextsIsReportedAndEmpty) {
  for (const char* block :
       {"2\n2\n\"a\"\t\"b\"\n\"c\"\n", "100000\n100000\n\"a\"\n", "x\n", "1\n1\n\"open\n", "1\n1\na\n", ""}) {
    const TempFile file("c\n1\n1\n" + kFlags + "5\n;custdata\n" + block);
    Target t;
    TStr2DArray texts = {{"old"}};
    EXPECT_EQ(t.m.ImportASC(file.path(), t.comment, texts), kBadValue) << block;
    EXPECT_TRUE(texts.empty());
    EXPECT_EQ(columns_of(t.m), (Columns<TMatrix>{{5}}));
    EXPECT_EQ(t.m.ImportASC(file.path(), t.comment), 0) << "who does not ask for it is not told";
  }
  const TempFile cut("c\n1\n1\n" + kFlags + "5\n;custdata"), none("c\n1\n1\n" + kFlags + "5\n");
  Target t;
  TStr2DArray texts;
  EXPECT_EQ(t.m.ImportASC(cut.path(), t.comment, texts), kBadValue) << "cut inside the mark's line";
  EXPECT_EQ(t.m.ImportASC(none.path(), t.comment, texts), 0);
}

TEST(TMatrixPlainText, ARangeNamesItsBoundsAndComesBackBitForBit) {
  TMatrix m, back;
  m.Resize(3, 4);
  m.FillRandomUniform(-1.0, 1.0);
  TempFile file;
  EXPECT_TRUE(m.StoreOnFile(3, 4, 2, 2, file.path()));
  EXPECT_TRUE(file.contents().starts_with("2 2 3 4\n"));
  Listener told(back);
  EXPECT_TRUE(back.LoadFromFile(file.path(), true));
  EXPECT_EQ(told.take(), "CRCCCCCCC");
  EXPECT_EQ(columns_of(back)[0], std::vector<Double>(4, 0.0));
  m.Fill(1, 1, 0, 0, 0.0);
  m.Fill(0, 0, 1, 1, 0.0);
  EXPECT_EQ(back.CRCofData(), m.CRCofData());
  EXPECT_FALSE(m.StoreOnFile(0, 0, 0, 0, "/nowhere/at/all"));
  EXPECT_FALSE(back.LoadFromFile("/nowhere/at/all", true));
  EXPECT_EQ(told.take(), "");
}

TEST(TMatrixPlainText, ReadersTakeWhatIsThere) {
  struct Case {
    std::string text;
    bool adjust, result;
    Columns<TMatrix> columns;
  };
  for (const Case& k :
       {Case{"1 1 2 1\n5 6\n", false, true, {{5}, {6}}}, Case{"1 1 2 1\n5", false, true, {{5}, {99}}},
        Case{"1 1 2 1 x 6", false, true, {{99}, {6}}}, Case{"1 1 2 1 NAN 1e999", false, true, {{0}, {Limits::max()}}},
        Case{"1 1 2 2 5 6", false, false, {{99}, {99}}}, Case{"1 1 2", true, false, {{99}, {99}}},
        Case{"0 1 1 1 5 6", false, true, {{6}, {99}}}, Case{"2 1 1 9\n5", true, true, {{99, 0, 0, 0, 0, 0, 0, 0, 0}}},
        Case{"1 1 2147483647 2147483647 5", true, false, {{99}, {99}}},
        Case{"-2147483647 -2147483647 0 0 5", true, true, {{99}, {99}}},
        Case{"1 -2147483647 0 1 5", false, true, {{99}, {99}}}}) {
    const TempFile file(k.text);
    Target t;
    EXPECT_EQ(t.m.LoadFromFile(file.path(), k.adjust), k.result) << k.text;
    EXPECT_EQ(columns_of(t.m), k.columns) << k.text;
  }
}

TEST(TMatrixPlainText, MarkedLinesAreTheRows) {
  const TempFile file("a title\n1 2 //dig first\nno mark 7\n 3 4 5 //dig\n//dig\n6//dig\n");
  TMatrix m;
  EXPECT_TRUE(m.LoadFromFile(file.path(), true, true));
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{1, 3, 0, 6}, {2, 4, 0, 0}}));
  Target t;
  EXPECT_TRUE(t.m.LoadFromFile(file.path(), false, true));
  EXPECT_EQ(columns_of(t.m), (Columns<TMatrix>{{1}, {2}}));
  const TempFile plain("1 1 1 1\n8\n");
  EXPECT_TRUE(m.LoadFromFile(plain.path(), true, true));
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{8}}));
}

TEST(TMatrixStream, ARangeComesBackWithEveryBit) {
  TMatrix m, back;
  m.Resize(3, 2000);
  m.FillRandomGauss(0.0, 1.0);
  m.SetVal(3, 7, Limits::quiet_NaN());
  m.SetVal(3, 8, -Limits::infinity());
  TMemoryStream* stream = nullptr;
  m.SaveToStream(stream, 3, 0, 3, 0);
  ASSERT_NE(stream, nullptr);
  EXPECT_EQ(stream->Size(), (4 + 2000) * 8);
  m.SaveToStream(static_cast<TFileStream*>(nullptr), 0, 0, 0, 0);
  stream->SetPosition(0);
  EXPECT_FALSE(back.LoadFromStream(stream, false)) << "beyond the size";
  stream->SetPosition(0);
  EXPECT_TRUE(back.LoadFromStream(stream, true));
  m.Fill(1, 2, 0, 0, 0.0);
  EXPECT_EQ(back.CRCofData(), m.CRCofData());
  EXPECT_FALSE(back.LoadFromStream(nullptr, true));
  stream->SetSize(stream->Size() - 1);
  stream->SetPosition(0);
  back.Fill(5.0);
  EXPECT_FALSE(back.LoadFromStream(stream, true));
  EXPECT_EQ(back.GetVal(3, 2000), 5.0) << "the cell that is cut off keeps its value";
  Free(stream);
}

TEST(TMatrixStream, HostileBoundsCostNeitherMemoryNorTime) {
  for (const auto& bounds : {std::array{1.0, 1.0, 2147483647.0, 2147483647.0},
                             {1.0, 1.0, 1e300, 1.0},
                             {1.0, 1.0, Limits::quiet_NaN(), 1.0},
                             {-2147483647.0, 2.0, 1.0, 1.0},
                             {1.0, -2e9, 1.0, 1.0}}) {
    TMemoryStream stream;
    stream.WriteBuffer(bounds.data(), sizeof(bounds));
    stream.SetPosition(0);
    Target t;
    t.m.LoadFromStream(&stream, true);
    EXPECT_LE(t.m.NrOfColumns(), 2);
    EXPECT_EQ(t.m.NrOfRows(), 1);
  }
}

TEST(TMatrixBinary, EveryBitAndTheIdComeBackAndTellOnce) {
  for (const auto& [columns, rows] : {std::pair{1, 1}, {3, 171}, {700, 5}, {9, 1000}}) {
    TMatrix m, back;
    m.Resize(columns, rows);
    m.FillSerial(0.5, 1.25);
    m.SetVal(columns, 1, Limits::quiet_NaN());
    m.SetDataID("profile");
    TempFile file;
    m.SaveBinary(file.path());
    EXPECT_EQ(file.contents().size() % 4096, 0U);
    Listener told(back);
    EXPECT_EQ(back.LoadBinary(file.path()), 0);
    EXPECT_EQ(told.take(), columns * rows == 1 ? "C" : "CR");
    EXPECT_EQ(back.CRCofData(), m.CRCofData());
    EXPECT_EQ(back.DataID(), "profile");
    EXPECT_EQ(back.NrOfColumns(), columns);
  }
}

TEST(TMatrixBinary, RowsLieOneBehindTheOther) {
  TMatrix m;
  set(m, Columns<TMatrix>{{1, 2}, {3, 4}});
  TempFile file;
  m.SaveBinary(file.path());
  std::array<Double, 4> cells{};
  std::memcpy(cells.data(), file.contents().data() + 4096, sizeof(cells));
  EXPECT_EQ(cells, (std::array{1.0, 3.0, 2.0, 4.0}));
}

TEST(TMatrixBinary, OtherAndShortFilesAreRefusedWithTheMatrixAsItWas) {
  TMatrix m;
  m.Resize(10, 100);
  m.SetDataID("id");
  TempFile file;
  m.SaveBinary(file.path());
  const std::string good = file.contents();
  const auto with = [&](std::size_t at, char byte) {
    std::string bytes = good;
    bytes[at] = byte;
    return bytes;
  };
  struct Case {
    std::string bytes;
    Integer code;
    bool header;
  };
  for (const Case& k : {Case{with(272, 0), kNotThisKind, false}, Case{with(272, 2), kNotThisKind, false},
                        Case{with(8, 1), kNotThisKind, false}, Case{with(12, 1), kNotThisKind, false},
                        Case{with(0, 0), kFileTooShort, true}, Case{with(7, '\x80'), kFileTooShort, true},
                        Case{with(3, 127), kFileTooShort, true}, Case{good.substr(0, 4096 + 7999), kFileTooShort, true},
                        Case{good.substr(0, 275), kNotThisKind, false}, Case{"", kNotThisKind, false}}) {
    const TempFile bad(k.bytes);
    Target t;
    EXPECT_EQ(t.m.LoadBinary(bad.path()), k.code) << k.bytes.size();
    EXPECT_EQ(columns_of(t.m), (Columns<TMatrix>{{99}, {99}}));
    Integer columns = -1, rows = -1, format = -1;
    TString id = "old";
    EXPECT_EQ(t.m.ReadBinaryHeader(bad.path(), columns, rows, id, format), k.header);
    EXPECT_EQ(id, k.bytes.size() < 276 ? "" : "id");
  }
  const TempFile unpadded(good.substr(0, 4096 + 8000));
  Target t;
  EXPECT_EQ(t.m.LoadBinary(unpadded.path()), 0);
  EXPECT_EQ(t.m.LoadBinary("/nowhere/at/all"), kUnreadable);
  Integer columns = -1, rows = -1, format = -1;
  TString id = "old";
  EXPECT_TRUE(t.m.ReadBinaryHeader(file.path(), columns, rows, id, format));
  EXPECT_EQ((std::array{columns, rows, format}), (std::array{10, 100, 1}));
  EXPECT_FALSE(t.m.ReadBinaryHeader("/nowhere/at/all", columns, rows, id, format));
  EXPECT_EQ(columns, 0);
  EXPECT_THROW(m.SaveBinary("/nowhere/at/all"), EInOutError);
}

TEST(TMatrixPrint, ShowsRowsAsLines) {
  TMatrix m;
  number_cells(m, 2, 2);
  std::ostringstream out;
  out << m;
  EXPECT_EQ(out.str(), "11  21\n12  22\n");
}

}  // namespace
}  // namespace ZOR_matrix

#include <cmath>
#include <filesystem>

#include "table_util.h"
#include "tests/message_of.h"
#include "tests/temp_file.h"

using namespace table_test;
using zor::test::TempFile;

namespace {

/// A table in which everything differs from its default.
void annotate(TDataTable& table) {
  number_cells(table, 3, 4);
  for (Integer i = 0; i < 12; ++i) table.SetCellState(1 + i / 4, 1 + i % 4, static_cast<Byte>(12 * i));
  table.SetElem(1, 1, 1.0 / 3.0);
  table.SetElem(1, 2, std::nan(""));
  table.SetElem(3, 1, -HUGE_VAL);
  table.SetIsEmpty(1, 3, true);
  for (const char* id : {"lo", "\"h\\i\"", "<&>\x01", "\xC3\xA4"}) table.AddNominalID(2, id);
  for (Integer r = 1; r <= 4; ++r) table.SetElem(2, r, r - 1);
  table.SetMScaleType(3, stRatio);
  table.SetColName(1, "a \"b\"");
  table.SetRowName(2, "x\ny</datatable>");
  table.SetRowAttrib(3, -7);
  table.SetComment("a comment");
}

/// All of a table but the numbers.
std::string fingerprint(const TDataTable& t) { return (t.CRCofNamesAndAttributes() + t.CRCofCellStates()).utf8(); }

Integer import(TDataTable& table, const std::string& text, TCSVOptions options = {}) {
  TMemoryStream stream;
  stream.WriteBuffer(text.data(), static_cast<Int64>(text.size()));
  stream.SetPosition(0);
  return table.ImportFromCSV(&stream, options);
}

Integer import_asc(TDataTable& table, const std::string& text) {
  TClipboard clipboard;
  clipboard.SetAsText(text);
  return table.ImportASC(&clipboard);
}

}  // namespace

TEST(TableXml, GivesTheTableBackExactly) {
  TDataTable table, back;
  annotate(table);
  table.SetNominalID(3, 5, "hidden");
  TMemoryStream stream;
  table.WriteToXMLStream(&stream, true, 0, "first");
  table.SetElem(3, 4, 99.0);
  table.WriteToXMLStream(&stream, false, 3, "second & \"third\"");
  stream.SetPosition(0);
  EXPECT_EQ(events_of(back, [&] { EXPECT_TRUE(back.ReadFromXMLStream(&stream, "")); }), "RCKSNA");
  EXPECT_EQ(fingerprint(back), fingerprint(table));
  EXPECT_EQ(back.Comment(), "a comment");
  EXPECT_EQ(back.GetElem(1, 1), 1.0 / 3.0);
  EXPECT_TRUE(std::isnan(back.GetElem(1, 2)));
  EXPECT_EQ(back.GetElem(3, 1), -HUGE_VAL);
  EXPECT_EQ(back.GetElem(1, 3), 13.0);                                 // the number under an empty cell
  EXPECT_TRUE(back.ReadFromXMLStream(&stream, "second & \"third\""));  // stands behind the first table
  EXPECT_EQ(back.GetElem(1, 1), 0.333);
  EXPECT_EQ(back.GetElem(3, 4), 99.0);
}

TEST(TableXml, IsReadFromTextAndOpenFilesInPlace) {
  TDataTable table, back;
  annotate(table);
  const TempFile file;
  table.SaveAsXMLFile(file.path(), 0, "\xC3\xA4");
  EXPECT_TRUE(back.LoadFromXMLFile(file.path(), "\xC3\xA4"));
  EXPECT_FALSE(back.LoadFromXMLFile(file.path() + "none", ""));
  Integer at = 1;
  const TString text = TString("\xC3\xA4\xC3\xA4") + TString(file.contents()) + "rest";
  EXPECT_FALSE(back.ReadFromXMLString(text, at, "other"));
  EXPECT_EQ(at, 1);
  EXPECT_TRUE(back.ReadFromXMLString(text, at, ""));
  EXPECT_EQ(Copy(text, at, 9), "\nrest");
  TTextFile open(file.path());
  open.Reset();
  EXPECT_TRUE(back.ReadFromOpenXMLFile(open, ""));
  EXPECT_EQ(open.ReadLn(), "");
  EXPECT_TRUE(open.Eof());
}

TEST(TableXml, RefusesWhatIsNotWhole) {
  const std::string head = "<datatable id=\"\"><size cols=\"1\" rows=\"2\"/>", end = "</datatable>";
  const std::string one = "<cell ix=\"1\" iy=\"1\">5</cell>", two = "<cell st=\"64\" iy='2' ix = \"1\">-INF</cell>";
  const auto cells = [](const std::string& text) { return "<datacells>" + text + "</datacells>"; };
  const std::pair<std::string, bool> cases[] = {
      {head + cells(one + two) + end, true},
      {head + cells(one + " <!-- <x> --> " + two) + end, true},
      {"<other><x/>" + head + cells(one + two) + end, true},
      {head + cells(one) + end, false},
      {head + cells(one + one) + end, false},
      {head + cells(one + two + one) + end, false},
      {head + cells(one + "<cell ix=\"1\" iy=\"3\">5</cell>") + end, false},
      {head + cells(one + "<cell ix=\"1\" iy=\"2\">x</cell>") + end, false},
      {head + cells(one + "<cell ix=\"1\" iy=\"2\" st=\"256\">1</cell>") + end, false},
      {head + cells(one + two) + cells(one + two) + end, false},
      {head + head.substr(17) + cells(one + two) + end, false},
      {head + "<colnames></colnames>" + cells(one + two) + end, false},
      {head + "<rownames><row ix=\"2\">b</row><row ix=\"1\">a</row></rownames>" + cells(one + two) + end, true},
      {head + "<rownames><col ix=\"1\">b</col></rownames>" + cells(one + two) + end, false},
      {head + "<vardef ix=\"1\" scale=\"Nominal\"><idf ord=\"150\">b</idf></vardef>" + cells(one + two) + end, true},
      {head + "<vardef ix=\"1\" scale=\"Nominal\"><idf ord=\"151\">b</idf></vardef>" + cells(one + two) + end, false},
      {head + "<vardef ix=\"1\" scale=\"nominal\"></vardef>" + cells(one + two) + end, false},
      {head + "<unknown></unknown>" + cells(one + two) + end, false},
      {head + end, false},
      {"<datatable><size cols=\"0\" rows=\"2\"/>" + end, true},
      {"<datatable>" + cells(one) + end, false},
      {"<datatable><size cols=\"2147483647\" rows=\"2147483647\"/>" + end, false},
      {"<datatable><size cols=\"20000\" rows=\"1\"/>" + end, false},
      {head + cells(one + two), false},
      {"<datatable><comment>", false},
      {"", false}};
  for (const auto& [text, good] : cases) {
    TDataTable table;
    table.SetElem(1, 1, 7.0);
    Integer at = 1;
    EXPECT_EQ(table.ReadFromXMLString(text, at, ""), good) << text;
    EXPECT_TRUE(good || table.GetElem(1, 1) == 7.0) << text;
  }
}

TEST(TableXml, ElementsActOnTheTableByHand) {
  TDataTable table;
  EXPECT_EQ(table.ProcessXmlTag(xmlSize, " cols=\"2\" rows=\"1\"", "", "", 0), kXmlGoOn);
  EXPECT_EQ(table.ProcessXmlTag(xmlColNames, "", "<col ix=\"2\">b&amp;</col>", "", 0), kXmlGoOn);
  EXPECT_EQ(table.ColName(2), "b&");
  EXPECT_EQ(table.ProcessXmlTag(xmlRowId, "ix=\"1\"", "-3", "rowattrib", 1), kXmlGoOn);
  EXPECT_EQ(table.RowAttrib(1), -3);
  EXPECT_EQ(table.ProcessXmlTag(xmlVarType, "ix=\"1\" scale=\"Ordinal\"", "<idf ord=\"3\">x</idf>", "", 0), kXmlGoOn);
  EXPECT_EQ(table.NominalID(1, 3), "x");
  EXPECT_EQ(events_of(table,
                      [&] {
                        EXPECT_EQ(
                            table.ProcessXmlTag(xmlDataCells, "", "<cell ix=\"1\" iy=\"1\" st=\"2\">3</cell>", "", 0),
                            kXmlGoOn);
                      }),
            "CK");
  EXPECT_EQ(table.ElemNominal(1, 1), "x");
  EXPECT_EQ(table.ProcessXmlTag(xmlCellID, "ix=\"1\" iy=\"1\"", "3", "colnames", 1), kXmlBadTag);
  EXPECT_EQ(table.ProcessXmlTag(xmlInvalid, "", "", "", 0), kXmlBadTag);
  EXPECT_EQ(table.ProcessXmlTag(xmlDataTableEndId, "", "", "", 0), kXmlComplete);
}

TEST(TableAsc, CarriesAllButHiddenNumbers) {
  TDataTable table, back;
  annotate(table);
  const TempFile file;
  TStr2DArray texts = {{"made \"by\"", "b"}, {"lab\t3", "line\nend \\"}}, read;
  EXPECT_EQ(table.ExportAsASC(file.path(), -1, texts), "");
  EXPECT_EQ(events_of(back, [&] { EXPECT_EQ(back.ImportASC(file.path(), read), 0); }), "RCKSNA");
  EXPECT_EQ(read, texts);
  EXPECT_EQ(back.CellState(1, 2), table.CellState(1, 2) | kCellEmpty);  // NaN is never a silent 0
  EXPECT_EQ(back.CellState(3, 1), table.CellState(3, 1) | kCellEmpty);
  EXPECT_EQ(states(back, 2), states(table, 2));
  EXPECT_EQ(column(back, 1), (Cells{1.0 / 3.0, 0, 0, 14}));
  EXPECT_EQ(back.ElemNominal(2, 3), "<&>\x01");
  EXPECT_EQ(back.ElemNominal(2, 2), "\"h\\i\"");
  EXPECT_EQ(back.ColName(1), "a 'b'");
  EXPECT_EQ(back.RowName(2), "x y</datatable>");
  EXPECT_EQ(back.RowAttrib(3), -7);
  EXPECT_EQ(back.ColAttrib(3), 303);
  EXPECT_EQ(back.MScaleType(3), stRatio);
  EXPECT_EQ(back.Comment(), "a comment");
  EXPECT_NE(table.ExportAsASC("/nowhere/x", 3), "");
  EXPECT_EQ(table.ExportAsASC(static_cast<TStream*>(nullptr), 3), "ExportAsASC: stream is undefined");
  TDataTable plain({{"x", {1.5}}});
  TMemoryStream stream;
  EXPECT_EQ(plain.ExportAsASC(&stream, 3), "");
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(stream.Bytes().data()), stream.Bytes().size()),
            "Exported by ZOR TDataTable component: \n1\t;nr. of columns\n1\t;nr. of rows\n"
            "TRUE TRUE TRUE FALSE\t;row attributes, column names, row names, nominal variables\n"
            "\"x\"\n0\t\"R-1\"\t       1.500\n");
}

TEST(TableAsc, SaysWhatIsWrongAndChangesNothing) {
  const std::string counts = "c\n2\t;\n2\t;\n", names = counts + "TRUE TRUE TRUE TRUE\n\"a\"\t\"b\"\n";
  const std::pair<std::string, Integer> cases[] = {
      {"c\n2\n", -2},
      {"c\nx\n2\nFALSE FALSE FALSE\n", -3},
      {counts + "MAYBE\n", -4},
      {counts + "TRUE FALSE FALSE FALSE\nx 1 2\n", kBadRowAttribute},
      {counts + "FALSE FALSE FALSE FALSE\n1 2 3\n", kBadValue},
      {counts + "FALSE FALSE FALSE FALSE\n1 2 3 \"id\"\n", kBadValue},
      {counts + "FALSE TRUE FALSE FALSE\n\"a\" \"b\n1 2 3 4\n", kUnfinishedName},
      {names + "1 \"r\" 1 \"lo\" 2 \"s\" NAN \"HI\"\n", 0},
      {names + "1 \"r\" 1 \"lo\" 2 \"s\" NAN \"HI\"\n;vardefs\t1\n3\tRatio\t0\t0\n", kBadBlock},
      {names + "1 \"r\" 1 \"lo\" 2 \"s\" NAN \"HI\"\n;cellstates\t1\n1\t1\t256\n", kBadBlock},
      {names + "1 \"r\" 1 \"lo\" 2 \"s\" NAN \"HI\"\n;custdata\t9\t9\n\"a\"\n", kBadBlock},
      {names + "1 \"r\" 1 \"lo\" 2 \"s\" NAN \"HI\"\n;else\t9\t9\n\"a\"\n", 0},
      {"c\n2147483647\n2147483647\nFALSE FALSE FALSE\n", kTooLarge},
      {"c\n30000\n1\nFALSE FALSE FALSE\n1", kTooLarge}};
  for (const auto& [text, code] : cases) {
    TDataTable table;
    table.SetElem(1, 1, 7.0);
    EXPECT_EQ(import_asc(table, text), code) << text;
    if (code != 0) {
      EXPECT_EQ(column(table, 1), (Cells{7.0})) << text;
      continue;
    }
    EXPECT_EQ(column(table, 1), (Cells{1, 0}));
    EXPECT_EQ(states(table, 1), (std::vector<int>{0, 2}));
    EXPECT_EQ(table.ElemNominal(2, 2), "HI");
  }
  TDataTable table;
  EXPECT_EQ(table.ImportASC("/nowhere/x"), kNoSuchFile);
  EXPECT_EQ(table.ImportASC(static_cast<TStream*>(nullptr)), kNoSuchFile);
}

TEST(TableAsc, IsPastedWithItsIdentifiersOrIntoThose) {
  TDataTable source({{"s", {"red", "green", "blue"}}, {"x", {1, 2, 3}}}), table;
  const TempFile file;
  source.ExportAsASC(file.path(), -1);
  number_cells(table, 3, 4);
  table.AddNominalID(2, "x"), table.AddNominalID(2, "GREEN");
  EXPECT_EQ(events_of(table, [&] { EXPECT_EQ(table.ReadFromASC(file.path(), 2, 3, false), 0); }), "CKS");
  EXPECT_EQ(table.ElemNominal(2, 3), "red");
  EXPECT_EQ(table.ElemNominal(2, 4), "GREEN");
  EXPECT_EQ(table.CountNominalIDs(2), 3);
  EXPECT_EQ(column(table, 3), (Cells{31, 32, 1, 2}));
  EXPECT_EQ(table.RowName(3), "R-3");
  EXPECT_EQ(events_of(table, [&] { EXPECT_EQ(table.ReadFromASC(file.path(), 3, 4, true), 0); }), "CKSNA");
  EXPECT_EQ(table.RowName(4), "R-1");
  EXPECT_EQ(table.ColName(3), "s");
  EXPECT_EQ(table.ElemNominal(3, 4), "red");
  EXPECT_EQ(table.ReadFromASC(file.path(), 4, 1, true), kPlaceOutside);
  for (int i = 3; i < kNominalIDs; ++i) table.AddNominalID(2, std::to_string(i));
  EXPECT_EQ(events_of(table, [&] { EXPECT_EQ(table.ReadFromASC(file.path(), 2, 1, false), kListFull); }), "");
}

TEST(TableCsv, GoesOutAndComesBack) {
  TDataTable table, back;
  annotate(table);
  const TempFile file;
  for (const TCSVDelimiters delimiter : {csvComma, csvSemicolon, csvTab, csvBlank}) {
    EXPECT_EQ(table.ExportAsCSV(file.path(), -1, delimiter, true, true), "");
    EXPECT_EQ(back.ImportFromCSV(file.path(), delimiter, true, true), 0);
    EXPECT_EQ(row_names(back), row_names(table));
    EXPECT_EQ(back.ColName(1), table.ColName(1));
    EXPECT_EQ(column(back, 1), (Cells{1.0 / 3.0, 0, 0, 14}));
    for (Integer r = 1; r <= 4; ++r) {
      EXPECT_EQ(back.IsNumber(2, r), table.IsNumber(2, r));
      EXPECT_TRUE(!back.IsNumber(2, r) || back.ElemNominal(2, r) == table.ElemNominal(2, r));
    }
  }
  TDataTable one({{"x", {1.5, 2}}});
  one.SetIsEmpty(1, 2, true);
  one.SetComment("a,b");
  EXPECT_EQ(one.ExportAsCSV(file.path(), 2, csvComma, true, true, true, true), "");
  EXPECT_EQ(file.contents(), "\"a,b\"\n,(attribute),x\nR-1,0,1.50\nR-2,0,\n");
  EXPECT_EQ(one.ExportAsCSV(file.path(), 2, csvComma, false, false), "");
  EXPECT_EQ(file.contents(), "1.50\n\"\"\n");
  EXPECT_NE(one.ExportAsCSV("/nowhere/x", 2, csvComma, false, false), "");
}

TEST(TableCsv, FindsItsFormInTheData) {
  TDataTable table;
  struct Case {
    std::string text;
    TCSVDelimiters delimiter;
    Boolean header;
    Cells second;
  };
  for (const Case& k : {Case{"a,b\n1,2\n3,4\n", csvComma, true, {2, 4}},
                        {"1,5;2,5\n3;4e1", csvSemicolon, false, {2.5, 40}},
                        {"\xEF\xBB\xBFx\ty\r1\t2\r\r\n3\t.5\r\n", csvTab, true, {2, 0.5}},
                        {"  1   2 \n 3\t 4\n", csvBlank, false, {2, 4}},
                        {"\"a,\"\"\n\";b\n1;\" 2\"\n", csvSemicolon, true, {2}}}) {
    EXPECT_EQ(import(table, k.text), 0) << k.text;
    EXPECT_EQ(table.CSVReport().Delimiter, k.delimiter) << k.text;
    EXPECT_EQ(table.CSVReport().ColHeaders, k.header) << k.text;
    EXPECT_EQ(column(table, 2), k.second) << k.text;
  }
  TCSVOptions options;
  options.NLinesSkip = 1, options.LastImportLine = 4, options.CommentSign = '#';
  EXPECT_EQ(import(table, "skip \" this\n# and, this\na,b\n\"1\nx\",2\n3,4\n", options), 0);
  EXPECT_EQ(column(table, 1), (Cells{0}));  // line 4 begins the last record; it spans two lines
  EXPECT_EQ(table.ElemNominal(1, 1), "1\nx");
}

TEST(TableCsv, MarksWhatItCannotTakeAndReportsIt) {
  TDataTable table;
  const std::string text =
      "n,t,m\n1,red,NA\n x ,green,n/a\n1e999,red\n4,,5,surplus,,more\n\"a,b\",a longer text 1,\n"
      "7,a longer text 2,###\n";
  EXPECT_EQ(import(table, text), 5);
  EXPECT_EQ(column(table, 1), (Cells{1, 0, 0, 4, 0, 7}));
  EXPECT_EQ(states(table, 1), (std::vector<int>{0, 2, 2, 0, 2, 0}));
  EXPECT_EQ(table.MScaleType(1), stInterval);
  EXPECT_EQ(table.MScaleType(2), stNominal);
  EXPECT_EQ(table.ElemNominal(2, 5), "a longer t");
  EXPECT_EQ(table.ElemNominal(2, 6), "a longer~2");
  EXPECT_EQ(states(table, 2), (std::vector<int>{0, 0, 0, 2, 0, 0}));
  EXPECT_EQ(states(table, 3), (std::vector<int>{2, 2, 2, 0, 2, 2}));
  std::string report;
  for (const TBadCSVField& bad : table.CSVReport().First) {
    report += std::to_string(bad.Line) + "." + std::to_string(bad.Column) + "=" + bad.Text.utf8() + " ";
  }
  EXPECT_EQ(report, "3.1=x 4.1=1e999 5.4=surplus 5.6=more 6.1=a,b ");
  std::string many = "t\n";
  for (int i = 0; i < 153; ++i) many += "id" + std::to_string(i) + "\n";
  EXPECT_EQ(import(table, many), 2);
  EXPECT_EQ(table.CountEmptyCells(0, 0, 0, 0), 2);
}

TEST(TableCsv, RefusesWithoutChange) {
  TCSVOptions negative;
  negative.NLinesSkip = -1;
  TCSVOptions header;
  header.ColHeaders = true;
  struct Case {
    std::string text;
    TCSVOptions options;
    Integer code;
  };
  for (const Case& k : {Case{"1\n", negative, kCSVBadArgument},
                        {"", {}, kCSVNoRecord},
                        {"a,b\n\n", header, kCSVNoRecord},
                        {"1,\"2\n3", {}, kCSVOpenQuote},
                        {std::string(20000, ',') + "\n" + std::string(20000, '\n'), {}, kCSVTooLarge}}) {
    TDataTable table;
    EXPECT_EQ(events_of(table, [&] { EXPECT_EQ(import(table, k.text, k.options), k.code); }), "");
  }
  TDataTable table;
  EXPECT_EQ(table.ImportFromCSV("/nowhere/x", csvComma, true, true), kCSVNoFile);
  table.OnPercentDone = [](TObject*, Integer) { AbortMathProc = true; };
  EXPECT_EQ(import(table, "1\n2\n"), kCSVAborted);
  EXPECT_EQ(table.NrOfRows(), 1);
}

TEST(TableSerialize, MakesOneRowOfEachCell) {
  TDataTable table;
  number_cells(table, 2, 3);
  table.SetColName(2, "a long name");
  TDataTable other;
  other.Clone(&table);
  EXPECT_EQ(events_of(table, [&] { table.Serialize(false, false); }).back(), 'S');
  EXPECT_EQ(column(table, 1), (Cells{11, 12, 13, 21, 22, 23}));
  EXPECT_EQ(states(table, 1), (std::vector<int>{65, 66, 67, 129, 130, 131}));
  EXPECT_EQ(row_names(table), "R-1 R-2 R-3 R-1 R-2 R-3 ");
  EXPECT_EQ(table.RowAttrib(5), 2);
  EXPECT_EQ(table.MScaleType(1), stInterval);
  const std::string events = events_of(other, [&] { other.Serialize(true, true); });
  EXPECT_EQ(events.substr(0, 11), "RSSSNNNNSNA");
  EXPECT_EQ(events.find('C'), std::string::npos);
  EXPECT_EQ(column(other, 1), (Cells{1, 1, 1, 2, 2, 2}));
  EXPECT_EQ(other.NominalID(1, 1), "2:a long n");
  EXPECT_EQ(column(other, 2), (Cells{1, 1, 1, 2, 2, 2}));
  EXPECT_EQ(column(other, 3), (Cells{1, 2, 3, 1, 2, 3}));
  EXPECT_EQ(other.ColName(4), "(data)");
  EXPECT_EQ(other.CellState(1, 1), 65);  // what stood there
  TDataTable nominal({{"a", {"x", "y"}}, {"b", {"x", "y"}}});
  nominal.Serialize(false, false);
  EXPECT_EQ(nominal.ElemNominal(1, 4), "y");
  nominal.Resize(0, 5);
  nominal.Serialize(true, false);
  EXPECT_EQ(nominal.NrOfColumns(), 2);
  EXPECT_EQ(nominal.NrOfRows(), 0);
}

TEST(TableSplit, CountsAndWritesParts) {
  TDataTable table;
  number_cells(table, 3, 7);
  TIntArray counts;
  struct Case {
    TDataSetSplitMode mode;
    Integer size;
    Boolean all;
    Integer files;
    TIntArray counts;
  };
  for (const Case& k : {Case{splitRows, 3, false, 3, {3, 3, 1}},
                        {splitColumns, 2, true, 2, {2, 1}},
                        {splitTstTrn, 2, false, 2, {2, 5}},
                        {splitTstTrn, 4, true, 4, {4, 3, 3, 4}},
                        {splitTstTrn, 7, true, kBadSplitSize, {}},
                        {splitRows, 0, true, kBadSplitSize, {}},
                        {static_cast<TDataSetSplitMode>(3), 1, true, kBadSplitMode, {}}}) {
    counts = nullptr;
    EXPECT_EQ(table.PrepareSplitCounts(k.mode, k.size, k.all, counts), k.files);
    EXPECT_EQ(counts, k.counts);
  }
  const TempFile base;
  const auto rows_of = [&](const TString& name) {
    TDataTable part;
    EXPECT_TRUE(part.LoadFromXMLFile(name, "")) << name.utf8();
    return row_names(part);
  };
  TStringList names;
  const auto split = [&](TDataSetSplitMode mode, TDataSelMode select, Integer size, Boolean all) {
    EXPECT_GT(table.SplitDataSet(mode, select, size, all, base.path() + "_##.xml", true, &names), 0);
    std::string all_rows;
    for (const TString& name : names) {
      all_rows += rows_of(name) + "| ";
      std::filesystem::remove(name.utf8());
    }
    return all_rows;
  };
  EXPECT_EQ(split(splitRows, selmBlocked, 3, false), "R-1 R-2 R-3 | R-4 R-5 R-6 | R-7 | ");
  EXPECT_EQ(split(splitRows, selmInterleave, 3, false), "R-1 R-4 R-6 | R-2 R-5 R-7 | R-3 | ");
  EXPECT_EQ(split(splitTstTrn, selmInterleave, 2, false), "R-4 R-7 | R-1 R-2 R-3 R-5 R-6 | ");
  EXPECT_EQ(split(splitTstTrn, selmRandSel, 2, true).size(), 4 * 7 * 4 + 8 * 2u);  // every row once in each pair
  EXPECT_EQ(names.Strings(7), base.path() + "_trn04.xml");
  const TString csv = base.path() + "x.csv";
  EXPECT_EQ(table.SplitDataSet(splitColumns, selmBlocked, 3, false, csv, false, &names), 1);
  EXPECT_EQ(names.Strings(0), base.path() + "x_001.csv");
  EXPECT_EQ(table.SplitDataSet(splitColumns, selmBlocked, 3, false, csv, false, nullptr), kFileExists);
  std::filesystem::remove(names.Strings(0).utf8());
  EXPECT_EQ(table.SplitDataSet(splitRows, selmBlocked, 3, false, "/nowhere/x", true, &names), kCannotWriteParts);
  EXPECT_EQ(names.Count(), 0);
}

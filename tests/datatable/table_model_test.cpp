#include <cmath>
#include <limits>

#include "table_util.h"
#include "tests/message_of.h"
#include "zor/runtime/cell_memory.h"

using namespace table_test;

TEST(TDataTable, IsWhatTheHeaderShows) {
  TDataTable table({{"length", {39.1, 46.5, 49.3}}, {"species", {"Adelie", "Gentoo", "Adelie"}}});
  table.SetIsEmpty(1, 2, true);
  EXPECT_EQ(table.ElemNominal(2, 3), "Adelie");
  EXPECT_EQ(table.CountMarkedCellsInColumn(1, kCellEmpty), 1);
  EXPECT_EQ(table.MScaleType(2), stNominal);
  EXPECT_EQ(column(table, 2), (Cells{0, 1, 0}));
}

TEST(TDataTable, StartsWithOneCellAndIgnoresIndicesOutside) {
  TDataTable table;
  EXPECT_EQ(table.NrOfColumns(), 1);
  EXPECT_EQ(table.NrOfRows(), 1);
  EXPECT_EQ(table.ColName(1), "C-1");
  EXPECT_EQ(table.RowName(1), "R-1");
  EXPECT_EQ(table.MScaleType(1), stInterval);
  EXPECT_EQ(table.GetElem(1, 1), 0.0);
  const std::string events = events_of(table, [&] {
    for (const Integer bad : {0, -1, 2, 2147483647}) {
      table.SetElem(bad, 1, 5.0);
      table.SetElem(1, bad, 5.0);
      table.SetElemNominal(bad, 1, "x");
      table.SetCellState(1, bad, 7);
      table.SetIsEmpty(1, bad, true);
      table.SetColName(bad, "x");
      table.SetRowAttrib(bad, 3);
      table.SetNominalID(1, bad > 0 ? 151 : -1, "x");
      EXPECT_EQ(table.GetElem(bad, 1), 0.0);
      EXPECT_FALSE(table.IsNumber(1, bad));
      EXPECT_EQ(table.MScaleType(bad), stUnknown);
    }
    table.SetNrOfColumns(-1);
    table.SetNrOfRows(1);
    table.SetMScaleType(1, static_cast<TMScaleType>(5));
    table.SetElemNominal(1, 1, "");
    EXPECT_EQ(table.AddNominalID(1, ""), -1);
  });
  EXPECT_EQ(events, "");
}

TEST(TDataTable, RoundsCategorialNumbersWhenTheyAreReadOnly) {
  TDataTable table;
  table.SetMScaleType(1, stOrdinal);
  const double inf = std::numeric_limits<double>::infinity();
  const std::pair<double, double> cases[] = {{2.5, 2.0}, {3.5, 4.0}, {1e300, 1e300}, {inf, inf}, {-0.4, 0.0}};
  for (const auto& [stored, read] : cases) {
    table.Elem(1, 1) = stored;
    EXPECT_EQ(table.GetElem(1, 1), read);
    EXPECT_EQ(table.NumericData->GetVal(1, 1), stored);
  }
  EXPECT_EQ(table.ElemNominal(1, 1), "");
  table.SetElem(1, 1, std::nan(""));
  EXPECT_TRUE(std::isnan(table.GetElem(1, 1)));
  EXPECT_EQ(table.ElemNominal(1, 1), "");
  table.SetElem(1, 1, 151);
  EXPECT_EQ(table.ElemNominal(1, 1), "151");
  table.SetElem(1, 1, 123456789012.0);
  EXPECT_EQ(table.ElemNominal(1, 1), "1234567890");
}

TEST(TDataTable, GivesEachIdentifierOneSlotAndSaysWhenAllAreTaken) {
  TDataTable table;
  table.SetNrOfRows(2);
  table.SetElemNominal(1, 1, "a");  // the column is not categorial yet: the scale stays, the slot is taken once
  table.SetElemNominal(1, 2, "A");
  EXPECT_EQ(table.MScaleType(1), stInterval);
  table.SetMScaleType(1, stNominal);
  EXPECT_EQ(table.CountNominalIDs(1), 1);
  EXPECT_EQ(table.OrdinalOfNominalID(1, "A", true), 0);
  EXPECT_EQ(table.OrdinalOfNominalID(1, "A", false), -1);
  for (int i = 1; i < kNominalIDs; ++i) EXPECT_EQ(table.AddNominalID(1, "id" + std::to_string(i)), i);
  EXPECT_EQ(table.AddNominalID(1, "one more"), -1);
  EXPECT_EQ(zor::test::message_of<EZORDataTableError>([&] { table.SetElemNominal(1, 1, "one more"); }),
            "Component \"\": number of available nominal values exceeded");
  EXPECT_EQ(column(table, 1), (Cells{0, 0}));
  table.SetMScaleType(1, stRatio);
  EXPECT_EQ(table.OrdinalOfNominalID(1, "a", true), -1);
  EXPECT_EQ(table.NominalID(1, 0), "");
  table.ClearNominalIDs(1);
  EXPECT_EQ(table.CountNominalIDs(1), 0);
}

TEST(TDataTable, CutsNamesAtACharacterAndCountsCharacters) {
  TDataTable table;
  table.SetColName(1, std::string(60, 'x'));
  EXPECT_EQ(table.ColName(1), std::string(50, 'x'));
  table.SetRowName(1, "abcdefghijabcdefghijabcdefghijabcdefghijabcdefghi\xC3\xA4z");  // ä would end at byte 51
  EXPECT_EQ(table.RowName(1), "abcdefghijabcdefghijabcdefghijabcdefghijabcdefghi");
  table.SetRowName(1,
                   "Gr\xC3\xB6\xC3\x9F"
                   "e");
  EXPECT_EQ(table.MaxRowNameLength(), 5);
  EXPECT_LT(TDTNameStr("B"), TDTNameStr("a"));
  EXPECT_LT(TDTNameStr("ab"), TDTNameStr("b"));
  EXPECT_EQ(TDTNameStr("\xFF"), "\xEF\xBF\xBD");
  table.SetColAttributes(0x0F0F, 0xFF);
  EXPECT_EQ(table.ColAttrib(1), 0x0F);
  table.SetComment("a\tb\n");
  EXPECT_EQ(table.Comment(), "ab");
}

TEST(TDataTable, KeepsWhatStaysInsideAndDefaultsWhatIsNew) {
  TDataTable table;
  number_cells(table, 2, 3);
  table.SetRowName(3, "last");
  EXPECT_EQ(events_of(table, [&] { table.SetNrOfRows(2); }), "R");
  table.SetNrOfRows(4);
  EXPECT_EQ(column(table, 2), (Cells{21, 22, 0, 0}));
  EXPECT_EQ(states(table, 2), (std::vector<int>{129, 130, 0, 0}));
  EXPECT_EQ(row_names(table), "R-1 R-2 R-3 R-4 ");
  EXPECT_EQ(table.RowAttrib(2), 2);
  table.SetNrOfColumns(0);
  EXPECT_EQ(table.NumericData->NrOfColumns(), 2);  // the matrix stays, unseen
  table.SetNrOfRows(2);
  table.SetNrOfColumns(2);
  EXPECT_EQ(column(table, 2), (Cells{0, 0}));
  EXPECT_EQ(table.NumericData->NrOfRows(), 2);
}

TEST(TDataTable, StaysAsItWasWhenMemoryRunsOut) {
  TDataTable table;
  number_cells(table, 2, 3);
  EXPECT_EQ(zor::test::message_of<ZOR_matrix::EZORMatrixError>([&] { table.Resize(2147483647, 2147483647); }),
            "Component \"\": not enough memory on heap");
  int failures = 0, of_the_table = 0;
  for (std::size_t call = 1; table.NrOfRows() == 3; ++call) {
    zor::detail::AllocationLimitScope limit({.largest = zor::detail::AllocationLimits::kNone, .failing_call = call});
    try {
      table.Resize(3, 4);
    } catch (const EZORError& error) {
      ++failures;
      of_the_table += dynamic_cast<const EZORDataTableError*>(&error) != nullptr;
      EXPECT_STREQ(error.what(), "Component \"\": not enough memory on heap");
      EXPECT_EQ(column(table, 2), (Cells{21, 22, 23}));
    }
  }
  EXPECT_GE(failures, 4);
  EXPECT_LT(0, of_the_table);
  EXPECT_EQ(column(table, 2), (Cells{21, 22, 23, 0}));
  EXPECT_EQ(events_of(table, [&] { table.NumericData->SetVal(1, 1, 4.0); }), "C");
}

TEST(TDataTable, FiresTheEventsOfItsTable) {
  TDataTable table;
  table.SetMScaleType(1, stNominal);
  const std::pair<std::string, std::function<void()>> cases[] = {{"C", [&] { table.SetElem(1, 1, 1.0); }},
                                                                 {"C", [&] { table.SetElemNominal(1, 1, "new"); }},
                                                                 {"KC", [&] { table.SetIsEmpty(1, 1, true); }},
                                                                 {"C", [&] { table.SetIsEmpty(1, 1, true); }},
                                                                 {"KC", [&] { table.SetIsImputed(1, 1, true); }},
                                                                 {"", [&] { table.SetCellState(1, 1, 34); }},
                                                                 {"N", [&] { table.SetColName(1, "C-1"); }},
                                                                 {"A", [&] { table.SetRowAttributes(1); }},
                                                                 {"S", [&] { table.SetComment("x"); }},
                                                                 {"S", [&] { table.AddNominalID(1, "other"); }},
                                                                 {"", [&] { table.AddNominalID(1, "OTHER"); }},
                                                                 {"CNAKS", [&] { table.Clear(); }},
                                                                 {"R", [&] { table.Resize(2, 2); }},
                                                                 {"C", [&] { table.NumericData->SetVal(1, 1, 1.0); }}};
  for (std::size_t i = 0; i < std::size(cases); ++i) EXPECT_EQ(events_of(table, cases[i].second), cases[i].first) << i;
}

TEST(TDataTable, CloneRoundsAndAssignKeeps) {
  TDataTable from, to, same;
  number_cells(from, 2, 2);
  from.SetElemNominal(1, 1, "hidden");
  from.SetMScaleType(2, stOrdinal);
  from.SetElem(2, 1, 2.5);
  from.SetComment("c");
  EXPECT_EQ(events_of(to, [&] { to.Clone(&from); }), "RCKSNAR");
  EXPECT_EQ(events_of(to, [&] { to.Clone(&from); }), "CKSNAR");
  EXPECT_EQ(column(to, 2), (Cells{2, 22}));
  to.SetMScaleType(1, stNominal);
  EXPECT_EQ(to.CountNominalIDs(1), 0);
  std::string log;
  listen(from, log);
  EXPECT_EQ(events_of(same, [&] { same.Assign(&from); }), "");
  log.clear();
  same.Assign(&from);
  EXPECT_EQ(log, "");
  EXPECT_EQ(column(same, 2), (Cells{2.5, 22}));
  EXPECT_EQ(same.CRCofNamesAndAttributes(), from.CRCofNamesAndAttributes());
  same.NumericData->SetVal(1, 1, 3.0);
  EXPECT_EQ(log, "C");  // from same, which now has the handler
  EXPECT_EQ(from.GetElem(1, 1), 0.0);
}

TEST(TDataTable, TakesAMatrixOfTheCallerAndLetsItGo) {
  TMatrix matrix, other;
  matrix.Resize(2, 3);
  matrix.SetVal(2, 3, 7.0);
  {
    TDataTable table;
    table.SetMScaleType(1, stNominal);
    EXPECT_EQ(events_of(table, [&] { table.AssignAnotherDataMatrix(&matrix); }), "RRCSNAK");
    EXPECT_TRUE(table.ExtMatAssigned());
    EXPECT_EQ(table.MScaleType(1), stInterval);
    EXPECT_EQ(table.GetElem(2, 3), 7.0);
    EXPECT_EQ(events_of(table, [&] { table.AssignAnotherDataMatrix(&other); }), "RRCSNAK");
    EXPECT_EQ(matrix.NrOfRows(), 3);
    EXPECT_FALSE(matrix.OnChange);
    EXPECT_TRUE(other.OnChange);
  }
  EXPECT_FALSE(other.OnChange);
  EXPECT_FALSE(other.OnSortExchange);
}

TEST(TDataTable, FingerprintsFollowStatesAndNamesAlone) {
  TDataTable a, b;
  a.Resize(1, 16);
  EXPECT_EQ(a.CRCofCellStates(), [] {  // two zero bytes in each lane, crc32 of zlib
    std::string all;
    for (int i = 0; i < 8; ++i) all += "41D912FF";
    return all;
  }());
  b.Resize(1, 2);
  EXPECT_EQ(b.CRCofCellStates().utf8().substr(0, 8), "00000000");  // no byte came: rows count from 1
  b.SetElem(1, 1, 5.0);
  const TString before = b.CRCofNamesAndAttributes();
  b.SetElem(1, 1, 6.0);
  EXPECT_EQ(b.CRCofNamesAndAttributes(), before);
  b.SetRowName(2, "other");
  EXPECT_NE(b.CRCofNamesAndAttributes(), before);
  b.Resize(0, 0);
  EXPECT_EQ(b.CRCofCellStates(), std::string(64, '0'));
}

TEST(TDataTable, EditScopeFiresEachEventOnce) {
  TDataTable table;
  EXPECT_EQ(events_of(table,
                      [&] {
                        auto edit = table.Edit();
                        table.Resize(2, 2);
                        table.InsertRow(1);
                        table.SetIsEmpty(1, 1, true);
                        table.NumericData->SetVal(1, 1, 2.0);
                      }),
            "RCKSNA");
}

TEST(TDataTable, RepairsRanges) {
  TDataTable table;
  table.Resize(4, 5);
  struct Case {
    Integer lo, hi, col_lo, col_hi, col_code, row_lo, row_hi, row_code;
  };
  for (const Case& k : {Case{0, 0, 1, 4, 0, 1, 5, 0}, {3, 2, 2, 3, 0, 2, 3, -1}, {0, 9, 1, 4, -1, 1, 5, -1}}) {
    Integer lo = k.lo, hi = k.hi;
    EXPECT_EQ(table.MakeValidColRange(lo, hi), k.col_code);
    EXPECT_EQ(std::pair(lo, hi), std::pair(k.col_lo, k.col_hi));
    lo = k.lo, hi = k.hi;
    EXPECT_EQ(table.MakeValidRowRange(lo, hi), k.row_code);
    EXPECT_EQ(std::pair(lo, hi), std::pair(k.row_lo, k.row_hi));
  }
  table.SetNrOfRows(0);
  Integer lo = 2, hi = 7;
  EXPECT_EQ(table.MakeValidRowRange(lo, hi), -1);
  EXPECT_EQ(std::pair(lo, hi), std::pair(1, 0));
}

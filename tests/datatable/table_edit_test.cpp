#include <random>

#include "table_util.h"

using namespace table_test;

TEST(TableEdit, InsertsALineAndNotifiesEachMove) {
  TDataTable table;
  number_cells(table, 3, 4);
  for (Integer r = 1; r <= 4; ++r) {
    for (Integer c = 1; c <= 3; ++c) table.SetCellState(c, r, 0);
  }
  table.SetCellState(1, 4, 2);
  table.SetCellState(2, 3, 64);
  EXPECT_EQ(events_of(table, [&] { table.InsertRow(2); }), "RANKANKKANKANS");
  EXPECT_EQ(column(table, 2), (Cells{21, 0, 22, 23, 24}));
  EXPECT_EQ(states(table, 2), (std::vector<int>{0, 0, 0, 64, 0}));
  EXPECT_EQ(row_names(table), "R-1  R-2 R-3 R-4 ");
  EXPECT_EQ(table.RowAttrib(5), 4);
  table.InsertRow(6);
  EXPECT_EQ(table.RowName(6), "");
  EXPECT_EQ(events_of(table, [&] { table.InsertRow(8), table.InsertRow(0), table.RemoveRow(7); }), "");
}

// The paths with and without handlers must do the same.
TEST(TableEdit, MovesTheSameWhetherOrNotSomebodyListens) {
  const std::function<void(TDataTable&)> actions[] = {
      [](TDataTable& t) { t.InsertRow(3); },
      [](TDataTable& t) { t.InsertColumn(2); },
      [](TDataTable& t) { t.RemoveRow(2); },
      [](TDataTable& t) { t.RemoveColumn(1); },
      [](TDataTable& t) { EXPECT_EQ(t.RemoveRows(2, 4), 3); },
      [](TDataTable& t) { EXPECT_EQ(t.RemoveMarkedRows(0, 0, 4), 2); },
      [](TDataTable& t) { EXPECT_EQ(t.RemoveUnmarkedColumns(1, 3, 128), 1); },
      [](TDataTable& t) { EXPECT_EQ(t.RemoveMarkedColumns(0, 0, 64), 2); },
      [](TDataTable& t) { t.SortRows(2, false, 2, 2, 3, 5, true); },
      [](TDataTable& t) { t.SortCols(3, false, 1, 2, 3, 4, true); },
      [](TDataTable& t) { t.SortRowNames(false, 1, 1, 2, 5); },
      [](TDataTable& t) { t.SortColAttributes(false, 0, 2, 0, 4); },
      [](TDataTable& t) { t.SortColNames(false, true, 0, 0, 0, 0); }};
  for (std::size_t i = 0; i < std::size(actions); ++i) {
    TDataTable quiet, loud;
    for (TDataTable* t : {&quiet, &loud}) {
      number_cells(*t, 3, 5);
      for (Integer r = 1; r <= 5; ++r) t->SetElemNominal(2, r, "id" + std::to_string(r * 7 % 5));
      t->SetMScaleType(2, stOrdinal);
      t->SetElem(2, 5, 1.75);
      t->SetElemNominal(3, 1, "hidden");
      if (t == &loud) t->OnSortExchange = [](TObject*, Byte, Integer, Integer, Integer, Integer) {};
    }
    std::string log;
    listen(loud, log);
    actions[i](quiet);
    actions[i](loud);
    EXPECT_FALSE(log.empty()) << i;
    EXPECT_EQ(quiet.CRCofNamesAndAttributes(), loud.CRCofNamesAndAttributes()) << i;
    EXPECT_EQ(quiet.CRCofCellStates(), loud.CRCofCellStates()) << i;
    ASSERT_EQ(quiet.NrOfColumns(), loud.NrOfColumns()) << i;
    for (Integer c = 1; c <= quiet.NrOfColumns(); ++c) EXPECT_EQ(column(quiet, c), column(loud, c)) << i;
  }
}

TEST(TableEdit, RemovesLinesAndSaysHowMany) {
  TDataTable table;
  number_cells(table, 3, 5);
  EXPECT_EQ(table.RemoveRows(2, 3), 2);
  EXPECT_EQ(column(table, 1), (Cells{11, 14, 15}));
  EXPECT_EQ(table.RemoveRows(3, 2), 0);
  EXPECT_EQ(table.RemoveRows(0, 3), -1);
  EXPECT_EQ(table.RemoveMarkedRows(3, 1, 255), 0);
  EXPECT_EQ(events_of(table, [&] { EXPECT_EQ(table.RemoveMarkedRows(0, 0, 32), 0); }), "");
  EXPECT_EQ(table.RemoveMarkedRows(0, 3, 64), -1);
  const std::string events = events_of(table, [&] { EXPECT_EQ(table.RemoveMarkedColumns(0, 0, 128), 2); });
  EXPECT_EQ(events.substr(events.size() - 2), "RS");
  EXPECT_EQ(events.find_first_of("CK"), std::string::npos);
  EXPECT_EQ(table.ColAttrib(1), 301);
  EXPECT_EQ(table.NrOfColumns(), 1);
  EXPECT_EQ(table.RemoveRows(0, 0), 3);
  EXPECT_EQ(table.NrOfRows(), 0);
  table.ExchangeColumns(1, 1);
  table.SortRows(1, true, 0, 0, 0, 0, true);
  table.RemoveColumn(1);
  EXPECT_EQ(table.NrOfColumns(), 1);
  table.InsertRow(1);
  EXPECT_EQ(column(table, 1), (Cells{0}));
}

TEST(TableEdit, ExchangesAllOfALineRaw) {
  TDataTable table;
  number_cells(table, 3, 2);
  table.SetMScaleType(1, stNominal);
  table.SetNominalID(1, 4, "id");
  table.SetElem(1, 1, 2.5);
  EXPECT_EQ(events_of(table, [&] { table.ExchangeColumns(1, 3); }), "CKANS");
  EXPECT_EQ(column(table, 3), (Cells{2.5, 12}));
  EXPECT_EQ(table.NominalID(3, 4), "id");
  EXPECT_EQ(table.ColAttrib(1), 303);
  EXPECT_EQ(states(table, 1), (std::vector<int>{193, 194}));
  EXPECT_EQ(events_of(table, [&] { table.MirrorColumns(); }), "CKANSCKANS");
  EXPECT_EQ(table.ColName(1), "C-1");
  EXPECT_EQ(events_of(table, [&] { table.ExchangeRows(1, 3); }), "");
}

TEST(TableSort, MovesStatesWithNumbersAndHeadersWhenAsked) {
  TDataTable table;
  number_cells(table, 3, 3);
  EXPECT_EQ(events_of(table, [&] { table.SortRows(1, false, 2, 0, 2, 0, false); }), "C");
  EXPECT_EQ(column(table, 1), (Cells{13, 12, 11}));  // the key moves, its states do not
  EXPECT_EQ(states(table, 1), (std::vector<int>{65, 66, 67}));
  EXPECT_EQ(states(table, 2), (std::vector<int>{131, 130, 129}));
  EXPECT_EQ(column(table, 3), (Cells{31, 32, 33}));
  EXPECT_EQ(row_names(table), "R-1 R-2 R-3 ");
  EXPECT_EQ(events_of(table, [&] { table.SortRows(1, true, 0, 0, 0, 0, true); }), "CNA");
  EXPECT_EQ(row_names(table), "R-3 R-2 R-1 ");
  EXPECT_EQ(events_of(table, [&] { table.SortRows(9, true, 0, 0, 0, 0, true); }), "NA");
  table.NumericData->SortRows(1, false, 0, 0, 0, 0);  // the headers still travel
  EXPECT_EQ(row_names(table), "R-1 R-2 R-3 ");
}

TEST(TableSort, NamesByBytesOrWithoutCase) {
  TDataTable table;
  number_cells(table, 2, 2);
  const auto sorted = [&](const char* first, const char* second, Boolean ignore_case) {
    table.SetRowName(1, first), table.SetRowName(2, second);
    table.SortRowNames(true, ignore_case, 0, 0, 0, 0);
    return row_names(table);
  };
  EXPECT_EQ(sorted("b", "A", false), "A b ");
  EXPECT_EQ(sorted("a", "B", false), "B a ");
  EXPECT_EQ(sorted("a", "B", true), "a B ");
  EXPECT_EQ(sorted("ab", "b", false), "ab b ");
  table.OnSortExchange = [](TObject*, Byte what, Integer a, Integer b, Integer first, Integer last) {
    EXPECT_EQ((std::vector<Integer>{what, a, b, first, last}), (std::vector<Integer>{2, 1, 2, 1, 2}));
  };
  EXPECT_EQ(events_of(table, [&] { table.SortRowNames(false, 0, 0, 0, 0); }), "CCCCCN");
  EXPECT_EQ(events_of(table, [&] { table.SortRowNames(false, 0, 1, 0, 1); }), "");
  EXPECT_EQ(events_of(table, [&] { table.SortRowAttributes(true, 0, 0, 0, 0); }).back(), 'A');
}

TEST(TableSort, OrdersLikeTheMatrixAlone) {
  TDataTable table;
  TMatrix matrix;
  table.Resize(3, 200), matrix.Resize(3, 200);
  std::mt19937 bits(5);
  for (Integer r = 1; r <= 200; ++r) {
    for (Integer c = 1; c <= 3; ++c) {
      table.SetElem(c, r, static_cast<double>(bits() % 20));
      matrix.SetVal(c, r, table.GetElem(c, r));
    }
  }
  table.SortRows(2, true, 1, 5, 1, 190, false);
  matrix.SortRows(2, true, 1, 5, 1, 190);
  for (Integer c = 1; c <= 3; ++c) {
    EXPECT_TRUE(std::ranges::equal(table.ColumnView(c), matrix.Column(c)));
  }
}

TEST(TableHandlers, MayChangeTheSizeInMidEdit) {
  TDataTable table;
  number_cells(table, 3, 5);
  table.OnChangeNames = [&](TObject*) { table.SetNrOfRows(2), table.SetNrOfColumns(1); };
  table.InsertRow(2);
  table.RemoveMarkedColumns(0, 0, 64);
  EXPECT_LE(table.NrOfColumns(), 3);
  table.SetNrOfColumns(1);
  table.OnChangeNames = [](TObject*) { throw 5; };
  EXPECT_THROW(table.InsertRow(1), int);
  table.OnChangeNames = nullptr;
  EXPECT_EQ(events_of(table, [&] { table.SetElem(1, 1, 1.0); }), "C");  // not deaf
}

#include <cmath>

#include "table_util.h"

using namespace table_test;

TEST(TableCopy, CopiesBlocksAlsoWithinItself) {
  TDataTable table, other;
  number_cells(table, 3, 4);
  other.Resize(2, 2);
  EXPECT_EQ(events_of(other, [&] { other.CopyFrom(&table, 3, 2, 2, 9, 0, 1); }), "CK");
  EXPECT_EQ(column(other, 1), (Cells{32, 33}));  // column 2 fell outside
  EXPECT_EQ(states(other, 1), (std::vector<int>{194, 195}));
  table.CopyFrom(&table, 1, 1, 2, 3, 2, 2);
  EXPECT_EQ(column(table, 2), (Cells{21, 11, 12, 13}));
  EXPECT_EQ(column(table, 3), (Cells{31, 21, 22, 23}));
  EXPECT_EQ(events_of(other, [&] { other.CopyFrom(&table, 0, 0, 0, 0, 2147483647, 5); }), "CK");
}

TEST(TableCopy, CopiesColumnsUpToTheShorterHeight) {
  TDataTable from, to;
  number_cells(from, 2, 5);
  from.SetMScaleType(2, stNominal);
  from.SetNominalID(2, 0, "id");
  to.SetNrOfRows(3);
  EXPECT_EQ(events_of(to, [&] { EXPECT_EQ(to.CopyColumnFrom(&from, 2, 1), -3); }), "CKSNA");
  EXPECT_EQ(column(to, 1), (Cells{21, 22, 23}));
  EXPECT_EQ(to.NominalID(1, 0), "id");
  EXPECT_EQ(to.CopyColumnFrom(nullptr, 9, 9), -4);
  EXPECT_EQ(to.CopyColumnFrom(&from, 9, 1), -1);
  EXPECT_EQ(to.CopyColumnFrom(&from, 9, 9), -2);
  EXPECT_FALSE(to.CopyCellStatesFrom(&from));
  to.Resize(2, 5);
  EXPECT_TRUE(to.CopyCellStatesFrom(&from));
  EXPECT_EQ(to.CRCofCellStates(), from.CRCofCellStates());
}

TEST(TableCopy, LinesGoToVectorsAndArrays) {
  TDataTable table;
  number_cells(table, 3, 4);
  table.SetMScaleType(2, stOrdinal);
  table.SetElem(2, 1, 21.5);
  TDoubleArray a;
  EXPECT_EQ(table.CopyDataColumnToArray(2, a), 0);
  EXPECT_EQ(a, (TDoubleArray{21.5, 22, 23, 24}));
  EXPECT_EQ(table.CopyDataRowToArray(5, a), -1);
  TVector v;
  EXPECT_EQ(table.CopyDataRowToVector(1, &v), 0);
  EXPECT_EQ(v.NrOfElem(), 3);
  EXPECT_EQ(table.CopyDataColumnToVector(1, nullptr), -4);
  TDoubleArray b = {0, 0, 0};
  EXPECT_EQ(table.CopyDataColumnToArray(b, 2, 3, 1, 1), 0);
  EXPECT_EQ(b, (TDoubleArray{0, 22, 22}));  // rows 1 and 2, the first one rounded
  EXPECT_EQ(table.CopyDataColumnToArray(b, 9, 1, 9, 9), -3);
  EXPECT_EQ(table.CopyDataColumnToArray(b, 9, 1, 9, 0), -2);
  EXPECT_EQ(table.CopyDataColumnToArray(TDoubleArray(), 9, 1, 9, 0), -4);
  TIntVector iv;
  iv.SetNrOfElem(2);
  table.SetElem(1, 1, std::nan(""));
  table.SetElem(3, 1, 1e99);
  EXPECT_EQ(table.CopyDataRowToVector(&iv, 1, 0, 0, 1), 0);
  EXPECT_EQ(iv.GetVal(1), 0);
  EXPECT_EQ(table.CopyDataRowToVector(&iv, 1, 3, 3, 2), 0);
  EXPECT_EQ(iv.GetVal(2), 2147483647);
  EXPECT_EQ(table.SliceCol(2, 4, 1, 2, a), 2);
  EXPECT_EQ(a, (TDoubleArray{21.5, 23}));
  EXPECT_EQ(table.SliceCol(9, 9, 1, 0, a), -1);
  EXPECT_EQ(table.SliceRow(1, 9, 1, 0, a), -2);
  EXPECT_EQ(table.SliceRow(2, 0, 0, 2147483647, a), 1);
}

TEST(TableCopy, LinesComeFromVectorsAndArrays) {
  TDataTable table;
  table.Resize(2, 3);
  EXPECT_EQ(events_of(table, [&] { EXPECT_EQ(table.CopyDataColumnFromArray(1, TDoubleArray{1, 2, 3, 4}), 0); }), "CCC");
  EXPECT_EQ(column(table, 1), (Cells{1, 2, 3}));
  EXPECT_EQ(table.CopyDataRowFromVector(1, nullptr), -1);
  TVector v;
  v.SetNrOfElem(10);
  v.FillSerial(1, 1);
  EXPECT_EQ(events_of(table, [&] { EXPECT_EQ(table.CopyDataFromVector(&v, 0, 0, 2, 2, true), 0); }), "C");
  EXPECT_EQ(column(table, 2), (Cells{0, 1, 2}));
  EXPECT_EQ(table.CopyDataFromVector(&v, 3, 2, 1, 1, false), 0);
  EXPECT_EQ(column(table, 2), (Cells{3, 1, 2}));
  EXPECT_EQ(table.CopyDataFromVector(&v, 0, 11, 1, 1, false), -4);
  EXPECT_EQ(table.CopyDataFromVector(&v, 0, 11, 3, 1, false), -5);
  EXPECT_EQ(table.CopyDataFromArray(TIntArray{7, 8}, 1, 1, 1, 3, true), 0);
  EXPECT_EQ(table.GetElem(1, 3), 8.0);
}

TEST(TableCopy, BlocksGoToAndComeFromMatricesAndArrays) {
  TDataTable table;
  number_cells(table, 3, 4);
  TMatrix m;
  m.Resize(2, 2);
  EXPECT_EQ(table.CopyDataToMatrix(&m, 2, 2, 9, 3, 1, 1), -2);
  EXPECT_EQ(table.CopyDataToMatrix(&m, 3, 2, 2, 3, 1, 2), 0);  // reversed columns go on
  EXPECT_EQ(m.GetVal(2, 2), 32.0);
  EXPECT_EQ(table.CopyDataToMatrix(&m, 1, 3, 2, 2, 1, 1), -3);  // reversed rows do not
  EXPECT_EQ(table.CopyDataToMatrix(&m, 1, 3, 2, 2, 3, 1), -4);
  EXPECT_EQ(table.CopyDataToMatrix(table.NumericData, 1, 1, 2, 4, 2, 1), 0);
  EXPECT_EQ(column(table, 3), (Cells{21, 22, 23, 24}));
  EXPECT_EQ(table.CopyDataFromMatrix(table.NumericData, 1, 1, 2, 3, 1, 2), 0);
  EXPECT_EQ(column(table, 1), (Cells{11, 11, 12, 13}));
  EXPECT_EQ(table.CopyDataFromMatrix(nullptr, 0, 0, 0, 0, 1, 1), -1);
  TInt2DArray ints;
  EXPECT_EQ(table.CopyDataToArray(ints, 0, 0, 0, 0, 0, 0), -1);
  SetLength(ints, 2, 2);
  table.SetElem(1, 1, 2.5);
  EXPECT_EQ(table.CopyDataToArray(ints, 0, 0, 0, 0, 1, 1), 0);
  EXPECT_EQ(ints[1][1], 2);
  ints[0] = TIntArray{1};
  EXPECT_EQ(table.CopyDataFromArray(ints, 0, 0, 0, 0, 1, 1), -1);  // ragged
  TDouble2DArray d = {{1, 2}, {3, 4}};
  EXPECT_EQ(table.CopyDataFromArray(d, 1, 1, 1, 0, 3, 4), 0);
  EXPECT_EQ(table.GetElem(3, 4), 3.0);
  EXPECT_EQ(table.DuplicateDataAsArray(d), 0);
  EXPECT_EQ(Length(d), 3);
  EXPECT_EQ(d[2][3], 3.0);
}

TEST(TableFind, ListsCellsThatCompareTrue) {
  TDataTable table;
  number_cells(table, 2, 3);
  table.SetElem(1, 2, std::nan(""));
  TInt2DArray list;
  struct Case {
    TCompareMode op;
    double limit, limit2;
    Integer count;
  };
  for (const Case& k : {Case{cmLT, 21, 0, 2},
                        {cmGE, 21, 0, 3},
                        {cmNE, 11, 0, 4},
                        {cmEQ, std::nan(""), 0, 0},
                        {cmInRange, 13, 21, 2},
                        {cmInRange, 21, 13, 0},
                        {cmOutOfRange, 21, 13, 5},
                        {static_cast<TCompareMode>(8), 0, 0, -1}}) {
    EXPECT_EQ(table.FindCells(k.limit, k.limit2, k.op, 0, 0, 0, 0, list), k.count) << int{k.op};
  }
  EXPECT_EQ(table.FindCells(22, 0, cmEQ, 0, 0, 0, 0, list), 1);
  EXPECT_EQ(list, (TInt2DArray{{2}, {2}}));
  table.Resize(1, 10001);
  EXPECT_EQ(table.FindCells(99, 0, cmLT, 1, 1, 1, 10000, list), 10000 - 1);
  table.SetElem(1, 2, 0.0);
  EXPECT_EQ(table.FindCells(99, 0, cmLT, 1, 1, 1, 10000, list), 10000);
  EXPECT_EQ(table.FindCells(99, 0, cmLT, 0, 0, 0, 0, list), -2);
  EXPECT_EQ(Length(list[1]), 10000);
  table.SetColName(1, "  L\xC3\xA4nge ");
  EXPECT_EQ(table.FindColIndex("L\xC3\x84NGE"), 1);
  EXPECT_EQ(table.FindRowIndex("r-77"), 77);
  EXPECT_EQ(table.FindRowIndex("none"), 0);
}

TEST(TableStates, CombineMasks) {
  TDataTable table;
  table.Resize(2, 1);
  struct Case {
    Byte state;
    TLogicOp op;
    Byte result;
  };
  for (const Case& k : {Case{0xF0, loAnd, 0x40},
                        {0xF0, loOr, 0xF5},
                        {0xF0, loXor, 0xB5},
                        {0xF0, loAndNot, 0xB0},
                        {0xF0, loOrNot, 0xFA},
                        {0xF0, loXorNot, 0x4A}}) {
    table.SetAllCellStates(k.state);
    EXPECT_EQ(events_of(table, [&] { table.SetCellStates(2, 0, 2, 0, 0x45, k.op); }), "K");
    EXPECT_EQ(states(table, 1), (std::vector<int>{k.state}));
    EXPECT_EQ(table.CellState(2, 1), k.result);
  }
  EXPECT_EQ(events_of(table, [&] { table.SetCellStates(0, 0, 0, 0, 1, static_cast<TLogicOp>(6)); }), "");
  table.SetAllCellStates(0x41);
  table.ExchangeMarkings();
  EXPECT_EQ(table.CellState(1, 1), 0x81);
  table.InvertCellStates(0xC0);
  EXPECT_EQ(table.CellState(1, 1), 0x41);
  EXPECT_TRUE(table.IfRowHasCellState(1, 0x40));
  EXPECT_FALSE(table.IfColHasCellState(3, 0x40));
  EXPECT_EQ(table.CountMarkedCellsInRow(1, 1), 2);
  EXPECT_EQ(events_of(table, [&] { EXPECT_EQ(table.FillMarkedCells(5.0, 0x80), 0); }), "");
  EXPECT_EQ(events_of(table, [&] { EXPECT_EQ(table.FillMarkedCells(5.0, 0x40), 2); }), "C");
  table.UnmarkAllCells();
  EXPECT_EQ(states(table, 2), (std::vector<int>{1}));
}

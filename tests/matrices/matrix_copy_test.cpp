#include "tests/matrices/matrix_util.h"

namespace ZOR_matrix {
namespace {

using Values = std::vector<Double>;

Values values_of(const TVector& v) { return {v.begin(), v.end()}; }
Values values_of(const TDoubleArray& a) { return {a.begin(), a.end()}; }

TEST(TMatrixCopyOut, ARowFillsAVectorFromItsFirstElementAndZeroesTheRest) {
  TMatrix m;
  number_cells(m, 3, 2);
  TVector longer, shorter;
  longer.Resize(5);
  longer.Fill(7.0);
  shorter.Resize(2);
  m.CopyRowToVec(&longer, 2, 0, 0);
  m.CopyRowToVec(&shorter, 99, 3, 1);
  EXPECT_EQ(values_of(longer), (Values{12, 22, 32, 0, 0}));
  EXPECT_EQ(values_of(shorter), (Values{12, 22}));
  m.CopyColToVec(&longer, -4, 2, 2);
  EXPECT_EQ(values_of(longer), (Values{12, 0, 0, 0, 0}));
  EXPECT_FALSE(longer.IsEmpty());
  m.CopyRowToVec(nullptr, 1, 0, 0);
}

TEST(TMatrixCopyOut, AVectorTellsItsFillAndEachStoredElement) {
  TMatrix m;
  number_cells(m, 3, 2);
  TVector v;
  v.Resize(4);
  std::string told;
  v.OnChange = [&](TObject*) { told += 'C'; };
  m.CopyRowToVec(&v, 1, 0, 0);
  EXPECT_EQ(told, "CCCC");
  EXPECT_EQ(values_of(v), (Values{11, 21, 31, 0}));
  told.clear();
  m.CopyRowToVec(&v, 1, 0, 0, 4);
  EXPECT_EQ(told, "CC");
  EXPECT_EQ(values_of(v), (Values{0, 0, 0, 11}));
}

TEST(TMatrixCopyOut, AnElementMayLieOutsideAsLongAsOneCellLands) {
  TMatrix m;
  number_cells(m, 2, 3);
  struct Case {
    Integer dest;
    Values expected;
  };
  const Values untouched = {9, 9};
  for (const Case& k : {Case{-1, {13, 0}}, Case{-2, untouched}, Case{0, {12, 13}}, Case{1, {11, 12}}, Case{2, {0, 11}},
                        Case{3, untouched}, Case{2147483647, untouched}, Case{-2147483647, untouched}}) {
    TVector v;
    v.Resize(2);
    v.Fill(9.0);
    m.CopyColToVec(&v, 1, 0, 0, k.dest);
    EXPECT_EQ(values_of(v), k.expected) << k.dest;
    TDoubleArray a = {9, 9};
    m.CopyColTo1DArray(a, 1, 0, 0, k.dest == -2147483647 ? k.dest : k.dest - 1);
    EXPECT_EQ(values_of(a), k.expected) << k.dest;
  }
}

TEST(TMatrixCopyOut, AnArrayByValueIsTheCallersOwn) {
  TMatrix m;
  number_cells(m, 3, 2);
  TDoubleArray a = {9, 9, 9, 9};
  const TDoubleArray shared = a;
  m.CopyRowTo1DArray(a, 1, 2, 3, 1);
  EXPECT_EQ(values_of(shared), (Values{0, 21, 31, 0}));
  m.CopyRowTo1DArray(nullptr, 1, 0, 0, 0);
}

TEST(TMatrixCopyOut, ABlockGoesIntoAnArrayAsFarAsItFits) {
  TMatrix m;
  number_cells(m, 3, 3);
  TDouble2DArray a;
  SetLength(a, 2, 3);
  EXPECT_EQ(m.CopyToArray(a, 3, 2, 2, 3, 0, 1), 0) << "reversed columns pass";
  EXPECT_EQ(a, (TDouble2DArray{{0, 22, 23}, {0, 32, 33}}));
  EXPECT_EQ(m.CopyToArray(a, 0, 0, 0, 0, 1, 2), 0);
  EXPECT_EQ(a, (TDouble2DArray{{0, 22, 23}, {0, 32, 11}}));
  m.Fill(2.5);
  m.SetVal(2, 1, -1e300);
  TInt2DArray n;
  SetLength(n, 2, 1);
  EXPECT_EQ(m.CopyToArray(n, 0, 0, 0, 0, 0, 0), 0);
  EXPECT_EQ(n, (TInt2DArray{{2}, {-2147483647 - 1}}));
}

TEST(TMatrixCopyOut, TheLastFaultOfACopyToAnArrayStays) {
  TMatrix m;
  number_cells(m, 3, 3);
  TDouble2DArray none, ragged = {{1, 2}, {3}}, a;
  SetLength(a, 2, 2);
  EXPECT_EQ(m.CopyToArray(none, 0, 0, 0, 0, 0, 0), kNoArray);
  EXPECT_EQ(m.CopyToArray(ragged, 0, 0, 0, 0, 0, 0), kNoArray);
  EXPECT_EQ(m.CopyToArray(a, 1, 1, 4, 1, 0, 0), kBadColumnRange);
  EXPECT_EQ(m.CopyToArray(a, 1, 3, 4, 1, 0, 0), kBadRowRange) << "reversed rows";
  EXPECT_EQ(m.CopyToArray(a, 1, 3, 4, 1, 2, 0), kBadArrayPlace);
  EXPECT_EQ(m.CopyToArray(a, 1, 1, 1, 1, 0, -1), kBadArrayPlace);
  EXPECT_EQ(a, (TDouble2DArray{{0, 0}, {0, 0}}));
  EXPECT_EQ(m.DuplicateDataAsArray(none), kNoArray);
  EXPECT_EQ(m.DuplicateDataAsArray(a), 0);
  EXPECT_EQ(a, (TDouble2DArray{{11, 12, 13}, {21, 22, 23}, {31, 32, 33}}));
}

TEST(TMatrixCopyIn, CloneTellsTheResizeEachCellAndTheEnd) {
  TMatrix m, source;
  number_cells(source, 2, 2);
  Listener told(m);
  m.Clone(&source);
  EXPECT_EQ(told.take(), "CRCCCCCR");
  m.Clone(&source);
  EXPECT_EQ(told.take(), "CCCCCR");
  m.Clone(&m);
  EXPECT_EQ(told.take(), "CCCCCR");
  m.Clone(nullptr);
  EXPECT_EQ(told.take(), "");
  EXPECT_EQ(columns_of(m), columns_of(source));
}

TEST(TMatrixCopyIn, CloneTakesTheSourceAsItWasBeforeAnyHandlerRan) {
  TMatrix m, source;
  number_cells(source, 2, 2);
  const auto expected = columns_of(source);
  m.OnResize = [&](TObject*) {
    m.OnResize = nullptr;
    source.Resize(1, 1);
  };
  m.Clone(&source);
  EXPECT_EQ(columns_of(m), expected);
}

TEST(TMatrixCopyIn, AssignTakesEverythingWithHandlersAndTellsNothing) {
  TMatrix m, source;
  number_cells(source, 2, 3);
  source.SetDataID("id");
  source.SetPrecision(2, 4);
  int told = 0;
  source.OnChange = [&](TObject*) { ++told; };
  m.OnResize = [&](TObject*) { ++told; };
  m.Assign(&source);
  EXPECT_EQ(told, 0);
  EXPECT_EQ(columns_of(m), columns_of(source));
  EXPECT_EQ(m.DataID(), "id");
  EXPECT_EQ(m.Precision(2), 4);
  EXPECT_FALSE(m.OnResize);
  m.SetVal(1, 1, 5.0);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(source.GetVal(1, 1), 11.0) << "cells are copied, not shared";
  source.AssignTo(&m);
  EXPECT_EQ(m.GetVal(1, 1), 11.0);
  TVector v;
  EXPECT_THROW(m.Assign(&v), EConvertError);
  EXPECT_THROW(m.AssignTo(&v), EConvertError);
}

TEST(TMatrixCopyIn, FourZerosAreTheFirstCellAndReversedBoundsAreExchanged) {
  TMatrix m, source;
  number_cells(source, 3, 3);
  m.Resize(3, 2);
  Listener told(m);
  m.CopyFrom(&source, 0, 0, 0, 0, 1, 1);
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{11, 0}, {0, 0}, {0, 0}}));
  EXPECT_EQ(told.take(), "CC");
  m.CopyFrom(&source, 9, 3, 2, -1, 3, 0);
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{11, 0}, {0, 0}, {22, 23}}));
  EXPECT_EQ(told.take(), "CCC") << "two cells land";
  m.CopyFrom(nullptr, 0, 0, 0, 0, 1, 1);
  EXPECT_EQ(told.take(), "");
}

TEST(TMatrixCopyIn, AMatrixCopiesFromItselfAsFromACopy) {
  for (const bool listen : {false, true}) {
    TMatrix m;
    number_cells(m, 3, 3);
    if (listen) m.OnChange = [](TObject*) {};
    m.CopyFrom(&m, 1, 1, 3, 3, 2, 2);
    EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{11, 12, 13}, {21, 11, 12}, {31, 21, 22}}));
  }
}

TEST(TMatrixCopyIn, AVectorRunsAlongARowOrDownAColumn) {
  TMatrix m;
  m.Resize(3, 3);
  TVector v;
  v.Resize(4);
  v.FillSerial(1.0, 1.0);
  Listener told(m);
  m.CopyFromVec(dimCols, &v, 2, 3, 2, 1);
  m.CopyFromVec(&v, 0, 0, 1, 0);
  m.CopyFromVec(&v, 4, 4, 3, 3, false);
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{2, 3, 4}, {2, 0, 0}, {3, 0, 4}}));
  EXPECT_EQ(told.take(), "CCCCCCCCC");
  m.CopyFromVec(&v, 1, 1, 3, 3, true);
  EXPECT_EQ(m.GetVal(3, 3), 1.0);
  m.CopyFromVec(nullptr, 0, 0, 1, 1);
  m.CopyFromVec(&v, 0, 0, 2147483647, 2147483647);
  m.CopyFromVec(&v, 0, 0, -2147483647, 1, false);
  EXPECT_EQ(told.take(), "CCCC");
}

TEST(TMatrixCopyIn, ThePositionInAnArrayCountsNotItsDistanceFromTheFirst) {
  TMatrix m;
  m.Resize(2, 8);
  Listener told(m);
  const TDoubleArray a = {0, 1, 2, 3, 4, 5};
  EXPECT_EQ(m.CopyFromArray(a, 5, 2, 1, 1, true), 0);
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{0, 0, 2, 3, 4, 5, 0, 0}, {0, 0, 0, 0, 0, 0, 0, 0}}));
  EXPECT_EQ(told.take(), "CCCC") << "no event at the end";
  EXPECT_EQ(m.CopyFromArray(TIntArray{7, 8, 9}, 0, 0, 1, 8, false), 0);
  EXPECT_EQ(m.GetVal(1, 8), 7.0);
  EXPECT_EQ(m.GetVal(2, 8), 8.0);
  EXPECT_EQ(m.CopyFromArray(TDoubleArray(), 0, 0, 9, 9, true), kNoArray);
  EXPECT_EQ(m.CopyFromArray(a, 0, 6, 1, 1, true), kBadElementRange);
  EXPECT_EQ(m.CopyFromArray(a, -1, 6, 3, 1, true), kBadPlace);
  EXPECT_EQ(m.CopyFromArray(a, 0, 0, -2147483647 - 1, 1, true), kBadPlace);
}

TEST(TMatrixCopyIn, APlaneIsCopiedByItsPositionsAndReversedBoundsCopyNothing) {
  TMatrix m;
  m.Resize(3, 3);
  const TDouble2DArray a = {{11, 12}, {21, 22}};
  Listener told(m);
  EXPECT_EQ(m.CopyFromArray(a, 0, 0, 0, 0, 1, 1), 0);
  EXPECT_EQ(m.CopyFromArray(TInt2DArray{{1, 2}, {3, 4}}, 1, 0, 1, 0, 2, 2), 0);
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{11, 12, 0}, {21, 22, 0}, {0, 3, 4}}));
  EXPECT_EQ(told.take(), "CCCCCC");
  EXPECT_EQ(m.CopyFromArray(a, 1, 0, 0, 1, 1, 1), 0);
  EXPECT_EQ(told.take(), "");
  EXPECT_EQ(m.CopyFromArray(TDouble2DArray{{1}, {}}, 0, 0, 0, 0, 1, 1), kNoArray);
  EXPECT_EQ(m.CopyFromArray(a, 0, 0, 2, 1, 1, 1), kBadColumnRange);
  EXPECT_EQ(m.CopyFromArray(a, 0, -1, 2, 1, 1, 1), kBadRowRange);
  EXPECT_EQ(m.CopyFromArray(a, 0, -1, 2, 1, 1, 4), kBadPlace);
}

TEST(TMatrixCopyIn, AHandlerMayShrinkTheMatrixDuringACopy) {
  TMatrix m;
  m.Resize(5, 5);
  TDouble2DArray a;
  SetLength(a, 5, 5);
  int calls = 0;
  m.OnChange = [&](TObject*) {
    if (++calls == 3) m.Resize(1, 2);
  };
  EXPECT_EQ(m.CopyFromArray(a, 0, 0, 0, 0, 1, 1), 0);
  EXPECT_EQ(m.NrOfRows(), 2);
}

}  // namespace
}  // namespace ZOR_matrix

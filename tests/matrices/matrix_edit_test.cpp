#include <limits>

#include "tests/matrices/matrix_util.h"

namespace ZOR_matrix {
namespace {

constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

struct Found {
  Integer col = -1, row = -1;
  bool operator==(const Found&) const = default;
};

Found find(const TMatrix& m, Integer c1, Integer c2, Integer r1, Integer r2, Double value) {
  Found at;
  m.Find(c1, c2, r1, r2, value, at.col, at.row);
  return at;
}

TEST(TMatrixSearch, FindTakesTheFirstOfTheNearestCellsInColumnOrder) {
  TMatrix m;
  set(m, Columns<TMatrix>{{1, 5, kNaN}, {3, 4, 1}});
  EXPECT_EQ(find(m, 0, 0, 0, 0, 2.0), (Found{1, 1})) << "1 and 3 are equally near";
  EXPECT_EQ(find(m, 2, 2, 0, 0, 2.0), (Found{2, 1}));
  EXPECT_EQ(find(m, 0, 0, 2, 2, 4.4), (Found{2, 2}));
  EXPECT_EQ(find(m, 9, 2, 3, 3, 100.0), (Found{2, 3}));
  EXPECT_EQ(find(m, 1, 1, 3, 3, 1.0), (Found{0, 0})) << "NaN is never near";
  EXPECT_EQ(find(m, 0, 0, 0, 0, kNaN), (Found{0, 0}));
}

TEST(TMatrixSearch, BisectionGivesTheEqualOrTheNearerRowAndTheLaterOnATie) {
  TMatrix m;
  set(m, Columns<TMatrix>{{1, 3, 5, 9}, {9, 5, 3, 1}});
  EXPECT_EQ(m.FindInSortedColumn(1, true, 5.0), 3);
  EXPECT_EQ(m.FindInSortedColumn(2, false, 5.0), 2);
  EXPECT_EQ(m.FindInSortedColumn(1, true, 4.0), 3);
  EXPECT_EQ(m.FindInSortedColumn(1, true, 3.5), 2);
  EXPECT_EQ(m.FindInSortedColumn(2, false, 100.0), 1);
  EXPECT_EQ(m.FindInSortedColumn(1, true, -5.0), 1);
  EXPECT_EQ(m.FindInSortedColumn(3, true, 5.0), 0);
  m.Resize(1, 1);
  EXPECT_EQ(m.FindInSortedColumn(1, true, 7.0), 1);
}

TEST(TMatrixSearch, TheFingerprintIsThatOfTheColumnsInARow) {
  TMatrix m;
  number_cells(m, 3, 9);
  TVector v;
  v.Resize(27);
  for (Integer i = 0; i < 27; ++i) v.SetVal(i + 1, m.GetVal(i / 9 + 1, i % 9 + 1));
  EXPECT_EQ(m.CRCofData(), v.CRCofData());
  m.SetVal(3, 9, 0.0);
  EXPECT_NE(m.CRCofData(), v.CRCofData());
  EXPECT_EQ(m.CRCofData().Length(), 64);
}

TEST(TMatrixEdits, ColumnsAndRowsAreTakenOutButNotTheLast) {
  TMatrix m;
  number_cells(m, 3, 3);
  Listener told(m);
  EXPECT_TRUE(m.RemoveColumn(2));
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{11, 12, 13}, {31, 32, 33}}));
  EXPECT_TRUE(m.RemoveRow(1));
  EXPECT_TRUE(m.RemoveRow(2)) << "the last one";
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{12}, {32}}));
  EXPECT_EQ(told.take(), "CRCRCR");
  EXPECT_FALSE(m.RemoveRow(1));
  EXPECT_FALSE(m.RemoveColumn(0));
  EXPECT_FALSE(m.RemoveColumn(3));
  EXPECT_TRUE(m.RemoveColumn(1));
  EXPECT_FALSE(m.RemoveColumn(1));
  EXPECT_EQ(told.take(), "CR");
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{32}}));
}

TEST(TMatrixEdits, ExchangesAndMirrorsTellOnceAndBadIndicesNever) {
  TMatrix m;
  number_cells(m, 3, 3);
  Listener told(m);
  m.ExchangeColumns(1, 3);
  m.ExchangeRows(3, 2);
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{31, 33, 32}, {21, 23, 22}, {11, 13, 12}}));
  m.MirrorColumns();
  m.MirrorRows();
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{12, 13, 11}, {22, 23, 21}, {32, 33, 31}}));
  EXPECT_EQ(told.take(), "CCCC");
  m.ExchangeColumns(2, 2);
  EXPECT_EQ(told.take(), "C");
  const auto before = columns_of(m);
  for (const Integer bad : {0, 4, -1}) {
    m.ExchangeColumns(bad, 1);
    m.ExchangeColumns(1, bad);
    m.ExchangeRows(bad, 1);
    m.ExchangeRows(1, bad);
  }
  EXPECT_EQ(told.take(), "");
  EXPECT_EQ(columns_of(m), before);
}

TEST(TMatrixEdits, TransposeExchangesIndicesAndTellsAlsoForASquare) {
  for (const auto& [cols, rows] : {std::pair{2, 3}, {4, 4}, {1, 1}, {70, 33}}) {
    TMatrix m, original;
    number_cells(m, cols, rows);
    original.Clone(&m);
    Listener told(m);
    EXPECT_TRUE(m.Transpose());
    EXPECT_EQ(told.take(), "CR");
    ASSERT_EQ(std::pair(m.NrOfColumns(), m.NrOfRows()), std::pair(rows, cols));
    for (Integer c = 1; c <= rows; ++c) {
      for (Integer r = 1; r <= cols; ++r) ASSERT_EQ(m.GetVal(c, r), original.GetVal(r, c));
    }
  }
}

TEST(TMatrixEdits, ColumnsStayAtEqualDistanceInMemory) {
  TMatrix m;
  number_cells(m, 5, 600);
  m.ExchangeColumns(1, 4);
  m.MirrorColumns();
  m.RemoveColumn(2);
  m.RemoveRow(300);
  m.Transpose();
  m.Resize(20, 600);
  const auto distance = m.Column(2).data() - m.Column(1).data();
  for (Integer c = 3; c <= 20; ++c) EXPECT_EQ(m.Column(c).data() - m.Column(c - 1).data(), distance);
}

}  // namespace
}  // namespace ZOR_matrix

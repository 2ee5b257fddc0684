#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "tests/matrices/matrix_util.h"
#include "zor/base/ZOR_univconst.h"

// Rows as objects: their distances, order and projections, differences and samples.

namespace ZOR_matrix {
namespace {

TEST(MatrixDistance, OfTwoRowsInAllModes) {
  TMatrix m;
  set(m, {{1, 4, 0, 0}, {2, 0, 0, 0}, {2, 6, 0, 0}});
  EXPECT_EQ(m.DistanceOfObjects(dmManhattan, 1, 2), 9.0);
  EXPECT_EQ(m.DistanceOfObjects(dmEuclidSqr, 1, 2), 29.0);
  EXPECT_EQ(m.DistanceOfObjects(dmEuclid, 2, 1), std::sqrt(29.0));
  EXPECT_EQ(m.DistanceOfObjects(dmTanimoto, 1, 2), 16.0 / (9 + 52 - 16));
  EXPECT_EQ(m.DistanceOfObjects(dmDice, 1, 2), 32.0 / 61);
  EXPECT_EQ(m.DistanceOfObjects(dmDice, 1, 1), 1.0);
  EXPECT_EQ(m.DistanceOfObjects(dmDice, 3, 4), 1.0);
  EXPECT_EQ(m.DistanceOfObjects(dmTanimoto, 3, 3), 1.0);
  EXPECT_EQ(m.DistanceOfObjects(dmManhattan, 1, 99), 5.0);
  EXPECT_EQ(m.DistanceOfObjects(dmUserDef, 1, 2), 0.0);
  m.OnCalcDistance = [&](TObject* sender, Integer a, Integer b, Double& d) {
    EXPECT_EQ(sender, &m);
    EXPECT_EQ(d, 0.0);
    d = 10 * a + b;
  };
  EXPECT_EQ(m.DistanceOfObjects(dmUserDef, 1, 2), 12.0);
}

TEST(MatrixDistance, OfAllPairsHasTheBitsOfSinglePairs) {
  TMatrix m, d;
  m.Resize(5, 300);
  m.FillRandomUniform(-1.0, 1.0);
  m.OnCalcDistance = [](TObject*, Integer a, Integer b, Double& x) { x = 1000 * a + b; };
  d.Resize(300, 300);
  Listener told(d);
  for (const TDistMode mode : {dmTanimoto, dmManhattan, dmEuclid, dmEuclidSqr, dmDice, dmUserDef}) {
    d.Fill(7.0), told.take();
    ASSERT_EQ(m.CalcDistMat(mode, &d), 0);
    for (Integer i = 1; i <= 300; ++i) {
      ASSERT_EQ(d.GetVal(i, i), 0.0);
      for (Integer j = i + 1; j <= 300; ++j) {
        ASSERT_EQ(d.GetVal(i, j), m.DistanceOfObjects(mode, i, j)) << mode << ' ' << i << ' ' << j;
        ASSERT_EQ(d.GetVal(j, i), d.GetVal(i, j));
      }
    }
  }
  EXPECT_EQ(told.take(), "");
}

TEST(MatrixDistance, ChecksTheMatrixOfDistances) {
  TMatrix m, d;
  m.Resize(2, 3);
  EXPECT_EQ(m.CalcDistMat(dmEuclid, nullptr), kNotSquare);
  d.Resize(3, 2);
  EXPECT_EQ(m.CalcDistMat(dmEuclid, &d), kNotSquare);
  d.Resize(2, 3);
  EXPECT_EQ(m.CalcDistMat(dmEuclid, &d), kOtherNumberOfRows);
  d.Resize(4, 4);
  d.Fill(5.0);
  EXPECT_EQ(m.CalcDistMat(dmEuclid, &d), kOtherNumberOfRows);
  EXPECT_EQ(d.Sum(0, 0, 0, 0), 80.0);
  set(m, {{0, 3}, {0, 4}});
  EXPECT_EQ(m.CalcDistMat(dmEuclid, &m), 0);
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{0, 5}, {5, 0}}));
}

std::vector<Double> edge(const TMatrix& m, TOrientation orientation, TEdgeOp op, std::vector<Integer> list,
                         Integer expected_code = 0) {
  TIntArray indices(list.begin(), list.end());
  TVector dest;
  EXPECT_EQ(m.EdgeVector(orientation, op, indices, &dest), expected_code);
  return {dest.begin(), dest.end()};
}

TEST(MatrixEdgeVector, FoldsRowsAndColumns) {
  using Cells = std::vector<Double>;
  constexpr Double kMost = ZOR_univconst::uc_MaxDouble;
  TMatrix m;
  set(m, {{1, 2, 3, 4}, {5, 6, 7, 0}, {3, 9, 2, 8}});
  EXPECT_EQ(edge(m, orHorizontal, eoMin, {}), (Cells{1, 2, 2, 0}));
  EXPECT_EQ(edge(m, orVertical, eoMax, {}), (Cells{4, 7, 9}));
  EXPECT_EQ(edge(m, orHorizontal, eoSum, {3, 0, 1, 1}, kBadIndex), (Cells{5, 13, 8, 16}));
  EXPECT_EQ(edge(m, orVertical, eoMean, {1, 2}), (Cells{0.75, 2.75, 3}));
  EXPECT_EQ(edge(m, orHorizontal, eoStdDev, {1, 2}), (Cells{0, 0, 0, 0}));
  EXPECT_EQ(edge(m, orHorizontal, eoStdDev, {}), (Cells{2, std::sqrt(37.0 / 3), std::sqrt(7.0), 4}));
  EXPECT_EQ(edge(m, orVertical, eoMin, {9}, kBadIndex), (Cells{kMost, kMost, kMost}));
  EXPECT_EQ(edge(m, orVertical, eoMax, {-1}, kBadIndex), (Cells{-kMost, -kMost, -kMost}));
  EXPECT_EQ(m.EdgeVector(orVertical, eoSum, TIntArray(), nullptr), kNoDestination);
  TVector dest;
  Integer told = 0;
  dest.OnChange = [&](TObject*) { ++told; };
  m.EdgeVector(orVertical, eoSum, &dest);
  EXPECT_EQ(dest.GetVal(2), 18.0);
  EXPECT_EQ(told, 1 + 3);  // the new size, then each element
}

// The sort is told in full: rows exchanged one by one.
void plain_sort_rows(TMatrix& m, Integer key, Boolean ascending, Integer lo_c, Integer lo_r, Integer hi_c,
                     Integer hi_r) {
  for (Integer gap = hi_r - lo_r, swapped = 1; gap > 1 || swapped;) {
    gap = std::max(gap * 10 / 13, 1);
    swapped = 0;
    for (Integer r = lo_r; r + gap <= hi_r; ++r) {
      const Double a = m.GetVal(key, r), b = m.GetVal(key, r + gap);
      if (!(ascending ? a > b : b > a)) continue;
      swapped = 1;
      for (Integer c = 1; c <= m.NrOfColumns(); ++c) {
        if ((c < lo_c || c > hi_c) && c != key) continue;
        const Double x = m.GetVal(c, r);
        m.SetVal(c, r, m.GetVal(c, r + gap));
        m.SetVal(c, r + gap, x);
      }
    }
  }
}

TEST(MatrixSort, MovesRowsAndColumnsWithTheirKeysWithAndWithoutHandler) {
  for (const Boolean ascending : {true, false}) {
    for (const Integer key : {1, 3}) {  // outside and inside of the window
      TMatrix expected, fast, told, turned;
      expected.Resize(4, 30);
      expected.FillRandomUniform(0.0, 8.0);
      {
        auto edit = expected.Edit();
        for (Double& x : edit.Column(key)) x = std::floor(x);  // equal keys: the order of the exchanges shows
      }
      fast.Clone(&expected), told.Clone(&expected), turned.Clone(&expected);
      plain_sort_rows(expected, key, ascending, 2, 3, 4, 28);
      fast.SortRows(key, ascending, 4, 28, 2, 3);
      EXPECT_EQ(columns_of(fast), columns_of(expected));
      Integer exchanges = 0;
      told.OnSortExchange = [&](TObject*, Byte what, Integer a, Integer b, Integer first, Integer last) {
        EXPECT_EQ(what, 2);
        EXPECT_LT(a, b);
        EXPECT_EQ(first, 2);
        EXPECT_EQ(last, 4);
        ++exchanges;
      };
      told.SortRows(key, ascending, 2, 3, 4, 28);
      EXPECT_GT(exchanges, 10);
      EXPECT_EQ(columns_of(told), columns_of(expected));
      turned.Transpose();
      TMatrix turned_told;
      turned_told.Clone(&turned);
      turned_told.OnSortExchange = [](TObject*, Byte what, Integer, Integer, Integer first, Integer last) {
        EXPECT_EQ(what, 1);
        EXPECT_EQ(first, 2);
        EXPECT_EQ(last, 4);
      };
      turned.SortCols(key, ascending, 3, 2, 28, 4);
      turned_told.SortCols(key, ascending, 3, 2, 28, 4);
      turned.Transpose(), turned_told.Transpose();
      EXPECT_EQ(columns_of(turned), columns_of(expected));
      EXPECT_EQ(columns_of(turned_told), columns_of(expected));
    }
  }
}

TEST(MatrixSort, TellsOneChangeAndSurvivesAHandlerThatResizes) {
  TMatrix m;
  number_cells(m, 2, 20);
  Listener told(m);
  m.SortRows(1, false, 0, 5, 0, 5);
  m.SortRows(3, false, 0, 0, 0, 0);
  m.SortCols(0, false, 0, 0, 0, 0);
  EXPECT_EQ(told.take(), "");
  m.SortRows(1, true, 0, 0, 0, 0);
  EXPECT_EQ(told.take(), "C");
  m.OnSortExchange = [&](TObject*, Byte, Integer, Integer, Integer, Integer) { m.Resize(2, 6); };
  m.SortRows(1, false, 0, 0, 0, 0);
  EXPECT_EQ(m.NrOfRows(), 6);
  EXPECT_TRUE(std::ranges::is_sorted(m.Column(1), std::greater()));
}

TEST(MatrixSort, TheSidesOfANaNKeyAreNotPutInOrderWithEachOther) {
  TMatrix m;
  set(m, Columns<TMatrix>{{3, std::numeric_limits<Double>::quiet_NaN(), 1}});
  m.SortRows(1, true, 0, 0, 0, 0);
  EXPECT_EQ(m.GetVal(1, 1), 3.0);
  EXPECT_EQ(m.GetVal(1, 3), 1.0);
}

TEST(MatrixDiff, ShortensColumnsAndRows) {
  TMatrix m;
  set(m, {{1, 4, 9}, {0, 0, 1}});
  Listener told(m);
  EXPECT_EQ(m.Diff(0, acrColumns), kBadOrder);
  EXPECT_EQ(m.Diff(11, acrColumns), kBadOrder);
  EXPECT_EQ(m.Diff(3, acrColumns), kTooFewCells);
  EXPECT_EQ(m.Diff(2, acrRows), kTooFewCells);
  EXPECT_EQ(told.take(), "");
  EXPECT_EQ(m.Diff(1, acrColumns), 0);
  EXPECT_EQ(told.take(), "CRCR");
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{3, 5}, {0, 1}}));
  EXPECT_EQ(m.Diff(1, acrRows), 0);
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{-3, -4}}));
  set(m, {{1}, {8}, {27}, {64}, {125}});
  EXPECT_EQ(m.Diff(3, acrRows), 0);
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{6}, {6}}));
}

TEST(MatrixResample, DrawsColumnsAndRows) {
  TMatrix source, m;
  number_cells(source, 8, 9);
  TIntArray cols, rows, none;
  SetLength(cols, 1), SetLength(rows, 1);
  EXPECT_EQ(m.ResampleExtMat(nullptr, 50, 50, false, cols, rows), kNoSourceMatrix);
  EXPECT_EQ(m.ResampleExtMat(&source, 50, 50, false, none, rows), kNoIndexArray);
  EXPECT_EQ(m.ResampleExtMat(&source, 101, 50, false, cols, rows), kBadColumnShare);
  EXPECT_EQ(m.ResampleExtMat(&source, 1, 1, false, cols, rows), kBadRowShare);
  EXPECT_EQ(m.ResampleExtMat(&source, 50, 120, false, cols, rows), kBadRowShare);
  EXPECT_EQ(m.ResampleExtMat(&source, std::nan(""), 50, false, cols, rows), kBadColumnShare);
  EXPECT_EQ(m.ResampleExtMat(&source, 50, 1e300, true, cols, rows), kBadRowShare);
  EXPECT_EQ(m.ResampleExtMat(&source, 50, 120, true, cols, rows), kBadRowShare);
  EXPECT_EQ(m.ResampleExtMat(&source, 120, 50, true, none, rows), kBadColumnShare);
  EXPECT_EQ(Length(cols), 1);

  const auto check = [&](Integer expected_cols, Integer expected_rows, Boolean distinct_rows) {
    EXPECT_EQ(m.NrOfColumns(), expected_cols);
    EXPECT_EQ(m.NrOfRows(), expected_rows);
    ASSERT_EQ(Length(cols), expected_cols);
    ASSERT_EQ(Length(rows), expected_rows);
    for (Integer i = 1; i <= expected_cols; ++i)
      for (Integer j = 1; j <= expected_rows; ++j) EXPECT_EQ(m.GetVal(i, j), 10 * cols[i - 1] + rows[j - 1]);
    const auto distinct = [](TIntArray a) {
      std::vector<Integer> sorted(a.begin(), a.end());
      std::ranges::sort(sorted);
      return std::ranges::adjacent_find(sorted) == sorted.end();
    };
    EXPECT_TRUE(distinct(cols));
    EXPECT_TRUE(!distinct_rows || distinct(rows));
  };
  EXPECT_EQ(m.ResampleExtMat(&source, 50, 33.4, false, cols, rows), 0);
  check(4, 3, true);
  EXPECT_EQ(m.ResampleExtMat(&source, 100, 100, true, cols, rows), 0);
  check(8, 9, false);
  EXPECT_TRUE(std::ranges::is_sorted(cols));
  m.Resize(8, 5);
  Listener told(m);
  EXPECT_EQ(m.ResampleExtMat(&source, 100, 100, false, cols, rows), 0);
  EXPECT_EQ(told.take(), "CR" + std::string(72, 'C') + "CR");
  check(8, 9, true);
  EXPECT_EQ(source.ResampleExtMat(&source, 25, 100, false, cols, rows), 0);
  for (Integer j = 1; j <= 9; ++j) EXPECT_EQ(source.GetVal(2, j), 10 * cols[1] + rows[j - 1]);
}

}  // namespace
}  // namespace ZOR_matrix

#include <cmath>
#include <sstream>

#include "table_util.h"
#include "tests/message_of.h"
#include "zor/base/ZOR_univconst.h"

using namespace table_test;

TEST(CellStatistics, MeanAndVarianceKnowFewAndEqualCells) {
  TDataTable table({{"x", {5, 7, 9}}});
  double mean = 0, variance = 0;
  EXPECT_EQ(table.MeanVarOfNumCells(1, 1, 1, 1, mean, variance), 1);
  EXPECT_EQ(std::pair(mean, variance), std::pair(5.0, 1.0));
  EXPECT_EQ(table.MeanVarOfNumCells(1, 1, 1, 2, mean, variance), 2);
  EXPECT_EQ(variance, 1.0);
  EXPECT_EQ(table.MeanVarOfNumCells(0, 0, 0, 0, mean, variance), 3);
  EXPECT_EQ(std::pair(mean, variance), std::pair(7.0, 4.0));
  table.SetNrOfRows(19);
  for (const double constant : {37.3, 0.1, 1e15 + 0.3}) {
    table.NumericData->Fill(constant);
    table.MeanVarOfNumCells(0, 0, 0, 0, mean, variance);
    EXPECT_EQ(std::pair(mean, variance), std::pair(constant, 0.0));
  }
  table.SetNrOfRows(0);
  EXPECT_EQ(table.MeanVarOfNumCells(0, 0, 0, 0, mean, variance), 0);
  EXPECT_EQ(std::pair(mean, variance), std::pair(0.0, 1.0));
}

// One table with columns of every scale; each state occurs.
TEST(CellStatistics, TakesTheCellsOfItsFamily) {
  TDataTable table;
  table.Resize(5, 1024);
  for (Integer c = 1; c <= 5; ++c) {
    table.SetMScaleType(c, static_cast<TMScaleType>(c - 1));
    for (Integer r = 1; r <= 1024; ++r) {
      table.SetElem(c, r, c * 10000 + r + 0.25);
      table.SetCellState(c, r, static_cast<Byte>(r));
    }
  }
  // Of the 256 states a quarter is numeric; each comes four times in each of five columns, two of them metric.
  EXPECT_EQ(table.CountValidCells(0, 0, 0, 0), 5 * 256);
  EXPECT_EQ(table.CountNumCells(0, 0, 0, 0), 2 * 256);
  EXPECT_EQ(table.CountEmptyCells(0, 0, 0, 0), 5 * 512);
  EXPECT_EQ(table.CountImputedCells(2, 1, 1, 256), 2 * 128);
  double sum = 0, squares = 0;
  for (Integer c = 4; c <= 5; ++c) {
    for (Integer r = 4; r <= 1024; r += 4) {
      if ((r & 64) == 0) continue;
      sum += table.GetElem(c, r);
      squares += table.GetElem(c, r) * table.GetElem(c, r);
    }
  }
  Integer n = 0;
  EXPECT_EQ(table.SumOfMarkedCells(0, 0, 0, 0, 65, n), sum);  // all sums are exact here
  EXPECT_EQ(n, 256);
  EXPECT_EQ(table.SumOfSquaredMarkedCells(0, 0, 0, 0, 64, n), squares);
  EXPECT_EQ(table.SumOfNumCells(2, 0, 3, 0, n), 0.0);
  EXPECT_EQ(n, 0);
  double lo = 0, hi = 0;
  EXPECT_EQ(table.MinMaxOfNumCells(1, 0, 3, 0, lo, hi), 0);
  EXPECT_EQ(std::pair(lo, hi), std::pair(ZOR_univconst::uc_MaxReal, -ZOR_univconst::uc_MaxReal));
  EXPECT_EQ(table.MinMaxOfValidCells(2, 0, 2, 0, lo, hi), 256);
  EXPECT_EQ(std::pair(lo, hi), std::pair(20004.0, 21024.0));
  EXPECT_EQ(table.MinMaxOfMarkedCells(2, 0, 2, 0, 128, lo, hi), 128);
  EXPECT_EQ(std::pair(lo, hi), std::pair(20128.25, 21020.25));
  double mean = 0, variance = 0;
  EXPECT_EQ(table.MeanVarOfMarkedCells(0, 0, 0, 0, 3, mean, variance), 0);
  TVector v;
  EXPECT_EQ(table.CopyCellsToVector(1, 0, 1, 0, 255, &v), 256);
  EXPECT_EQ(v.GetVal(1), 10004.25);
  EXPECT_EQ(table.CopyCellsToVector(1, 0, 1, 0, 64, &v), 128);
  EXPECT_EQ(table.CopyCellsToVector(1, 1, 1, 2, 255, &v), 0);
  EXPECT_EQ(v.NrOfElem(), 1);
}

TEST(CellStatistics, QuartilesAndPercentilesFollowDifferentRules) {
  TDataTable table({{"x", {3, 1, 2}}});
  double q1 = 0, q2 = 0, q3 = 0;
  Integer n = 0;
  EXPECT_TRUE(table.QuartilesOfNumCells(0, 0, 0, 0, q1, q2, q3, n));
  EXPECT_EQ((Cells{q1, q2, q3}), (Cells{1, 2, 3}));
  EXPECT_EQ(table.PercentileOfNumCells(75, 0, 0, 0, 0, n), 2.5);
  EXPECT_EQ(table.PercentileOfNumCells(200, 0, 0, 0, 0, n), 3.0);
  EXPECT_TRUE(std::isnan(table.PercentileOfNumCells(std::nan(""), 0, 0, 0, 0, n)));
  EXPECT_EQ(table.PercentileOfMarkedCells(50, 0, 0, 0, 0, 64, n), 0.0);
  table.SetNrOfRows(4);
  table.SetElem(1, 4, 4);
  table.QuartilesOfNumCells(0, 0, 0, 0, q1, q2, q3, n);
  EXPECT_EQ((Cells{q1, q2, q3}), (Cells{1.25, 2.5, 3.75}));
  table.SetAllCellStates(64);
  table.QuartilesOfMarkedCells(0, 2, 0, 2, q1, q2, q3, 64, n);
  EXPECT_EQ((Cells{q1, q2, q3}), (Cells{1, 1, 1}));
}

TEST(CellStatistics, OtherMeans) {
  TDataTable table({{"x", {2, 0, 8}}});
  table.SetName("t");
  Integer n = 0;
  EXPECT_EQ(table.GeometricMeanOfNumCells(0, 0, 0, 0, n), 0.0);
  EXPECT_EQ(n, 2);
  EXPECT_EQ(zor::test::message_of<ZOR_matrix::EZORMatrixError>([&] { table.HarmonicMeanOfNumCells(0, 0, 0, 0, n); }),
            "Component \"t\": negative or zero argument passed to HarmonicMean");
  table.SetIsEmpty(1, 2, true);
  EXPECT_DOUBLE_EQ(table.GeometricMeanOfNumCells(0, 0, 0, 0, n), 4.0);
  EXPECT_DOUBLE_EQ(table.HarmonicMeanOfNumCells(0, 0, 0, 0, n), 3.2);
  EXPECT_EQ(table.HarmonicMeanOfNumCells(1, 2, 1, 2, n), 0.0);
  table.SetElem(1, 3, -1.0);
  EXPECT_EQ(zor::test::message_of<ZOR_matrix::EZORMatrixError>([&] { table.GeometricMeanOfNumCells(0, 0, 0, 0, n); }),
            "Component \"t\": negative argument passed to GeometricMean");
}

TEST(CellCovariance, FollowsItsMode) {
  TDataTable table({{"a", {1, 2, 3, 4, 50}}, {"b", {2, 4, 6, 9, 7}}, {"c", {0.1, 0.1, 0.1, 0.1, 0.1}}});
  table.SetIsEmpty(1, 5, true);
  TMatrix m;
  m.Resize(4, 3);
  m.Fill(-1);
  EXPECT_TRUE(table.CalcCovar(&m, 1, 3, 1, 5, 0));
  EXPECT_DOUBLE_EQ(m.GetVal(1, 2), (2.0 + 8 + 18 + 36) / 3);
  EXPECT_EQ(m.GetVal(4, 1), -1.0);
  EXPECT_TRUE(table.CalcCovar(&m, 1, 3, 1, 5, 1));
  EXPECT_DOUBLE_EQ(m.GetVal(2, 1), (-1.5 * -3.6 - 0.5 * -1.6 + 0.5 * 0.4 + 1.5 * 3.4) / 3);  // mean of b: of all rows
  EXPECT_TRUE(table.CalcCovar(&m, 1, 3, 1, 5, 2));
  EXPECT_NEAR(m.GetVal(1, 2), 11.5 / std::sqrt(5.0 * 26.75), 1e-15);
  EXPECT_EQ(m.GetVal(3, 3), 1.0);
  EXPECT_EQ(m.GetVal(3, 1), 0.0);  // exactly, although 0.1 has no exact sum
  EXPECT_TRUE(table.CalcCovar(&m, 1, 2, 1, 2147483647, 4));
  EXPECT_DOUBLE_EQ(m.GetVal(2, 1), (1.0 + 4 + 9 + 25) / 3);
  EXPECT_TRUE(table.CalcCovar(&m, 1, 2, 1, 1, 0));
  EXPECT_EQ(m.GetVal(1, 1), 0.0);
  EXPECT_TRUE(table.CalcCovar(&m, 0, 0, 0, 0, 2));
  EXPECT_EQ(m.GetVal(1, 1), 1.0);
  EXPECT_FALSE(table.CalcCovar(&m, 0, 3, 1, 5, 2));
  EXPECT_FALSE(table.CalcCovar(nullptr, 1, 1, 1, 1, 2));
  ZOR_zorbase::ProcStat = 0;
  {
    TFeedbackScope stop([](double steps) {
      if (steps == 4.0) AbortMathProc = true;
    });
    EXPECT_FALSE(table.CalcCovar(&m, 1, 3, 1, 5, 1));
  }
  EXPECT_EQ(ZOR_zorbase::ProcStat, 4.0);
}

TEST(CellScaling, LeavesConstantColumnsAndRefusesCategorialRows) {
  TDataTable table({{"a", {1, 2, 3}}, {"b", {5, 5, 5}}, {"c", {"x", "y", "x"}}});
  TVector means, deviations;
  means.SetNrOfElem(3), deviations.SetNrOfElem(3);
  EXPECT_EQ(events_of(table, [&] { table.StandardizeNumCellColumns(&means, &deviations); }), "C");
  EXPECT_EQ(column(table, 1), (Cells{-1, 0, 1}));
  EXPECT_EQ(column(table, 2), (Cells{5, 5, 5}));
  EXPECT_EQ(deviations.GetVal(2), 0.0);
  EXPECT_EQ(deviations.GetVal(3), 0.0);
  EXPECT_EQ(zor::test::message_of<EZORDataTableError>([&] { table.StandardizeNumCellRows(&means, nullptr); }),
            "standardization of rows is not possible with nominal or ordinal variables");
  EXPECT_EQ(zor::test::message_of<EZORDataTableError>([&] { table.MeanCenterNumCellRows(nullptr); }),
            "mean centering of rows is not possible with nominal or ordinal variables");
  table.MeanCenterNumCellColumns(&means);
  EXPECT_EQ(column(table, 2), (Cells{0, 0, 0}));
  TDataTable rows({{"a", {1}}, {"b", {2}}, {"c", {3}}, {"u", {12}}});
  rows.SetMScaleType(4, stUnknown);
  rows.StandardizeNumCellRows(nullptr, &deviations);
  EXPECT_EQ(rows.GetElem(1, 1), -1.0);
  EXPECT_EQ(rows.GetElem(4, 1), 10.0);
  rows.MeanCenterNumCellRows(&means);
  EXPECT_EQ(means.GetVal(1), 0.0);
}

TEST(Contingency, CountsClassesFromOneOrFromTheirFirstIdentifier) {
  TDataTable table({{"a", {1, 2, 1, 0, 2}}, {"b", {"x", "y", "y", "x", "y"}}});
  TInt2DArray counts;
  EXPECT_EQ(table.CreateContingencyTable(1, 3, 0, 0, counts), kNoSuchColumn);
  EXPECT_EQ(table.CreateContingencyTable(1, 2, 0, 0, counts), kNotCategorial);
  table.SetMScaleType(1, stOrdinal);
  EXPECT_EQ(table.CreateContingencyTable(1, 2, 0, 0, counts), kClassesMissed);  // the 0 in row 4
  EXPECT_EQ(counts, (TInt2DArray{{1, 1, 2}, {0, 2, 2}, {1, 3, 4}}));
  table.SetIsEmpty(1, 4, true);
  EXPECT_EQ(table.CreateContingencyTable(1, 1, 0, 0, counts), 0);
  EXPECT_EQ(counts, (TInt2DArray{{2, 0, 2}, {0, 2, 2}, {2, 2, 4}}));
  table.SetElem(1, 4, 151);
  EXPECT_EQ(table.CreateContingencyTable(1, 1, 4, 4, counts), kClassesMissed);
  EXPECT_EQ(counts, (TInt2DArray{{0}}));
  TIntArray classes;
  EXPECT_EQ(table.ScanForCatValues(1, 0, 0, classes), 1);
  EXPECT_EQ(classes[1], 2);
  EXPECT_EQ(Length(classes), 151);
  EXPECT_EQ(table.ListOfCategorialVars(), (TIntArray{1, 2}));
  EXPECT_EQ(table.FindHighestMLevel(0, 0), stOrdinal);
  EXPECT_EQ(table.FindLowestMLevel(2, 1), stNominal);
}

TEST(TableShape, DescribesColumnsAndAttributes) {
  struct Case {
    std::initializer_list<double> cells;
    bool constant, dichotomous;
    double v1, v2;
  };
  for (const Case& k : {Case{{3, 1, 3, 1}, false, true, 1, 3},
                        {{1, 2, 3}, false, false, 1, 2},
                        {{5, 5}, true, false, 5, 5},
                        {{5}, true, false, 0, 0}}) {
    TDataTable table({{"x", k.cells}});
    double v1 = -1, v2 = -1, constant = 0;
    EXPECT_EQ(table.IsConstantColumn(1, constant), k.constant);
    EXPECT_EQ(constant, *k.cells.begin());
    EXPECT_EQ(table.CheckDichotomousColumn(1, v1, v2), k.dichotomous);
    EXPECT_EQ(std::pair(v1, v2), std::pair(k.v1, k.v2));
    EXPECT_TRUE(table.IsConstantRow(1));
    EXPECT_FALSE(table.IsConstantRow(9));
  }
  TDataTable table;
  table.SetNrOfRows(4);
  for (const auto& [row, attribute] : {std::pair{1, 7}, {2, -9}, {3, 1000}, {4, 1000}}) {
    table.SetRowAttrib(row, attribute);
  }
  Integer place = 0;
  EXPECT_EQ(table.RowAttribLevels(), 3);
  EXPECT_EQ(table.MaxRowAttrib(0, 0, place), 1000);
  EXPECT_EQ(place, 3);
  EXPECT_EQ(table.MinRowAttrib(1, 4, place), -9);
  EXPECT_EQ(place, 2);
  table.SetNrOfColumns(0);
  EXPECT_EQ(table.MinColAttrib(0, 0, place), 0);
  EXPECT_EQ(place, 0);
}

TEST(TablePrint, ShowsIdentifiersAndGaps) {
  TDataTable table({{"length", {39.5, 46.5, 49.5}}, {"species", {"Adelie", "", "Adelie"}}});
  std::ostringstream shown, summary;
  shown << table;
  EXPECT_EQ(shown.str(),
            "     length  species\n"
            "R-1    39.5   Adelie\n"
            "R-2    46.5        -\n"
            "R-3    49.5   Adelie\n");
  summary << Summary(table);
  EXPECT_EQ(summary.str(),
            "length   Interval  3 of 3  mean 45.1667  sd 5.1316  range 39.5 to 49.5  quartiles 39.5, 46.5, 49.5\n"
            "species  Nominal   2 of 3  Adelie 2\n");
  double sum = 0;
  for (const TTableRow row : Rows(table)) sum += row[1];
  EXPECT_EQ(sum, 135.5);
}

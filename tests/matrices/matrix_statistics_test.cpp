#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "tests/matrices/matrix_util.h"
#include "zor/base/ZOR_univconst.h"

namespace ZOR_matrix {
namespace {

constexpr Double kNan = std::numeric_limits<Double>::quiet_NaN();

// Cells of all sizes in m; a window of it, columns 2 to 5 and rows 3 to 40, as one run in `cells`.
struct Window {
  TMatrix m;
  std::vector<long double> cells;
  Window() {
    m.Resize(6, 41);
    std::mt19937_64 bits(5);
    std::normal_distribution<Double> normal(3.0, 2.0);
    auto edit = m.Edit();
    for (Integer c = 1; c <= 6; ++c)
      for (Double& x : edit.Column(c)) x = normal(bits);
    for (Integer c = 2; c <= 5; ++c)
      for (Integer r = 3; r <= 40; ++r) cells.push_back(m.GetVal(c, r));
  }
};

TEST(MatrixStatistics, OfAWindowAgreeWithTheirDefinitions) {
  const Window w;
  const long double n = static_cast<long double>(w.cells.size());
  long double sum = 0, squares = 0, cubes = 0, fourths = 0;
  for (const auto x : w.cells) sum += x;
  const long double mean = sum / n;
  for (const auto x : w.cells) {
    const long double d = x - mean;
    squares += d * d, cubes += d * d * d, fourths += d * d * d * d;
  }
  const long double variance = squares / (n - 1), s = std::sqrt(variance);
  EXPECT_NEAR(w.m.Sum(2, 3, 5, 40), static_cast<Double>(sum), 1e-11);
  Double a = 0, b = 0;
  w.m.MeanVar(5, 40, 2, 3, a, b);
  EXPECT_DOUBLE_EQ(a, static_cast<Double>(mean));
  EXPECT_DOUBLE_EQ(b, static_cast<Double>(variance));
  w.m.SkewKurt(2, 3, 5, 40, a, b);
  const Double skewness = static_cast<Double>(cubes / n / s / s / s),
               kurtosis = static_cast<Double>(fourths / n / (s * s * s * s)) - 3;
  EXPECT_NEAR(a, skewness, 1e-13);
  EXPECT_NEAR(b, kurtosis, 1e-13);
  w.m.SkewKurtSample(2, 3, 5, 40, a, b);
  const Double k = static_cast<Double>(n);
  EXPECT_NEAR(a, skewness * k * k / (k - 1) / (k - 2), 1e-13);
  EXPECT_NEAR(b, ((kurtosis + 3) * k * k * (k + 1) / (k - 1) - 3 * (k - 1) * (k - 1)) / ((k - 2) * (k - 3)), 1e-12);
  w.m.MinMax(2, 3, 5, 40, a, b);
  EXPECT_EQ(a, *std::min_element(w.cells.begin(), w.cells.end()));
  EXPECT_EQ(b, *std::max_element(w.cells.begin(), w.cells.end()));
  EXPECT_EQ(w.m.CountValues(2, 5, 3, 40, a, b), static_cast<Integer>(n));
}

TEST(MatrixStatistics, HaveTheFloorsOfFewCells) {
  TMatrix m;
  set(m, {{1.0, 4.0}, {7.0, 2.0}});
  Double a = 9, b = 9;
  m.MeanVar(1, 1, 1, 2, a, b);
  EXPECT_EQ(a, 2.5);
  EXPECT_EQ(b, 1.0);
  m.SkewKurt(1, 1, 1, 1, a, b);
  EXPECT_EQ(a, 0.0);
  EXPECT_EQ(b, 0.0);
  m.SkewKurt(1, 1, 1, 2, a, b);
  EXPECT_EQ(a, 0.0);
  EXPECT_EQ(b, -2.75);
  m.SkewKurtSample(1, 1, 1, 2, a, b);
  EXPECT_EQ(b, 0.0);
  m.Fill(0.1);
  m.MeanVar(0, 0, 0, 0, a, b);
  EXPECT_EQ(a, 0.1);
  EXPECT_EQ(b, 0.0);
  m.Fill(kNan);
  m.MinMax(0, 0, 0, 0, a, b);
  EXPECT_EQ(a, ZOR_univconst::uc_MaxReal);
  EXPECT_EQ(b, -ZOR_univconst::uc_MaxReal);
}

TEST(MatrixMeans, OfProductsAndReciprocals) {
  TMatrix m;
  m.SetName("m");
  set(m, {{1.0, 4.0}, {2.0, 8.0}});
  EXPECT_DOUBLE_EQ(m.GeometricMean(0, 0, 0, 0), std::pow(64.0, 0.25));
  EXPECT_DOUBLE_EQ(m.HarmonicMean(0, 0, 0, 0), 4.0 / (1.0 + 0.25 + 0.5 + 0.125));
  m.SetVal(1, 1, 0.0);
  EXPECT_EQ(m.GeometricMean(0, 0, 0, 0), 0.0);
  EXPECT_EQ(message_of<EZORMatrixError>([&] { m.HarmonicMean(0, 0, 0, 0); }),
            "Component \"m\": negative or zero argument passed to HarmonicMean");
  m.SetVal(2, 2, -1.0);
  EXPECT_EQ(message_of<EZORMatrixError>([&] { m.GeometricMean(0, 0, 0, 0); }),
            "Component \"m\": negative argument passed to GeometricMean");
}

TEST(MatrixPercentile, IsACellAndItsRankRoundsToEven) {
  TMatrix m;
  set(m, {{4.0, 1.0}, {3.0, 2.0}});
  EXPECT_EQ(m.Percentile(50.0, 0, 0, 0, 0), 3.0);
  EXPECT_EQ(m.Percentile(-5.0, 0, 0, 0, 0), 1.0);
  EXPECT_EQ(m.Percentile(250.0, 0, 0, 0, 0), 4.0);
  EXPECT_TRUE(std::isnan(m.Percentile(kNan, 0, 0, 0, 0)));
  EXPECT_EQ(m.Percentile(50.0, 0, 0, 0, 0, 0), 3.0);
  EXPECT_EQ(m.Percentile(50.0, 0, 0, 0, 0, 4), 3.0);
  Double q1 = 0, q2 = 0, q3 = 0;
  EXPECT_TRUE(m.Quartiles(0, 0, 0, 0, q1, q2, q3));
  EXPECT_EQ(q1, 1.25);
  EXPECT_EQ(q2, 2.5);
  EXPECT_EQ(q3, 3.75);
  set(m, {{1, 2, 3, 4, 5, 6, 7}});
  EXPECT_EQ(m.Percentile(50.0, 0, 0, 0, 0), 5.0);
  EXPECT_EQ(m.Percentile(50.0, 1, 1, 1, 3), 3.0);
}

TEST(MatrixPercentile, OfASampleIsNearTheExactOne) {
  TMatrix m;
  m.Resize(100, 100);
  m.FillSerial(-2000.0, 1.0);
  const Double estimate = m.Percentile(70.0, 0, 0, 0, 0, 2500);
  EXPECT_NEAR(estimate, m.Percentile(70.0, 0, 0, 0, 0), 500.0);  // ten standard errors
  // Nine tenths zeros: the median falls among them without being selected.
  m.Fill(0.0);
  m.Fill(1, 10, 0, 0, 5.0);
  EXPECT_EQ(m.Percentile(50.0, 0, 0, 0, 0, 100), 0.0);
}

TEST(MatrixHistogram, TestsTheBinsFirstAndRepairsTheRange) {
  TMatrix m;
  set(m, {{0.5, 1.5, 9.0}, {1.7, -3.0, kNan}});
  TIntArray counts;
  SetLength(counts, 1);
  Integer under = 7, over = 7, most = 7;
  EXPECT_FALSE(m.Histogram(0, 0, 0, 0, 0.0, 1000.0, 1.0, counts, under, over, most));
  EXPECT_FALSE(m.Histogram(0, 0, 0, 0, 0.0, 2.0, 0.0, counts, under, over, most));
  EXPECT_EQ(under, 7);
  EXPECT_TRUE(m.Histogram(9, 9, 0, 0, 0.0, 2.0, 1.0, counts, under, over, most));
  EXPECT_EQ(std::vector<Integer>(counts.begin(), counts.end()), (std::vector<Integer>{1, 2, 0}));
  EXPECT_EQ(under, 1);
  EXPECT_EQ(over, 2);
  EXPECT_EQ(most, 2);
  TIntVector vec;
  EXPECT_TRUE(m.Histogram(1, 1, 1, 3, 0.0, 1.0, 1.0, &vec, under, over, most));
  EXPECT_EQ(vec.NrOfElem(), 2);
  EXPECT_EQ(over, 1);
  EXPECT_FALSE(m.Histogram(1, 1, 1, 3, 0.0, 1.0, 1.0, static_cast<TIntVector*>(nullptr), under, over, most));
}

TEST(MatrixStatistics, OfTheWholeMatrix) {
  TMatrix m;
  set(m, {{1.0, 4.0, 1.0}, {7.0, 2.0, 3.0}});
  TBool2DArray above;
  EXPECT_EQ(m.Dichotomize(2.0, above), 3);
  EXPECT_TRUE(above[0][1] && above[1][0] && above[1][2]);
  TVector means;
  m.MeanVec(dimCols, &means);
  EXPECT_EQ((std::vector<Double>(means.begin(), means.end())), (std::vector<Double>{2.0, 4.0}));
  m.MeanVec(dimRows, &means);
  EXPECT_EQ((std::vector<Double>(means.begin(), means.end())), (std::vector<Double>{4.0, 3.0, 2.0}));
  m.MeanVec(dimRows, nullptr);
  TMatrix wide;
  wide.Resize(19, 50);
  wide.FillRandomUniform(-1.0, 1.0);
  wide.MeanVec(dimCols, &means);
  for (Integer c = 1; c <= 19; ++c) EXPECT_EQ(means.GetVal(c), wide.Sum(c, 1, c, 50) / 50.0);
}

TEST(MatrixCorrelate, TakesAllCellsAsOneSample) {
  TMatrix a, b;
  set(a, {{1, 2}, {3, 4}, {5, 6}});
  set(b, {{-2, -4}, {-6, -8}, {-10, -12}});
  EXPECT_DOUBLE_EQ(a.Correlate(&b), -1.0);
  set(b, {{2, 1}, {4, 3}, {6, 5}});
  EXPECT_DOUBLE_EQ(a.Correlate(&b), 14.5 / 17.5);
  b.Fill(0.1);
  EXPECT_EQ(a.Correlate(&b), 0.0);
  b.Resize(2, 3);
  a.SetName("a");
  EXPECT_EQ(message_of<EZORMatrixError>([&] { a.Correlate(&b); }), "Component \"a\": matrices do not match");
  EXPECT_THROW(a.Correlate(nullptr), EZORMatrixError);
}

TEST(MatrixScaling, CentersStandardizesAndNormalizesColumnsAndRowsAlike) {
  const Columns<TMatrix> cells{{1, 2, 6}, {4, 4, 4}, {-1, 0, 10}, {0.5, 2, 3}};
  Columns<TMatrix> turned(3, std::vector<Double>(4));
  for (std::size_t c = 0; c < 4; ++c)
    for (std::size_t r = 0; r < 3; ++r) turned[r][c] = cells[c][r];
  const auto check = [&](auto scale_columns, auto scale_rows) {
    TMatrix by_columns, by_rows;
    set(by_columns, cells), set(by_rows, turned);
    TVector center, scale, row_center, row_scale;
    Listener of_columns(by_columns), of_rows(by_rows);
    scale_columns(by_columns, &center, &scale);
    scale_rows(by_rows, &row_center, &row_scale);
    EXPECT_EQ(of_columns.take(), "C");
    EXPECT_EQ(of_rows.take(), "C");
    by_rows.Transpose();
    EXPECT_EQ(columns_of(by_columns), columns_of(by_rows));
    EXPECT_TRUE(std::ranges::equal(center, row_center));
    EXPECT_TRUE(std::ranges::equal(scale, row_scale));
    TMatrix alone;
    set(alone, cells);
    scale_columns(alone, nullptr, nullptr);
    EXPECT_EQ(columns_of(alone), columns_of(by_columns));
    return std::pair{columns_of(by_columns), std::vector<Double>(scale.begin(), scale.end())};
  };
  const auto [centered, unused] = check([](TMatrix& m, TVector* c, TVector*) { m.MeanCenterColumns(c); },
                                        [](TMatrix& m, TVector* c, TVector*) { m.MeanCenterRows(c); });
  EXPECT_EQ(centered[0], (std::vector<Double>{-2, -1, 3}));
  EXPECT_EQ(centered[1], (std::vector<Double>{0, 0, 0}));
  const auto [standard, deviations] = check([](TMatrix& m, TVector* c, TVector* s) { m.StandardizeColumns(c, s); },
                                            [](TMatrix& m, TVector* c, TVector* s) { m.StandardizeRows(c, s); });
  EXPECT_EQ(deviations[0], std::sqrt(7.0));
  EXPECT_EQ(standard[0], (std::vector<Double>{-2 / std::sqrt(7.0), -1 / std::sqrt(7.0), 3 / std::sqrt(7.0)}));
  EXPECT_EQ(deviations[1], 0.0);
  EXPECT_EQ(standard[1], (std::vector<Double>{4, 4, 4}));
  const auto [normal, differences] = check([](TMatrix& m, TVector* c, TVector* s) { m.QNormalizeColumns(25.0, c, s); },
                                           [](TMatrix& m, TVector* c, TVector* s) { m.QNormalizeRows(25.0, c, s); });
  EXPECT_EQ(differences, (std::vector<Double>{4, 0, 10, 1}));  // of three cells the median is the largest
  EXPECT_EQ(normal[0], (std::vector<Double>{-1.25, -1, 0}));
}

TEST(MatrixScaling, OfTwoRowsCentersOnlyAndOneVectorMayTakeBothValues) {
  TMatrix m;
  set(m, {{1.0, 4.0}});
  TVector both;
  m.StandardizeColumns(&both, &both);
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{-1.5, 1.5}}));
  EXPECT_EQ(both.GetVal(1), 1.0);
  m.QNormalizeColumns(kNan, nullptr, &both);
  EXPECT_TRUE(std::isnan(both.GetVal(1)));
  EXPECT_EQ(m.GetVal(1, 1), -1.5);
}

}  // namespace
}  // namespace ZOR_matrix

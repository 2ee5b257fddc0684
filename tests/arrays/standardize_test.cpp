#include <cmath>

#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

using testing::ElementsAre;

TEST(Normalizing, GivesLengthOneAndPassesOverZeros) {
  TDouble2DArray a = {{3, 4}, {0, 0}, {0, -2}};
  EXPECT_EQ(NormalizeColumns(a), kZeroSeries);
  EXPECT_EQ(a, (TDouble2DArray{{3.0 / 5, 4.0 / 5}, {0, 0}, {0, -1}}));
  a = {{3, 0}, {4, -2}};
  const TDouble2DArray same = a;
  EXPECT_EQ(NormalizeRows(a), 0);
  EXPECT_EQ(same, (TDouble2DArray{{3.0 / 5, 0}, {4.0 / 5, -1}})) << "other handles see it";
  a = {{1e-200, 1e-200}};
  EXPECT_EQ(NormalizeColumns(a), kZeroSeries) << "the squares underflow";
  EXPECT_EQ(a[0][0], 1e-200);
  a = {{1, 2}, {3}};
  EXPECT_EQ(NormalizeRows(a), kEmptyArray);
  EXPECT_EQ(a[1][0], 3.0);
}

TEST(Normalizing, RowsOfAnyNumberAreTransposedColumns) {
  for (const int rows : {1, 7, 8, 9, 30}) {
    TDouble2DArray a, turned;
    SetLength(a, 5, rows);
    FillArraySerial(a, 0.7, 0.3);
    CloneArray(a, turned);
    TransposeArray(turned);
    EXPECT_EQ(NormalizeRows(a), 0);
    EXPECT_EQ(NormalizeColumns(turned), 0);
    TransposeArray(turned);
    EXPECT_EQ(a, turned) << rows;
  }
}

TEST(MeanCentering, ChangesTheCallersCellsAndReturnsMeansIfAsked) {
  TDouble2DArray a = {{1, 3}, {10, 20}, {1e17, 1e17}};
  TDoubleArray means = {0};
  MeanCenterColumnsOfArray(a, means);
  EXPECT_EQ(a, (TDouble2DArray{{-1, 1}, {-5, 5}, {0, 0}}));
  EXPECT_THAT(cells(means), ElementsAre(2, 15, 1e17));
  a = {{1, 3}, {3, -3}};
  MeanCenterRowsOfArray(a, means);
  EXPECT_EQ(a, (TDouble2DArray{{-1, 3}, {1, -3}}));
  EXPECT_THAT(cells(means), ElementsAre(2, 0));
  TDoubleArray none;
  MeanCenterColumnsOfArray(a, none);
  EXPECT_TRUE(none.empty());
  EXPECT_EQ(a, (TDouble2DArray{{-2, 2}, {2, -2}}));
  MeanCenterRowsOfArray(nullptr, means);
  EXPECT_THAT(cells(means), ElementsAre(2, 0));
  MeanCenterColumnsOfArray(a, a[0]);
  EXPECT_EQ(a, (TDouble2DArray{{0, 0}, {2, -2}})) << "the means take the place of a column";
}

TEST(CorrelationOfColumns, OfLinesAndOfConstants) {
  const TDouble2DArray a = {{1, 2, 3, 5}, {-2, -4, -6, -10}, {0.1, 0.1, 0.1, 0.1}, {1, 0, 0, 1}, {0, 0, 0, kNaN}};
  EXPECT_DOUBLE_EQ(PearsonCorrCoeffColsOfArray(a, 0, 0), 1.0);
  EXPECT_DOUBLE_EQ(PearsonCorrCoeffColsOfArray(a, 0, 1), -1.0);
  EXPECT_EQ(PearsonCorrCoeffColsOfArray(a, 0, 2), 0.0);
  // x: deviations -1.75, -0.75, 0.25, 2.25, squares 8.75; y: +-0.5, squares 1; products 0.5.
  EXPECT_DOUBLE_EQ(PearsonCorrCoeffColsOfArray(a, 3, 0), 0.5 / std::sqrt(8.75));
  EXPECT_EQ(PearsonCorrCoeffColsOfArray(a, 4, 0), 0.0) << "NaN";
  EXPECT_EQ(PearsonCorrCoeffColsOfArray(a, 0, 5), 0.0);
  EXPECT_EQ(PearsonCorrCoeffColsOfArray(a, -1, 0), 0.0);
  EXPECT_EQ(PearsonCorrCoeffColsOfArray(TDouble2DArray{{1, 2}, {3, 4}}, 0, 1), 0.0) << "two rows";
  EXPECT_EQ(PearsonCorrCoeffColsOfArray(nullptr, 0, 0), 0.0);
  const TDouble2DArray far = {{1e8 + 1, 1e8 + 2, 1e8 + 3}};
  EXPECT_DOUBLE_EQ(PearsonCorrCoeffColsOfArray(far, 0, 0), 1.0) << "no digits are lost to large means";
}

}  // namespace
}  // namespace ZOR_openarrays

#include <algorithm>
#include <cmath>
#include <functional>

#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

using testing::ElementsAre;

void expect_solved(const TDouble2DArray& a, const TDouble2DArray& vectors, const TDoubleArray& values, Double error) {
  const std::size_t n = a.size();
  ASSERT_EQ(vectors.size(), n);
  ASSERT_EQ(values.size(), n);
  EXPECT_TRUE(std::is_sorted(values.begin(), values.end(), std::greater<>()));
  for (std::size_t i = 0; i < n; ++i) {
    Double length = 0;
    for (std::size_t r = 0; r < n; ++r) {
      Double sum = 0;
      for (std::size_t c = 0; c < n; ++c) sum += a[c][r] * vectors[i][c];
      EXPECT_NEAR(sum, values[i] * vectors[i][r], error);
      length += vectors[i][r] * vectors[i][r];
    }
    EXPECT_NEAR(length, 1.0, 1e-14);
  }
}

TEST(EigenDecomposition, OfTwoByTwoHasFallingValuesAndSettledSigns) {
  TDouble2DArray vectors;
  TDoubleArray values;
  for (const bool flag : {true, false}) {
    EXPECT_EQ(EigenDecomposition({{2, 1}, {1, 2}}, flag, vectors, values), 0);
    EXPECT_NEAR(values[0], 3, 1e-15);
    EXPECT_NEAR(values[1], 1, 1e-15);
    const Double half = std::sqrt(0.5);
    EXPECT_NEAR(vectors[0][0], half, 1e-15);
    EXPECT_NEAR(vectors[0][1], half, 1e-15);
    EXPECT_NEAR(vectors[1][0], half, 1e-15) << "of equal magnitudes the first is positive";
    EXPECT_NEAR(vectors[1][1], -half, 1e-15);
  }
  EXPECT_EQ(EigenDecomposition({{-7}}, true, vectors, values), 0);
  EXPECT_THAT(cells(values), ElementsAre(-7));
  EXPECT_THAT(cells(vectors), ElementsAre(1));
}

TEST(EigenDecomposition, SolvesTheEquationOnBothWays) {
  const auto symmetric = square(17, [](Integer c, Integer r) { return 1.0 / (1.0 + c + r) + (c == r ? c : 0); });
  const auto general = square(17, [&](Integer c, Integer r) { return symmetric[c][r] * (r + 1.0); });
  TDouble2DArray vectors;
  TDoubleArray values;
  EXPECT_EQ(EigenDecomposition(symmetric, true, vectors, values), 0);
  expect_solved(symmetric, vectors, values, 1e-13);
  EXPECT_EQ(EigenDecomposition(general, false, vectors, values), 0);
  expect_solved(general, vectors, values, 1e-11);
}

TEST(EigenDecomposition, OfAColumnIndexedMatrixReadsRowsAcross) {
  // The rows (1 2; 0 3): vectors (1, 0) for 1 and (1, 1) / sqrt 2 for 3.
  TDouble2DArray vectors;
  TDoubleArray values;
  EXPECT_EQ(EigenDecomposition({{1, 0}, {2, 3}}, false, vectors, values), 0);
  EXPECT_THAT(cells(values), ElementsAre(3, 1));
  EXPECT_NEAR(vectors[0][0], std::sqrt(0.5), 1e-15);
  EXPECT_NEAR(vectors[0][1], std::sqrt(0.5), 1e-15);
  EXPECT_THAT(cells(vectors[1]), ElementsAre(1, 0));
}

TEST(EigenDecomposition, TakesTheMeanOfOppositeCellsWithinRounding) {
  TDouble2DArray vectors;
  TDoubleArray values;
  EXPECT_EQ(EigenDecomposition({{1, 2}, {2 + 1e-12, 1}}, true, vectors, values), 0);
  EXPECT_NEAR(values[0], 3 + 5e-13, 2e-15);
  EXPECT_EQ(EigenDecomposition({{1, 2}, {2 + 3e-12, 1}}, true, vectors, values), kNotSymmetric);
  EXPECT_EQ(EigenDecomposition({{1, 2}, {2 + 3e-12, 1}}, false, vectors, values), 0);
  EXPECT_EQ(EigenDecomposition({{1, -1.7e308}, {1.7e308, 1}}, true, vectors, values), kNotSymmetric);
}

TEST(EigenDecomposition, TouchesNothingOnACode) {
  TDouble2DArray vectors = {{9}};
  TDoubleArray values = {8};
  const auto code = [&](const TDouble2DArray& a, bool flag) { return EigenDecomposition(a, flag, vectors, values); };
  for (const bool flag : {true, false}) {
    EXPECT_EQ(code(nullptr, flag), kEmptyArray);
    EXPECT_EQ(code({{1, 2}}, flag), kEmptyArray) << "not square";
    EXPECT_EQ(code({{1, 2}, {3}}, flag), kEmptyArray) << "ragged";
    EXPECT_EQ(code({{1, kNaN}, {kNaN, 1}}, flag), kNotSymmetric);
    EXPECT_EQ(code({{kInf, 0}, {0, 1}}, flag), kNotSymmetric);
    EXPECT_EQ(code({{1, 2}, {2, -kInf}}, flag), kNotSymmetric);
  }
  EXPECT_EQ(code({{0, 1}, {-1, 0}}, true), kNotSymmetric);
  EXPECT_EQ(code({{0, 1}, {-1, 0}}, false), kComplexValues);
  EXPECT_EQ(vectors, (TDouble2DArray{{9}}));
  EXPECT_EQ(values, (TDoubleArray{8}));
}

TEST(EigenDecomposition, MayWriteIntoItsInput) {
  TDouble2DArray a = {{2, 1}, {1, 2}};
  const auto other = a;
  TDouble2DArray vectors;
  TDoubleArray values;
  EigenDecomposition(a, true, vectors, values);
  EXPECT_EQ(EigenDecomposition(a, true, a, values), 0);
  EXPECT_EQ(a, vectors);
  EXPECT_EQ(other, (TDouble2DArray{{2, 1}, {1, 2}}));
}

}  // namespace
}  // namespace ZOR_openarrays

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>

#include "tests/arrays/array_util.h"
#include "zor/portable_kernels.h"

namespace ZOR_openarrays {
namespace {

using testing::ElementsAre;

constexpr Double kInf = std::numeric_limits<Double>::infinity();
const Double kNaN = std::numeric_limits<Double>::quiet_NaN();

Double noise(Integer, Integer) {
  static std::mt19937_64 random(11);
  return std::uniform_real_distribution<Double>(-1.0, 1.0)(random);
}

Double largest_row_sum(const TDouble2DArray& a) {
  Double largest = 0.0;
  for (std::size_t r = 0; r < a[0].size(); ++r) {
    Double sum = 0.0;
    for (std::size_t c = 0; c < a.size(); ++c) sum += std::fabs(a[c][r]);
    largest = std::max(largest, sum);
  }
  return largest;
}

TEST(MultiplyArrays, TakesColumnsTimesRows) {
  TDouble2DArray c;
  // (1 2 3; 4 5 6) times (1 0; 0 1; 1 1)
  const TDouble2DArray a = {{1, 4}, {2, 5}, {3, 6}}, b = {{1, 0, 1}, {0, 1, 1}};
  EXPECT_EQ(MultiplyArrays(a, b, c), 0);
  EXPECT_THAT(cells(c), ElementsAre(4, 10, 5, 11));
  const TInt2DArray ints = {{1, 0, 1}, {0, 1, 1}}, large = {{65536, 3}, {1, 2}};
  EXPECT_EQ(MultiplyArrays(a, ints, c), 0);
  EXPECT_THAT(cells(c), ElementsAre(4, 10, 5, 11));
  EXPECT_EQ(MultiplyArrays(TInt2DArray{{1, 4}, {2, 5}, {3, 6}}, b, c), 0);
  EXPECT_THAT(cells(c), ElementsAre(4, 10, 5, 11));
  TInt2DArray i;
  EXPECT_EQ(MultiplyArrays(large, large, i), 0);
  EXPECT_THAT(cells(i), ElementsAre(3, 65536 * 3 + 6, 65536 + 2, 7)) << "65536 squared wraps around to 0";

  EXPECT_EQ(MultiplyArrays(a, a, c), kSizeMismatch);
  EXPECT_EQ(MultiplyArrays(a, TDouble2DArray(), c), kEmptyArray);
  EXPECT_EQ(MultiplyArrays(TDouble2DArray{{1, 2}, {3}}, b, c), kEmptyArray);
  EXPECT_THAT(cells(c), ElementsAre(4, 10, 5, 11));
}

TEST(MultiplyArrays, WritesIntoAFactorAndLeavesOtherHandlesAlone) {
  TDouble2DArray a = {{1, 3}, {2, 4}};
  const TDouble2DArray other = a;
  EXPECT_EQ(MultiplyArrays(a, a, a), 0);
  EXPECT_THAT(cells(a), ElementsAre(7, 15, 10, 22));
  EXPECT_THAT(cells(other), ElementsAre(1, 3, 2, 4));
}

TEST(MultiplyArrays, OfVectorsIsTheOuterProduct) {
  TDouble2DArray c;
  EXPECT_EQ(MultiplyArrays(TDoubleArray{1, 2, 3}, TDoubleArray{10, 20}, c), 0);
  EXPECT_EQ(c.size(), 2u);
  EXPECT_THAT(cells(c), ElementsAre(10, 20, 30, 20, 40, 60));
  TInt2DArray i;
  EXPECT_EQ(MultiplyArrays(TIntArray{65536, 1}, TIntArray{65537}, i), 0);
  EXPECT_THAT(cells(i), ElementsAre(65536, 65537));
  EXPECT_EQ(MultiplyArrays(TIntArray(), TIntArray{1}, i), kEmptyArray);
}

TEST(InvertArray, RefusesWhatIsNoSquare) {
  TDouble2DArray a = {{1, 2, 3}, {4, 5, 6}}, none;
  EXPECT_EQ(InvertArray(a), kNotInvertible);
  EXPECT_THAT(cells(a), ElementsAre(1, 2, 3, 4, 5, 6));
  EXPECT_EQ(InvertArray(none), kNotInvertible);
}

TEST(InvertArray, OfSmallMatricesIsExact) {
  TDouble2DArray one = {{4}}, two = {{0, 2}, {4, 0}};
  EXPECT_EQ(InvertArray(one), 0);
  EXPECT_THAT(cells(one), ElementsAre(0.25));
  EXPECT_EQ(InvertArray(two), 0);
  EXPECT_THAT(cells(two), ElementsAre(0, 0.25, 0.5, 0));
}

TEST(InvertArray, TellsSingularMatrices) {
  TDouble2DArray zero_row = {{1, 0}, {2, 0}};
  EXPECT_EQ(InvertArray(zero_row), kSingular);
  EXPECT_THAT(cells(zero_row), ElementsAre(1, 0, 2, 0)) << "nothing was begun";
  TDouble2DArray least = {{1e-100}}, less = {{0.99e-100}}, nan = {{kNaN, kNaN}, {1, 2}};
  EXPECT_EQ(InvertArray(least), 0);
  EXPECT_EQ(InvertArray(less), kSingular);
  EXPECT_EQ(InvertArray(nan), kSingular);
  // With running differences two equal rows always leave an exact 0, also across the blocks of the method.
  for (const Integer n : {33, 70, 150}) {
    TDouble2DArray a = square(n, noise);
    for (TDoubleArray& column : a) column[n - 2] = column[n / 3];
    EXPECT_EQ(InvertArray(a), kSingular) << n;
  }
  for (Integer n = 2; n < 12; ++n) {
    for (int round = 0; round < 100; ++round) {
      TDouble2DArray a = square(n, noise);
      const Integer first = round % n, second = (round + 1 + round / n % (n - 1)) % n;
      for (TDoubleArray& column : a) column[second] = column[first];
      ASSERT_EQ(InvertArray(a), kSingular) << n << ": rows " << first << " and " << second;
    }
  }
}

TEST(InvertArray, WritesTheCellsThatOtherHandlesSee) {
  TDouble2DArray a = {{2, 0}, {0, 4}};
  const TDouble2DArray other = a;
  const TDoubleArray column = a[1];
  EXPECT_EQ(InvertArray(a), 0);
  EXPECT_THAT(cells(other), ElementsAre(0.5, 0, 0, 0.25));
  EXPECT_THAT(column, ElementsAre(0, 0.25));
}

TEST(InvertArray, LeavesAResidualOfRoundingSize) {
  const auto graded = [](Integer c, Integer r) { return noise(c, r) * std::pow(10.0, (c - r) / 4.0); };
  const auto hilbert = [](Integer c, Integer r) { return 1.0 / (c + r + 1); };
  const auto tiny = [](Integer c, Integer r) { return 1e-90 * noise(c, r); };
  const auto huge = [](Integer c, Integer r) { return 1e150 * noise(c, r); };
  const auto lower = [](Integer c, Integer r) { return c > r ? 0.0 : c == r ? 2.0 : noise(c, r); };
  const auto spread = [](Integer c, Integer r) { return c == r ? std::ldexp(1.0, c) : 0.01 * noise(c, r); };
  const auto symmetric = [](Integer c, Integer r) { return c == r ? 4.0 : 1.0 / (1 + std::abs(c - r)); };
  const auto turned = [](Integer c, Integer r) { return std::sin(1.0 + c * r); };
  const auto integers = [](Integer c, Integer r) { return std::round(9 * noise(c, r)); };
  const std::function<Double(Integer, Integer)> kinds[] = {noise, graded, hilbert,   tiny,   huge,
                                                           lower, spread, symmetric, turned, integers};
  for (const auto& kind : kinds) {
    for (const Integer n : {1, 2, 3, 10, 33, 100}) {
      const TDouble2DArray a = square(n, kind);
      TDouble2DArray inverse = square(n, [&](Integer c, Integer r) { return a[c][r]; }), product;
      if (InvertArray(inverse) != 0) continue;  // Hilbert matrices end up singular
      ASSERT_EQ(MultiplyArrays(a, inverse, product), 0);
      for (Integer i = 0; i < n; ++i) product[i][i] -= 1.0;
      const Double condition = largest_row_sum(a) * largest_row_sum(inverse);
      EXPECT_LE(largest_row_sum(product), 30.0 * n * 0x1p-52 * condition) << &kind - kinds << " of size " << n;
    }
  }
}

TEST(InvertArray, StepsOnceForEachColumnOfFactorsAndInverse) {
  TDouble2DArray a = square(5, noise);
  AbortMathProc = false;
  ProcStat = 0.0;
  EXPECT_EQ(InvertArray(a), 0);
  EXPECT_EQ(ProcStat, 10.0);

  static TDouble2DArray seen;
  seen = square(5, noise);
  MathFeedBackProc = [](Double step) {
    if (step == 2.0) seen = {{1}};  // the work goes on in the old cells
    if (step == 7.0) AbortMathProc = true;
  };
  ProcStat = 0.0;
  EXPECT_EQ(InvertArray(seen), kInverseAborted);
  EXPECT_EQ(ProcStat, 7.0);
  AbortMathProc = false;
  seen = square(5, noise);
  MathFeedBackProc = [](Double) {
    for (TDoubleArray& column : seen) column = {3};
  };
  EXPECT_EQ(InvertArray(seen), kNotInvertible) << "not the square any more";
  EXPECT_THAT(cells(seen), ElementsAre(3, 3, 3, 3, 3));
  AbortMathProc = true;
  MathFeedBackProc = nullptr;
  TDouble2DArray untouched = {{2}};
  EXPECT_EQ(InvertArray(untouched), kInverseAborted) << "AbortMathProc is not cleared";
  EXPECT_THAT(cells(untouched), ElementsAre(2));
  AbortMathProc = false;
}

TEST(LUdecomposition, GivesTrianglesWhoseProductIsTheMatrix) {
  TDouble2DArray l, u, product;
  EXPECT_EQ(LUdecomposition({{2, 4}, {1, 5}}, l, u), 0);
  EXPECT_THAT(cells(l), ElementsAre(1, 2, 0, 1));
  EXPECT_THAT(cells(u), ElementsAre(2, 0, 1, 3));
  for (const Integer n : {1, 7, 40}) {
    const TDouble2DArray a = square(n, noise);
    ASSERT_EQ(LUdecomposition(a, l, u), 0);
    ASSERT_EQ(MultiplyArrays(l, u, product), 0);
    for (Integer c = 0; c < n; ++c)
      for (Integer r = 0; r < n; ++r) ASSERT_NEAR(product[c][r], a[c][r], 1e-11) << n;
  }
}

TEST(LUdecomposition, ExchangesRowsOnlyWhereItMust) {
  TDouble2DArray l, u, product;
  EXPECT_EQ(LUdecomposition({{0, 1}, {1, 0}}, l, u), 0);
  EXPECT_EQ(u[0][0] * u[1][1], -1.0);
  MultiplyArrays(l, u, product);
  EXPECT_THAT(cells(product), ElementsAre(0, 1, 1, 0));
  EXPECT_EQ(LUdecomposition({{1e-9, 1}, {1, 1}}, l, u), 0) << "a small pivot would let the cells grow";
  EXPECT_EQ(std::fabs(u[0][0]), 1.0);
  EXPECT_EQ(LUdecomposition({{0, 0}, {1, 1}}, l, u), 0) << "singular";
  EXPECT_EQ(u[0][0] * u[1][1], 0.0);
}

/// max |L U - A| in units of n 2^-52 max |A|.
Double residual(const TDouble2DArray& a) {
  TDouble2DArray l, u, product;
  EXPECT_EQ(LUdecomposition(a, l, u), 0);
  MultiplyArrays(l, u, product);
  Double most = 0.0, largest = 0.0;
  for (Integer c = 0; c < Length(a); ++c) {
    for (Integer r = 0; r < Length(a); ++r) {
      most = std::max(most, std::fabs(product[c][r] - a[c][r]));
      largest = std::max(largest, std::fabs(a[c][r]));
    }
  }
  return largest == 0.0 ? most : most / (Length(a) * 0x1p-52 * largest);
}

TEST(LUdecomposition, LeavesASmallResidualAlsoOfSingularMatrices) {
  // Rows (3 -3 3 -2), (-2 2 -5 2), (1 -1 -2 0), (3 1 3 -3): a pivot of rounding noise without exchanges.
  EXPECT_LT(residual({{3, -2, 1, 3}, {-3, 2, -1, 1}, {3, -5, -2, 3}, {-2, 2, 0, -3}}), 30.0);
  std::mt19937 bits(7);
  for (int i = 0; i < 6000; ++i) {
    const Integer n = 2 + i % 7;
    TDouble2DArray a;
    SetLength(a, n, n);
    for (auto& column : a)
      for (Double& x : column)
        x = i % 3 == 0 ? static_cast<Double>(bits()) : static_cast<Double>(static_cast<Integer>(bits() % 11) - 5);
    if (i % 3 == 1)  // the last column is the sum of the others
      for (Integer r = 0; r < n; ++r) {
        a[n - 1][r] = 0.0;
        for (Integer c = 0; c + 1 < n; ++c) a[n - 1][r] += a[c][r];
      }
    ASSERT_LT(residual(a), 30.0) << i;
  }
}

TEST(LUdecomposition, RefusesWithoutTouchingTheOutputs) {
  TDouble2DArray l = {{9}}, u = {{8}};
  EXPECT_EQ(LUdecomposition({{1, 2}}, l, u), kEmptyArray);
  EXPECT_EQ(LUdecomposition({{1, kInf}, {2, 3}}, l, u), kNotFinite);
  EXPECT_EQ(LUdecomposition({{1e308, -1e308}, {1e308, 1e308}}, l, u), kNotFinite) << "U would hold 2e308";
  EXPECT_EQ(LUdecomposition({{1}}, l, l), kSizeMismatch);
  EXPECT_THAT(cells(l), ElementsAre(9));
  EXPECT_THAT(cells(u), ElementsAre(8));
}

TEST(EigenDecomposition, RefusesValuesThatAreAColumnOfTheVectors) {
  TDouble2DArray vectors{{7, 8}};
  EXPECT_EQ(EigenDecomposition({{2, 1}, {1, 2}}, true, vectors, vectors[0]), kValuesInVectors);
  EXPECT_THAT(cells(vectors), ElementsAre(7, 8));
}

TEST(MultiplyArrays, TakesAColumnOfTheResultAsAFactor) {
  TDouble2DArray c{{1, 2}, {3, 4}};
  EXPECT_EQ(MultiplyArrays(c[0], {3, 4}, c), 0);
  EXPECT_THAT(cells(c), ElementsAre(3, 6, 4, 8));
}

TEST(ScalarResults, MayBeACellOfTheInput) {
  TDoubleArray x{5, 1, 3};
  EXPECT_EQ(MeanArray(x, 0, 2, x[0]), 0);
  EXPECT_THAT(x, ElementsAre(3, 1, 3));
  x = {5, 1, 3};
  EXPECT_EQ(MeanVarArray(x, 0, 2, x[0], x[1]), 0);
  EXPECT_THAT(x, ElementsAre(3, 4, 3));
  x = {5, 1, 3};
  EXPECT_EQ(MeanAbsDev(x, 0, x[0]), 0);
  EXPECT_DOUBLE_EQ(x[0], 4.0 / 3.0);
  TDoubleArray two{5, 4, 5};
  EXPECT_TRUE(IsDichotomous(two, two[0], two[1]));
  EXPECT_THAT(two, ElementsAre(4, 5, 5));
  TDouble2DArray square{{1, 2}, {3, 4}};
  EXPECT_EQ(TraceOfArray(square, square[0][0]), 0);
  EXPECT_EQ(square[0][0], 5.0);
  TInt2DArray mask{{7, 0}, {0, 7}};
  BoundingRect(mask, mask[0][0], mask[0][1], mask[1][0], mask[1][1]);
  EXPECT_THAT(cells(mask), ElementsAre(0, 1, 0, 1));
}

TEST(LUPdecomposition, PutsTheLargestCellOnTheDiagonal) {
  TDouble2DArray l, u, product, exchanged;
  TInt2DArray p;
  Integer swaps = -1;
  // (1 2; -4 3): rows exchanged.
  EXPECT_EQ(LUPdecomposition({{1, -4}, {2, 3}}, l, u, p, swaps), 0);
  EXPECT_EQ(swaps, 1);
  EXPECT_THAT(cells(p), ElementsAre(0, 1, 1, 0));
  EXPECT_THAT(cells(l), ElementsAre(1, -0.25, 0, 1));
  EXPECT_THAT(cells(u), ElementsAre(-4, 0, 3, 2.75));

  const TDouble2DArray a = square(23, noise);
  ASSERT_EQ(LUPdecomposition(a, l, u, p, swaps), 0);
  MultiplyArrays(l, u, product);
  ASSERT_EQ(PermuteArray(a, p, acrRows, false, exchanged), 0);
  Double determinant = swaps % 2 == 0 ? 1.0 : -1.0;
  for (Integer c = 0; c < 23; ++c) {
    determinant *= u[c][c];
    for (Integer r = 0; r < 23; ++r) {
      ASSERT_NEAR(product[c][r], exchanged[c][r], 1e-14);
      ASSERT_LE(std::fabs(l[c][r]), 1.0);
    }
  }
  EXPECT_NEAR(determinant / Determinant(a), 1.0, 1e-9);
  EXPECT_EQ(LUPdecomposition({{1, 1}, {1, 1}}, l, u, p, swaps), 0);
  EXPECT_EQ(u[1][1], 0.0);
  EXPECT_EQ(swaps, 0) << "of equals the first";
}

TEST(Determinant, OfKnownMatrices) {
  EXPECT_EQ(Determinant({{3}}), 3.0);
  EXPECT_EQ(Determinant({{1, 3}, {2, 4}}), -2.0);
  EXPECT_EQ(Determinant({{0, 1}, {1, 0}}), -1.0);
  EXPECT_EQ(Determinant({{1, 2, 3}, {4, 5, 6}}), 0.0) << "not square";
  EXPECT_EQ(Determinant({}), 0.0);
  EXPECT_TRUE(std::isnan(Determinant({{kInf}})));
  // 1 / 3.7e9...: the determinant of the Hilbert matrix of size 5.
  const auto hilbert = square(5, [](Integer c, Integer r) { return 1.0 / (c + r + 1); });
  EXPECT_NEAR(Determinant(hilbert) * 266716800000.0, 1.0, 1e-10);
}

TEST(CalcHatMatrix, ProjectsOnTheColumns) {
  TDouble2DArray h;
  const TDouble2DArray x = {{1, 1, 1, 1}, {0, 1, 2, 3}};  // a line through four points
  EXPECT_EQ(CalcHatMatrix(x, h), 0);
  const Double expected[] = {0.7, 0.4, 0.1, -0.2, 0.4, 0.3, 0.2, 0.1, 0.1, 0.2, 0.3, 0.4, -0.2, 0.1, 0.4, 0.7};
  for (std::size_t i = 0; i < 16; ++i) EXPECT_NEAR(cells(h)[i], expected[i], 1e-14);
  EXPECT_EQ(CalcHatMatrix({{1, 2}, {3, 4}, {5, 6}}, h), kSingular) << "fewer rows than columns";
  EXPECT_EQ(CalcHatMatrix({}, h), kEmptyArray);
  EXPECT_EQ(CalcHatMatrix(h, h), kSizeMismatch);
  EXPECT_EQ(h.size(), 4u);
}

TEST(PortableKernels, GiveTheBitsOfThePlainLoop) {
  const TDouble2DArray a = square(40, noise), b = square(40, noise);
  TDouble2DArray c;
  EXPECT_FALSE(zor::uses_portable_kernels());
  zor::use_portable_kernels(true);
  MultiplyArrays(a, b, c);
  zor::use_portable_kernels(false);
  for (Integer column = 0; column < 40; ++column) {
    for (Integer row = 0; row < 40; ++row) {
      Double sum = 0.0;
      for (Integer k = 0; k < 40; ++k) sum += a[k][row] * b[column][k];
      ASSERT_EQ(c[column][row], sum);
    }
  }
}

}  // namespace
}  // namespace ZOR_openarrays

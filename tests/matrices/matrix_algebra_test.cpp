#include <cmath>
#include <limits>
#include <random>
#include <stdexcept>

#include "tests/matrices/matrix_util.h"
#include "zor/arrays/lu.h"
#include "zor/arrays/matrix_inverse.h"
#include "zor/runtime/cell_memory.h"

// Products, arithmetic, decompositions and norms.

namespace ZOR_matrix {
namespace {

const Double kNaN = std::numeric_limits<Double>::quiet_NaN();

void fill_noise(TMatrix& m, Integer columns, Integer rows, unsigned seed) {
  std::mt19937_64 random(seed);
  std::uniform_real_distribution<Double> cell(-1.0, 1.0);
  m.Resize(columns, rows);
  for (Integer c = 1; c <= columns; ++c)
    for (Integer r = 1; r <= rows; ++r) m.SetVal(c, r, cell(random));
}

TMatrix& turned(const TMatrix& m, TMatrix& to) {
  to.Resize(m.NrOfRows(), m.NrOfColumns());
  for (Integer c = 1; c <= m.NrOfColumns(); ++c)
    for (Integer r = 1; r <= m.NrOfRows(); ++r) to.SetVal(r, c, m.GetVal(c, r));
  return to;
}

void expect_near(const TMatrix& a, const TMatrix& b, Double tolerance) {
  ASSERT_EQ(a.NrOfColumns(), b.NrOfColumns());
  ASSERT_EQ(a.NrOfRows(), b.NrOfRows());
  for (Integer c = 1; c <= a.NrOfColumns(); ++c)
    for (Integer r = 1; r <= a.NrOfRows(); ++r) ASSERT_NEAR(a.GetVal(c, r), b.GetVal(c, r), tolerance) << c << ' ' << r;
}

TEST(MatrixProduct, HasThreeFormsThatAgree) {
  TMatrix a, b, at, bt, plain, other;
  set(a, {{1, 4}, {2, 5}, {3, 6}});
  set(b, {{1, 0, 1}, {0, 1, 1}});
  Listener of_a(a), of_result(plain);
  ASSERT_TRUE(a.Multiply(&b, &plain));
  EXPECT_EQ(columns_of(plain), (Columns<TMatrix>{{4, 10}, {5, 11}}));
  EXPECT_EQ(of_a.take(), "C");
  EXPECT_EQ(of_result.take(), "CRCCCC") << "resized, then each cell";

  turned(b, bt), turned(a, at);
  ASSERT_TRUE(a.MultiplyTransposed(&bt, &other));
  EXPECT_EQ(columns_of(other), columns_of(plain));
  EXPECT_EQ(of_a.take(), "C");
  ASSERT_TRUE(at.TransposeAndMultiply(&b, &other));
  EXPECT_EQ(columns_of(other), columns_of(plain));

  EXPECT_FALSE(a.Multiply(&bt, &plain));
  EXPECT_FALSE(a.MultiplyTransposed(&b, &plain));
  EXPECT_FALSE(a.TransposeAndMultiply(&b, &plain));
  EXPECT_FALSE(a.Multiply(static_cast<const TMatrix*>(nullptr), &plain));
  EXPECT_FALSE(a.Multiply(&b, static_cast<TMatrix*>(nullptr)));
  EXPECT_EQ(of_a.take() + of_result.take(), "");
  EXPECT_EQ(plain.NrOfColumns(), 2);
}

TEST(MatrixProduct, IntoAnOperandIsThatOfACopy) {
  TMatrix a;
  set(a, {{1, 3}, {2, 4}});
  EXPECT_TRUE(a.Multiply(&a, &a));
  EXPECT_EQ(columns_of(a), (Columns<TMatrix>{{7, 15}, {10, 22}}));
  EXPECT_TRUE(a.EMult(&a, &a));
  EXPECT_EQ(columns_of(a), (Columns<TMatrix>{{49, 225}, {100, 484}}));
  EXPECT_TRUE(a.Subtract(&a));
  EXPECT_EQ(a.Norm(ntColwise), 0.0);
}

TEST(MatrixProduct, WithAVectorAddsInOrder) {
  TMatrix m;
  fill_noise(m, 7, 5, 1);
  TVector right, left, result;
  right.SetNrOfElem(7), left.SetNrOfElem(5);
  for (Integer i = 1; i <= 7; ++i) right.SetVal(i, 1.0 / i);
  for (Integer i = 1; i <= 5; ++i) left.SetVal(i, i - 2.5);
  Listener told(m);
  ASSERT_TRUE(m.Multiply(&right, &result));
  EXPECT_EQ(told.take(), "C");
  ASSERT_EQ(result.NrOfElem(), 5);
  for (Integer r = 1; r <= 5; ++r) {
    Double sum = 0.0;
    for (Integer k = 1; k <= 7; ++k) sum += m.GetVal(k, r) * right.GetVal(k);
    EXPECT_EQ(result.GetVal(r), sum);
  }
  ASSERT_TRUE(m.TransposeAndMultiply(&left, &left));
  EXPECT_EQ(told.take(), "");
  ASSERT_EQ(left.NrOfElem(), 7);
  for (Integer c = 1; c <= 7; ++c) {
    Double sum = 0.0;
    for (Integer k = 1; k <= 5; ++k) sum += m.GetVal(c, k) * (k - 2.5);
    EXPECT_EQ(left.GetVal(c), sum);
  }
  EXPECT_FALSE(m.Multiply(&result, &result));
  EXPECT_FALSE(m.TransposeAndMultiply(&right, &result));
}

TEST(MatrixArithmetic, WorksInPlaceAndTellsOnce) {
  TMatrix a, b;
  set(a, {{1, 2}, {3, 4}});
  set(b, {{10, 20}, {30, 40}});
  Listener told(a);
  EXPECT_TRUE(a.Add(&b));
  a.SMult(2.0);
  a.SAdd(1.0);
  EXPECT_TRUE(a.Subtract(&b));
  EXPECT_EQ(columns_of(a), (Columns<TMatrix>{{13, 25}, {37, 49}}));
  EXPECT_EQ(told.take(), "CCCC");
  b.Resize(2, 3);
  EXPECT_FALSE(a.Add(&b));
  EXPECT_FALSE(a.Subtract(nullptr));
  EXPECT_FALSE(a.EMult(&b, &a));
  EXPECT_EQ(told.take(), "");
}

TEST(MatrixInvert, ReplacesTheMatrixWithoutEvents) {
  TMatrix m, product, identity;
  m.SetVal(1, 1, 4.0);
  Listener told(m);
  EXPECT_TRUE(m.Invert());
  EXPECT_EQ(m.GetVal(1, 1), 0.25);
  fill_noise(m, 40, 40, 2), told.take();
  TMatrix original;
  original.Clone(&m);
  ASSERT_TRUE(m.Invert());
  EXPECT_EQ(told.take(), "");
  original.Multiply(&m, &product);
  identity.Resize(40, 40), identity.FillDiag(1.0);
  expect_near(product, identity, 1e-11);
}

TEST(MatrixInvert, FailsOnSingularAbortedAndOddMatrices) {
  TMatrix m;
  set(m, {{1, 0}, {2, 0}});
  EXPECT_FALSE(m.Invert());
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{1, 0}, {2, 0}})) << "a row of zeros leaves the cells";
  set(m, {{1, 1}, {2, 2}});
  EXPECT_FALSE(m.Invert());
  EXPECT_NE(columns_of(m), (Columns<TMatrix>{{1, 1}, {2, 2}})) << "equal rows are found on the way";
  m.Resize(2, 3);
  EXPECT_FALSE(m.Invert());
  set(m, {{2}});
  AbortMathProc = true;
  EXPECT_FALSE(m.Invert());
  AbortMathProc = false;

  static TMatrix* resized = &m;
  set(m, {{2, 0}, {0, 2}});
  MathFeedBackProc = [](Double) { resized->Resize(3, 3); };
  EXPECT_FALSE(m.Invert());
  MathFeedBackProc = nullptr;
  EXPECT_EQ(m.NrOfColumns(), 3);
}

TEST(MatrixDecompositions, TellALackOfMemoryFromAnExceptionOfTheProcedure) {
  TMatrix m, other;
  fill_noise(m, 4, 4, 6);
  {
    const zor::detail::AllocationLimitScope scope({.largest = 1});
    EXPECT_THROW(m.Invert(), EZORMatrixError);
    EXPECT_THROW(m.CalcHatMatrix(&other), EZORMatrixError);
    EXPECT_THROW(m.LUdecomposition(&other, &m), EZORMatrixError);
    EXPECT_THROW(m.Determinant(), EZORMatrixError);
  }
  MathFeedBackProc = [](Double) { throw std::runtime_error("no more"); };
  EXPECT_THROW(m.CalcHatMatrix(&other), std::runtime_error);
  EXPECT_THROW(m.Invert(), std::runtime_error);
  MathFeedBackProc = nullptr;
}

TEST(MatrixLU, GivesFactorsAndTheDeterminant) {
  TMatrix m, l, u, product;
  set(m, {{2, 4}, {1, 5}});
  ASSERT_TRUE(m.LUdecomposition(&l, &u));
  EXPECT_EQ(columns_of(l), (Columns<TMatrix>{{1, 2}, {0, 1}}));
  EXPECT_EQ(columns_of(u), (Columns<TMatrix>{{2, 0}, {1, 3}}));
  EXPECT_EQ(m.Determinant(), 6.0);
  EXPECT_FALSE(m.LUdecomposition(&l, &l));
  EXPECT_FALSE(m.LUdecomposition(nullptr, &u));
  EXPECT_TRUE(m.LUdecomposition(&m, &u)) << "the matrix may become its factor";
  EXPECT_EQ(columns_of(m), columns_of(l));
  set(m, {{0, 1}, {1, 0}});
  EXPECT_EQ(m.Determinant(), -1.0);
  m.SetVal(1, 1, kNaN);
  EXPECT_EQ(m.Determinant(), 0.0);
  set(m, {{1, -1}, {1e308, 1e308}});
  EXPECT_EQ(m.Determinant(), 0.0) << "a cell of a factor overflows";
  EXPECT_FALSE(m.LUdecomposition(&l, &u));
  m.Resize(2, 3);
  EXPECT_EQ(m.Determinant(), 0.0);
}

TEST(MatrixCholesky, ReadsOneHalfAndWritesTheOther) {
  TMatrix m, l;
  set(m, {{4, 2}, {kNaN, 3}});
  Listener of_m(m), of_l(l);
  ASSERT_TRUE(m.CholeskyDecomp(&l));
  EXPECT_EQ(columns_of(l), (Columns<TMatrix>{{2, 1}, {0, std::sqrt(2.0)}}));
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{4, 2}, {1, 3}}));
  EXPECT_EQ(of_m.take(), "");
  EXPECT_EQ(of_l.take(), "CRC");
  l.Fill(9.0), of_l.take();
  ASSERT_TRUE(m.CholeskyDecomp(&l));
  EXPECT_EQ(columns_of(l), (Columns<TMatrix>{{2, 1}, {9, std::sqrt(2.0)}})) << "cells above the diagonal stay";
  EXPECT_EQ(of_l.take(), "C");

  TMatrix square, again;
  fill_noise(square, 61, 80, 3);
  square.TransposeAndMultiply(&square, &m);
  TMatrix original;
  original.Clone(&m);
  TMatrix lower;
  ASSERT_TRUE(m.CholeskyDecomp(&lower));
  lower.MultiplyTransposed(&lower, &again);
  expect_near(again, original, 1e-12);
}

TEST(MatrixCholesky, LeavesBothMatricesWhereItFails) {
  TMatrix m, l;
  set(m, {{1, 2}, {5, 1}});
  l.Resize(2, 3);
  EXPECT_FALSE(m.CholeskyDecomp(&l));
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{1, 2}, {5, 1}}));
  EXPECT_EQ(l.NrOfRows(), 3);
  EXPECT_FALSE(m.CholeskyDecomp(nullptr));
  EXPECT_FALSE(m.CholeskyDecomp(&m));
  EXPECT_FALSE(l.CholeskyDecomp(&m)) << "not square";
}

TEST(MatrixBalance, MakesTheSumsOfRowsAndColumnsEqual) {
  TMatrix m;
  // Row sums 100 and 0.01, column sums 0.01 and 100: f = 100 for i = 1.
  set(m, {{1, 0.01}, {100, 2}});
  Listener told(m);
  EXPECT_TRUE(m.Balance(1.01));
  EXPECT_EQ(told.take(), "");
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{1, 1}, {1, 2}}));

  fill_noise(m, 9, 9, 4);
  for (Integer c = 1; c <= 9; ++c)
    for (Integer r = 1; r <= 9; ++r) m.SetVal(c, r, m.GetVal(c, r) * std::pow(10.0, c - r));
  const Double trace = m.Trace();
  EXPECT_TRUE(m.Balance(1.000001));
  EXPECT_EQ(m.Trace(), trace);
  for (Integer i = 1; i <= 9; ++i) {
    Double row = 0.0, column = 0.0;
    for (Integer j = 1; j <= 9; ++j) {
      if (j == i) continue;
      row += std::fabs(m.GetVal(j, i));
      column += std::fabs(m.GetVal(i, j));
    }
    EXPECT_NEAR(row / column, 1.0, 1e-4) << i;
  }
  set(m, {{3, 0}, {0, 5}});
  EXPECT_TRUE(m.Balance(1.0)) << "a diagonal needs one pass";
  set(m, {{3, 7}, {0, 5}});
  EXPECT_TRUE(m.Balance(1.0)) << "a row of zeros is passed over";
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{3, 7}, {0, 5}}));
  m.Resize(2, 3);
  EXPECT_FALSE(m.Balance(1.0));
}

TEST(MatrixNorm, OfKnownMatrices) {
  TMatrix m;
  set(m, {{1, -2}, {3, 4}, {-5, 6}});
  EXPECT_EQ(m.Norm(ntColwise), 11.0);
  EXPECT_EQ(m.Norm(ntRowwise), 12.0);
  EXPECT_EQ(m.Norm(ntFrobenius), std::sqrt(91.0));
  // Singular values squared are the eigenvalues of (35 -20; -20 56).
  EXPECT_NEAR(m.Norm(ntSpectral), std::sqrt((91.0 + std::sqrt(21.0 * 21.0 + 1600.0)) / 2.0), 1e-14);
  TMatrix t;
  EXPECT_NEAR(turned(m, t).Norm(ntSpectral), m.Norm(ntSpectral), 1e-14);
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{1, -2}, {3, 4}, {-5, 6}}));
  EXPECT_EQ(m.Trace(), 0.0) << "not square";
  set(m, {{1, 2}, {3, 4}});
  EXPECT_EQ(m.Trace(), 5.0);
}

TEST(MatrixNorm, TakesNoNaNForTheLargestSumWhereverItStands) {
  TMatrix m, t;
  for (const Columns<TMatrix>& cells : {Columns<TMatrix>{{kNaN}, {-5}, {2}}, Columns<TMatrix>{{2}, {-5}, {kNaN}}}) {
    set(m, cells);
    EXPECT_EQ(m.Norm(ntColwise), 5.0);
    EXPECT_EQ(turned(m, t).Norm(ntRowwise), 5.0);
  }
}

TEST(MatrixNorm, SpectralTakesStepsAndRaisesOnAbortAndNaN) {
  TMatrix m;
  fill_noise(m, 3, 5, 5);
  ProcStat = 0.0;
  m.Norm(ntSpectral);
  EXPECT_EQ(ProcStat, 12.0);
  static int calls;
  calls = 0;
  MathFeedBackProc = [](Double) { AbortMathProc = ++calls == 5; };
  const TString message = u"near singular covariance matrix";
  EXPECT_EQ(message_of<EZORMatrixError>([&] { m.Norm(ntSpectral); }), message);
  EXPECT_EQ(calls, 5);
  MathFeedBackProc = nullptr;
  AbortMathProc = false;
  m.SetVal(2, 2, kNaN);
  EXPECT_EQ(message_of<EZORMatrixError>([&] { m.Norm(ntSpectral); }), message);
}

TEST(MatrixHat, SizesTheResultWithoutEvents) {
  TMatrix x, hat;
  set(x, {{1, 1, 1}, {0, 1, 2}});
  Listener told(hat);
  EXPECT_EQ(x.CalcHatMatrix(&hat), 0);
  EXPECT_NEAR(hat.GetVal(1, 1), 5.0 / 6, 1e-14);
  EXPECT_NEAR(hat.GetVal(3, 1), -1.0 / 6, 1e-14);
  set(x, {{1, 2}, {1, 2}, {1, 2}}), told.take();
  EXPECT_EQ(x.CalcHatMatrix(&hat), ZOR_openarrays::kSingular);
  EXPECT_EQ(hat.NrOfColumns(), 2);
  EXPECT_NEAR(hat.GetVal(1, 1), 5.0 / 6, 1e-14) << "cells stay";
  EXPECT_EQ(told.take(), "");
  EXPECT_EQ(x.CalcHatMatrix(nullptr), ZOR_openarrays::kSizeMismatch);
  EXPECT_EQ(x.CalcHatMatrix(&x), ZOR_openarrays::kSizeMismatch);
}

}  // namespace
}  // namespace ZOR_matrix

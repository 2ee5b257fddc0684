#include <cmath>

#include "tests/analysis/multivariate_util.h"
#include "tests/message_of.h"
#include "zor/base/ZOR_univconst.h"
#include "zor/base/feedback.h"
#include "zor/runtime/random.h"

namespace ZOR_math2 {
namespace {

using zor::test::message_of;
using ZOR_vector::EZORVectorError;

// Eight irises, three lengths each; expected values: NumPy 1.24.
const Columns kIrises = {{5.1, 4.9, 4.7, 7.0, 6.4, 6.9, 6.3, 5.8},
                         {3.5, 3.0, 3.2, 3.2, 3.2, 3.1, 3.3, 2.7},
                         {1.4, 1.4, 1.3, 4.7, 4.5, 4.9, 6.0, 5.1}};

void expect_near(const TVector& found, const std::vector<double>& expected, double error) {
  ASSERT_EQ(cells_of(found).size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR(cells_of(found)[i], expected[i], error) << i;
}

TEST(CalcEigVec, SolvesTheEquationAndCountsItsSteps) {
  TMatrix m, before;
  double start = ProcStat;
  set(m, {{3, 0}, {0, -2}});
  EXPECT_TRUE(CalcEigVec(&m));
  EXPECT_EQ(ProcStat - start, 1.0) << "a diagonal matrix";
  EXPECT_EQ(GetEigenResult(1, 0), 3.0);
  EXPECT_EQ(GetEigenResult(2, 2), 1.0);
  start = ProcStat;
  set(m, {{2, 7}, {1, 2}});  // the cell (1, 2) is not read
  EXPECT_TRUE(CalcEigVec(&m));
  EXPECT_EQ(ProcStat - start, 3.0) << "one rotation, two sweeps";
  EXPECT_NEAR(GetEigenResult(1, 0) + GetEigenResult(2, 0), 4.0, 1e-15);

  constexpr Integer n = 20;
  m.Resize(n, n);
  for (Integer c = 1; c <= n; ++c)
    for (Integer r = 1; r <= n; ++r) m.SetVal(c, r, std::cos(c * r) + std::cos(r * c + 0.0) + (c == r));
  before.Clone(&m);
  EXPECT_TRUE(CalcEigVec(&m));
  for (Integer k = 1; k <= n; ++k)
    for (Integer r = 1; r <= n; ++r) {
      double sum = 0.0;
      for (Integer c = 1; c <= n; ++c) sum += before.GetVal(c, r) * GetEigenResult(k, c);
      EXPECT_NEAR(sum, GetEigenResult(k, 0) * GetEigenResult(k, r), 1e-12);
    }
  EXPECT_EQ(GetEigenResult(n + 1, 0) + GetEigenResult(1, n + 1) + GetEigenResult(0, 1), 0.0);
  TMatrix wide;
  wide.Resize(10001, 1);
  EXPECT_FALSE(CalcEigVec(&wide));
  EXPECT_FALSE(CalcEigVec(nullptr));
  EXPECT_EQ(GetEigenSize(), n);
  MathFeedBackProc = [](double) { AbortMathProc = true; };
  EXPECT_FALSE(CalcEigVec(&before));
  MathFeedBackProc = nullptr;
  AbortMathProc = false;
  RemoveEigenMatrix();
  EXPECT_EQ(GetEigenResult(1, 0), 0.0);
  EXPECT_EQ(GetEigenSize(), n);
}

TEST(CalcPrincComp, SortsSharesOfTheVariance) {
  TMatrix data;
  set(data, kIrises);
  ASSERT_TRUE(CalcPrincComp(&data, 1, 3, 0, 0, 1));
  const double shares[] = {0.94764955, 0.04345051, 0.00889993}, first[] = {0.38280703, -0.02584234, 0.92346681};
  const double sign = GetEigenResult(1, 1) < 0 ? -1.0 : 1.0;
  for (Integer k = 1; k <= 3; ++k) {
    EXPECT_NEAR(GetEigenResult(k, 0), shares[k - 1], 1e-8);
    EXPECT_NEAR(sign * GetEigenResult(1, k), first[k - 1], 1e-8);
  }
  ASSERT_TRUE(CalcPrincComp(&data, 1, 3, 0, 0, 1, false));
  EXPECT_NEAR(GetEigenResult(1, 0), 4.43330768, 1e-8);
  EXPECT_FALSE(CalcPrincComp(&data, 0, 0, 0, 0, 1));
}

TEST(ClassScatterMatrices, DivideTheScatter) {
  const TDouble2DArray data = {{1, 5, 3, 7, 100}, {0, 2, 2, 2, 9}};
  TDouble2DArray means, variances, between, within;
  TIntArray counts;
  Integer classes = 9;
  EXPECT_EQ(ClassScatterMatrices(data, {1, 2, 1, 2, 3}, classes, counts, means, variances, between, within), 0);
  EXPECT_EQ(classes, 3);
  EXPECT_EQ(counts, (TIntArray{2, 2, 1}));
  EXPECT_EQ(means[0], (TDoubleArray{2, 6, 100}));
  EXPECT_EQ(variances[0], (TDoubleArray{2, 2, 0}));
  EXPECT_NEAR(within[0][0], 4.0, 1e-12);
  EXPECT_NEAR(within[0][1], 2.0, 1e-12);
  // Together they are the scatter about the mean of all.
  EXPECT_NEAR(between[0][0] + within[0][0], 1 + 25 + 9 + 49 + 10000 - 116.0 * 116.0 / 5, 1e-9);
  const struct {
    TIntArray classes;
    Integer code;
  } cases[] = {{{1, 1, 3, 3, 3}, kEmptyClass},
               {{1, 1, 0, 1, 1}, kBadClassNumber},
               {{1, 6, 1, 1, 1}, kBadClassNumber},
               {{1, 1}, kOtherNumberOfObjects}};
  for (const auto& [numbers, code] : cases) {
    EXPECT_EQ(ClassScatterMatrices(data, numbers, classes, counts, means, variances, between, within), code);
    EXPECT_EQ(classes, 0);
  }
  EXPECT_EQ(Length(counts), 3) << "results stay";
}

TEST(MahalanobisDistance, IsTheFormOfTheInverse) {
  TVector a, b;
  TMatrix inverse;
  set(a, {1, 2});
  set(b, {4, 6});
  set(inverse, {{1, 0}, {0, 1}});
  EXPECT_EQ(MahalanobisDistance(&a, &b, &inverse), 5.0);
  set(inverse, {{2, 0.5}, {0.5, 1}});
  EXPECT_NEAR(MahalanobisDistance(&a, &b, &inverse), std::sqrt(18.0 + 12.0 + 16.0), 1e-14);
  const auto message = [&] { return message_of<EZORVectorError>([&] { MahalanobisDistance(&a, &b, &inverse); }); };
  set(inverse, {{-1, 0}, {0, -1}});
  EXPECT_EQ(message(), "MahalanobisDistance: the inverse covariance matrix must be symmetric and positive definite");
  inverse.Resize(3, 3);
  EXPECT_EQ(message(), "MahalanobisDistance: dimension of vectors and inverse covariance matrix do not match");
  inverse.Resize(2, 3);
  EXPECT_EQ(message(), "MahalanobisDistance: inverse covariance matrix is not quadratric");
  b.SetNrOfElem(3);
  EXPECT_EQ(message(), "MahalanobisDistance: dimensions of vectors do not match");
}

TEST(Regression, AgreesWithNumpy) {
  TMatrix data;
  set(data, kIrises);
  TVector coef, dev, y, v1, v2, v3, v4;
  double r2, s, f;
  Boolean singular = true;
  MultiLinReg(&data, TIntArray{1, 2}, 3, true, r2, s, f, &coef, &dev, singular);
  EXPECT_FALSE(singular);
  expect_near(coef, {1.81999261, -1.93394844, -0.96076894}, 1e-7);
  expect_near(dev, {0.4188249, 1.62334644, 5.77021113}, 1e-7);
  EXPECT_NEAR(r2, 0.7771536332860172, 1e-12);
  EXPECT_NEAR(s, 1.090028034376767, 1e-12);
  EXPECT_NEAR(f, 8.718491182352015, 1e-10);
  EXPECT_EQ(
      message_of<EZORMath2Error>([&] { MultiLinReg(&data, TIntArray{4}, 3, true, r2, s, f, &coef, &dev, singular); }),
      "MultiLinReg: column index out of range");

  set(y, kIrises[2]);
  data.Resize(2, 8);
  RidgeReg(&data, &y, 0.5, &coef, &dev, singular);
  expect_near(coef, {1.4804426, -1.59611814}, 1e-7);
  expect_near(dev, {0.28475962, 0.53363469}, 1e-7);
  RidgeRegStd(&data, &y, 0.5, &v1, &v2, &v3, &v4, singular);
  expect_near(v1, {1.69967296, -1.82127225, -0.60731698}, 1e-7);
  expect_near(v3, {0.78653126, -0.21744367}, 1e-7);
  RidgeRegStd(&data, &y, 0.0, &v1, &v2, &v3, &v4, singular);
  expect_near(v1, {1.81999261, -1.93394844, -0.96076894}, 1e-7);
  expect_near(v2, {0.4188249, 1.62334644, 5.77021113}, 1e-7);
  EXPECT_EQ(message_of<EZORMath2Error>([&] { RidgeReg(&data, &y, -1.0, &coef, &dev, singular); }),
            "RidgeReg: invalid ridge factor");
}

TEST(VarInflatFactor, FindsWhatOtherColumnsDetermine) {
  TMatrix data;
  set(data, kIrises);
  TDoubleArray vif;
  Integer calls = 0, last = 0;
  VarInflatFactor(&data, {}, vif, [&](TObject*, Integer percent) { ++calls, last = percent; });
  const double expected[] = {4.18438391, 1.24063322, 4.48739647};
  for (Integer j = 0; j < 3; ++j) EXPECT_NEAR(vif[j], expected[j], 1e-7);
  EXPECT_EQ(calls, 3);
  EXPECT_EQ(last, 100);
  VarInflatFactor(&data, TIntArray{2}, vif);
  EXPECT_EQ(vif, TDoubleArray{1.0});
  VarInflatFactor(&data, TIntArray{2, 2}, vif);
  EXPECT_EQ(vif[0], ZOR_univconst::uc_MaxDouble);
  EXPECT_EQ(message_of<EZORMath2Error>([&] {
              VarInflatFactor(&data, TIntArray{1, 4}, vif);
            }),
            "VarInflatFactor: column index out of range");
}

TEST(SimPLS, WithAllFactorsIsLeastSquares) {
  TMatrix x, y, scores, b, fitted;
  set(x, kIrises);
  x.Resize(2, 8);
  set(y, {kIrises[2], kIrises[0]});
  TVector of_x, of_y;
  for (const bool scaled : {false, true}) {
    SimPLS(&x, &y, 2, scaled, &scores, nullptr, nullptr, nullptr, nullptr, &b, &of_x, &of_y, &fitted);
    const double expected[] = {1.81999261, -1.93394844, -0.96076894};
    for (Integer i = 0; i < 3; ++i) EXPECT_NEAR(b.GetVal(1, i + 1), expected[i], 1e-7);
    EXPECT_NEAR(b.GetVal(2, 1), 1.0, 1e-12) << "the second column of Y is the first of X";
    EXPECT_NEAR(of_x.GetVal(1) + of_x.GetVal(2), 1.0, 1e-12);
    double inner = 0.0, length = 0.0;
    for (Integer r = 1; r <= 8; ++r) {
      inner += scores.GetVal(1, r) * scores.GetVal(2, r);
      length += scores.GetVal(2, r) * scores.GetVal(2, r);
      EXPECT_NEAR(fitted.GetVal(1, r), expected[0] * x.GetVal(1, r) + expected[1] * x.GetVal(2, r) + expected[2], 1e-7);
    }
    EXPECT_NEAR(inner, 0.0, 1e-13);
    EXPECT_NEAR(length, 1.0, 1e-13);
  }
  const auto message = [&](Integer factors) {
    return message_of<EZORMath2Error>([&] {
      SimPLS(&x, &y, factors, false, nullptr, nullptr, nullptr, nullptr, nullptr, &b, nullptr, nullptr, nullptr);
    });
  };
  EXPECT_EQ(message(3), "SimPLS: invalid number of factors");
  y.Resize(1, 7);
  EXPECT_EQ(message(1), "SimPLS: numbers of rows do not match");
}

TEST(VertexCompAnalysis, FindsThePureRowsOfMixtures) {
  const Int64 seed = ZOR_runtime::RandSeed;
  ZOR_runtime::RandSeed = 4711;
  const double pure[3][5] = {{1, 2, 9, 1, 0}, {6, 0, 1, 1, 3}, {0, 5, 1, 7, 2}};
  TMatrix data, members, described;
  ZOR_vector::TIntVector rows;
  data.Resize(5, 60);
  for (Integer r = 1; r <= 60; ++r) {
    double shares[3] = {1.0 + (r * 7) % 11, 1.0 + (r * 5) % 13, 1.0 + (r * 3) % 7};
    if (r % 20 == 0)
      for (int k = 0; k < 3; ++k) shares[k] = k == r / 20 - 1;  // rows 20, 40, 60 are pure
    const double all = shares[0] + shares[1] + shares[2];
    for (Integer c = 1; c <= 5; ++c) {
      double sum = 0.0;
      for (int k = 0; k < 3; ++k) sum += shares[k] / all * pure[k][c - 1];
      data.SetVal(c, r, sum);
    }
  }
  for (const bool projective : {false, true}) {
    VertexCompAnalysis(&data, 3, projective, &members, &rows, &described);
    std::vector<Integer> found(rows.begin(), rows.end());
    std::ranges::sort(found);
    EXPECT_EQ(found, (std::vector<Integer>{20, 40, 60}));
    for (Integer c = 1; c <= 5; ++c) {
      EXPECT_NEAR(members.GetVal(c, 1), data.GetVal(c, rows.GetVal(1)), 1e-12);
      EXPECT_NEAR(described.GetVal(c, 33), data.GetVal(c, 33), 1e-12);
    }
  }
  EXPECT_EQ(message_of<EZORMath2Error>([&] { VertexCompAnalysis(&data, 6, true, nullptr, nullptr, nullptr); }),
            "VertexCompAnalysis: invalid number of components");
  ZOR_runtime::RandSeed = seed;
}

}  // namespace
}  // namespace ZOR_math2

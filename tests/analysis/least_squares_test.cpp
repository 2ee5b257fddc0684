#include "zor/analysis/least_squares.h"

#include <cmath>

#include "tests/analysis/multivariate_util.h"
#include "zor/base/feedback.h"

namespace ZOR_math2 {
namespace {

TEST(MultiLinReg, ReachesTheCertifiedDigits) {
  for (const Certified& set : certified_sets()) {
    SCOPED_TRACE(set.file);
    TMatrix design;
    TVector y, coef, dev;
    set.enter(design, y);
    Boolean singular = true;
    ASSERT_TRUE(MultiLinReg(&design, &y, &coef, &dev, singular));
    EXPECT_FALSE(singular);
    for (std::size_t k = 0; k < set.estimates.size(); ++k) {
      const auto i = static_cast<Integer>(k + 1);
      // The certified errors of Wampler5 are as large as its estimates: digits of the estimate are those of the error.
      const double unit = std::abs(set.estimates[k]) + set.deviations[k];
      EXPECT_NEAR(coef.GetVal(i) / unit, set.estimates[k] / unit, std::pow(10.0, -set.digits)) << i;
      if (set.sd > 0.0) {
        EXPECT_NEAR(dev.GetVal(i) * set.sd / set.deviations[k], 1.0, set.last_power == 2 ? 1e-4 : 1e-9) << i;
      }
    }
  }
}

TEST(MultiLinReg, FindsTheShortestOfManySolutions) {
  TMatrix twins;
  TVector y, coef;
  Boolean singular = false;
  set(twins, {{1, 2, 3}, {1, 2, 3}});
  set(y, {2, 4, 6});
  EXPECT_TRUE(MultiLinReg(&twins, &y, &coef, nullptr, singular));
  EXPECT_TRUE(singular);
  EXPECT_NEAR(coef.GetVal(1), 1.0, 1e-14);
  EXPECT_NEAR(coef.GetVal(2), 1.0, 1e-14);
  TMatrix wide;
  set(wide, {{3}, {4}});
  set(y, {25});
  EXPECT_TRUE(MultiLinReg(&wide, &y, &coef, nullptr, singular));
  EXPECT_TRUE(singular);
  EXPECT_NEAR(coef.GetVal(1), 3.0, 1e-13);
  EXPECT_NEAR(coef.GetVal(2), 4.0, 1e-13);
}

TEST(MultiLinReg, LeavesItsResultsWhereItFails) {
  TMatrix a;
  TVector y, coef;
  Boolean singular = true;
  set(coef, {7});
  set(a, {{1, 2}});
  set(y, {1, 2, 3});
  EXPECT_FALSE(MultiLinReg(&a, &y, &coef, nullptr, singular));
  EXPECT_FALSE(MultiLinReg(&a, nullptr, &coef, nullptr, singular));
  set(y, {1, 2});
  AbortMathProc = true;
  EXPECT_FALSE(MultiLinReg(&a, &y, &coef, nullptr, singular));
  AbortMathProc = false;
  a.SetVal(1, 1, std::nan(""));
  EXPECT_FALSE(MultiLinReg(&a, &y, &coef, nullptr, singular));
  EXPECT_EQ(cells_of(coef), std::vector{7.0});
  EXPECT_FALSE(singular);
}

TEST(SingValDecomp, MultipliesBackAndCountsItsSteps) {
  for (const auto& [columns, rows] : {std::pair(4, 9), {5, 5}, {6, 2}, {1, 1}}) {
    TMatrix a, u, v;
    TVector w;
    a.Resize(columns, rows);
    a.FillSerial(1.0, 0.37);
    for (Integer i = 1; i <= std::min(columns, rows); ++i) a.SetVal(i, i, 5.0 - i);
    u.Clone(&a);
    const double before = ProcStat;
    EXPECT_TRUE(SingValDecomp(&u, &v, &w));
    EXPECT_EQ(ProcStat - before, 4.0 * columns);
    for (Integer c = 1; c <= columns; ++c)
      for (Integer r = 1; r <= rows; ++r) {
        double sum = 0.0;
        for (Integer k = 1; k <= columns; ++k) sum += u.GetVal(k, r) * w.GetVal(k) * v.GetVal(k, c);
        EXPECT_NEAR(sum, a.GetVal(c, r), 1e-13 * 40) << columns << ' ' << rows;
      }
    TMatrix inverse, product;
    EXPECT_TRUE(PseudoInverse(&a, &inverse, 0.0));
    EXPECT_EQ(inverse.NrOfColumns(), rows);
    EXPECT_EQ(inverse.NrOfRows(), columns);
    ASSERT_TRUE(inverse.Multiply(&a, &product));
    ASSERT_TRUE(a.Multiply(&product, &inverse));  // a times (inverse times a)
    for (Integer c = 1; c <= columns; ++c)
      for (Integer r = 1; r <= rows; ++r) EXPECT_NEAR(inverse.GetVal(c, r), a.GetVal(c, r), 1e-11);
  }
}

TEST(CalcCovar, FollowsItsModes) {
  TMatrix data, result;
  set(data, {{1, 2, 3, 6}, {2, 1, 5, 4}, {0.1, 0.1, 0.1, 0.1}});
  result.Resize(4, 3);
  // Sxx = 14, Syy = 10, Sxy = 7; the third column is constant.
  const struct {
    Integer mode;
    double xx, xy, yz, zz;
  } cases[] = {{0, 50.0 / 3, 43.0 / 3, 1.2 / 3, 0.04 / 3},
               {1, 14.0 / 3, 7.0 / 3, 0, 0},
               {2, 1.0, 7.0 / std::sqrt(140.0), 0, 1.0},
               {3, 1.0, 49.0 / 140.0, 0, 0},
               {4, 0, 10.0 / 3, (1.9 * 1.9 + 0.9 * 0.9 + 4.9 * 4.9 + 3.9 * 3.9) / 3, 0},
               {9, 0, 0, 0, 0}};
  for (const auto& [mode, xx, xy, yz, zz] : cases) {
    SCOPED_TRACE(mode);
    const double before = ProcStat;
    EXPECT_TRUE(CalcCovar(&data, &result, 0, 0, 0, 0, mode));
    EXPECT_EQ(ProcStat - before, 6 * 4 + (mode > 0 ? 4 : 0));
    EXPECT_NEAR(result.GetVal(1, 1), xx, 1e-14 * 50);
    EXPECT_NEAR(result.GetVal(1, 2), xy, 1e-14 * 50);
    EXPECT_EQ(result.GetVal(2, 1), result.GetVal(1, 2));
    EXPECT_NEAR(result.GetVal(2, 3), yz, 1e-14 * 50);
    EXPECT_NEAR(result.GetVal(3, 3), zz, 1e-14);
    EXPECT_EQ(result.GetVal(4, 1), 0.0) << "beside the block";
  }
  EXPECT_FALSE(CalcCovar(&data, &result, 1, 3, 2, 2, 1));
  EXPECT_FALSE(CalcCovar(&data, &result, 3, 1, 0, 0, 1));
  EXPECT_FALSE(CalcCovar(&data, nullptr, 0, 0, 0, 0, 1));
  result.Resize(2, 2);
  EXPECT_FALSE(CalcCovar(&data, &result, 0, 0, 0, 0, 1));
}

}  // namespace
}  // namespace ZOR_math2

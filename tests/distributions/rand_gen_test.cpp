#include "zor/distributions/rand_gen.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "zor/distributions/chi2_distribution.h"
#include "zor/distributions/normal_distribution.h"
#include "zor/distributions/t_distribution.h"
#include "zor/runtime/random.h"

namespace ZOR_statis {
namespace {

TEST(TRandGen, KeepsItsTableInBounds) {
  TRandGen g;
  EXPECT_EQ(g.Resolution(), 500);
  for (const auto& [wanted, got] : {std::pair(5, 10), {5000, 4000}, {20, 20}}) {
    g.SetProbability(3, 0.5);
    g.SetResolution(wanted);
    EXPECT_EQ(g.Resolution(), got);
    EXPECT_EQ(g.Probability(3), 1.0);
  }
  for (const auto& [set, got] : {std::pair(2.0, 1.0), {-1.0, 0.0}, {0.25, 0.25}, {std::nan(""), 0.0}}) {
    g.SetProbability(1, set);
    EXPECT_EQ(g.Probability(1), got);
  }
  g.SetProbability(0, 0.5);
  g.SetProbability(21, 0.5);
  EXPECT_EQ(g.Probability(0) + g.Probability(21), 0.0);
}

TEST(TRandGen, FindsEntriesOfValues) {
  TRandGen g;
  g.SetResolution(10);
  EXPECT_EQ(g.IndexOfLambda(0.0), 1) << "equal borders";
  EXPECT_EQ(g.Random(), 0.0);
  g.LowBorder = -1.0;
  g.HighBorder = 4.0;
  const struct {
    double value;
    Integer index;
  } cases[] = {{-1.1, 0}, {-1.0, 1}, {-0.51, 1}, {-0.5, 2}, {3.99, 10}, {4.0, 11}, {4.1, 11}, {std::nan(""), 0}};
  for (const auto& [value, index] : cases) EXPECT_EQ(g.IndexOfLambda(value), index) << value;
  EXPECT_EQ((std::vector{g.Lambda(0), g.Lambda(1), g.Lambda(10), g.Lambda(11)}), (std::vector{-1.0, -1.0, 3.5, 4.0}));
}

TEST(TRandGen, ScalesItsTable) {
  TRandGen g;
  g.SetResolution(10);
  g.HighBorder = 10.0;
  g.Normalize();
  EXPECT_EQ(g.Probability(4), 1.0) << "all equal";
  g.Chi2Distri(3);
  EXPECT_EQ(g.Probability(3), Chi2DistriDensity(2.0, 3));
  EXPECT_TRUE(g.Standardize());
  EXPECT_EQ(g.Probability(2), 1.0) << "the mode is 1";
  g.Normalize();
  EXPECT_EQ(g.Probability(1), 0.0);
  for (const double s : {0.0, -1e-200, std::nan("")}) {
    g.NormalDistri(3.0, s);
    EXPECT_EQ(g.Probability(4), 1.0) << s;
    EXPECT_EQ(g.Probability(3) + g.Probability(5), 0.0) << s;
  }
  for (Integer i = 1; i <= 10; ++i) g.SetProbability(i, 0.0);
  EXPECT_FALSE(g.Standardize());
  EXPECT_GE(g.Random(), 0.0) << "ends without a positive entry";
  g.tDistri(4);
  EXPECT_EQ(g.Probability(2), tDistriDensity(1.0, 4));
  g.FDistri(1, 4);
  EXPECT_EQ(g.Probability(1), 0.0);
  g.WeibullDistri(0.5, 1.0);
  EXPECT_EQ(g.Probability(1), 0.0);
}

TEST(TRandGen, DrawsWhatTheTableSays) {
  const Int64 seed = ZOR_runtime::RandSeed;
  ZOR_runtime::RandSeed = 12345;
  TRandGen g;
  g.LowBorder = -5.0;
  g.HighBorder = 5.0;
  g.NormalDistri(0.5, 1.0);
  constexpr int kDraws = 20000;
  double statistic = 0.0;
  std::vector<int> counts(10);
  for (int i = 0; i < kDraws; ++i) {
    const double x = g.Random();
    ASSERT_TRUE(x >= -5.0 && x < 5.0);
    ++counts[static_cast<std::size_t>(x + 5.0)];
  }
  for (int i = 2; i < 9; ++i) {
    const double expected = kDraws * (nDistriIntegral(i - 4.5) - nDistriIntegral(i - 5.5));
    statistic += std::pow(counts[static_cast<std::size_t>(i)] - expected, 2) / expected;
  }
  EXPECT_LT(statistic, chi2DistriQuantile(0.999, 6));
  ZOR_runtime::RandSeed = seed;
}

}  // namespace
}  // namespace ZOR_statis

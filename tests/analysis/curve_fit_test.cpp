#include "zor/analysis/curve_fit.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>

#include "tests/message_of.h"
#include "tests/temp_file.h"

namespace ZOR_math2 {
namespace {

using zor::test::message_of;
using zor::test::TempFile;

// With ties in both; its statistics come from SciPy 1.10.
constexpr double kX[] = {1, 2, 2, 4, 5, 7, 8, 8, 9, 11};
constexpr double kY[] = {2.5, 2, 3.5, 5, 4, 6, 8.5, 7, 7, 12};

std::vector<double> statistics(const TCurveFit& f) {
  return {f.MeanX(),   f.MeanY(),      f.StdDevX(),   f.StdDevY(),   f.CorrCoeff(), f.MeanDiff(),
          f.RMSDiff(), f.StdDevDiff(), f.SkewnessX(), f.SkewnessY(), f.KurtosisX(), f.KurtosisY()};
}

TEST(CurveFit, HasTheStatisticsOfItsPairs) {
  TCurveFit f;
  EXPECT_EQ(f.EnterStatValues(kX, kY), 10);
  const double expected[] = {5.7,
                             5.75,
                             3.400980250849256,
                             3.0390970881350783,
                             0.932563234029553,
                             -0.05,
                             1.1726039399558574,
                             1.2349089035228469,
                             0.0033894279505841756,
                             0.8145721699511578,
                             -1.3411076295910478,
                             0.6052575046639146};
  const auto found = statistics(f);
  for (std::size_t i = 0; i < found.size(); ++i) EXPECT_NEAR(found[i], expected[i], 2e-13) << i;
  EXPECT_EQ((std::vector{f.MinX(), f.MaxX(), f.MinY(), f.MaxY()}), (std::vector<double>{1, 11, 2, 12}));
  EXPECT_EQ((std::vector{f.PercentileX(0), f.PercentileX(50), f.PercentileX(100)}), (std::vector<double>{1, 7, 11}));
  double q1, q2, q3;
  EXPECT_TRUE(f.QuartilesY(q1, q2, q3));  // places 2.75, 5.5, 8.25 of the sorted values
  EXPECT_EQ((std::vector{q1, q2, q3}), (std::vector{3.25, 5.5, 7.375}));

  double p = -1.0;
  EXPECT_NEAR(f.SpearmanRankCorr(), 0.9388423105261694, 1e-14);
  EXPECT_NEAR(f.KendallsTau(p), 0.8276408817690653, 1e-14);
  EXPECT_NEAR(f.KruskalGamma(), 36.0 / 42.0, 1e-15);
  f.FlipXY();
  EXPECT_NEAR(f.MeanX(), 5.75, 1e-15);
  EXPECT_NEAR(f.MeanDiff(), 0.05, 1e-15);
  EXPECT_NEAR(f.KendallsTau(p), 0.8276408817690653, 1e-14);
}

TEST(CurveFit, CountsPairsOfPairsLikeThePlainLoop) {
  std::minstd_rand random(7);
  for (int n : {3, 4, 8, 50, 257}) {
    TCurveFit f;
    for (int i = 0; i < n; ++i) f.EnterStatValue(static_cast<double>(random() % 9), static_cast<double>(random() % 7));
    double up = 0, down = 0, tx = 0, ty = 0;
    for (int i = 1; i <= n; ++i)
      for (int j = 1; j < i; ++j) {
        const double dx = f.DataX(i) - f.DataX(j), dy = f.DataY(i) - f.DataY(j);
        (dx * dy > 0 ? up : down) += dx * dy != 0;
        tx += dx == 0 && dy != 0;
        ty += dy == 0 && dx != 0;
      }
    double p;
    const double untied = std::sqrt((up + down + tx) * (up + down + ty));
    EXPECT_NEAR(f.KendallsTau(p), untied > 0 ? (up - down) / untied : 0.0, 1e-14) << n;
    EXPECT_NEAR(f.KruskalGamma(), up + down > 0 ? (up - down) / (up + down) : 0.0, 1e-15) << n;
  }
}

TEST(CurveFit, RemovingWhatCameLastRestoresTheStatisticsToTheLastBit) {
  TCurveFit f;
  for (int i = 0; i < 50; ++i) f.EnterStatValue(std::exp(i * 0.1), std::sin(i) * 1e3);
  const auto before = statistics(f);
  for (int i = 0; i < 20; ++i) f.EnterStatValue(1e9 * std::cos(i), 1.0 / (i + 3));
  for (int i = 70; i > 50; --i) f.RemoveStatValue(i);
  EXPECT_EQ(statistics(f), before);
  EXPECT_GT(f.MaxX(), 1e8) << "extremes are kept";
  f.RemoveStatValue(0);
  f.RemoveStatValue(51);
  EXPECT_EQ(f.NumData(), 50);
  f.RemoveStatValue(1);
  EXPECT_EQ(f.DataX(1), std::exp(0.1));
  EXPECT_EQ(f.DataX(50), 0.0);
}

TEST(CurveFit, MarksWhatPairsMakeUndefined) {
  const struct {
    double x, y;
    std::vector<TCurveFitError> marks;
  } cases[] = {{1, 1, {}},         {-1, 2, {cfeXLE0}},        {0, 2, {cfeXLE0, cfeXEQ0}}, {1e-31, 2, {cfeXEQ0}},
               {1, -2, {cfeYLE0}}, {1, 0, {cfeYLE0, cfeYEQ0}}};
  for (const auto& [x, y, marks] : cases) {
    TCurveFit f;
    f.EnterStatValue(x, y);
    f.RemoveStatValue(1);
    TCurveFitErrors expected;
    for (const auto mark : marks) expected.include(mark);
    EXPECT_EQ(f.ErrIndic(), expected) << x << ' ' << y;
    f.Init();
    EXPECT_TRUE(f.ErrIndic().empty());
  }
}

TEST(CurveFit, GivesNeutralValuesForFewAndConstantPairs) {
  TCurveFit f;
  double p = 1, q1 = 1, q2 = 1, q3 = 1;
  EXPECT_THAT(statistics(f), testing::Each(0.0));
  EXPECT_FALSE(f.QuartilesX(q1, q2, q3));
  EXPECT_EQ(q1 + q2 + q3 + f.PercentileX(50) + f.KendallsTau(p) + p + f.KruskalGamma() + f.SpearmanRankCorr(), 0.0);
  for (int i = 0; i < 3; ++i) f.EnterStatValue(1e6 + i, 0.3);  // sums of squares that do not cancel
  EXPECT_EQ(f.CorrCoeff(), 0.0);
  EXPECT_EQ(f.StdDevY(), 0.0);
  EXPECT_EQ(f.SpearmanRankCorr(), 0.0);
  EXPECT_EQ(f.KendallsTau(p), 0.0);
}

TEST(CurveFit, MeanAngleIsThatOfTheMeanVector) {
  const struct {
    std::vector<double> angles;
    double mean;
  } cases[] = {{{}, 0}, {{80, 100}, 90}, {{-80, -100}, 270}, {{170, 200}, 185}, {{350, 330}, 340}};
  for (const auto& [angles, mean] : cases) {
    TCurveFit f;
    f.EnterStatValues(angles, angles);
    EXPECT_NEAR(f.MeanAngleX(), mean, 1e-12);
    EXPECT_NEAR(f.MeanAngleY(), mean, 1e-12);
  }
}

TEST(CurveFit, ReadsTheFileThatItWrites) {
  const TempFile file, none;
  TCurveFit f, g;
  f.EnterStatValues(kX, kY);
  EXPECT_EQ(f.ExportAsASC(file.path(), "", 2), "");
  EXPECT_THAT(file.contents(), testing::EndsWith("x   y\n1.00\t2.50\n2.00\t2.00\n2.00\t3.50\n4.00\t5.00\n5.00\t4.00\n"
                                                 "7.00\t6.00\n8.00\t8.50\n8.00\t7.00\n9.00\t7.00\n11.00\t12.00\n"));
  EXPECT_EQ(g.ImportASC(file.path()), 0);
  EXPECT_EQ(statistics(g), statistics(f));
  EXPECT_EQ(g.ImportASC(file.path()), 0);
  EXPECT_EQ(g.NumData(), 10);
  EXPECT_NEAR(g.MeanX(), 2 * f.MeanX(), 1e-14) << "the sums of the earlier pairs stay";
  EXPECT_NE(f.ExportAsASC("/nowhere/file", "", 2), "");
  EXPECT_LT(g.ImportASC(none.path()), 0);

  const std::string head = file.contents().substr(0, file.contents().find("1.00\t"));
  for (const std::string& rows : {std::string("1 2\n3"), std::string("1 2\n3 x\n")}) {
    const TempFile damaged(head + rows);
    TCurveFit h;
    h.EnterStatValue(1, 2);
    EXPECT_NE(message_of<EInOutError>([&] { h.ImportASC(damaged.path()); }), "") << rows;
    EXPECT_EQ(h.NumData(), 1);
  }
}

}  // namespace
}  // namespace ZOR_math2

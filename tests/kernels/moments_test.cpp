#include "zor/kernels/moments.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "tests/kernels/runs.h"
#include "tests/source_dir.h"

namespace zor::kernels {
namespace {

using test::kInf;
using test::kLengths;
using test::kNaN;
using test::noise;
using test::on_every_level;
using test::same;

/// 113 bits: sums of squares of doubles of like size are exact to some 1e-30.
__extension__ typedef __float128 Quad;

/// The sum of squared deviations in two passes.
double deviations(std::span<const double> x, std::span<const double> y) {
  Quad mx = 0, my = 0, sum = 0;
  for (std::size_t i = 0; i < x.size(); ++i) mx += x[i], my += y[i];
  mx /= static_cast<Quad>(x.size());
  my /= static_cast<Quad>(x.size());
  for (std::size_t i = 0; i < x.size(); ++i) sum += (x[i] - mx) * (y[i] - my);
  return static_cast<double>(sum);
}

struct Certified {
  const char* file;
  double mean, deviation;
  double digits;  // relative error that the rounding of the decimals themselves leaves
};

/// The columns of a data file of NIST: what follows its last line "Data: ..." and a line of hyphens, if there is one.
std::vector<std::vector<double>> read(const std::string& file, std::size_t columns) {
  std::ifstream in(zor::test::source_dir() / "tests/data/nist" / file);
  std::string data;
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("Data:", 0) == 0 || line.find("Treatment") != std::string::npos) {
      data.clear();
    } else if (line.rfind("---", 0) != 0) {
      data += line + '\n';
    }
  }
  std::vector<std::vector<double>> cells(columns);
  std::istringstream words(data);
  std::size_t k = 0;
  for (double v; words >> v; ++k) cells[k % columns].push_back(v);
  return cells;
}

// NIST Statistical Reference Datasets, univariate, mean and standard deviation certified to 15 digits. Tenths are no
// doubles: an error of half a unit of 10000000.2 is 1e-8 of a deviation of 0.1.
TEST(MeanVarCertified, Nist) {
  const Certified sets[] = {{"Lew.dat", -177.435, 277.332168044316, 4e-15},
                            {"Michelso.dat", 299.8524, 0.0790105478190518, 1e-12},
                            {"NumAcc1.dat", 10000002.0, 1.0, 0.0},
                            {"NumAcc3.dat", 1000000.2, 0.1, 2e-9},
                            {"NumAcc4.dat", 10000000.2, 0.1, 2e-8}};
  on_every_level([&] {
    for (const Certified& set : sets) {
      const auto x = read(set.file, 1)[0];
      ASSERT_GE(x.size(), 3u) << set.file;
      const MeanVar m = mean_variance(x);
      EXPECT_EQ(m.n, x.size());
      EXPECT_NEAR(m.mean, set.mean, 4e-16 * std::abs(set.mean)) << set.file;
      EXPECT_NEAR(std::sqrt(m.variance), set.deviation, set.digits * set.deviation) << set.file;
      // To the data as they are stored it is right to the last bits.
      const double exact = deviations(x, x) / static_cast<double>(x.size() - 1);
      EXPECT_NEAR(m.variance, exact, 5e-16 * exact) << set.file;
    }
  });
}

// NIST StRD, analysis of variance, "SmLs01", whose treatments stand in columns under their numbers: the sums of squares
// between and within treatments are certified as 1.68 and 1.80. The harder sets of the family have the same deviations
// at 1e6 and 1e12; there tenths are no doubles.
TEST(MeanVarCertified, SmLsAtAllItsOffsets) {
  auto columns = read("SmLs01t.dat", 9);
  std::vector<double> cells;
  for (const auto& column : columns) cells.insert(cells.end(), column.begin() + 1, column.end());
  ASSERT_EQ(cells.size(), 189u);
  for (const double offset : {0.0, 999'999.0, 999'999'999'999.0}) {
    std::vector<double> x = cells;
    for (double& v : x) v += offset;
    const double exact = deviations(x, x) / 188.0;
    EXPECT_NEAR(mean_variance(x).variance, exact, 4.5e-16 * exact) << offset;
    EXPECT_NEAR(exact * 188.0, 3.48, offset * 1e-15 + 1e-13) << offset;
  }
}

// NIST StRD, linear regression, "Norris": slope and R^2 certified to 15 digits.
TEST(PairMomentsCertified, NorrisLine) {
  const auto cells = read("Norris.dat", 2);
  ASSERT_EQ(cells[1].size(), 36u);
  const PairMoments m = pair_moments(cells[1], cells[0]);
  EXPECT_NEAR(m.cxy / m.cxx, 1.00211681802045, 1e-14);  // the tenths of the data are no doubles
  EXPECT_NEAR(m.cxy * m.cxy / (m.cxx * m.cyy), 0.999993745883712, 2e-15);
}

TEST(MeanVar, IsRightToTheLastBitsAtEveryLengthAndOffset) {
  for (const std::size_t n : kLengths) {
    if (n < 2) continue;
    for (const double offset : {0.0, 1e3, 1e8}) {
      auto x = noise<double>(n + 1, 9);
      for (double& v : x) v += offset;
      const std::span<const double> run = std::span(x).subspan(1);
      const double exact = deviations(run, run) / static_cast<double>(n - 1);
      const double squares = offset * offset + 1.0;  // of a cell: 2^-98 of them may be lost
      EXPECT_NEAR(mean_variance(run).variance, exact, 5e-16 * exact + 4e-30 * 2 * squares) << n << ' ' << offset;
    }
  }
}

// Five cells near 1e15: their variance is that of the eighths that they are as doubles, 0.292, exactly.
TEST(MeanVar, IsRightToTheLastBitsHoweverSmallTheSpread) {
  const std::vector<double> five{1000000000000000.2, 1000000000000000.2, 1000000000000001.1, 999999999999999.6,
                                 1000000000000000.5};
  std::vector<double> eighths;
  for (const double x : five) eighths.push_back(x - 1e15);
  on_every_level([&] {
    EXPECT_EQ(mean_variance(five).variance, mean_variance(eighths).variance);
    for (const double offset : {1e7, 1e9, 1e12, 1e15, -1e12}) {
      for (const double spread : {2.0, 0.2, 0.001}) {
        auto x = noise<double>(1000, 3), y = noise<double>(1000, 4);
        for (double& v : x) v = offset + spread * v;
        const double exact = deviations(x, x), product = deviations(x, y);
        EXPECT_NEAR(mean_variance(x).variance, exact / 999.0, 4.5e-16 * exact / 999.0) << offset << ' ' << spread;
        const PairMoments m = pair_moments(x, y);
        EXPECT_NEAR(m.cxx, exact, 4.5e-16 * exact);
        EXPECT_NEAR(m.cxy, product, 1e-15 * std::sqrt(exact * 1000.0)) << offset << ' ' << spread;
      }
    }
    std::vector<std::int32_t> whole(1000, 2'000'000'000);
    whole[77] += 1;
    EXPECT_EQ(mean_variance(whole).variance, 1e-3);
  });
}

TEST(MeanVar, FollowsCellsThatGrowByManyOrders) {
  std::vector<double> x(10'000);
  for (std::size_t i = 0; i < x.size(); ++i) x[i] = std::ldexp(i % 2 ? 1.25 : -1.0, static_cast<int>(i / 100));
  on_every_level([&] {
    const double exact = deviations(x, x) / 9999.0;
    EXPECT_NEAR(mean_variance(x).variance, exact, 5e-16 * exact);
  });
}

TEST(MeanVar, OfEqualCellsIsExactlyTheirValueAndZero) {
  for (const std::size_t n : kLengths) {
    if (n == 0) continue;
    const MeanVar m = mean_variance(std::vector<double>(n, 0.1));
    EXPECT_EQ(m.mean, 0.1);
    EXPECT_EQ(m.variance, 0.0);
  }
  std::vector<double> x(3000, 1000000.1);
  x.back() = std::nextafter(1000000.1, 0.0);
  EXPECT_GT(mean_variance(x).variance, 0.0);
}

TEST(MeanVar, OfNoneOneAndIntegers) {
  EXPECT_EQ(mean_variance(std::vector<double>{}).mean, 0.0);
  EXPECT_EQ(mean_variance(std::vector<double>{5.0}).variance, 0.0);
  const MeanVar m = mean_variance(std::vector<std::int32_t>{2'147'483'645, 2'147'483'646, 2'147'483'647});
  EXPECT_EQ(m.mean, 2'147'483'646.0);
  EXPECT_EQ(m.variance, 1.0);
}

TEST(MeanVar, InfinityNaNAndOverflowGiveWhatPlainSumsGive) {
  on_every_level([] {
    for (const std::size_t at : {0u, 31u, 700u, 2999u}) {
      auto x = noise<double>(3000);
      x[at] = kInf;
      EXPECT_EQ(mean_variance(x).mean, kInf);
      EXPECT_TRUE(std::isnan(mean_variance(x).variance));
      x[at] = kNaN;
      EXPECT_TRUE(std::isnan(mean_variance(x).mean));
      EXPECT_TRUE(std::isnan(mean_variance(x).variance));
      x[at] = 1e200;  // its square is infinite
      EXPECT_NEAR(mean_variance(x).mean, 1e200 / 3000.0, 1e183);
      EXPECT_TRUE(std::isnan(mean_variance(x).variance));  // infinity - infinity
    }
    EXPECT_TRUE(std::isnan(mean_variance(std::vector<double>(5, kInf)).variance));
  });
}

TEST(MeanVar, TinyCellsKeepThePlainPrecision) {
  const std::vector<double> x{1e-160, 2e-160, 3e-160};
  EXPECT_NEAR(mean_variance(x).variance, 1e-320, 1e-323);
  EXPECT_DOUBLE_EQ(mean_variance(std::vector<double>{1e-140, 2e-140, 3e-140}).variance, 1e-280);
}

TEST(MeanVar, RunByRunIsTheWholeToTheLastBits) {
  const auto x = noise<double>(5000, 3);
  const std::span<const double> all = x;
  MomentSums sums;
  for (std::size_t i = 0; i < x.size(); i += 37) accumulate(sums, all.subspan(i, std::min<std::size_t>(37, 5000 - i)));
  EXPECT_DOUBLE_EQ(mean_variance(sums).variance, mean_variance(x).variance);
  EXPECT_DOUBLE_EQ(mean_variance(sums).mean, mean_variance(x).mean);
  EXPECT_EQ(sums.n, x.size());
}

TEST(Twofold, SumsKeepWhatCancels) {
  EXPECT_EQ(sum_twofold(std::vector<double>{1e16, 1.0, -1e16, 0x1p-40}).hi, 1.0 + 0x1p-40);
  const DoubleDouble s = sum_twofold(std::vector<double>{0x1p60, 1.0});
  EXPECT_EQ(s.hi, 0x1p60);
  EXPECT_EQ(s.lo, 1.0);
  const std::vector<double> c{1.0 + 0x1p-40, -1.0}, d{1.0 - 0x1p-40, 1.0};
  EXPECT_EQ(dot_twofold(c, d).hi, -0x1p-80);
}

TEST(Twofold, EveryLevelGivesTheSameBits) {
  const auto bits = [](std::span<const double> x, std::span<const double> y) {
    MomentSums sums;
    accumulate(sums, x);
    std::vector<double> all{sum_twofold(x).hi, sum_twofold(x).lo, dot_twofold(x, y).hi, dot_twofold(x, y).lo};
    for (const PartialSums* s : {&sums.sum, &sums.squares}) {
      all.insert(all.end(), s->hi, s->hi + kPartialSums);
      // What lies below an infinite sum says nothing.
      for (std::size_t i = 0; i < kPartialSums; ++i) all.push_back(std::isfinite(s->hi[i]) ? s->lo[i] : 0.0);
    }
    return all;
  };
  for (const std::size_t n : kLengths) {
    for (unsigned seed = 1; seed < 12; ++seed) {
      auto x = seed < 6 ? noise<double>(n, seed) : test::edges(n, seed), y = noise<double>(n, seed + 50);
      // Factors of all sizes, whose products overflow, underflow, or fall between.
      for (std::size_t i = 0; i < n && seed % 3 != 0; ++i) {
        const int size = static_cast<int>(seed) * 60;
        x[i] = std::ldexp(x[i], static_cast<int>(i * 7919 % 1024) % (size + 1) - size / 2);
        y[i] = std::ldexp(y[i], static_cast<int>(i * 104729 % 1024) % (size + 1) - size / 2);
      }
      limit_level(Level::v2);
      const auto expected = bits(x, y);
      on_every_level([&] { EXPECT_TRUE(same(bits(x, y), expected)) << n << ' ' << seed; });
    }
  }
}

TEST(PairMoments, AreRightToTheLastBits) {
  for (const std::size_t n : kLengths) {
    if (n < 2) continue;
    auto x = noise<double>(n, 1), y = noise<double>(n, 2);
    for (std::size_t i = 0; i < n; ++i) x[i] += 1e7, y[i] += x[i];
    const PairMoments m = pair_moments(x, y);
    const double exact = deviations(x, y);
    EXPECT_NEAR(m.cxy, exact, 1e-13 * std::sqrt(m.cxx * m.cyy)) << n;
    EXPECT_NEAR(m.cxx, deviations(x, x), 1e-13 * m.cxx);
    EXPECT_NEAR(m.cyy, deviations(y, y), 1e-13 * m.cyy);
    EXPECT_EQ(m.sx, sum_twofold(x).hi);
    EXPECT_EQ(m.sxy, dot_twofold(x, y).hi);
    EXPECT_EQ(m.syy, dot_twofold(y, y).hi);
  }
}

TEST(PairMoments, AConstantHasNeitherVarianceNorCovariance) {
  const auto x = noise<double>(100);
  const PairMoments m = pair_moments(x, std::vector<double>(100, 0.3));
  EXPECT_EQ(m.cyy, 0.0);
  EXPECT_EQ(m.cxy, 0.0);
  EXPECT_GT(m.cxx, 0.0);
  EXPECT_EQ(pair_moments(std::vector<double>{}, std::vector<double>{}).cxy, 0.0);
}

TEST(CentralSums, HaveTheBitsOfThePlainLoop) {
  const auto x = noise<double>(333);
  volatile double d1 = 0.0, d2 = 0.0, d3 = 0.0, d4 = 0.0;
  for (const double v : x) {
    const double d = v - 0.125;
    d1 = d1 + d;
    d2 = d2 + d * d;
    d3 = d3 + d * d * d;
    d4 = d4 + (d * d) * (d * d);
  }
  CentralSums s;
  accumulate_in_order(s, std::span(x).first(100), 0.125);
  accumulate_in_order(s, std::span(x).subspan(100), 0.125);
  EXPECT_EQ(s.d1, d1);
  EXPECT_EQ(s.d2, d2);
  EXPECT_EQ(s.d3, d3);
  EXPECT_EQ(s.d4, d4);
}

}  // namespace
}  // namespace zor::kernels

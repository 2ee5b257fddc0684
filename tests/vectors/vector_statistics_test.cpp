#include <cmath>
#include <limits>

#include "tests/vectors/vector_util.h"
#include "zor/runtime/cell_memory.h"
#include "zor/scalar/sorting.h"

namespace ZOR_vector {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

TYPED_TEST_SUITE(Twins, TwinTypes);

TYPED_TEST(Twins, MeanAndVarianceOfFewOrEqualValues) {
  TypeParam v;
  double mean = 0, variance = 0;
  set(v, {1, 3});
  v.MeanVar(0, 0, mean, variance);
  EXPECT_EQ(mean, 2.0);
  EXPECT_EQ(variance, 1.0) << "the value for less than three";
  set(v, {7, 7, 7});
  v.MeanVar(0, 0, mean, variance);
  EXPECT_EQ(variance, 0.0);
  set(v, {9, 1, 2, 3, 4, 9});
  v.MeanVar(5, 2, mean, variance);
  EXPECT_EQ(mean, 2.5);
  EXPECT_DOUBLE_EQ(variance, 5.0 / 3.0);
}

TEST(TVectorStatistics, VarianceKeepsItsDigitsOnLargeOffsets) {
  TVector v;
  double mean = 0, variance = 0;
  set(v, {1e8 + 1, 1e8 + 2, 1e8 + 3});
  v.MeanVar(0, 0, mean, variance);
  EXPECT_EQ(variance, 1.0);
  set(v, {0.3, 0.3, 0.3});
  v.MeanVar(0, 0, mean, variance);
  EXPECT_EQ(variance, 0.0);
}

TYPED_TEST(Twins, ExtremesKeepTheFirstOfEqualValues) {
  TypeParam v;
  typename TypeParam::value_type lo = 0, hi = 0;
  Integer lo_ix = 0, hi_ix = 0;
  set(v, {2, 1, 1, 2});
  v.MinMax(0, 0, lo, hi, lo_ix, hi_ix);
  EXPECT_EQ(lo_ix, 2);
  EXPECT_EQ(hi_ix, 1);
  v.MinMax(3, 4, lo, hi, lo_ix, hi_ix);
  EXPECT_EQ(lo_ix, 3);
  EXPECT_EQ(hi_ix, 4);
}

TEST(Extremes, ValuesBeyondTheStartOfTheSearchHaveNoPlace) {
  TVector v;
  double lo = 0, hi = 0;
  Integer lo_ix = 9, hi_ix = 9;
  set(v, {kNaN, kNaN});
  v.MinMax(0, 0, lo, hi, lo_ix, hi_ix);
  EXPECT_EQ(lo, 1.7e308);
  EXPECT_EQ(hi, -1.7e308);
  EXPECT_EQ(lo_ix, 0);
  EXPECT_EQ(hi_ix, 0);
  TIntVector n;
  Integer low = 0, high = 0;
  set(n, {std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::min()});
  n.MinMax(0, 0, low, high, lo_ix, hi_ix);
  EXPECT_EQ(lo_ix, 1);
  EXPECT_EQ(hi_ix, 0);
  EXPECT_EQ(high, -2147483647);
  n.Fill(std::numeric_limits<Integer>::max());
  n.MinMax(0, 0, low, high, lo_ix, hi_ix);
  EXPECT_EQ(lo_ix, 0);
}

TYPED_TEST(Twins, ModeIsTheSmallestOfTheMostFrequent) {
  TypeParam v;
  set(v, {3, 1, 2});
  EXPECT_EQ(v.Mode(0, 0), 1);
  set(v, {2, 2, 1, 1});
  EXPECT_EQ(v.Mode(0, 0), 1);
  set(v, {5, 5, 5, 1, 1});
  EXPECT_EQ(v.Mode(0, 0), 5);
  EXPECT_EQ(v.Mode(4, 5), 1);
  EXPECT_EQ(v.GetVal(1), 5) << "the order of the vector stays";
}

TYPED_TEST(Twins, QuartilesInterpolateAtPositionsOfNPlusOne) {
  TypeParam v;
  double q1 = 0, q2 = 0, q3 = 0;
  struct Case {
    std::initializer_list<typename TypeParam::value_type> data;
    double q1, q2, q3;
  };
  for (const Case& c : {Case{{5}, 5, 5, 5}, Case{{2, 1}, 1, 1.5, 2}, Case{{3, 1, 2}, 1, 2, 3},
                        Case{{4, 1, 3, 2}, 1.25, 2.5, 3.75}, Case{{9, 7, 5, 3, 1, 2, 8}, 2, 5, 8}}) {
    set(v, c.data);
    EXPECT_TRUE(v.Quartiles(0, 0, q1, q2, q3));
    EXPECT_EQ(q1, c.q1);
    EXPECT_EQ(q2, c.q2);
    EXPECT_EQ(q3, c.q3);
  }
}

TYPED_TEST(Twins, PercentilesInterpolateBetweenRanks) {
  TypeParam v;
  set(v, {3, 1, 4, 2});
  EXPECT_EQ(v.Percentile(50, 0, 0), 2.5);
  EXPECT_EQ(v.Percentile(150, 0, 0), 4);
  EXPECT_EQ(v.Percentile(-1, 0, 0), 1);
  EXPECT_EQ(v.Percentile(100, 1, 2), 3);
  EXPECT_DOUBLE_EQ(v.Percentile(std::nextafter(100.0, 0.0), 0, 0), 4);
  EXPECT_TRUE(std::isnan(v.Percentile(kNaN, 0, 0)));
  set(v, {1, 2});
  EXPECT_EQ(v.Percentile(50, 0, 0), 1.5);
}

TEST(Percentiles, EqualThoseOfASortedCopyForEveryKindOfCell) {
  TVector v, sorted;
  v.Resize(257);
  v.FillRandomGauss(0, 1);
  v.SetVal(3, -0.0), v.SetVal(200, 0.0), v.SetVal(7, kInf);
  for (const bool with_nan : {false, true}) {
    if (with_nan) v.SetVal(100, kNaN);
    typename TVector::TArray copy;
    v.CopyToArray(copy, 0, 0, 0);
    ZOR_math1::SortArray(std::span<double>(copy), true);
    for (Integer k = 0; k < 256; ++k) {
      const double got = v.Percentile(100.0 * k / 256.0, 0, 0);
      const double want = copy[k] + (copy[k + 1] - copy[k]) * 0.0;
      if (std::isnan(want)) {
        EXPECT_TRUE(std::isnan(got)) << k;
      } else {
        EXPECT_EQ(got, want) << k;
      }
    }
  }
}

TYPED_TEST(Twins, OrderStatisticsReportMissingHeapInTheirOwnWords) {
  TypeParam v;
  v.SetName("V");
  v.Resize(1000);
  double q = 0;
  zor::detail::AllocationLimitScope limit({.largest = zor::detail::AllocationLimits::kNone, .failing_call = 1});
  EXPECT_EQ(message_of<EZORVectorError>([&] { v.Quartiles(0, 0, q, q, q); }),
            "Component \"V\": not enough memory on heap");
  zor::detail::AllocationLimitScope again({.largest = 100, .failing_call = zor::detail::AllocationLimits::kNone});
  EXPECT_EQ(message_of<EZORVectorError>([&] { v.Percentile(50, 0, 0); }), "Component \"V\": not enough memory on heap");
  EXPECT_THROW(v.Mode(0, 0), EOutOfMemory);
}

TYPED_TEST(Twins, OrderStatisticsCountAsProgress) {
  TypeParam v;
  set(v, {4, 2, 3, 1});
  ProcStat = 0;
  double q = 0;
  v.Quartiles(0, 0, q, q, q);
  EXPECT_GT(ProcStat, 0.0);
  static int calls;
  calls = 0;
  MathFeedBackProc = [](double) { ++calls; };
  EXPECT_EQ(v.Percentile(50, 0, 0), 2.5);
  MathFeedBackProc = nullptr;
  EXPECT_GT(calls, 0);
}

TYPED_TEST(Twins, MeansOfOtherKinds) {
  TypeParam v;
  v.SetName("V");
  set(v, {0, 4});
  EXPECT_EQ(v.GeometricMean(0, 0), 0.0);
  set(v, {2, 8, 4});
  EXPECT_NEAR(v.GeometricMean(0, 0), 4.0, 1e-14);
  EXPECT_NEAR(v.HarmonicMean(0, 0), 3.0 / 0.875, 1e-14);
  set(v, {4, 0, -1});
  EXPECT_EQ(message_of<EZORVectorError>([&] { v.GeometricMean(0, 0); }),
            "Component \"V\": negative argument passed to GeometricMean");
  EXPECT_EQ(message_of<EZORVectorError>([&] { v.HarmonicMean(1, 2); }),
            "Component \"V\": negative or zero argument passed to HarmonicMean");
}

// R 4, e1071::skewness and kurtosis of c(1, 2, 3, 4, 10): type 3 (the plain form) and type 2 (the sample form).
// Recomputed with exact fractions: m2 = 10, m3 = 36, m4 = 278.8 about the mean 4, s^2 = 12.5.
TYPED_TEST(Twins, SkewnessAndKurtosis) {
  TypeParam v;
  double skew = 9, kurt = 9;
  set(v, {1, 2, 3});
  v.SkewKurt(0, 0, skew, kurt);
  EXPECT_EQ(skew, 0.0);
  EXPECT_EQ(kurt, 0.0);
  set(v, {1, 2, 3, 4, 10});
  v.SkewKurt(0, 0, skew, kurt);
  EXPECT_NEAR(skew, 36.0 / std::pow(12.5, 1.5), 1e-14);
  EXPECT_NEAR(kurt, 278.8 / (12.5 * 12.5) - 3.0, 1e-14);
  v.SkewKurtSample(0, 0, skew, kurt);
  EXPECT_NEAR(skew, 36.0 / std::pow(10.0, 1.5) * std::sqrt(20.0) / 3.0, 1e-13);
  EXPECT_NEAR(kurt, 278.8 / (12.5 * 12.5) * 5 * 5 * 6 / 4.0 / 3 / 2 - 3.0 * 16 / 3 / 2, 1e-13);
}

TEST(TVectorHistogram, CountsEveryElementExactlyOnce) {
  TVector v;
  TIntArray histo;
  Integer under = 0, over = 0, most = 0;
  set(v, {9.99, 10.0, -0.1, 0.0, 0.5, kNaN, kInf, -kInf});
  EXPECT_TRUE(v.Histogram(1, 8, 0, 9, 1, histo, under, over, most));
  EXPECT_EQ(histo.size(), 10U);
  EXPECT_EQ(histo[0], 2);
  EXPECT_EQ(histo[9], 1);
  EXPECT_EQ(under, 2);
  EXPECT_EQ(over, 3);
  EXPECT_EQ(most, 2);
  // Numbers outside the vector read 0; a range of 2^32 numbers takes no time and saturates.
  EXPECT_TRUE(v.Histogram(std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max(), 0, 9, 1, histo,
                          under, over, most));
  EXPECT_EQ(histo[0], 2147483647);
  EXPECT_EQ(most, 2147483647);
  EXPECT_TRUE(v.Histogram(5, 2, 0, 9, 1, histo, under, over, most));
  EXPECT_EQ(under + over + most, 0);
  EXPECT_TRUE(v.Histogram(0, 0, 0, 9, 1, histo, under, over, most));
  EXPECT_EQ(histo[0], 1) << "element 0 reads 0; (0, 0) is not the whole vector here";
  EXPECT_EQ(under + over + most, 1);
}

TEST(TVectorHistogram, RefusesMoreThanFiveHundredBinsAndBadLimits) {
  TVector v;
  TIntArray histo = {7};
  Integer under = 1, over = 2, most = 3;
  EXPECT_TRUE(v.Histogram(1, 1, 0, 998, 2, histo, under, over, most));
  EXPECT_EQ(histo.size(), 500U);
  histo = {7}, under = 1;
  EXPECT_FALSE(v.Histogram(1, 1, 0, 1000, 2, histo, under, over, most));
  EXPECT_FALSE(v.Histogram(1, 1, 0, 499.5, 1, histo, under, over, most)) << "a tie that rounds to 500";
  EXPECT_FALSE(v.Histogram(1, 1, 0, 9, 0, histo, under, over, most));
  EXPECT_FALSE(v.Histogram(1, 1, 0, 9, -1, histo, under, over, most));
  EXPECT_FALSE(v.Histogram(1, 1, 0, kInf, 1, histo, under, over, most));
  EXPECT_FALSE(v.Histogram(1, 1, kNaN, 9, 1, histo, under, over, most));
  EXPECT_EQ(histo, (TIntArray{7}));
  EXPECT_EQ(under, 1);
}

TEST(TVectorHistogram, AValueThatRoundsBehindTheLastBinIsOverflow) {
  TVector v;
  TIntArray histo;
  Integer under = 0, over = 0, most = 0;
  set(v, {5.1 - 1e-15});
  EXPECT_TRUE(v.Histogram(1, 1, 0.1, 4.9, 0.2, histo, under, over, most));
  EXPECT_EQ(histo.size(), 25U);
  EXPECT_EQ(over + histo[24], 1);
}

TEST(TIntVectorHistogram, WidensAndRaises) {
  TIntVector v;
  v.SetName("N");
  constexpr Integer kMin = std::numeric_limits<Integer>::min(), kMax = std::numeric_limits<Integer>::max();
  TIntArray histo;
  Integer under = 0, over = 0, most = 0;
  set(v, {kMin, -1, 0, kMax});
  EXPECT_EQ(message_of<EZORVectorError>([&] { v.Histogram(1, 4, 0, 1000, 1, histo, under, over, most); }),
            "Component \"N.Histogram\": invalid number of bins");
  EXPECT_TRUE(v.Histogram(1, 4, kMin, kMax, kMax, histo, under, over, most));
  EXPECT_EQ(histo, (TIntArray{1, 2, 1}));
  EXPECT_TRUE(v.Histogram(1, 4, -2, 1, 0, histo, under, over, most));
  EXPECT_EQ(histo, (TIntArray{0, 1, 1, 0}));
  EXPECT_EQ(under, 1);
  EXPECT_EQ(over, 1);
  EXPECT_TRUE(v.Histogram(1, 4, 0, 5, 4, histo, under, over, most));
  EXPECT_EQ(histo.size(), 2U) << "values from 8 on have no bin";
}

TYPED_TEST(Twins, AHistogramIntoAVectorTellsItsSizeThenItsCounts) {
  TypeParam v;
  TIntVector histo;
  Integer under = 0, over = 0, most = 0;
  set(v, {1, 2, 2});
  Listener told(histo);
  EXPECT_TRUE(v.Histogram(1, 3, 1, 3, 1, &histo, under, over, most));
  EXPECT_EQ(told.take(), "CRC");
  EXPECT_EQ(values_of(histo), (std::vector<Integer>{1, 2, 0}));
  TIntVector* none = nullptr;
  EXPECT_FALSE(v.Histogram(1, 3, 1, 3, 1, none, under, over, most));
}

TYPED_TEST(Twins, DichotomousVectorsHaveTwoValuesAtMost) {
  TypeParam v;
  typename TypeParam::value_type a = 9, b = 9;
  EXPECT_FALSE(v.IsDichotomous(a, b));
  EXPECT_EQ(a, 0);
  set(v, {1, 1, 1});
  EXPECT_TRUE(v.IsDichotomous(a, b));
  EXPECT_EQ(b, 1);
  set(v, {1, 2, 1, 3});
  EXPECT_FALSE(v.IsDichotomous(a, b));
  EXPECT_EQ(a, 1);
  EXPECT_EQ(b, 2);
  set(v, {4, 2, 4, 2});
  EXPECT_TRUE(v.IsDichotomous(a, b));
}

TYPED_TEST(Twins, CorrelationNeedsTwoVaryingVectorsOfOneSize) {
  TypeParam v, w;
  set(v, {1, 2, 3, 4});
  set(w, {2, 4, 6, 8});
  EXPECT_DOUBLE_EQ(v.PearsonCorrCoeff(&w), 1.0);
  set(w, {8, 6, 4, 2});
  EXPECT_DOUBLE_EQ(v.PearsonCorrCoeff(&w), -1.0);
  set(w, {3, 3, 3, 3});
  EXPECT_EQ(v.PearsonCorrCoeff(&w), 0.0);
  w.Resize(3);
  EXPECT_EQ(v.PearsonCorrCoeff(&w), 0.0);
  EXPECT_EQ(v.PearsonCorrCoeff(nullptr), 0.0);
}

TEST(Correlation, KeepsItsDigitsOnLargeOffsetsAndExtremeScales) {
  TVector v, w;
  set(v, {1e9 + 1, 1e9 + 2, 1e9 + 3});
  set(w, {-1e9 + 1, -1e9 + 2, -1e9 + 4});
  EXPECT_NEAR(v.PearsonCorrCoeff(&w), 3.0 / std::sqrt(2.0 * 14.0 / 3.0), 1e-15);
  set(v, {1e-100, 2e-100, 3e-100});
  EXPECT_NEAR(v.PearsonCorrCoeff(&v), 1.0, 1e-15);
}

TEST(LagProducts, TheTwinsShiftInOppositeDirections) {
  TVector v;
  set(v, {1, 2, 3, 4});
  EXPECT_EQ(v.Correlate(&v, 1), 2.0 * 1 + 3 * 2 + 4 * 3);
  EXPECT_EQ(v.Correlate(&v, -1), 1.0 * 2 + 2 * 3 + 3 * 4);
  EXPECT_EQ(v.Correlate(&v, 3), 0.0) << "an overlap of one element counts as none";
  EXPECT_EQ(v.Correlate(&v, std::numeric_limits<Integer>::max()), 0.0);
  EXPECT_EQ(v.Correlate(&v, std::numeric_limits<Integer>::min()), 0.0);
  TIntVector n, m;
  set(n, {1, 2, 3});
  set(m, {10, 20, 30, 40});
  EXPECT_EQ(n.Correlate(&m, 1), 1 * 20 + 2 * 30 + 3 * 40);
  EXPECT_EQ(n.Correlate(&m, -2), 30);
  EXPECT_EQ(n.Correlate(&m, std::numeric_limits<Integer>::min()), 0);
  EXPECT_EQ(n.Correlate(nullptr, 0), 0);
}

TYPED_TEST(Twins, DistanceOfVectorsOfOtherSizeRaises) {
  TypeParam v, w;
  set(v, {1, 2});
  set(w, {4, 6});
  EXPECT_EQ(v.EuclideanDistance(&w), 5.0);
  w.Resize(3);
  EXPECT_EQ(message_of<EZORVectorError>([&] { v.EuclideanDistance(&w); }),
            "EuclideanDistance: dimensions of vectors do not match");
  EXPECT_THROW(v.EuclideanDistance(nullptr), EZORVectorError);
}

TEST(TIntVectorStatistics, DoublesNeverGoThroughWrappingSums) {
  constexpr Integer kMax = std::numeric_limits<Integer>::max(), kMin = std::numeric_limits<Integer>::min();
  TIntVector v, w;
  set(v, {kMax, kMax, kMax - 3});
  double mean = 0, variance = 0;
  v.MeanVar(0, 0, mean, variance);
  EXPECT_EQ(mean, 2147483646.0);
  EXPECT_EQ(variance, 3.0);
  set(v, {kMax, kMin});
  set(w, {kMin, kMax});
  EXPECT_EQ(v.PearsonCorrCoeff(&w), -1.0);
  EXPECT_DOUBLE_EQ(v.EuclideanDistance(&w), 4294967295.0 * std::sqrt(2.0));
}

TEST(Scaling, StandardizesCentersAndNormalizesInSilence) {
  TVector v;
  set(v, {1, 2, 3, 4, 5});
  Listener told(v);
  EXPECT_EQ(v.MeanCenter(), 3.0);
  EXPECT_EQ(values_of(v), (std::vector<double>{-2, -1, 0, 1, 2}));
  double mean = 9, stddev = 9;
  v.Standardize(mean, stddev);
  EXPECT_EQ(mean, 0.0);
  EXPECT_DOUBLE_EQ(stddev, std::sqrt(2.5));
  EXPECT_DOUBLE_EQ(v.GetVal(5), 2.0 / std::sqrt(2.5));
  v.FillSerial(10, 1);
  told.take();
  double median = 0, spread = 0;
  v.QNormalize(25, median, spread);
  EXPECT_EQ(median, 12.0);
  EXPECT_EQ(spread, 1.0);
  EXPECT_EQ(values_of(v), (std::vector<double>{-2, -1, 0, 1, 2}));
  EXPECT_EQ(told.take(), "");
  v.Fill(0.1);
  v.Standardize(mean, stddev);
  EXPECT_EQ(stddev, 0.0);
  EXPECT_EQ(v.GetVal(1), 0.1);
  v.QNormalize(25, median, spread);
  EXPECT_EQ(v.GetVal(1), 0.1);
}

}  // namespace
}  // namespace ZOR_vector

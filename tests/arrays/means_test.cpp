#include <cmath>

#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

template <class A>
class Means : public testing::Test {};
TYPED_TEST_SUITE(Means, NumTypes);

/// Mean and deviation of the cells whose indices all lie from lo to hi.
template <class A>
Integer box_statistics(const A& a, Integer lo, Integer hi, Double& mean, Double& deviation) {
  Integer codes[2] = {};
  if constexpr (kRank<A> == 1) {
    codes[0] = MeanArray(a, lo, hi, mean);
    codes[1] = StdDevArray(a, lo, hi, deviation);
  } else if constexpr (kRank<A> == 2) {
    codes[0] = MeanArray(a, lo, lo, hi, hi, mean);
    codes[1] = StdDevArray(a, lo, lo, hi, hi, deviation);
  } else if constexpr (kRank<A> == 3) {
    codes[0] = MeanArray(a, lo, lo, lo, hi, hi, hi, mean);
    codes[1] = StdDevArray(a, lo, lo, lo, hi, hi, hi, deviation);
  } else {
    codes[0] = MeanArray(a, lo, lo, lo, lo, hi, hi, hi, hi, mean);
    codes[1] = StdDevArray(a, lo, lo, lo, lo, hi, hi, hi, hi, deviation);
  }
  EXPECT_EQ(codes[0], codes[1]);
  return codes[0];
}

TYPED_TEST(Means, OfARangeCountItsCellsOnly) {
  // The cells of the box from 0 to 1 hold +1 and -1 in equal parts, all others are far away.
  auto a = shaped<TypeParam>([](int) { return 1000; });
  const auto fill = [](auto& self, auto& b, int sign) -> void {
    for (int i = 0; i < 2; ++i) {
      if constexpr (std::is_arithmetic_v<std::remove_reference_t<decltype(b[0])>>) {
        b[i] = i == 0 ? sign : -sign;
      } else {
        self(self, b[i], sign);
      }
    }
  };
  fill(fill, a, 1);
  double mean = 9, deviation = 9;
  EXPECT_EQ(box_statistics(a, 0, 1, mean, deviation), 0);
  EXPECT_EQ(mean, 0.0);
  const double n = std::exp2(kRank<TypeParam>);
  EXPECT_DOUBLE_EQ(deviation, std::sqrt(n / (n - 1)));
  EXPECT_EQ(box_statistics(a, 1, 1, mean, deviation), 0);
  EXPECT_EQ(mean, -1.0);
  EXPECT_EQ(deviation, 0.0) << "one cell";
}

TYPED_TEST(Means, CodesLeaveZero) {
  const auto a = shaped<TypeParam>([](int i) { return i; });
  for (const auto& [lo, hi] : {std::pair{1, 0}, {-1, 0}, {0, 2}, {0, 2147483647}}) {
    double mean = 9, deviation = 9;
    EXPECT_EQ(box_statistics(a, lo, hi, mean, deviation), kBadRange);
    EXPECT_EQ(mean, 0.0);
    EXPECT_EQ(deviation, 0.0);
    EXPECT_EQ(box_statistics(TypeParam{}, lo, hi, mean, deviation), kEmptyArray);
  }
}

TEST(MeansOfLines, KeepTheirDigits) {
  double mean = 0, variance = 0;
  const TDoubleArray equal = {0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1};
  for (int last = 0; last < 10; ++last) {
    EXPECT_EQ(MeanArray(equal, 0, last, mean), 0);
    EXPECT_EQ(mean, 0.1);
    EXPECT_EQ(MeanVarArray(equal, 0, last, mean, variance), 0);
    EXPECT_EQ(mean, 0.1);
    EXPECT_EQ(variance, 0.0);
  }
  EXPECT_EQ(MeanVarArray(TDoubleArray{1e8 + 1, 1e8 + 2, 1e8 + 3}, 0, 2, mean, variance), 0);
  EXPECT_EQ(variance, 1.0);
  // Plain addition loses every 1.
  EXPECT_EQ(MeanArray(TDoubleArray{1e17, 1, 1, 1, 1, -1e17}, 0, 5, mean), 0);
  EXPECT_DOUBLE_EQ(mean, 4.0 / 6.0);
  EXPECT_EQ(MeanArray(TDouble2DArray{{1e17, 1, 1}, {1, 1, -1e17}}, 0, 0, 1, 2, mean), 0);
  EXPECT_DOUBLE_EQ(mean, 4.0 / 6.0) << "also over several runs";
  EXPECT_EQ(MeanArray(TDoubleArray{kInf, 1}, 0, 1, mean), 0);
  EXPECT_EQ(mean, kInf);
  EXPECT_EQ(MeanArray(TDoubleArray{kNaN, 1}, 0, 1, mean), 0);
  EXPECT_TRUE(std::isnan(mean));
}

TEST(MeansOfIntegers, DoNotWrap) {
  TInt2DArray a;
  SetLength(a, 3, 700);
  FillArray(a, 2147483647);
  double mean = 0, variance = 9;
  EXPECT_EQ(MeanArray(a, 0, 0, 2, 699, mean), 0);
  EXPECT_EQ(mean, 2147483647.0);
  EXPECT_EQ(MeanVarArray(a, 0, 0, 2, 699, mean, variance), 0);
  EXPECT_EQ(mean, 2147483647.0);
  EXPECT_EQ(variance, 0.0);
  EXPECT_EQ(MeanVarArray(TIntArray{1, 2, 4}, 0, 1, variance, variance), 0) << "two outputs in one variable";
  EXPECT_EQ(variance, 0.5) << "the last one written";
  EXPECT_EQ(MeanVarArray(TIntArray{7}, 0, 0, mean, variance), 0);
  EXPECT_EQ(variance, 0.0);
  EXPECT_EQ(MeanVarArray(TDouble2DArray{{7}}, 0, 0, 0, 1, mean, variance), kBadRange);
  EXPECT_EQ(mean, 0.0);
}

TEST(MeanAbsoluteDeviation, TakesTheFirstCells) {
  double dev = 9;
  EXPECT_EQ(MeanAbsDev(TDoubleArray{1, 3, 100}, 2, dev), 0);
  EXPECT_EQ(dev, 1.0);
  EXPECT_EQ(MeanAbsDev(TIntArray{1, 3, 8}, 0, dev), 0);
  EXPECT_DOUBLE_EQ(dev, 8.0 / 3.0);
  EXPECT_EQ(MeanAbsDev(TIntArray{1, 3, 8}, 4, dev), kBadRange);
  EXPECT_EQ(dev, 0.0);
  EXPECT_EQ(MeanAbsDev(TIntArray{1, 3, 8}, -1, dev), kBadRange);
  EXPECT_EQ(MeanAbsDev(TDoubleArray{}, -1, dev), kEmptyArray);
}

TEST(MeansOfHugeCells, AreInfinite) {
  Double mean = 0.0, variance = 0.0;
  EXPECT_EQ(MeanVarArray(TDoubleArray{1e308, 1.5e308}, 0, 1, mean, variance), 0);
  EXPECT_EQ(mean, std::numeric_limits<Double>::infinity());
  EXPECT_FALSE(std::isfinite(variance));
}

}  // namespace
}  // namespace ZOR_openarrays

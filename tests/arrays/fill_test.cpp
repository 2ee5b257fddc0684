#include <algorithm>
#include <cmath>
#include <set>

#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

template <class A>
class Fill : public testing::Test {};
TYPED_TEST_SUITE(Fill, NumTypes);

/// The bounds (lo, ..., lo, hi, ..., hi) for the dimensions of A.
template <class A>
Integer fill_box(A& a, CellOf<A> v, Integer lo, Integer hi) {
  if constexpr (kRank<A> == 1) return FillArray(a, v, lo, hi);
  if constexpr (kRank<A> == 2) return FillArray(a, v, lo, lo, hi, hi);
  if constexpr (kRank<A> == 3) return FillArray(a, v, lo, lo, lo, hi, hi, hi);
  if constexpr (kRank<A> == 4) return FillArray(a, v, lo, lo, lo, lo, hi, hi, hi, hi);
}

TYPED_TEST(Fill, EveryCellOrJustTheFirst) {
  auto a = shaped<TypeParam>();
  EXPECT_EQ(FillArray(a, 7), 0);
  EXPECT_EQ(a, shaped<TypeParam>([](int) { return 7; }));
  EXPECT_EQ(fill_box(a, 1, 0, 0), 0);
  EXPECT_EQ(a, shaped<TypeParam>([](int i) { return i == 0 ? 1 : 7; }));
}

TYPED_TEST(Fill, BoundsAreTestedAfterEmptiness) {
  auto a = shaped<TypeParam>([](int i) { return i; });
  const auto before = CopyOf(a);
  EXPECT_EQ(fill_box(a, 9, 0, 2), kBadRange) << "the last length is 2 or 3, the first is 2";
  EXPECT_EQ(fill_box(a, 9, -1, 0), kBadRange);
  EXPECT_EQ(fill_box(a, 9, 1, 0), kBadRange);
  EXPECT_EQ(fill_box(a, 9, 0, 2147483647), kBadRange);
  EXPECT_EQ(a, before);
  TypeParam null;
  EXPECT_EQ(fill_box(null, 9, 1, 0), kEmptyArray);
  EXPECT_EQ(FillArray(null, 9), kEmptyArray);
  EXPECT_EQ(FillArraySerial(null, 1, 1), kEmptyArray);
}

TYPED_TEST(Fill, SeriesFollowStorageOrder) {
  auto a = shaped<TypeParam>();
  EXPECT_EQ(FillArraySerial(a, 5, 3), 0);
  EXPECT_EQ(a, shaped<TypeParam>([](int i) { return 5 + 3 * i; }));
  EXPECT_EQ(FillArraySerial(a), 0);
  EXPECT_EQ(a, shaped<TypeParam>([](int i) { return i; }));
}

TEST(FillRange, LowBoundsComeFirst) {
  TDouble3DArray a;
  SetLength(a, 2, 3, 4);
  EXPECT_EQ(FillArray(a, 1, 1, 0, 2, 1, 1, 3), 0);
  for (int c = 0; c < 2; ++c) {
    for (int r = 0; r < 3; ++r) {
      for (int l = 0; l < 4; ++l) EXPECT_EQ(a[c][r][l], c == 1 && r <= 1 && l >= 2);
    }
  }
}

TEST(FillSeries, RoundingDiffersBetweenOneAndMoreDimensions) {
  TDoubleArray line;
  TDouble2DArray plane;
  SetLength(line, 11);
  SetLength(plane, 2, 6);
  FillArraySerial(line, 0, 0.1);
  FillArraySerial(plane, 0, 0.1);
  EXPECT_EQ(line[10], 1.0);
  EXPECT_EQ(plane[1][4], 0.9999999999999999);
}

TEST(FillSeries, IntegersWrap) {
  TIntArray a;
  SetLength(a, 3);
  FillArraySerial(a, 2147483647, 1);
  EXPECT_EQ(a, (TIntArray{2147483647, kMinInteger, kMinInteger + 1}));
}

template <class A>
class FillDiag : public testing::Test {};
using Squares = testing::Types<TDouble2DArray, TDouble3DArray, TDouble4DArray, TInt2DArray, TInt3DArray, TInt4DArray>;
TYPED_TEST_SUITE(FillDiag, Squares);

TYPED_TEST(FillDiag, WritesTheDiagonalAndClearsTheRest) {
  auto oblong = shaped<TypeParam>([](int i) { return i; });
  const auto before = CopyOf(oblong);
  EXPECT_EQ(FillDiagArray(oblong, 1), kSizeMismatch);
  EXPECT_EQ(oblong, before);
  TypeParam a;
  if constexpr (kRank<TypeParam> == 2) SetLength(a, 3, 3);
  if constexpr (kRank<TypeParam> == 3) SetLength(a, 3, 3, 3);
  if constexpr (kRank<TypeParam> == 4) SetLength(a, 3, 3, 3, 3);
  FillArray(a, 8);
  EXPECT_EQ(FillDiagArray(a, 5), 0);
  const auto all = cells(a);
  const std::size_t step = (all.size() - 1) / 2;  // between cells of the diagonal of three
  for (std::size_t i = 0; i < all.size(); ++i) EXPECT_EQ(all[i], i % step == 0 ? 5 : 0);
}

TEST(FillBoolean, OneAndTwoDimensions) {
  TBoolArray line = {false, false};
  TBool2DArray plane = {{false}, {false}};
  EXPECT_EQ(FillArray(line, true), 0);
  EXPECT_EQ(FillArray(plane, true), 0);
  EXPECT_EQ(line, (TBoolArray{true, true}));
  EXPECT_EQ(plane, (TBool2DArray{{true}, {true}}));
}

TYPED_TEST(Fill, RandomNumbersStayWithinTheirLimits) {
  auto a = shaped<TypeParam>();
  EXPECT_EQ(FillRandomUniform(a, 3, 10), 0);
  each(a, [](auto x) {
    EXPECT_GE(x, 3);
    EXPECT_LE(x, 10);
  });
  EXPECT_EQ(FillRandomUniform(a, 4, 4), 0);
  EXPECT_EQ(a, shaped<TypeParam>([](int) { return 4; }));
  EXPECT_EQ(FillRandomUniform(a, 4, 3), kBadLimits);
  TypeParam null;
  EXPECT_EQ(FillRandomUniform(null, 4, 3), kEmptyArray);
}

TEST(RandomFill, TheHighBoundOfIntegersNeverAppears) {
  TIntArray a;
  SetLength(a, 1000);
  EXPECT_EQ(FillRandomUniform(a, 1, 2), 0);
  EXPECT_THAT(a, testing::Each(1));
  // Here Low + Random * 1 rounds to High for one draw in some millions.
  SetLength(a, 1 << 25);
  EXPECT_EQ(FillRandomUniform(a, 2147483646, 2147483647), 0);
  EXPECT_EQ(*std::ranges::max_element(a), 2147483646);
  SetLength(a, 4096);
  EXPECT_EQ(FillRandomUniform(a, kMinInteger, 2147483647), 0);
  EXPECT_LT(*std::ranges::min_element(a), -2000000000);
  EXPECT_GT(*std::ranges::max_element(a), 2000000000);
}

TEST(RandomFill, DuplicatesAllowedReachBothBounds) {
  TIntArray a;
  SetLength(a, 200);
  EXPECT_EQ(FillRandomUniform(a, 1, 2, true), 0);
  EXPECT_EQ((std::set<Integer>(a.begin(), a.end())), (std::set<Integer>{1, 2}));
  EXPECT_EQ(FillRandomUniform(a, kMinInteger, 2147483647, true), 0);
  EXPECT_LT(*std::ranges::min_element(a), -1000000000);
  EXPECT_GT(*std::ranges::max_element(a), 1000000000);
}

TEST(RandomFill, WithoutDuplicatesEveryCellDiffers) {
  TIntArray a = {0, 0, 0};
  EXPECT_EQ(FillRandomUniform(a, 1, 3, false), 0);
  EXPECT_THAT(a, testing::UnorderedElementsAre(1, 2, 3));
  TIntArray four = {8, 8, 8, 8}, null;
  EXPECT_EQ(FillRandomUniform(four, 1, 3, false), kTooFewValues);
  EXPECT_EQ(FillRandomUniform(four, 0, 1'000'000, false), kTooManyValues);
  EXPECT_EQ(FillRandomUniform(four, 3, 1, false), kBadLimits);
  EXPECT_EQ(FillRandomUniform(null, 3, 1, true), kEmptyArray);
  EXPECT_THAT(four, testing::Each(8));
  EXPECT_EQ(FillRandomUniform(four, 1, 1'000'000, false), 0);
}

TEST(RandomFill, RefusedArgumentsLeaveTheGenerator) {
  RandSeed = 5;
  TDoubleArray a = {1};
  TIntArray n = {1, 1};
  EXPECT_EQ(FillRandomUniform(a, kNaN, 1), kBadLimits);
  EXPECT_EQ(FillRandomNormal(a, 0, -1), kBadLimits);
  EXPECT_EQ(FillRandomNormal(a, 0, kNaN), kBadLimits);
  EXPECT_EQ(FillRandomUniform(n, 1, 1, false), kTooFewValues);
  EXPECT_EQ(RandSeed, 5);
  EXPECT_EQ(FillRandomUniform(a, 0, 1), 0);
  EXPECT_NE(RandSeed, 5);
}

TEST(RandomFill, WidthBeyondTheLargestDoubleStaysFinite) {
  TDoubleArray a;
  SetLength(a, 1000);
  EXPECT_EQ(FillRandomUniform(a, -1.7e308, 1.7e308), 0);
  EXPECT_TRUE(std::ranges::all_of(a, [](double x) { return std::isfinite(x); }));
  EXPECT_LT(*std::ranges::min_element(a), 0);
  EXPECT_GT(*std::ranges::max_element(a), 0);
}

TEST(RandomFill, NormalDeviatesHaveTheirMeanAndDeviation) {
  TDouble4DArray a;
  SetLength(a, 10, 10, 10, 40);
  EXPECT_EQ(FillRandomNormal(a, 5, 2), 0);
  double sum = 0, squares = 0;
  each(a, [&](double x) {
    sum += x - 5;
    squares += (x - 5) * (x - 5);
  });
  // Eight standard errors of 40000 deviates.
  EXPECT_NEAR(sum / 40000, 0, 8 * 2 / 200.0);
  EXPECT_NEAR(std::sqrt(squares / 40000), 2, 8 * 2 / std::sqrt(80000.0));
  EXPECT_EQ(FillRandomNormal(a, 5, 0), 0);
  each(a, [](double x) { ASSERT_EQ(x, 5); });
}

TEST(Shuffle, EveryCellMovesAndTwoAreExchanged) {
  TIntArray two = {1, 2}, one = {1};
  EXPECT_EQ(ShuffleArray(two), 0);
  EXPECT_EQ(two, (TIntArray{2, 1}));
  EXPECT_EQ(ShuffleArray(one), kEmptyArray);
  std::set<std::vector<int>> seen;
  RandSeed = 1;
  for (int i = 0; i < 500; ++i) {
    TDoubleArray a = {0, 1, 2, 3};
    EXPECT_EQ(ShuffleArray(a), 0);
    for (int j = 0; j < 4; ++j) EXPECT_NE(a[j], j);
    seen.insert({a.begin(), a.end()});
  }
  EXPECT_EQ(seen.size(), 6) << "the cyclic permutations of four";
}

}  // namespace
}  // namespace ZOR_openarrays

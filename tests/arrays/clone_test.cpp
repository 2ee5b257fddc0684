#include "tests/arrays/array_util.h"

#include <cmath>

namespace ZOR_openarrays {
namespace {

constexpr auto ramp = [](int i) { return i + 1; };

template <class A>
class Clone : public testing::Test {};
using ClonableTypes = testing::Types<TBoolArray, TBool2DArray, TDoubleArray, TDouble2DArray, TDouble3DArray,
                                     TDouble4DArray, TIntArray, TInt2DArray, TInt3DArray, TInt4DArray>;
TYPED_TEST_SUITE(Clone, ClonableTypes);

TYPED_TEST(Clone, HasTheShapeAndCellsOfTheSourceAndItsOwnMemory) {
  const auto src = shaped<TypeParam>([](int i) { return i % 2; });
  TypeParam dest, shares = src;
  EXPECT_EQ(CloneArray(src, dest), 0);
  EXPECT_EQ(CloneArray(src, shares), 0);
  EXPECT_EQ(dest, src);
  each(shares, [](auto& x) { x = static_cast<CellType<TypeParam>>(x == 0); });
  EXPECT_EQ(dest, src);
  EXPECT_NE(shares, src);
}

TYPED_TEST(Clone, OfAnEmptyOrRaggedSourceLeavesDest) {
  auto ragged = shaped<TypeParam>(ramp), dest = shaped<TypeParam>(ramp);
  lengthen_last(ragged);
  const auto before = CopyOf(dest);
  EXPECT_EQ(CloneArray(nullptr, dest), kEmptyArray);
  if (1 < kRank<TypeParam>) {
    EXPECT_EQ(CloneArray(ragged, dest), kEmptyArray);
  }
  EXPECT_EQ(dest, before);
}

TEST(CloneArray, OfColumnsWithoutRowsLeavesDest) {
  TDouble2DArray src, dest = {{1, 2}};
  SetLength(src, 3, 0);
  EXPECT_EQ(CloneArray(src, dest), kEmptyArray);
  EXPECT_EQ(dest, (TDouble2DArray{{1, 2}}));
}

TEST(CloneArray, OntoItselfChangesNothing) {
  TInt2DArray a = {{1, 2}, {3, 4}};
  const TInt2DArray before = CopyOf(a);
  EXPECT_EQ(CloneArray(a, a), 0);
  EXPECT_EQ(a, before);
}

TEST(CloneArray, ReplacesRowsThatDestSharesWithTheSource) {
  const TInt2DArray src = {{1, 2}, {3, 4}};
  TInt2DArray dest = {src[1], src[0]};
  EXPECT_EQ(CloneArray(src, dest), 0);
  EXPECT_EQ(dest, (TInt2DArray{{1, 2}, {3, 4}}));
  EXPECT_EQ(src, dest);
}

template <class A>
class CloneConversion : public testing::Test {};
TYPED_TEST_SUITE(CloneConversion, RealTypes);

TYPED_TEST(CloneConversion, GoesBothWays) {
  using Whole = ShapeOf<TypeParam, Integer>;
  const auto real = shaped<TypeParam>([](int i) { return 1.25 * i; });
  Whole whole;
  TypeParam back;
  EXPECT_EQ(CloneArray(real, whole), 0);
  EXPECT_EQ(whole, shaped<Whole>([](int i) { return std::nearbyint(1.25 * i); }));
  EXPECT_EQ(CloneArray(whole, back), 0);
  EXPECT_EQ(back, shaped<TypeParam>([](int i) { return std::nearbyint(1.25 * i); }));
  EXPECT_EQ(CloneArray(TypeParam(), whole), kEmptyArray);
  EXPECT_EQ(CloneArray(Whole(), back), kEmptyArray);
  EXPECT_EQ(cells(whole), cells(shaped<Whole>([](int i) { return std::nearbyint(1.25 * i); })));
}

TEST(CloneConversion, RoundsTiesToEvenAndStopsAtTheEndsOfInteger) {
  const struct {
    double from;
    Integer to;
  } kCases[] = {{3.0e9, 2147483647},
                {-3.0e9, kMinInteger},
                {2147483647.0, 2147483647},
                {2147483647.4, 2147483647},
                {2147483646.5, 2147483646},
                {2147483646.7, 2147483647},
                {-2147483648.4, kMinInteger},
                {-2147483647.5, kMinInteger},
                {2.5, 2},
                {1.5, 2},
                {0.5, 0},
                {-0.5, 0},
                {-1.5, -2},
                {-2.5, -2},
                {0.49999999999999994, 0},
                {-0.0, 0},
                {5e-324, 0},
                {kNaN, 0},
                {-kNaN, 0},
                {kInf, 2147483647},
                {-kInf, kMinInteger},
                {1.7976931348623157e308, 2147483647}};
  TDoubleArray src;
  std::vector<Integer> expected;
  SetLength(src, std::ssize(kCases));
  for (std::size_t i = 0; i < src.size(); ++i) {
    src[i] = kCases[i].from;
    expected.push_back(kCases[i].to);
  }
  TIntArray dest;
  EXPECT_EQ(CloneArray(src, dest), 0);
  EXPECT_EQ(cells(dest), expected);
  EXPECT_EQ(CloneAndReverseArray(src, dest), 0);
  EXPECT_EQ(cells(dest), std::vector<Integer>(expected.rbegin(), expected.rend()));
}

TEST(CloneConversion, ToSingleRoundsAndOverflowsIntoInfinity) {
  TSingleArray single;
  EXPECT_EQ(CloneArray({0.1, 1e39, -1e39, 1e-46, 16777217.0}, single), 0);
  EXPECT_EQ(cells(single), (std::vector<float>{0.1f, HUGE_VALF, -HUGE_VALF, 0.0f, 16777216.0f}));
  TDoubleArray back;
  EXPECT_EQ(CloneArray(single, back), 0);
  EXPECT_EQ(back[0], 0.100000001490116119384765625);
  EXPECT_EQ(CloneArray(TSingleArray(), back), kEmptyArray);
  EXPECT_EQ(CloneArray(nullptr, single), kEmptyArray);
  EXPECT_EQ(Length(single), 5);
}

TEST(CloneConversion, OfDoublesDoesNotPassThroughSingle) {
  TDoubleArray dest;
  EXPECT_EQ(CloneArray({0.1, 16777217.0}, dest), 0);
  EXPECT_EQ(dest, (TDoubleArray{0.1, 16777217.0}));
}

TEST(CloneAndReverse, TurnsTheOrderForEveryPairOfTypes) {
  TBoolArray b;
  EXPECT_EQ(CloneAndReverseArray({true, false, false}, b), 0);
  EXPECT_EQ(b, (TBoolArray{false, false, true}));
  TIntArray i;
  EXPECT_EQ(CloneAndReverseArray({1, 2, 3}, i), 0);
  EXPECT_EQ(i, (TIntArray{3, 2, 1}));
  TDoubleArray d;
  EXPECT_EQ(CloneAndReverseArray(i, d), 0);
  EXPECT_EQ(d, (TDoubleArray{1, 2, 3}));
  TSingleArray s;
  EXPECT_EQ(CloneAndReverseArray(d, s), 0);
  EXPECT_EQ(s, (TSingleArray{3, 2, 1}));
  EXPECT_EQ(CloneAndReverseArray(s, d), 0);
  EXPECT_EQ(CloneAndReverseArray(d, d), 0) << "onto itself";
  EXPECT_EQ(d, (TDoubleArray{3, 2, 1}));
  TDoubleArray shares = d;
  EXPECT_EQ(CloneAndReverseArray(d, shares), 0);
  EXPECT_EQ(d, (TDoubleArray{3, 2, 1}));
  EXPECT_EQ(shares, (TDoubleArray{1, 2, 3}));
  EXPECT_EQ(CloneAndReverseArray(nullptr, d), kEmptyArray);
  EXPECT_EQ(CloneAndReverseArray(TIntArray(), d), kEmptyArray);
  EXPECT_EQ(d, (TDoubleArray{3, 2, 1}));
}

}  // namespace
}  // namespace ZOR_openarrays

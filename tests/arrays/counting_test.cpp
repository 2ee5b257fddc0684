#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

template <class A>
class Counting : public testing::Test {};
TYPED_TEST_SUITE(Counting, NumTypes);

template <class A>
Integer count_box(const A& a, Integer lo, Integer hi, CellOf<A> low, CellOf<A> high) {
  if constexpr (kRank<A> == 1) return CountValues(a, lo, hi, low, high);
  if constexpr (kRank<A> == 2) return CountValues(a, lo, hi, lo, hi, low, high);
  if constexpr (kRank<A> == 3) return CountValues(a, lo, hi, lo, hi, lo, hi, low, high);
  if constexpr (kRank<A> == 4) return CountValues(a, lo, hi, lo, hi, lo, hi, lo, hi, low, high);
}

TYPED_TEST(Counting, LimitsAreInclusiveAndCellsOutsideTheRangeDoNotCount) {
  auto a = shaped<TypeParam>([](int) { return 5; });
  const Integer inside = 1 << kRank<TypeParam>;
  EXPECT_EQ(count_box(a, 0, 1, 5, 5), inside);
  EXPECT_EQ(count_box(a, 1, 1, 4, 6), 1);
  EXPECT_EQ(count_box(a, 0, 1, 6, 9), 0);
  EXPECT_EQ(count_box(a, 0, 1, 6, 5), kBadRange);
  EXPECT_EQ(count_box(a, 1, 0, 5, 5), kBadRange);
  EXPECT_EQ(count_box(a, 0, 2, 5, 5), kBadRange);
  EXPECT_EQ(count_box(a, -1, 1, 5, 5), kBadRange);
  EXPECT_EQ(count_box(TypeParam{}, -1, 1, 6, 5), kEmptyArray);
}

TEST(CountingPairs, EachDimensionHasItsOwn) {
  const TInt2DArray a = {{0, 1, 2}, {10, 11, 12}};
  EXPECT_EQ(CountValues(a, 1, 1, 0, 2, 11, 99), 2);
  EXPECT_EQ(CountValues(a, 0, 1, 2, 2, 0, 99), 2);
  EXPECT_EQ(CountValues(TDoubleArray{kNaN, 1, kInf}, 0, 2, -kInf, kInf), 2);
  EXPECT_EQ(CountValues(TDoubleArray{kNaN, 1, kInf}, 0, 2, kNaN, kInf), kBadRange);
}

TEST(CountingTrue, PairsOfZerosMeanTheWholeAndReversedOnesAreExchanged) {
  EXPECT_EQ(CountTrueCellsOfArray(TBoolArray{true, false, true}), 2);
  EXPECT_EQ(CountTrueCellsOfArray(TBoolArray{}), kEmptyArray);
  const TBool2DArray a = {{true, true, false}, {true, false, true}};
  EXPECT_EQ(CountTrueCellsOfArray(a), 4);
  EXPECT_EQ(CountTrueCellsOfArray(a, 0, 0, 0, 0), 4);
  EXPECT_EQ(CountTrueCellsOfArray(a, 0, 0, 2, 1), 2);
  EXPECT_EQ(CountTrueCellsOfArray(a, 1, 0, 1, 1), 1);
  EXPECT_EQ(CountTrueCellsOfArray(a, 0, 2, 0, 0), kBadRange);
  EXPECT_EQ(CountTrueCellsOfArray(a, 0, 0, -1, 1), kBadRange);
  EXPECT_EQ(CountTrueCellsOfArray(TBool2DArray{{true}, {}}), kEmptyArray);
  EXPECT_EQ(CountTrueCellsOfArray(TBool2DArray{}, 5, 6, 7, 8), kEmptyArray);
}

}  // namespace
}  // namespace ZOR_openarrays

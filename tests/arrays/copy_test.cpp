#include <array>

#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

using Place = std::array<Integer, 4>;

/// The call of CopyArray with as many offsets, or bounds and offsets, as A has dimensions.
template <class A>
Integer copy_whole(const A& src, const Place& to, A& dest) {
  if constexpr (kRank<A> == 1) return CopyArray(src, to[0], dest);
  if constexpr (kRank<A> == 2) return CopyArray(src, to[0], to[1], dest);
  if constexpr (kRank<A> == 3) return CopyArray(src, to[0], to[1], to[2], dest);
  if constexpr (kRank<A> == 4) return CopyArray(src, to[0], to[1], to[2], to[3], dest);
}
template <class A>
Integer copy_block(const A& src, const Place& l, const Place& h, const Place& to, A& dest) {
  if constexpr (kRank<A> == 1) return CopyArray(src, l[0], h[0], to[0], dest);
  if constexpr (kRank<A> == 2) return CopyArray(src, l[0], l[1], h[0], h[1], to[0], to[1], dest);
  if constexpr (kRank<A> == 3) return CopyArray(src, l[0], l[1], l[2], h[0], h[1], h[2], to[0], to[1], to[2], dest);
  if constexpr (kRank<A> == 4)
    return CopyArray(src, l[0], l[1], l[2], l[3], h[0], h[1], h[2], h[3], to[0], to[1], to[2], to[3], dest);
}

/// Calls f(cell, its indices).
template <class A, class F>
void each_place(A& a, const F& f, Place place = {}, std::size_t d = 0) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    place[d] = static_cast<Integer>(i);
    if constexpr (kRank<std::remove_const_t<A>> == 1) {
      f(a[i], place);
    } else {
      each_place(a[i], f, place, d + 1);
    }
  }
}

/// An array of 5 x 5 x 4 x 4 cells, each a number that tells its indices.
template <class A>
A numbered(int sign = 1) {
  A a;
  if constexpr (kRank<A> == 1) SetLength(a, 5);
  if constexpr (kRank<A> == 2) SetLength(a, 5, 5);
  if constexpr (kRank<A> == 3) SetLength(a, 5, 5, 4);
  if constexpr (kRank<A> == 4) SetLength(a, 5, 5, 4, 4);
  each_place(a, [&](auto& x, const Place& p) { x = sign * (1 + p[0] + 10 * p[1] + 100 * p[2] + 1000 * p[3]); });
  return a;
}

/// What the block from `low` to `high` makes of `dest` when it lands on `to`, cell by cell.
template <class A>
A expected(const A& dest, const Place& low, const Place& high, const Place& to, int sign) {
  A out = CopyOf(dest);
  each_place(out, [&](auto& x, const Place& p) {
    Integer number = 1, unit = 1;
    for (std::size_t d = 0; d < kRank<A>; ++d, unit *= 10) {
      if (p[d] < to[d] || p[d] > to[d] + high[d] - low[d]) return;
      number += unit * (p[d] - to[d] + low[d]);
    }
    x = sign * number;
  });
  return out;
}

TEST(CopyArray, ExampleOfTheHeader) {
  TDouble2DArray plane = {{0, 0, 0}, {0, 0, 0}};
  EXPECT_EQ(CopyArray({{1, 2}}, 1, 1, plane), 0);
  EXPECT_EQ(plane, (TDouble2DArray{{0, 0, 0}, {0, 1, 2}}));
}

template <class A>
class Copy : public testing::Test {};
TYPED_TEST_SUITE(Copy, NumTypes);

TYPED_TEST(Copy, BlockLandsOnItsPlaceAndNothingElseChanges) {
  const Place low = {1, 0, 2, 0}, high = {3, 2, 3, 1}, to = {0, 2, 1, 2};
  const auto src = numbered<TypeParam>(-1);
  auto dest = numbered<TypeParam>();
  const auto wanted = expected(dest, low, high, to, -1);
  EXPECT_EQ(copy_block(src, low, high, to, dest), 0);
  EXPECT_EQ(dest, wanted);
}

TYPED_TEST(Copy, WholeArrayLandsOnItsPlace) {
  const auto src = shaped<TypeParam>([](int i) { return -1 - i; });  // 2 x 3 x 2 x 3
  auto dest = numbered<TypeParam>(), back = shaped<TypeParam>();
  const Place at = {3, 2, 2, 1}, end = {4, 4, 3, 3};
  EXPECT_EQ(copy_whole(src, at, dest), 0);
  EXPECT_EQ(copy_block(dest, at, end, {}, back), 0);
  EXPECT_EQ(back, src);
  EXPECT_EQ(copy_whole(dest, {}, dest), 0) << "onto itself";
}

TYPED_TEST(Copy, OverlapWithinOneArrayWorksInEveryDirection) {
  const Place low = {1, 1, 1, 1}, high = {3, 3, 2, 2};
  for (int direction = 0; direction < 81; ++direction) {
    const Place to = {direction % 3, direction / 3 % 3, direction / 9 % 3, direction / 27};
    auto a = numbered<TypeParam>();
    const auto wanted = expected(a, low, high, to, 1);
    auto other = a;
    EXPECT_EQ(copy_block(a, low, high, to, other), 0);
    EXPECT_EQ(a, wanted) << direction;
  }
}

TYPED_TEST(Copy, EachBadBoundOrOffsetGivesMinusTwoAndTouchesNothing) {
  const auto src = numbered<TypeParam>(-1);
  auto dest = numbered<TypeParam>();
  const auto before = CopyOf(dest);
  const Place low = {1, 1, 1, 1}, high = {2, 2, 2, 2};
  for (std::size_t d = 0; d < kRank<TypeParam>; ++d) {
    const Integer size = d < 2 ? 5 : 4;
    for (const Integer bad : {-1, kMinInteger, size, 2147483647}) {
      Place l = low, h = high, to{};
      l[d] = bad;
      EXPECT_EQ(copy_block(src, l, high, {}, dest), kBadRange);
      h[d] = bad;
      EXPECT_EQ(copy_block(src, low, h, {}, dest), kBadRange);
      to[d] = bad;
      EXPECT_EQ(copy_block(src, low, high, to, dest), kBadRange);
      EXPECT_EQ(copy_whole(src, to, dest), kBadRange);
    }
    Place l = low, to{};
    l[d] = 3;
    EXPECT_EQ(copy_block(src, l, high, {}, dest), kBadRange) << "low above high";
    to[d] = size - 1;
    EXPECT_EQ(copy_block(src, low, high, to, dest), kBadRange) << "beyond the end";
    to[d] = 1;
    EXPECT_EQ(copy_whole(src, to, dest), kBadRange) << "beyond the end";
  }
  EXPECT_EQ(dest, before);
}

TYPED_TEST(Copy, EmptyOrRaggedArraysGiveMinusOneBeforeAnyBadRange) {
  auto a = numbered<TypeParam>();
  TypeParam null, ragged = shaped<TypeParam>();
  lengthen_last(ragged);
  EXPECT_EQ(copy_whole(null, {-1}, a), kEmptyArray);
  EXPECT_EQ(copy_whole(a, {-1}, null), kEmptyArray);
  EXPECT_EQ(copy_block(null, {}, {}, {-1}, a), kEmptyArray);
  EXPECT_EQ(copy_block(a, {}, {}, {-1}, null), kEmptyArray);
  if (1 < kRank<TypeParam>) {
    EXPECT_EQ(copy_block(ragged, {}, {}, {}, a), kEmptyArray);
    EXPECT_EQ(copy_block(a, {}, {}, {}, ragged), kEmptyArray);
  }
  EXPECT_EQ(a, numbered<TypeParam>());
}

TEST(CopyArray, ReachesAllHandlesOfDest) {
  TIntArray dest = {1, 2, 3}, shares = dest;
  EXPECT_EQ(CopyArray({7, 8}, 1, dest), 0);
  EXPECT_EQ(shares, (TIntArray{1, 7, 8}));
}

TEST(CopyArray, ColumnsSharedAtOtherPlacesArriveAsTheyWere) {
  const TInt2DArray src = {{1, 2}, {3, 4}};
  TInt2DArray dest = {src[1], src[0]};
  EXPECT_EQ(CopyArray(src, 0, 0, dest), 0);
  EXPECT_EQ(dest, (TInt2DArray{{1, 2}, {3, 4}}));
}

TEST(CopyArray, TakesBooleans) {
  TBoolArray line = {false, false, false};
  EXPECT_EQ(CopyArray({true, true}, 1, line), 0);
  EXPECT_EQ(line, (TBoolArray{false, true, true}));
  EXPECT_EQ(CopyArray({true, true}, 2, line), kBadRange);
  TBool2DArray plane = {{false, false}, {false, false}};
  EXPECT_EQ(CopyArray({{true}}, 1, 0, plane), 0);
  EXPECT_EQ(plane, (TBool2DArray{{false, false}, {true, false}}));
  EXPECT_EQ(CopyArray(nullptr, 1, 0, plane), kEmptyArray);
}

}  // namespace
}  // namespace ZOR_openarrays

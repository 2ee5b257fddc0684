#include <algorithm>

#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

constexpr auto ramp = [](int i) { return i + 1; };

/// a[i0][i1]..., with the indices in order.
template <class A>
const auto& cell(const A& a, const std::size_t* index) {
  if constexpr (kRank<A> == 1) {
    return a[*index];
  } else {
    return cell(a[*index], index + 1);
  }
}

template <class A>
class Flip : public testing::Test {};
TYPED_TEST_SUITE(Flip, NumTypes);

TYPED_TEST(Flip, ReversesOneIndexAndTwiceChangesNothing) {
  const auto before = shaped<TypeParam>(ramp);
  const std::size_t size[] = {2, 3, 2, 3};
  for (Integer dim = 1; dim <= kRank<TypeParam>; ++dim) {
    const auto d = static_cast<std::size_t>(dim - 1);
    auto a = CopyOf(before), shares = a;
    EXPECT_EQ(FlipDimArray(a, dim), 0);
    EXPECT_NE(a, before);
    for (std::size_t i = 0; i < 36; ++i) {
      std::size_t at[] = {i / 18, i / 6 % 3, i / 3 % 2, i % 3};
      const auto there = cell(a, at);
      at[d] = size[d] - 1 - at[d];
      EXPECT_EQ(there, cell(before, at));
    }
    EXPECT_EQ(shares, a) << "works in place";
    EXPECT_EQ(FlipDimArray(a, dim), 0);
    EXPECT_EQ(a, before);
  }
}

TYPED_TEST(Flip, OtherDimensionsGiveMinusTwoAndEmptyArraysMinusOne) {
  auto a = shaped<TypeParam>(ramp);
  for (const Integer bad : {0, kRank<TypeParam> + 1, -1, kMinInteger, 2147483647}) {
    EXPECT_EQ(FlipDimArray(a, bad), kNoSuchDimension);
  }
  EXPECT_EQ(a, shaped<TypeParam>(ramp));
  TypeParam null;
  EXPECT_EQ(FlipDimArray(null, 9), kEmptyArray);
  lengthen_last(a);
  EXPECT_EQ(FlipDimArray(a, 1), kRank<TypeParam> == 1 ? 0 : kEmptyArray);
}

TEST(FlipDimArray, OfALengthOfOneChangesNothing) {
  TIntArray line = {5};
  EXPECT_EQ(FlipDimArray(line, 1), 0);
  EXPECT_EQ(line, (TIntArray{5}));
}

TEST(FlipDimArray, KeepsTheColumnsWhereTheyLie) {
  TDouble2DArray a;
  SetLength(a, 3, 8);
  const double* first = a[0].data();
  EXPECT_EQ(FlipDimArray(a, 1), 0);
  EXPECT_EQ(a[0].data(), first);
}

template <class A>
class Plane : public testing::Test {
 protected:
  /// cols x rows cells, all different as far as the type allows.
  static A plane(std::size_t cols, std::size_t rows) {
    A a;
    SetLength(a, static_cast<Integer>(cols), static_cast<Integer>(rows));
    int i = 0;
    each(a,
         [&](auto& x) { x = static_cast<CellType<A>>(++i * 7 % 11 % (std::same_as<CellType<A>, Boolean> ? 2 : 11)); });
    return a;
  }
};
using PlaneTypes = testing::Types<TDouble2DArray, TInt2DArray, TBool2DArray>;
TYPED_TEST_SUITE(Plane, PlaneTypes);

TYPED_TEST(Plane, TransposedHasColumnsAndRowsExchanged) {
  for (const std::size_t cols : {1U, 2U, 15U, 16U, 17U, 33U}) {
    for (const std::size_t rows : {1U, 3U, 8U, 16U, 31U, 50U}) {
      auto a = this->plane(cols, rows);
      const auto other = a;
      EXPECT_EQ(TransposeArray(a), 0);
      ASSERT_EQ(a.size(), rows);
      for (std::size_t r = 0; r < rows; ++r) {
        ASSERT_EQ(a[r].size(), cols);
        for (std::size_t c = 0; c < cols; ++c) ASSERT_EQ(a[r][c], other[c][r]);
      }
      EXPECT_EQ(other, this->plane(cols, rows)) << "another handle keeps its cells";
    }
  }
}

TYPED_TEST(Plane, EmptyOrRaggedIsNotTransposed) {
  TypeParam null, ragged = {{1, 0}, {1}};
  EXPECT_EQ(TransposeArray(null), kEmptyArray);
  EXPECT_EQ(TransposeArray(ragged), kEmptyArray);
  EXPECT_EQ(ragged, (TypeParam{{1, 0}, {1}}));
}

using NumPlaneTypes = testing::Types<TDouble2DArray, TInt2DArray>;
template <class A>
class Lines : public Plane<A> {};
TYPED_TEST_SUITE(Lines, NumPlaneTypes);

TYPED_TEST(Lines, SerialOrderIsByRowsOrByColumns) {
  typename TypeParam::value_type line = {9};
  const auto other = line;
  SerializeArray(TypeParam{{1, 2}, {3, 4}}, false, line);
  EXPECT_EQ(cells(line), (std::vector<CellType<TypeParam>>{1, 3, 2, 4}));
  SerializeArray(TypeParam{{1, 2, 3}, {4, 5, 6}}, true, line);
  EXPECT_EQ(cells(line), (std::vector<CellType<TypeParam>>{1, 2, 3, 4, 5, 6}));
  SerializeArray(TypeParam(), true, line);
  SerializeArray(TypeParam{{1}, {2, 3}}, false, line);
  EXPECT_EQ(Length(line), 6) << "an empty array leaves it alone";
  EXPECT_EQ(cells(other), (std::vector<CellType<TypeParam>>{9}));
  TypeParam a = {{1, 2}, {3, 4}};
  SerializeArray(a, false, a[1]);
  EXPECT_EQ(cells(a[1]), (std::vector<CellType<TypeParam>>{1, 3, 2, 4}));
}

TYPED_TEST(Lines, RemovedLinesLeaveTheOthersInOrder) {
  constexpr std::size_t kCols = 4, kRows = 5;
  for (std::size_t k = 0; k < kRows; ++k) {
    auto a = this->plane(kCols, kRows);
    const auto other = a;
    auto wanted = CopyOf(a);
    for (auto& column : wanted) {
      std::copy(column.begin() + k + 1, column.end(), column.begin() + k);
      SetLength(column, kRows - 1);
    }
    EXPECT_TRUE(RemoveRow(a, static_cast<Integer>(k)));
    EXPECT_EQ(a, wanted);
    EXPECT_EQ(other, this->plane(kCols, kRows)) << "another handle keeps its cells";
  }
  for (std::size_t k = 0; k < kCols; ++k) {
    auto a = this->plane(kCols, kRows);
    const auto other = a;
    auto wanted = CopyOf(a);
    std::move(wanted.begin() + k + 1, wanted.end(), wanted.begin() + k);
    SetLength(wanted, kCols - 1);
    EXPECT_TRUE(RemoveColumn(a, static_cast<Integer>(k)));
    EXPECT_EQ(a, wanted);
    EXPECT_EQ(other, this->plane(kCols, kRows));
  }
}

TYPED_TEST(Lines, NothingIsRemovedOutsideOrFromEmptyArrays) {
  TypeParam a = {{1, 2, 3}, {4, 5, 6}}, null, ragged = {{1, 2}, {3}};
  for (const Integer bad : {-1, 3, kMinInteger, 2147483647}) {
    EXPECT_FALSE(RemoveRow(a, bad));
    EXPECT_FALSE(RemoveColumn(a, bad));
  }
  EXPECT_FALSE(RemoveColumn(a, 2));
  EXPECT_EQ(a, (TypeParam{{1, 2, 3}, {4, 5, 6}}));
  EXPECT_FALSE(RemoveRow(null, 0));
  EXPECT_FALSE(RemoveColumn(null, 0));
  EXPECT_FALSE(RemoveRow(ragged, 0));
  EXPECT_FALSE(RemoveColumn(ragged, 0));
}

TYPED_TEST(Lines, TheLastRowLeavesEmptyColumnsAndTheLastColumnNone) {
  TypeParam a = {{1}, {2}}, b = {{1, 2}};
  EXPECT_TRUE(RemoveRow(a, 0));
  EXPECT_EQ(Length(a), 2);
  EXPECT_EQ(Length(a[0]) + Length(a[1]), 0);
  EXPECT_FALSE(RemoveRow(a, 0)) << "empty now";
  EXPECT_TRUE(RemoveColumn(b, 0));
  EXPECT_EQ(Length(b), 0);
  EXPECT_FALSE(RemoveColumn(b, 0));
}

}  // namespace
}  // namespace ZOR_openarrays

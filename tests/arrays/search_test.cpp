#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

TEST(FindInArrays, FirstMatchWins) {
  EXPECT_EQ(FindInArray(3, {1, 3, 3}), 1);
  EXPECT_EQ(FindInArray(4, {1, 3, 3}), kNotFound);
  EXPECT_EQ(FindInArray(4, nullptr), kEmptyArray);
}

TEST(FindInArrays, TextsWithAndWithoutCaseAndInParts) {
  const TStrArray a = {"Carbon", "nitrogen", "Nitrogen oxide", ""};
  EXPECT_EQ(FindInArray("Nitrogen", a, false, false), kNotFound);
  EXPECT_EQ(FindInArray("Nitrogen", a, true, false), 1);
  EXPECT_EQ(FindInArray("Nitro", a, false, true), 2);
  EXPECT_EQ(FindInArray("NITRO", a, true, true), 1);
  EXPECT_EQ(FindInArray("", a, false, true), 0) << "an empty text stands in every cell";
  EXPECT_EQ(FindInArray("", a, false, false), 3);
  EXPECT_EQ(FindInArray("x", TStrArray{}, false, true), kEmptyArray);
}

TEST(FindSorted, NearestCellAndTheHigherOneOnATie) {
  const TDoubleArray up = {1, 2, 3, 4}, down = {4, 3, 2, 1};
  EXPECT_EQ(FindInSortedArray(2.5, up, true), 2);
  EXPECT_EQ(FindInSortedArray(2.4, up, true), 1);
  EXPECT_EQ(FindInSortedArray(3.5, down, false), 1);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(FindInSortedArray(i + 1, up, true), i);
    EXPECT_EQ(FindInSortedArray(i + 1, down, false), 3 - i);
  }
  EXPECT_EQ(FindInSortedArray(2, {1, 2, 2, 2, 3}, true), 2);
  EXPECT_EQ(FindInSortedArray(1, {1, 1}, true), 1);
  EXPECT_EQ(FindInSortedArray(7, {7}, false), 0);
}

TEST(FindSorted, OutsideWrongDirectionAndNaNAreRefused) {
  const TDoubleArray up = {1, 2, 3, 4};
  EXPECT_EQ(FindInSortedArray(0.9, up, true), kOutsideData);
  EXPECT_EQ(FindInSortedArray(4.1, up, true), kOutsideData);
  EXPECT_EQ(FindInSortedArray(2, up, false), kOutsideData);
  EXPECT_EQ(FindInSortedArray(kNaN, up, true), kOutsideData);
  EXPECT_EQ(FindInSortedArray(kNaN, nullptr, true), kEmptyArray);
  EXPECT_EQ(FindInSortedArray(-kInf, {-kInf, 1}, true), 0);
}

TEST(CellPositions, FollowStorageOrderUpToTheCount) {
  TIntArray line = {9};
  EXPECT_EQ(ListCellPositions(TBoolArray{true, false, true, true}, true, 0, 10, line), 3);
  EXPECT_EQ(line, (TIntArray{10, 12, 13}));
  EXPECT_EQ(ListCellPositions(TBoolArray{true, false, true, true}, true, 2, 2147483647, line), 2);
  EXPECT_EQ(line, (TIntArray{2147483647, kMinInteger + 1}));
  EXPECT_EQ(ListCellPositions(TBoolArray{}, true, 2, 0, line), kEmptyArray);
  EXPECT_EQ(line.size(), 2U);
  EXPECT_EQ(ListCellPositions(TBoolArray{true}, false, 2, 0, line), 0);
  EXPECT_TRUE(line.empty());
  TInt2DArray plane;
  const TBool2DArray mask = {{false, true, true}, {true, false, true}};
  EXPECT_EQ(ListCellPositions(mask, true, -1, 1, plane), 4);
  EXPECT_EQ(plane, (TInt2DArray{{1, 1, 2, 2}, {2, 3, 1, 3}}));
  EXPECT_EQ(ListCellPositions(mask, true, 3, 0, plane), 3);
  EXPECT_EQ(plane, (TInt2DArray{{0, 0, 1}, {1, 2, 0}}));
  EXPECT_EQ(ListCellPositions(TBool2DArray{{true}}, false, 0, 0, plane), 0);
  EXPECT_EQ(plane, (TInt2DArray{{}, {}}));
  EXPECT_EQ(ListCellPositions(TBool2DArray{{true}, {}}, true, 0, 0, plane), kEmptyArray);
}

}  // namespace
}  // namespace ZOR_openarrays

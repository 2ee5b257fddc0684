#include "tests/arrays/array_util.h"
#include "zor/base/errors.h"

namespace ZOR_openarrays {
namespace {

/// Columns and rows for one cell type; a cell that is not 0 is true.
template <class R>
class ColumnsRows : public testing::Test {
 protected:
  using Plane = TDynArray<R>;
  /// Three columns of four cells: 1, 0, 1, 0 | 0, 1, 0, 1 | 1, 1, 0, 0
  Plane plane() { return {{1, 0, 1, 0}, {0, 1, 0, 1}, {1, 1, 0, 0}}; }
  R line() { return {0, 0, 0, 1, 1}; }
};
using LineTypes = testing::Types<TDoubleArray, TIntArray, TBoolArray>;
TYPED_TEST_SUITE(ColumnsRows, LineTypes);

TYPED_TEST(ColumnsRows, RangesAreTakenOutWithTheirLength) {
  const auto a = this->plane();
  TypeParam res = this->line(), other = res;
  EXPECT_EQ(CopyArrayColumn(a, 2, 1, 3, res), 0);
  EXPECT_EQ(res, (TypeParam{1, 0, 0}));
  EXPECT_EQ(CopyArrayColumn(a, 0, 2, 2, res), 0);
  EXPECT_EQ(res, (TypeParam{1}));
  EXPECT_EQ(CopyArrayRow(a, 1, 0, 2, res), 0);
  EXPECT_EQ(res, (TypeParam{0, 1, 1}));
  EXPECT_EQ(CopyArrayRow(a, 0, 1, 2, res), 0);
  EXPECT_EQ(res, (TypeParam{0, 1}));
  EXPECT_EQ(other, this->line()) << "another handle keeps its cells";
}

TYPED_TEST(ColumnsRows, TakingOutReportsTheFirstFault) {
  const auto a = this->plane();
  auto res = this->line();
  EXPECT_EQ(CopyArrayColumn(nullptr, -1, 2, 1, res), kEmptyArray);
  EXPECT_EQ(CopyArrayRow({{1, 0}, {1}}, 0, 0, 0, res), kEmptyArray) << "ragged";
  for (const auto& [first, last] : {std::pair{2, 1}, {-1, 1}, {0, 4}, {4, 4}, {kMinInteger, 2147483647}}) {
    EXPECT_EQ(CopyArrayColumn(a, 3, first, last, res), kBadRange);
  }
  for (const auto& [first, last] : {std::pair{2, 1}, {-1, 1}, {0, 3}, {3, 3}}) {
    EXPECT_EQ(CopyArrayRow(a, 4, first, last, res), kBadRange) << "the range runs along the columns";
  }
  for (const Integer bad : {-1, 4, kMinInteger}) {
    EXPECT_EQ(CopyArrayColumn(a, bad, 0, 3, res), kBadColumnOrRow);
    EXPECT_EQ(CopyArrayRow(a, bad, 0, 2, res), kBadColumnOrRow);
  }
  EXPECT_EQ(CopyArrayColumn(a, 3, 0, 3, res), kBadColumnOrRow);
  EXPECT_EQ(res, this->line());
}

TYPED_TEST(ColumnsRows, ResultMayBeAColumnOfTheSource) {
  auto a = this->plane();
  EXPECT_EQ(CopyArrayColumn(a, 0, 0, 3, a[1]), 0);
  EXPECT_EQ(a[1], (TypeParam{1, 0, 1, 0}));
  EXPECT_EQ(CopyArrayColumn(a, 2, 1, 3, a[2]), 0);
  EXPECT_EQ(a[2], (TypeParam{1, 0, 0}));
  typename TestFixture::Plane square = {{0, 0, 1}, {1, 0, 0}, {1, 1, 0}};
  EXPECT_EQ(CopyArrayRow(square, 0, 0, 2, square[2]), 0);
  EXPECT_EQ(square[2], (TypeParam{0, 1, 1}));
}

TYPED_TEST(ColumnsRows, ZeroZeroPutsInTheWholeSource) {
  auto a = this->plane();
  EXPECT_EQ(CopyToArrayColumn({1, 0, 1}, 0, 0, 1, 1, a), 0);
  EXPECT_EQ(a[1], (TypeParam{0, 1, 0, 1}));
  EXPECT_EQ(CopyToArrayRow({0, 1, 0}, 0, 0, 0, 3, a), 0);
  EXPECT_EQ(a, (typename TestFixture::Plane{{1, 0, 1, 0}, {0, 1, 0, 1}, {1, 1, 0, 0}}));
  EXPECT_EQ(CopyToArrayRow({0, 0, 0}, 0, 0, 0, 0, a), 0);
  EXPECT_EQ(a, (typename TestFixture::Plane{{0, 0, 1, 0}, {0, 1, 0, 1}, {0, 1, 0, 0}}));
}

TYPED_TEST(ColumnsRows, PuttingInStopsAtTheEndAndLeavesTheRest) {
  auto a = this->plane();
  EXPECT_EQ(CopyToArrayColumn(this->line(), 2, 4, 2, 2, a), 0);  // 0, 1 of 0, 1, 1
  EXPECT_EQ(a[2], (TypeParam{1, 1, 0, 1}));
  EXPECT_EQ(CopyToArrayRow(this->line(), 3, 4, 2, 2, a), 0);  // one of two cells
  EXPECT_EQ(a, (typename TestFixture::Plane{{1, 0, 1, 0}, {0, 1, 0, 1}, {1, 1, 1, 1}}));
  EXPECT_EQ(CopyToArrayColumn(this->line(), 4, 3, 0, 1, a), 0) << "nothing to copy";
  EXPECT_EQ(CopyToArrayRow(this->line(), 4, 3, 0, 1, a), 0);
  EXPECT_EQ(a, (typename TestFixture::Plane{{1, 0, 1, 0}, {0, 1, 0, 1}, {1, 1, 1, 1}}));
}

TYPED_TEST(ColumnsRows, PuttingInReportsTheLastFault) {
  auto a = this->plane();
  typename TestFixture::Plane null;
  const auto line = this->line();
  for (const auto& [first, last] : {std::pair{-1, 2}, {0, 5}, {5, 1}, {0, -1}}) {
    EXPECT_EQ(CopyToArrayColumn(line, first, last, 0, 0, a), kBadSource);
    EXPECT_EQ(CopyToArrayRow(line, first, last, 0, 0, a), kBadSource);
    EXPECT_EQ(CopyToArrayColumn(line, first, last, 3, 0, a), kBadRange);
    EXPECT_EQ(CopyToArrayRow(line, first, last, 0, 4, a), kBadRange);
  }
  for (const auto& [col, row] : {std::pair{-1, 0}, {0, -1}, {3, 0}, {0, 4}}) {
    EXPECT_EQ(CopyToArrayColumn(line, 4, 3, col, row, a), kBadRange);
    EXPECT_EQ(CopyToArrayRow(line, 4, 3, col, row, a), kBadRange);
  }
  EXPECT_EQ(CopyToArrayColumn(nullptr, 0, 0, 0, 0, a), kBadSource);
  EXPECT_EQ(CopyToArrayRow(nullptr, 0, 0, 0, 0, a), kBadSource);
  EXPECT_EQ(CopyToArrayColumn(line, 0, 0, 0, 0, null), kBadRange);
  EXPECT_EQ(CopyToArrayRow(nullptr, 0, 0, 0, 0, null), kBadRange);
  EXPECT_EQ(a, this->plane());
}

TYPED_TEST(ColumnsRows, SourceMayBeAColumnOfTheDestination) {
  auto a = this->plane();
  EXPECT_EQ(CopyToArrayColumn(a[0], 0, 2, 0, 1, a), 0);
  EXPECT_EQ(a[0], (TypeParam{1, 1, 0, 1}));
  typename TestFixture::Plane square = {{1, 0, 0}, {0, 0, 0}, {0, 0, 0}};
  EXPECT_EQ(CopyToArrayRow(square[0], 0, 0, 0, 1, square), 0);
  EXPECT_EQ(square, (typename TestFixture::Plane{{1, 1, 0}, {0, 0, 0}, {0, 0, 0}}));
}

TYPED_TEST(ColumnsRows, DeprecatedFormsRaise) {
  auto a = this->plane();
  for (const auto name : {&CopyVectorToArrayColumn<decltype(a)>, &CopyVectorToArrayRow<decltype(a)>}) {
    try {
      name(this->line(), 0, 0, 0, 0, a);
      ADD_FAILURE() << "nothing was raised";
    } catch (const EZORError& error) {
      EXPECT_STREQ(error.what(), "deprecated function, see help for details");
    }
  }
  EXPECT_EQ(a, this->plane());
}

TEST(Copy2DTo1D, CopiesWhatFitsAndKeepsTheLength) {
  TDouble2DArray a;
  SetLength(a, 2, 10);
  FillArraySerial(a);
  TDoubleArray dest = {-1, -2, -3, -4, -5, -6};
  EXPECT_EQ(Copy2DColTo1DArray(a, 1, 0, 9, dest, 2), 0);
  EXPECT_EQ(dest, (TDoubleArray{-1, -2, 10, 11, 12, 13}));
  EXPECT_EQ(Copy2DRowTo1DArray(a, 9, 0, 1, dest, 0), 0);
  EXPECT_EQ(dest, (TDoubleArray{9, 19, 10, 11, 12, 13}));
  EXPECT_EQ(Copy2DRowTo1DArray(a, 5, 0, 1, dest, 5), 0);
  EXPECT_EQ(dest, (TDoubleArray{9, 19, 10, 11, 12, 5}));
}

TEST(Copy2DTo1D, ReportsTheFirstFault) {
  const TDouble2DArray a = {{1, 2, 3}, {4, 5, 6}};
  TDoubleArray dest = {7, 8}, null;
  EXPECT_EQ(Copy2DColTo1DArray(nullptr, 0, 0, 0, dest, 9), kEmptyArray);
  EXPECT_EQ(Copy2DColTo1DArray(a, 9, 0, 3, dest, 9), kBadRange);
  EXPECT_EQ(Copy2DColTo1DArray(a, 2, 0, 2, dest, 9), kBadColumnOrRow);
  EXPECT_EQ(Copy2DColTo1DArray(a, 1, 0, 2, dest, 2), kBadDestIndex);
  EXPECT_EQ(Copy2DRowTo1DArray(nullptr, 0, 0, 0, dest, 9), kEmptyArray);
  EXPECT_EQ(Copy2DRowTo1DArray(a, 9, 0, 2, dest, 9), kBadRange);
  EXPECT_EQ(Copy2DRowTo1DArray(a, 3, 0, 1, dest, 9), kBadColumnOrRow);
  EXPECT_EQ(Copy2DRowTo1DArray(a, 2, 0, 1, dest, -1), kBadDestIndex);
  EXPECT_EQ(Copy2DRowTo1DArray(a, 2, 0, 1, null, 0), kBadDestIndex);
  EXPECT_EQ(dest, (TDoubleArray{7, 8}));
}

TEST(Copy2DTo1D, DestMayBeAColumnOfTheSource) {
  TDouble2DArray a = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
  EXPECT_EQ(Copy2DColTo1DArray(a, 0, 0, 2, a[0], 1), 0);
  EXPECT_EQ(a[0], (TDoubleArray{1, 1, 2}));
  EXPECT_EQ(Copy2DRowTo1DArray(a, 0, 0, 2, a[2], 0), 0);
  EXPECT_EQ(a[2], (TDoubleArray{1, 4, 7}));
}

}  // namespace
}  // namespace ZOR_openarrays

#include <algorithm>
#include <set>

#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

using testing::ElementsAre;

TEST(Resampling, CellsAreThoseOfTheIndices) {
  TDouble2DArray src;
  SetLength(src, 20, 30);
  for (Integer c = 0; c < 20; ++c) {
    for (Integer r = 0; r < 30; ++r) src[c][r] = 100 * c + r;
  }
  for (const bool bootstrap : {false, true}) {
    TDouble2DArray dest = {{0}};
    TIntArray col_ix = {0}, row_ix = {0};
    EXPECT_EQ(Resample2DArray(src, dest, 50, 100, bootstrap, col_ix, row_ix), 0);
    ASSERT_EQ(Length(dest), 10);
    for (Integer c = 0; c < 10; ++c) {
      ASSERT_EQ(Length(dest[c]), 30);
      for (Integer r = 0; r < 30; ++r) EXPECT_EQ(dest[c][r], 100 * (col_ix[c] - 1) + row_ix[r] - 1);
    }
    EXPECT_EQ(std::set<Integer>(col_ix.begin(), col_ix.end()).size(), 10u);
    const auto different = std::set<Integer>(row_ix.begin(), row_ix.end()).size();
    EXPECT_EQ(different == 30, !bootstrap);
    EXPECT_FALSE(std::is_sorted(row_ix.begin(), row_ix.end()));
  }
}

TEST(Resampling, AllColumnsStandInOrderAndTheSourceMayBeTheTarget) {
  TDouble2DArray a = {{1}, {2}, {3}};
  TIntArray col_ix = {0}, row_ix = {0};
  EXPECT_EQ(Resample2DArray(a, a, 100, 100, false, col_ix, row_ix), 0);
  EXPECT_EQ(a, (TDouble2DArray{{1}, {2}, {3}}));
  EXPECT_THAT(col_ix, ElementsAre(1, 2, 3));
  EXPECT_THAT(row_ix, ElementsAre(1));
}

TEST(Resampling, SharesRoundTiesToEven) {
  TDouble2DArray src, dest;
  TIntArray col_ix, row_ix;
  const auto columns = [&](Integer cols, Double percent) {
    SetLength(src, cols, 4), SetLength(dest, 1, 1), SetLength(col_ix, 1), SetLength(row_ix, 1);
    const Integer code = Resample2DArray(src, dest, percent, 50, false, col_ix, row_ix);
    return code == 0 ? Length(col_ix) : code;
  };
  EXPECT_EQ(columns(5, 50), 2);
  EXPECT_EQ(columns(3, 50), 2);
  EXPECT_EQ(columns(1, 50), kBadColumnShare);
  EXPECT_EQ(columns(10, 95), 10);
  EXPECT_THAT(col_ix, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10)) << "all of them stand in order";
}

TEST(Resampling, ColumnsAndRowsAreDrawnApart) {
  TDouble2DArray src, dest = {{0}};
  SetLength(src, 1000, 1000);
  TIntArray col_ix = {0}, row_ix = {0};
  EXPECT_EQ(Resample2DArray(src, dest, 50, 50, false, col_ix, row_ix), 0);
  EXPECT_NE(col_ix, row_ix);
}

TEST(Resampling, CodesComeInTheirOrderAndTouchNothing) {
  const TDouble2DArray src = {{1, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 10}};
  TDouble2DArray dest = {{42}}, none;
  TIntArray c = {42}, r = {42}, null;
  const auto code = [&](Double cols, Double rows) { return Resample2DArray(src, dest, cols, rows, false, c, r); };
  EXPECT_EQ(Resample2DArray(none, none, 50, 50, false, null, null), kNoSampleSource);
  EXPECT_EQ(Resample2DArray(src, none, 50, 50, false, null, r), kNoSampleDest);
  EXPECT_EQ(Resample2DArray(src, dest, 0, 50, false, null, r), kNoSampleIndices);
  EXPECT_EQ(Resample2DArray(src, dest, 50, 50, false, c, c), kNoSampleIndices);
  EXPECT_EQ(code(100.5, 100), kBadColumnShare);
  EXPECT_EQ(code(10, 100), kBadColumnShare) << "0.5 rounds to 0";
  EXPECT_EQ(code(kNaN, 100), kBadColumnShare);
  EXPECT_EQ(code(0, kNaN), kBadRowShare);
  EXPECT_EQ(code(50, -kInf), kBadRowShare);
  EXPECT_THAT(c, ElementsAre(42));
  EXPECT_EQ(dest, (TDouble2DArray{{42}}));
  EXPECT_EQ(code(50, 100), 0);
  EXPECT_EQ(c.size(), 2u) << "2.5 rounds to 2";
  TDouble2DArray tall;
  SetLength(tall, 1, 1'000'001);
  EXPECT_EQ(Resample2DArray(tall, dest, 100, 1, false, c, r), kSampleTooLarge);
  EXPECT_EQ(Resample2DArray(tall, dest, 100, 1, true, c, r), 0);
}

}  // namespace
}  // namespace ZOR_openarrays

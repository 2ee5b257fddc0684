#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

const TDouble2DArray kPlane = {{11, 12, 13}, {21, 22, 23}, {31, 32, 33}};
/// A cycle of three: rows 0, 1, 2 of P A are rows 2, 0, 1 of A.
const TInt2DArray kCycle = {{0, 1, 0}, {0, 0, 1}, {1, 0, 0}};

TEST(PermuteArray, RowsGiveTheProductWithPAndColumnsThatWithItsTranspose) {
  TDouble2DArray res = {{9}};
  EXPECT_EQ(PermuteArray(kPlane, kCycle, acrRows, false, res), 0);
  EXPECT_EQ(res, (TDouble2DArray{{13, 11, 12}, {23, 21, 22}, {33, 31, 32}}));
  EXPECT_EQ(PermuteArray(kPlane, kCycle, acrColumns, false, res), 0);
  EXPECT_EQ(res, (TDouble2DArray{{31, 32, 33}, {11, 12, 13}, {21, 22, 23}}));
}

TEST(PermuteArray, TheFlagBringsTheOldOrderBackAlsoInPlace) {
  for (const auto what : {acrRows, acrColumns}) {
    TDouble2DArray a = CopyOf(kPlane);
    const auto other = a;
    EXPECT_EQ(PermuteArray(a, kCycle, what, false, a), 0);
    EXPECT_NE(a, kPlane);
    EXPECT_EQ(other, kPlane) << "other handles keep their cells";
    EXPECT_EQ(PermuteArray(a, kCycle, what, true, a), 0);
    EXPECT_EQ(a, kPlane);
  }
}

TEST(PermuteArray, FitsTheSideItReorders) {
  const TDouble2DArray wide = {{1, 2}, {3, 4}, {5, 6}};
  TDouble2DArray res;
  EXPECT_EQ(PermuteArray(wide, kCycle, acrColumns, false, res), 0);
  EXPECT_EQ(res, (TDouble2DArray{{5, 6}, {1, 2}, {3, 4}}));
  EXPECT_EQ(PermuteArray(wide, kCycle, acrRows, false, res), kNoPermutation);
  EXPECT_EQ(PermuteArray(wide, {{0, 1}, {1, 0}}, acrRows, false, res), 0);
  EXPECT_EQ(res, (TDouble2DArray{{2, 1}, {4, 3}, {6, 5}}));
}

TEST(PermuteArray, AnythingButAPermutationMatrixIsRefused) {
  TDouble2DArray res = {{9}};
  const TDouble2DArray a = {{1, 2}, {3, 4}};
  const TInt2DArray bad[] = {{{1, 0}, {1, 0}},
                             {{1, 1}, {0, 0}},
                             {{1, 0}, {0, 2}},
                             {{1, -1}, {0, 1}},
                             {{0, 0}, {0, 1}},
                             {{1, 0, 0}, {0, 1, 0}},
                             {{1}},
                             kCycle};
  for (const auto& perm : bad) EXPECT_EQ(PermuteArray(a, perm, acrColumns, false, res), kNoPermutation) << perm;
  EXPECT_EQ(PermuteArray(nullptr, kCycle, acrColumns, false, res), kEmptyArray);
  EXPECT_EQ(PermuteArray(a, nullptr, acrColumns, false, res), kEmptyArray);
  EXPECT_EQ(PermuteArray(a, {{1, 0}, {0}}, acrColumns, false, res), kEmptyArray) << "ragged";
  EXPECT_EQ(PermuteArray({{1, 2}, {3}}, {{1, 0}, {0, 1}}, acrColumns, false, res), kEmptyArray);
  EXPECT_EQ(res, (TDouble2DArray{{9}}));
}

}  // namespace
}  // namespace ZOR_openarrays

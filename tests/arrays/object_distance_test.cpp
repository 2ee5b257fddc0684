#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

TEST(ObjectDistance, HasTheValuesOfItsFormulas) {
  const TDouble2DArray a = {{9, 9}, {1, 3}, {2, 0}, {0, 4}};  // rows (1 2 0) and (3 0 4) from column 1 on
  const auto distance = [&](TDistMode mode) {
    Double d = -1;
    EXPECT_EQ(DistanceOfObjects(a, mode, 0, 1, 1, 3, d), 0);
    return d;
  };
  EXPECT_EQ(distance(dmTanimoto), 3.0 / (5 + 25 - 3));
  EXPECT_EQ(distance(dmManhattan), 8.0);
  EXPECT_EQ(distance(dmEuclid), std::sqrt(24.0));
  EXPECT_EQ(distance(dmEuclidSqr), 24.0);
  EXPECT_EQ(distance(dmDice), 6.0 / 30.0);
  Double d = -1;
  DistanceOfObjects({{0, 0}}, dmTanimoto, 0, 1, 0, 0, d);
  EXPECT_EQ(d, 1.0);
  DistanceOfObjects({{0, 0}}, dmDice, 0, 1, 0, 0, d);
  EXPECT_EQ(d, 1.0);
}

TEST(ObjectDistance, LastFailingTestGivesTheCodeAndTheDistanceIsZero) {
  const TDouble2DArray a = {{1, 2}, {3, 4}};
  const auto code = [](const TDouble2DArray& data, TDistMode mode, Integer o1, Integer o2, Integer first,
                       Integer last) {
    Double d = 7;
    const Integer result = DistanceOfObjects(data, mode, o1, o2, first, last, d);
    EXPECT_EQ(d, 0.0);
    return result;
  };
  EXPECT_EQ(code(a, dmUserDef, 0, 1, 0, 1), kUserDistance);
  EXPECT_EQ(code(a, dmUserDef, 0, 2, 0, 1), kNoSuchObject);
  EXPECT_EQ(code(a, dmEuclid, -1, 2, 0, 2), kNoSuchVariable);
  EXPECT_EQ(code(a, dmUserDef, 0, 1, 1, 0), kReversedColumns);
  EXPECT_EQ(code({}, dmEuclid, 0, 0, 0, 0), kNoSuchVariable);
}

}  // namespace
}  // namespace ZOR_openarrays

#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

template <class A>
class Dichotomize : public testing::Test {};
using Plane = testing::Types<TDoubleArray, TDouble2DArray, TIntArray, TInt2DArray>;
TYPED_TEST_SUITE(Dichotomize, Plane);

TYPED_TEST(Dichotomize, ThresholdItselfIsFalseAndLimitsAreTrue) {
  const auto a = shaped<TypeParam>([](int i) { return i; });
  ShapeOf<TypeParam, Boolean> mask;
  EXPECT_EQ(DichotomizeArray(a, 1, mask), 0);
  EXPECT_EQ(mask, (shaped<ShapeOf<TypeParam, Boolean>>([](int i) { return i > 1; })));
  EXPECT_EQ(DichotomizeArray(a, 4, 1, mask), 0);
  EXPECT_EQ(mask, (shaped<ShapeOf<TypeParam, Boolean>>([](int i) { return i >= 1 && i <= 4; })));
  EXPECT_EQ(DichotomizeArray(TypeParam{}, 4, mask), kEmptyArray);
  EXPECT_FALSE(mask.empty());
}

TYPED_TEST(Dichotomize, TruthValuesBecomeTheTwoNumbers) {
  const auto mask = shaped<ShapeOf<TypeParam, Boolean>>([](int i) { return i % 2 == 1; });
  TypeParam res;
  EXPECT_EQ(BoolToNumArray(mask, 7, -3, res), 0);
  EXPECT_EQ(res, shaped<TypeParam>([](int i) { return i % 2 ? -3 : 7; }));
  EXPECT_EQ(BoolToNumArray(nullptr, 7, -3, res), kEmptyArray);
  EXPECT_FALSE(res.empty());
}

TEST(DichotomizeReal, NaNIsFalse) {
  TBoolArray mask;
  DichotomizeArray(TDoubleArray{kNaN, 1}, 0, mask);
  EXPECT_EQ(mask, (TBoolArray{false, true}));
  DichotomizeArray(TDoubleArray{kNaN, 1}, -kInf, kInf, mask);
  EXPECT_EQ(mask, (TBoolArray{false, true}));
}

TEST(InvertBoolean, ChangesEveryCell) {
  TBoolArray line = {true, false};
  EXPECT_EQ(InvertArray(line), 0);
  EXPECT_EQ(line, (TBoolArray{false, true}));
  TBool2DArray plane = {{true, false}, {true, true}}, ragged = {{true}, {}}, null;
  EXPECT_EQ(InvertArray(plane), 0);
  EXPECT_EQ(plane, (TBool2DArray{{false, true}, {false, false}}));
  EXPECT_EQ(InvertArray(ragged), kEmptyArray);
  EXPECT_TRUE(ragged[0][0]);
  EXPECT_EQ(InvertArray(null), kEmptyArray);
}

}  // namespace
}  // namespace ZOR_openarrays

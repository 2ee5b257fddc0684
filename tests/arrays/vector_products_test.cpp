#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

template <class A>
class VectorProducts : public testing::Test {};
using VectorTypes = testing::Types<TDoubleArray, TIntArray>;
TYPED_TEST_SUITE(VectorProducts, VectorTypes);

TYPED_TEST(VectorProducts, DotSumsLikeCells) {
  CellType<TypeParam> dot = 9;
  EXPECT_EQ(VectorDotProduct(TypeParam{1, 2, 3, 4}, {5, -6, 7, 8}, dot), 0);
  EXPECT_EQ(dot, 46);
}

TYPED_TEST(VectorProducts, CrossIsRightHandedAndOrthogonal) {
  TypeParam c = {9};
  EXPECT_EQ(VectorCrossProduct({1, 0, 0}, {0, 1, 0}, c), 0);
  EXPECT_EQ(c, (TypeParam{0, 0, 1}));
  const TypeParam a = {2, -3, 5}, b = {7, 11, -13};
  EXPECT_EQ(VectorCrossProduct(a, b, c), 0);
  EXPECT_EQ(c, (TypeParam{-16, 61, 43}));
  CellType<TypeParam> dot = 9;
  VectorDotProduct(a, c, dot);
  EXPECT_EQ(dot, 0);
}

TYPED_TEST(VectorProducts, CrossMayOverwriteAnOperandButNotItsOtherHandles) {
  TypeParam a = {2, -3, 5};
  const auto other = a;
  EXPECT_EQ(VectorCrossProduct(a, {7, 11, -13}, a), 0);
  EXPECT_EQ(a, (TypeParam{-16, 61, 43}));
  EXPECT_EQ(other, (TypeParam{2, -3, 5}));
}

TYPED_TEST(VectorProducts, EmptyOrUnequalVectorsTouchNothing) {
  CellType<TypeParam> dot = 9;
  EXPECT_EQ(VectorDotProduct(TypeParam(), {1}, dot), kEmptyArray);
  EXPECT_EQ(VectorDotProduct(TypeParam{1}, nullptr, dot), kEmptyArray);
  EXPECT_EQ(VectorDotProduct(TypeParam{1, 2}, {1, 2, 3}, dot), kSizeMismatch);
  EXPECT_EQ(dot, 9);
  TypeParam c = {9};
  EXPECT_EQ(VectorCrossProduct(nullptr, {1, 2, 3}, c), kEmptyArray);
  EXPECT_EQ(VectorCrossProduct({1, 2, 3}, {1, 2}, c), kNotThreeCells);
  EXPECT_EQ(VectorCrossProduct({1, 2, 3, 4}, {1, 2, 3, 4}, c), kNotThreeCells);
  EXPECT_EQ(c, (TypeParam{9}));
}

TEST(VectorProductsOfIntegers, WrapAround) {
  Integer dot = 0;
  EXPECT_EQ(VectorDotProduct(TIntArray{65536, 3}, {65536, 5}, dot), 0);
  EXPECT_EQ(dot, 15);
  TIntArray c;
  EXPECT_EQ(VectorCrossProduct({0, 65536, 1}, {0, 1, 65536}, c), 0);
  EXPECT_EQ(c, (TIntArray{-1, 0, 0}));
}

}  // namespace
}  // namespace ZOR_openarrays

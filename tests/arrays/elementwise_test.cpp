#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

constexpr auto ramp = [](int i) { return i + 1; };
constexpr auto tens = [](int i) { return 10 * (i + 1); };

TEST(OpenArrays, ExampleOfTheChiefHeader) {
  TDouble2DArray a = {{1, 2}, {3, 4}}, sum;
  EXPECT_EQ(AddArrays(a, {{10, 20}, {30, 40}}, sum), 0);
  EXPECT_EQ(MultiplyArrayByScalar(sum, 0.5), 0);
  EXPECT_EQ(AddArrays(a, nullptr, sum), kEmptyArray);
  EXPECT_EQ(sum, (TDouble2DArray{{5.5, 11}, {16.5, 22}}));
}

template <class A>
class Elementwise : public testing::Test {};
TYPED_TEST_SUITE(Elementwise, NumTypes);

TYPED_TEST(Elementwise, EveryCellIsCombined) {
  const auto a = shaped<TypeParam>(ramp), b = shaped<TypeParam>(tens);
  TypeParam res;
  EXPECT_EQ(AddArrays(a, b, res), 0);
  EXPECT_EQ(res, shaped<TypeParam>([](int i) { return 11 * (i + 1); }));
  EXPECT_EQ(SubtractArrays(a, b, res), 0);
  EXPECT_EQ(res, shaped<TypeParam>([](int i) { return -9 * (i + 1); }));
  EXPECT_EQ(AbsValArray(res), 0);
  EXPECT_EQ(res, shaped<TypeParam>([](int i) { return 9 * (i + 1); }));
  EXPECT_EQ(AddScalarToArray(a, 5, res), 0);
  EXPECT_EQ(res, shaped<TypeParam>([](int i) { return i + 6; }));
  EXPECT_EQ(IncArray(res, -5), 0);
  EXPECT_EQ(res, a);
  EXPECT_EQ(MultiplyArrayByScalar(a, 10, res), 0);
  EXPECT_EQ(res, b);
  EXPECT_EQ(MultiplyArrayByScalar(res, 2), 0);
  EXPECT_EQ(AccumulateArray(res, a, -3), 0);
  EXPECT_EQ(res, shaped<TypeParam>([](int i) { return 17 * (i + 1); }));
}

TYPED_TEST(Elementwise, EmptyAndRaggedOperandsGiveMinusOneAndTouchNothing) {
  auto a = shaped<TypeParam>(ramp), res = shaped<TypeParam>(tens);
  const auto before = CopyOf(res);
  TypeParam null, ragged = shaped<TypeParam>(ramp);
  lengthen_last(ragged);
  EXPECT_EQ(AddArrays(null, a, res), kEmptyArray);
  EXPECT_EQ(SubtractArrays(a, nullptr, res), kEmptyArray);
  EXPECT_EQ(AddScalarToArray(nullptr, 1, res), kEmptyArray);
  EXPECT_EQ(MultiplyArrayByScalar(null, 2), kEmptyArray);
  EXPECT_EQ(AccumulateArray(null, a, 1), kEmptyArray);
  EXPECT_TRUE(null.empty()) << "a null sum is not created";
  EXPECT_EQ(AccumulateArray(res, nullptr, 1), kEmptyArray);
  // One dimension cannot be ragged: there the array is only longer.
  EXPECT_EQ(AddArrays(a, ragged, res), kRank<TypeParam> == 1 ? kSizeMismatch : kEmptyArray);
  EXPECT_EQ(AccumulateArray(res, ragged, 1), kRank<TypeParam> == 1 ? kSizeMismatch : kEmptyArray);
  EXPECT_EQ(IncArray(ragged, 1), kRank<TypeParam> == 1 ? 0 : kEmptyArray);
  EXPECT_EQ(res, before);
}

TYPED_TEST(Elementwise, OtherSizesGiveMinusTwo) {
  auto a = shaped<TypeParam>(ramp), longer = a, res = shaped<TypeParam>(tens);
  const auto before = CopyOf(res);
  longer = CopyOf(longer);
  TypeParam wide(longer.begin(), longer.end() - 1);
  EXPECT_EQ(AddArrays(a, wide, res), kSizeMismatch);
  EXPECT_EQ(SubtractArrays(wide, a, res), kSizeMismatch);
  EXPECT_EQ(AccumulateArray(res, wide, 1), kSizeMismatch);
  EXPECT_EQ(res, before);
}

TYPED_TEST(Elementwise, ResultMayBeAnOperand) {
  auto a = shaped<TypeParam>(ramp);
  EXPECT_EQ(AddArrays(a, a, a), 0);
  EXPECT_EQ(a, shaped<TypeParam>([](int i) { return 2 * (i + 1); }));
  EXPECT_EQ(AccumulateArray(a, a, 4), 0);
  EXPECT_EQ(a, shaped<TypeParam>(tens));
}

TYPED_TEST(Elementwise, ResultThatSharesItsCellsGetsItsOwn) {
  auto a = shaped<TypeParam>(ramp);
  const auto other = a;
  EXPECT_EQ(AddScalarToArray(a, 1, a), 0);
  EXPECT_EQ(other, shaped<TypeParam>(ramp));
  EXPECT_EQ(a, shaped<TypeParam>([](int i) { return i + 2; }));
}

TYPED_TEST(Elementwise, FormsInPlaceWriteThroughSharedHandles) {
  auto a = shaped<TypeParam>(ramp);
  const auto other = a;
  EXPECT_EQ(IncArray(a, 1), 0);
  EXPECT_EQ(other, shaped<TypeParam>([](int i) { return i + 2; }));
}

TYPED_TEST(Elementwise, ResultOfTheRightSizeKeepsItsBlock) {
  const auto a = shaped<TypeParam>(ramp);
  auto res = shaped<TypeParam>();
  const auto* block = res.data();
  EXPECT_EQ(AddArrays(a, a, res), 0);
  EXPECT_EQ(res.data(), block);
}

TEST(ElementwiseReal, ReciprocalOfZeroOfEitherSignIsTheGivenValue) {
  TDoubleArray a = {0, 2, -0.0, 1e-310, kInf};
  EXPECT_EQ(ReciprocalArray(a, 0), 0);
  EXPECT_EQ(a, (TDoubleArray{0, 0.5, 0, kInf, 0}));
  auto cube = shaped<TDouble4DArray>([](int i) { return i % 2 * 4; });
  EXPECT_EQ(ReciprocalArray(cube, 9), 0);
  EXPECT_EQ(cube, shaped<TDouble4DArray>([](int i) { return i % 2 ? 0.25 : 9.0; }));
}

TEST(ElementwiseReal, AccumulationRoundsTheProduct) {
  // 3 * (1/3 rounded) is 1 - 2^-54, which rounds to 1 as a product of its own; fused it would leave -2^-54.
  TDoubleArray sum = {-1.0};
  EXPECT_EQ(AccumulateArray(sum, {1.0 / 3.0}, 3.0), 0);
  EXPECT_EQ(sum[0], 0.0);
}

TEST(ElementwiseReal, RowsSharedCrosswiseAreReadAsTheyWere) {
  TDoubleArray x = {1, 2}, y = {10, 20};
  TDouble2DArray sum = {x, y};
  const TDouble2DArray a = {y, x};
  EXPECT_EQ(AccumulateArray(sum, a, 1), 0);
  EXPECT_EQ(sum, (TDouble2DArray{{11, 22}, {11, 22}}));
}

TEST(ElementwiseInteger, ArithmeticWraps) {
  TIntArray res;
  EXPECT_EQ(AddArrays({2147483647, kMinInteger}, {1, -1}, res), 0);
  EXPECT_EQ(res, (TIntArray{kMinInteger, 2147483647}));
  EXPECT_EQ(MultiplyArraysElemw({65536, -3}, {65536, 5}, res), 0);
  EXPECT_EQ(res, (TIntArray{0, -15}));
  EXPECT_EQ(AccumulateArray(res, {1 << 20, 2}, 1 << 12), 0);
  EXPECT_EQ(res, (TIntArray{0, -15 + (2 << 12)}));
  TIntArray least = {kMinInteger, -7};
  EXPECT_EQ(AbsValArray(least), 0);
  EXPECT_EQ(least, (TIntArray{kMinInteger, 7}));
}

TEST(ElementwiseProduct, TwoDimensions) {
  TDouble2DArray res;
  EXPECT_EQ(MultiplyArraysElemw({{1, 2}, {3, 4}}, {{5, 6}, {7, 8}}, res), 0);
  EXPECT_EQ(res, (TDouble2DArray{{5, 12}, {21, 32}}));
  EXPECT_EQ(MultiplyArraysElemw({{1}}, {{5, 6}}, res), kSizeMismatch);
}

TEST(ElementwiseTypes, ScalarsThatWouldLoseDigitsDoNotCompile) {
  const auto accepts = []<class A, class S>(A a, S s) { return requires { IncArray(a, s); }; };
  EXPECT_TRUE(accepts(TIntArray{}, 2));
  EXPECT_FALSE(accepts(TIntArray{}, 2.5));
  EXPECT_FALSE(accepts(TIntArray{}, Int64{2}));
  EXPECT_TRUE(accepts(TDoubleArray{}, 2));
  EXPECT_FALSE(accepts(TBoolArray{}, 2));
  EXPECT_FALSE(accepts(TSingleArray{}, 2.0));
}

TEST(Walk, ArraysOfSeveralBlocksAndOfOneBlockGiveTheSame) {
  // Rows of 16 cells lie one behind the other in one block; rows of 5 cells are spaced; exchanged rows are neither.
  for (const int rows : {16, 5}) {
    TDouble2DArray a;
    SetLength(a, 7, rows);
    int i = 0;
    each(a, [&](Double& x) { x = i++; });
    TDouble2DArray b = CopyOf(a), res;
    std::swap(a[1], a[4]);
    std::swap(b[1], b[4]);
    EXPECT_EQ(AddArrays(a, b, res), 0);
    for (int c = 0; c < 7; ++c) {
      for (int r = 0; r < rows; ++r) ASSERT_EQ(res[c][r], 2 * a[c][r]);
    }
    EXPECT_EQ(a[1][0], 4 * rows);
  }
}

}  // namespace
}  // namespace ZOR_openarrays

#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

template <class A>
class Equality : public testing::Test {};
using IntTypes = testing::Types<TIntArray, TInt2DArray, TInt3DArray, TInt4DArray>;
TYPED_TEST_SUITE(Equality, IntTypes);

TYPED_TEST(Equality, OfLengthsAndOfEveryCell) {
  const auto a = shaped<TypeParam>([](int i) { return i; });
  EXPECT_TRUE(EqualArrays(a, CopyOf(a)));
  const auto count = static_cast<int>(cells(a).size());
  for (int at = 0; at < count; ++at) {
    EXPECT_FALSE(EqualArrays(a, shaped<TypeParam>([=](int i) { return i == at ? -1 : i; })));
  }
  EXPECT_FALSE(EqualArrays(a, TypeParam(a.begin(), a.end() - 1)));
  EXPECT_FALSE(EqualArrays(a, nullptr));
  EXPECT_TRUE(EqualArrays(TypeParam{}, nullptr));
}

TEST(EqualityOfEmpty, DoesNotDependOnTheShape) {
  EXPECT_TRUE(EqualArrays(TInt2DArray{{}, {}}, {}));
  EXPECT_TRUE(EqualArrays(TInt2DArray{{1}, {}}, nullptr)) << "ragged counts as empty";
}

template <class A>
class Order : public testing::Test {};
using Lines = testing::Types<TDoubleArray, TIntArray>;
TYPED_TEST_SUITE(Order, Lines);

TYPED_TEST(Order, MonotoneAndStrictlySo) {
  using A = TypeParam;
  const Integer most = 2147483647;
  struct Case {
    A a;
    bool monotone, strictly;
  };
  for (const Case& c : {Case{{}, true, true},
                        {{5}, true, true},
                        {{1, 1}, true, true},
                        {{1, 1, 1}, true, false},
                        {{1, 1, 2}, true, false},
                        {{2, 1, 1}, true, false},
                        {{1, 2, 3}, true, true},
                        {{3, 2, 1}, true, true},
                        {{1, 2, 1}, false, false},
                        {{1, 1, 2, 2, 1}, false, false},
                        {{kMinInteger, 0, most}, true, true},
                        {{kMinInteger, most, 0}, false, false}}) {
    EXPECT_EQ(IsMonotone(c.a), c.monotone) << testing::PrintToString(cells(c.a));
    EXPECT_EQ(IsStrictlyMonotone(c.a), c.strictly) << testing::PrintToString(cells(c.a));
  }
}

TYPED_TEST(Order, DichotomousMeansTwoValues) {
  CellType<TypeParam> low = 9, high = 9;
  EXPECT_TRUE(IsDichotomous(TypeParam{2, 1, 2}, low, high));
  EXPECT_EQ(low, 1);
  EXPECT_EQ(high, 2);
  EXPECT_FALSE(IsDichotomous(TypeParam{2, 1, 3}, low, high));
  EXPECT_EQ(low, 0);
  EXPECT_EQ(high, 0);
  EXPECT_FALSE(IsDichotomous(TypeParam{2}, low, high));
  const bool integers = std::same_as<CellType<TypeParam>, Integer>;
  EXPECT_EQ(IsDichotomous(TypeParam{7, 7}, low, high), integers);
  EXPECT_EQ(low, integers ? 7 : 0);
  EXPECT_EQ(high, low);
}

TEST(OrderOfReals, NaNBreaksIt) {
  double low = 9, high = 9;
  for (const TDoubleArray& a : {TDoubleArray{kNaN, 1, 2}, {1, kNaN, 2}, {1, 2, kNaN}, {1, 1, kNaN}}) {
    EXPECT_FALSE(IsMonotone(a));
    EXPECT_FALSE(IsStrictlyMonotone(a));
    EXPECT_FALSE(IsDichotomous(a, low, high));
    EXPECT_EQ(low, 0);
  }
  EXPECT_FALSE(IsDichotomous(TDoubleArray{0.0, -0.0}, low, high));
}

}  // namespace
}  // namespace ZOR_openarrays

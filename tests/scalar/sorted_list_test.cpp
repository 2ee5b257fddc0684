#include "zor/scalar/sorted_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <vector>

#include "zor/base/ZOR_univconst.h"

namespace ZOR_math1 {
namespace {

constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

template <class T>
struct SortedListOf : testing::Test {
  static constexpr TVarKind kind = std::is_same_v<T, Double>   ? vkExtended
                                   : std::is_same_v<T, Single> ? vkSingle
                                                               : vkLongint;
};
using CellTypes = testing::Types<Double, Single, Integer>;
TYPED_TEST_SUITE(SortedListOf, CellTypes);

TYPED_TEST(SortedListOf, KeepsTheBest) {
  std::mt19937 bits(2);
  std::vector<TypeParam> all, least(10, 100'000), greatest(10, -1), untyped(10, 100'000);
  for (int i = 0; i < 1000; ++i) {
    all.push_back(static_cast<TypeParam>(bits() % 300));
    const TypeParam value = all.back();
    const Integer index = SortIntoArray(least, value, true, true);
    EXPECT_EQ(SortIntoArray(untyped.data(), 10, this->kind, &value, true, true), index + 1);
    SortIntoArray(greatest, value, false, true);
  }
  std::sort(all.begin(), all.end());
  EXPECT_TRUE(std::equal(least.begin(), least.end(), all.begin()));
  EXPECT_TRUE(std::equal(greatest.begin(), greatest.end(), all.rbegin()));
  EXPECT_EQ(untyped, least);
}

TYPED_TEST(SortedListOf, RefusesWhatDoesNotBelong) {
  std::vector<TypeParam> cells = {1, 3, 5};
  const auto before = cells;
  EXPECT_EQ(SortIntoArray(cells, TypeParam{6}, true, true), -1);
  EXPECT_EQ(SortIntoArray(cells, TypeParam{3}, true, false), -1);
  EXPECT_EQ(SortIntoArray(cells, TypeParam{0}, false, true), -1);
  EXPECT_EQ(SortIntoArray(std::span<TypeParam>(), TypeParam{0}, true, true), -1);
  const TypeParam six = 6, three = 3, zero = 0;
  EXPECT_EQ(SortIntoArray(cells.data(), 3, this->kind, &six, true, true), 0);
  EXPECT_EQ(SortIntoArray(cells.data(), 3, this->kind, &three, true, false), 0);
  EXPECT_EQ(SortIntoArray(cells.data(), 0, this->kind, &zero, true, true), 0);
  EXPECT_EQ(SortIntoArray(nullptr, 3, this->kind, &zero, true, true), 0);
  EXPECT_EQ(SortIntoArray(cells.data(), 3, this->kind, nullptr, true, true), 0);
  EXPECT_EQ(SortIntoArray(cells.data(), 3, static_cast<TVarKind>(5), &zero, true, true), 0);
  EXPECT_EQ(cells, before);
  EXPECT_EQ(SortIntoArray(cells, TypeParam{3}, true, true), 1);
  EXPECT_EQ(cells, (std::vector<TypeParam>{1, 3, 3}));
}

TYPED_TEST(SortedListOf, InsertsAtAPlace) {
  std::vector<TypeParam> cells = {1, 2, 3, 4};
  for (const Integer outside : {-1, 4, 2147483647}) InsertIntoArray(cells, TypeParam{9}, outside);
  EXPECT_EQ(cells, (std::vector<TypeParam>{1, 2, 3, 4}));
  InsertIntoArray(cells, TypeParam{9}, 3);
  EXPECT_EQ(cells, (std::vector<TypeParam>{1, 2, 3, 9}));
  InsertIntoArray(cells, TypeParam{8}, 0);
  EXPECT_EQ(cells, (std::vector<TypeParam>{8, 1, 2, 3}));
  for (const Integer outside : {0, -2147483647 - 1, 4})
    InsertIntoArray(cells.data(), 3, this->kind, &cells[2], outside);
  EXPECT_EQ(cells, (std::vector<TypeParam>{8, 1, 2, 3}));
  InsertIntoArray(cells.data(), 3, this->kind, &cells[2], 1);  // a value out of the list itself
  EXPECT_EQ(cells, (std::vector<TypeParam>{2, 8, 1, 3}));
}

TEST(SortedList, PassesOverNaN) {
  TDoubleArray cells = {1.0, kNaN, 3.0, ZOR_univconst::uc_MaxDouble};
  EXPECT_EQ(SortIntoArray(cells, kNaN, true, true), -1);
  EXPECT_EQ(SortIntoArray(cells, 2.0, true, true), 2);
  EXPECT_EQ(cells[2], 2.0);
  EXPECT_EQ(cells[3], 3.0);
}

}  // namespace
}  // namespace ZOR_math1

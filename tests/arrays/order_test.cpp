#include <algorithm>
#include <numeric>
#include <random>

#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

using testing::ElementsAre;

/// Installs a feedback procedure for the length of a test.
struct FeedBack {
  explicit FeedBack(TMathFeedBackProc proc) { MathFeedBackProc = proc; }
  ~FeedBack() {
    MathFeedBackProc = nullptr;
    AbortMathProc = false;
  }
};

template <class A>
class Sorting : public testing::Test {
 public:
  /// Few different values, so that equal cells abound.
  static A random_cells(std::size_t n) {
    std::mt19937 bits(7);
    A a;
    SetLength(a, static_cast<Integer>(n));
    for (auto& x : a) x = static_cast<CellType<A>>(static_cast<Integer>(bits() % 300) - 150);
    return a;
  }
};
using Lines = testing::Types<TDoubleArray, TIntArray>;
TYPED_TEST_SUITE(Sorting, Lines);

TYPED_TEST(Sorting, TellsWhereTheCellsStood) {
  TypeParam a = {3, 1, 2};
  TIntArray ix;
  EXPECT_EQ(SortArray(true, a, ix), 0);
  EXPECT_THAT(cells(a), ElementsAre(1, 2, 3));
  EXPECT_THAT(cells(ix), ElementsAre(2, 3, 1));
  a = {5, 3, 9, 1, 7, 3};
  EXPECT_EQ(SortArray(false, a, ix), 0);
  EXPECT_THAT(cells(a), ElementsAre(9, 7, 5, 3, 3, 1));
  EXPECT_THAT(cells(ix), ElementsAre(3, 5, 1, 6, 2, 4)) << "the exchanges start from gap n - 1";
}

TYPED_TEST(Sorting, IsTheSameWithAndWithoutAListener) {
  for (const std::size_t n : {2u, 3u, 10u, 33u, 100u, 5000u}) {
    for (const Boolean ascending : {true, false}) {
      const TypeParam before = this->random_cells(n);
      TypeParam quiet(before.begin(), before.end()), told(before.begin(), before.end());
      TIntArray quiet_ix, told_ix;
      const Double start = ProcStat;
      EXPECT_EQ(SortArray(ascending, quiet, quiet_ix), 0);
      const Double passes = ProcStat - start;
      {
        const FeedBack listener([](Double) {});
        EXPECT_EQ(SortArray(ascending, told, told_ix), 0);
      }
      EXPECT_EQ(ProcStat - start, 2 * passes);
      EXPECT_EQ(quiet, told);
      EXPECT_EQ(quiet_ix, told_ix);
      EXPECT_TRUE(
          std::is_sorted(quiet.begin(), quiet.end(), [=](auto x, auto y) { return ascending ? x < y : y < x; }));
      for (std::size_t i = 0; i < n; ++i) EXPECT_EQ(quiet[i], before[quiet_ix[i] - 1]);
    }
  }
}

TYPED_TEST(Sorting, OfFewCellsFillsTheIndices) {
  TypeParam a = {7};
  TIntArray ix = {9, 9};
  AbortMathProc = true;
  EXPECT_EQ(SortArray(true, a, ix), kEmptyArray);
  EXPECT_FALSE(AbortMathProc);
  EXPECT_THAT(cells(ix), ElementsAre(1));
  a = nullptr;
  EXPECT_EQ(SortArray(true, a, ix), kEmptyArray);
  EXPECT_TRUE(ix.empty());
}

TYPED_TEST(Sorting, StopsOnAbortWithArrayAndIndicesInStep) {
  const TypeParam before = this->random_cells(500);
  TypeParam a(before.begin(), before.end());
  TIntArray ix;
  const FeedBack listener([](Double) {
    static int calls = 0;
    if (++calls % 5 == 0) AbortMathProc = true;
  });
  EXPECT_EQ(SortArray(true, a, ix), kSortAborted);
  EXPECT_NE(a, before) << "some passes were made";
  for (std::size_t i = 0; i < a.size(); ++i) EXPECT_EQ(a[i], before[ix[i] - 1]);
}

TIntArray handed_over, its_indices;
TEST(SortingIntegers, GoesOnWhenTheListenerTakesTheArraysAway) {
  handed_over = {4, 3, 2, 1};
  const TIntArray same = handed_over;
  const FeedBack listener([](Double) { handed_over = its_indices = nullptr; });
  EXPECT_EQ(SortArray(true, handed_over, its_indices), 0);
  EXPECT_THAT(cells(same), ElementsAre(1, 2, 3, 4));
}

TEST(SortingIntegers, RefusesIndicesInTheArray) {
  TIntArray a = {3, 1, 2};
  EXPECT_EQ(SortArray(true, a, a), kOutputIsInput);
  EXPECT_THAT(cells(a), ElementsAre(3, 1, 2));
  TIntArray extremes = {2147483647, kMinInteger, 0}, ix = extremes;
  EXPECT_EQ(SortArray(false, extremes, ix), 0) << "indices that shared the cells get their own";
  EXPECT_THAT(cells(extremes), ElementsAre(2147483647, 0, kMinInteger));
  EXPECT_THAT(cells(ix), ElementsAre(1, 3, 2));
}

TEST(SortAndRemove, KeepsOneOfEachAndLeavesOtherHandles) {
  TIntArray a = {2, 5, 2, 1, 5, 2};
  const TIntArray other = a;
  EXPECT_EQ(SortAndRemoveDuplicates(a, false), 3);
  EXPECT_THAT(cells(a), ElementsAre(5, 2, 1));
  EXPECT_THAT(cells(other), ElementsAre(2, 5, 2, 1, 5, 2));
  EXPECT_EQ(SortAndRemoveDuplicates(a, true), 0);
  EXPECT_THAT(cells(a), ElementsAre(1, 2, 5));
  a = {4};
  EXPECT_EQ(SortAndRemoveDuplicates(a, true), kEmptyArray);
  EXPECT_THAT(cells(a), ElementsAre(4));
}

}  // namespace
}  // namespace ZOR_openarrays

#include "zor/runtime/dyn_array.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <ranges>
#include <span>
#include <vector>

#include "zor/runtime/exception.h"
#include "zor/runtime/tstring.h"

namespace ZOR_runtime {
namespace {

using Array = TDynArray<double>;
using Array2 = TDynArray<Array>;
using Array3 = TDynArray<Array2>;
using Array4 = TDynArray<Array3>;

static_assert(std::ranges::contiguous_range<Array> && std::ranges::sized_range<const Array>);
static_assert(std::is_nothrow_move_constructible_v<Array> && std::is_nothrow_copy_constructible_v<Array>);
static_assert(std::is_convertible_v<const Array&, std::span<const double>>);
static_assert(!std::is_convertible_v<const Array&, std::span<double>>, "a const handle only reads");

double sum_of(std::span<const double> cells) { return std::accumulate(cells.begin(), cells.end(), 0.0); }
double sum_by_handle(const Array& a) { return sum_of(a); }
std::size_t texts(const TDynArray<TString>& a) { return a.size(); }
void set_first(Array a, double x) { a[0] = x; }
void lengthen(Array a) {
  SetLength(a, 5);
  a[0] = 99.0;
}

TEST(TDynArray, TakesListsNullAndRanges) {
  EXPECT_EQ(sum_by_handle({1.0, 2.0}), 3.0);
  EXPECT_EQ(sum_by_handle({}), 0.0);
  EXPECT_EQ(sum_by_handle(nullptr), 0.0);
  EXPECT_EQ(texts({"a", "b"}), 2u) << "two pointers are two texts, not a range";
  const std::vector<double> source = {1.0, 2.0, 3.0};
  EXPECT_EQ(Array(source.begin(), source.end()), (Array{1.0, 2.0, 3.0}));
  const Array2 nested = {{1, 2}, {3, 4}, {5}};
  EXPECT_EQ(nested[2][0], 5.0);
  EXPECT_EQ(Length(nested), 3);
}

TEST(TDynArray, IsARangeAndASpan) {
  Array a = {3.0, 1.0, 2.0};
  std::ranges::sort(a);
  EXPECT_EQ(a, (Array{1.0, 2.0, 3.0}));
  for (double& x : a) x *= 2.0;
  EXPECT_EQ(sum_of(a), 12.0);
  const std::span<double> cells = a;
  cells[0] = 0.0;
  EXPECT_EQ(*std::ranges::min_element(a), 0.0);
  EXPECT_EQ(std::ranges::count_if(a, [](double x) { return x > 0; }), 2);
}

TEST(TDynArray, NullHasLengthZeroAtEveryDepth) {
  Array4 a;
  EXPECT_EQ(Length(a), 0);
  EXPECT_EQ(High(a), -1);
  EXPECT_TRUE(a == nullptr);
  EXPECT_EQ(a.begin(), a.end());
  SetLength(a, 2);
  EXPECT_EQ(Length(a[1]), 0);
  SetLength(a, -3);
  EXPECT_EQ(a, nullptr);
}

TEST(TDynArray, CopiesShareTheirCells) {
  Array a = {1.0, 2.0};
  set_first(a, 7.0);
  EXPECT_EQ(a[0], 7.0) << "a handle by value writes the caller's cells";
  lengthen(a);
  EXPECT_EQ(a, (Array{7.0, 2.0})) << "a new length is the callee's own";
  Array b = a;
  EXPECT_TRUE(a.SharesWith(b));
  EXPECT_FALSE(a.IsUnique());
  const Array& same = a;
  a = same;
  b = std::move(a);
  EXPECT_TRUE(b.IsUnique());
  EXPECT_EQ(b[0], 7.0);
}

TEST(TDynArray, SetLengthKeepsZeroFillsAndMakesPrivate) {
  Array a = {1.0, 2.0, 3.0};
  const Array b = a;
  SetLength(a, 3);
  EXPECT_FALSE(a.SharesWith(b)) << "also where the length stays";
  EXPECT_EQ(a, b);
  SetLength(a, 2);
  SetLength(a, 4);
  EXPECT_EQ(a, (Array{1.0, 2.0, 0.0, 0.0})) << "what was cut off does not come back";
  EXPECT_EQ(b, (Array{1.0, 2.0, 3.0}));
}

TEST(TDynArray, SetLengthWalksEveryPairOfLengths) {
  for (Integer from = 0; from < 20; ++from) {
    for (Integer to = 0; to < 20; ++to) {
      Array a;
      TDynArray<TString> s;
      SetLength(a, from);
      SetLength(s, from);
      std::ranges::fill(a, 1.5);
      std::ranges::fill(s, TString("a text that is too long for its own place"));
      SetLength(a, to);
      SetLength(s, to);
      ASSERT_EQ(Length(a), to);
      for (Integer i = 0; i < to; ++i) {
        ASSERT_EQ(a[i], i < from ? 1.5 : 0.0);
        ASSERT_EQ(s[i].empty(), i >= from);
      }
    }
  }
}

TEST(TDynArray, SetLengthOfTwoDimensionsMakesInnerArraysPrivate) {
  Array2 a = {{1, 2}, {3, 4}};
  const Array first = a[0];
  const Array2 whole = CopyOf(a);
  SetLength(a, 2, 2);
  EXPECT_FALSE(a[0].SharesWith(first));
  EXPECT_EQ(a, whole);

  Array2 twice;
  twice = {a[0], a[0]};
  SetLength(twice, 2, 2);
  EXPECT_FALSE(twice[0].SharesWith(twice[1])) << "the same handle in two places";

  SetLength(a, 3, 1);
  EXPECT_EQ(a, (Array2{{1}, {3}, {0}}));
  Array2 ragged = {{1}, {2, 3, 4}, nullptr};
  SetLength(ragged, 3, 2);
  EXPECT_EQ(ragged, (Array2{{1, 0}, {2, 3}, {0, 0}}));
}

TEST(TDynArray, SetLengthOfFourDimensionsKeepsTheCommonCells) {
  Array4 a;
  SetLength(a, 2, 3, 4, 5);
  double next = 0.0;
  for (auto& x : a) {
    for (auto& y : x) {
      for (auto& z : y) std::ranges::generate(z, [&] { return ++next; });
    }
  }
  const Array4 before = CopyOf(a);
  const Array4 shared = a;
  SetLength(a, 3, 2, 5, 4);
  EXPECT_EQ(shared, before);
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 2; ++j) {
      for (std::size_t k = 0; k < 5; ++k) {
        ASSERT_EQ(a[i][j][k].size(), 4u);
        for (std::size_t l = 0; l < 4; ++l) {
          ASSERT_EQ(a[i][j][k][l], i < 2 && k < 4 ? before[i][j][k][l] : 0.0);
        }
      }
    }
  }
}

TEST(TDynArray, EmptyInnerDimensionsAreArraysOfNull) {
  Array2 a;
  SetLength(a, 3, 0);
  EXPECT_EQ(Length(a), 3);
  EXPECT_EQ(a[2], nullptr);
  SetLength(a, 0, 3);
  EXPECT_EQ(Length(a), 0);
}

TEST(TDynArray, CellsOfOneShapeAreEquallySpacedAndAligned) {
  for (const Integer rows : {8, 9, 100, 512, 513}) {
    Array2 a;
    SetLength(a, 5, rows);
    const auto stride = a[1].data() - a[0].data();
    EXPECT_GE(stride, rows);
    EXPECT_NE(stride % 512, 0) << "columns would compete for the same cache lines";
    for (std::size_t c = 0; c < 5; ++c) {
      EXPECT_EQ(a[c].data() - a[0].data(), static_cast<std::ptrdiff_t>(c) * stride);
      EXPECT_EQ(reinterpret_cast<std::uintptr_t>(a[c].data()) % 64, 0u);
    }
  }
}

TEST(TDynArray, InnerArraysOutliveTheOuterOne) {
  Array kept;
  {
    Array2 a;
    SetLength(a, 100, 100);
    a[42][7] = 1.5;
    kept = a[42];
  }
  EXPECT_EQ(kept[7], 1.5);
  EXPECT_TRUE(kept.IsUnique());
  SetLength(kept, 200);
  EXPECT_EQ(kept[7], 1.5);
}

TEST(TDynArray, RowsChangePlacesByHandle) {
  Array2 a = {{1, 2}, {3, 4}};
  std::swap(a[0], a[1]);
  EXPECT_EQ(a, (Array2{{3, 4}, {1, 2}}));
}

TEST(TDynArray, CopyOfIsPrivateInEveryDimension) {
  const Array2 a = {{1, 2}, {3}};
  Array2 b = CopyOf(a);
  b[0][0] = 9.0;
  EXPECT_EQ(a[0][0], 1.0);
  EXPECT_EQ(CopyOf(Array()), nullptr);
}

TEST(TDynArray, EqualityGoesByCells) {
  EXPECT_EQ((Array{0.0}), (Array{-0.0}));
  EXPECT_FALSE((Array{std::nan("")}) == (Array{std::nan("")}));
  EXPECT_NE((Array{1.0}), (Array{1.0, 2.0}));
}

TEST(TDynArrayWithoutMemory, ImpossibleSizesRaiseAndChangeNothing) {
  Array2 a = {{1, 2}};
  Array4 deep;
  constexpr Integer kMax = 2147483647;
  EXPECT_THROW(SetLength(a, kMax, kMax), EOutOfMemory);
  EXPECT_THROW(SetLength(deep, kMax, kMax, kMax, kMax), EOutOfMemory);
  Array one = {1.0};
  EXPECT_THROW(SetLength(one, std::numeric_limits<Int64>::max()), EOutOfMemory);
  EXPECT_EQ(a, (Array2{{1, 2}}));
  EXPECT_EQ(one, (Array{1.0}));
  EXPECT_EQ(deep, nullptr);
}

TEST(TDynArrayWithoutMemory, ImpossibleSizesAreRefusedBeforeAnyAllocation) {
  const zor::detail::AllocationLimitScope limit({.failing_call = 1});
  Array2 a;
  EXPECT_THROW(SetLength(a, 2147483647, 2147483647), EOutOfMemory);
  EXPECT_THROW(zor::detail::allocate_cells(8, false), EOutOfMemory) << "the first request was made before";
}

TEST(TDynArrayWithoutMemory, EveryFailingAllocationLeavesTheArrayAlone) {
  for (std::size_t k = 1;; ++k) {
    Array3 a;
    SetLength(a, 2, 2, 2);
    a[1][1][1] = 5.0;
    const Array3 shared = a;
    TDynArray<TString> s = {"a text that needs memory of its own", "b"};
    const auto shared_texts = s;
    bool failed = false;
    {
      const zor::detail::AllocationLimitScope limit({.failing_call = k});
      try {
        SetLength(a, 3, 3, 3);
        SetLength(s, 9);
        const Array3 copy = CopyOf(a);
        EXPECT_EQ(copy, a);
      } catch (const EOutOfMemory&) {
        failed = true;
      }
    }
    const bool changed = a.size() == 3;
    EXPECT_EQ(a[1][1][1], 5.0);
    EXPECT_EQ(changed, a[0].size() == 3 && a[0][0].size() == 3);
    EXPECT_EQ(shared.size(), 2u);
    EXPECT_EQ(s[0], shared_texts[0]);
    if (!failed) {
      EXPECT_GT(k, 4u) << "no allocation was refused";
      break;
    }
  }
}

}  // namespace
}  // namespace ZOR_runtime

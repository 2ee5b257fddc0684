#include <random>
#include <set>
#include <utility>

#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

struct Bounds {
  Integer row_max = 77, row_min = 77, col_min = 77, col_max = 77;
  bool operator==(const Bounds&) const = default;
};

Integer fill(Integer x, Integer y, Integer value, bool four, TInt2DArray& a, Bounds& b) {
  return FloodFillArray(x, y, value, four, a, b.row_max, b.row_min, b.col_min, b.col_max);
}
Integer fill(Integer x, Integer y, Double tolerance, Double value, bool four, TDouble2DArray& a, Bounds& b) {
  return FloodFillArray(x, y, tolerance, value, four, a, b.row_max, b.row_min, b.col_min, b.col_max);
}

/// The region around a cell by growing a set of cells until nothing joins it.
template <class A, class Matches>
std::set<std::pair<Integer, Integer>> region(const A& a, Integer x, Integer y, bool four, Matches matches) {
  std::set<std::pair<Integer, Integer>> in;
  if (matches(a[x][y])) in.insert({x, y});
  for (std::size_t before = 0; before != in.size();) {
    before = in.size();
    for (Integer c = 0; c < Length(a); ++c) {
      for (Integer r = 0; r < Length(a[0]); ++r) {
        for (Integer dx = -1; dx <= 1; ++dx) {
          for (Integer dy = -1; dy <= 1; ++dy) {
            if (four && dx != 0 && dy != 0) continue;
            if (in.contains({c + dx, r + dy}) && matches(a[c][r])) in.insert({c, r});
          }
        }
      }
    }
  }
  return in;
}

template <class A>
void expect_filled(A a, const A& before, const std::set<std::pair<Integer, Integer>>& in, CellType<A> value,
                   Integer count, const Bounds& bounds, Bounds wanted) {
  A filled;
  CloneArray(before, filled);
  for (const auto& [c, r] : in) {
    filled[c][r] = value;
    wanted = {std::max(wanted.row_max, r), std::min(wanted.row_min, r), std::min(wanted.col_min, c),
              std::max(wanted.col_max, c)};
  }
  EXPECT_EQ(count, static_cast<Integer>(in.size()));
  EXPECT_EQ(a, filled);
  EXPECT_EQ(bounds, wanted);
}

TEST(FloodFill, AgreesWithAGrowingSetOnRandomRasters) {
  std::mt19937 bits(7);
  for (int trial = 0; trial < 3000; ++trial) {
    const Integer cols = static_cast<Integer>(bits() % 9 + 1), rows = static_cast<Integer>(bits() % 9 + 1);
    const auto x = static_cast<Integer>(bits() % static_cast<unsigned>(cols));
    const auto y = static_cast<Integer>(bits() % static_cast<unsigned>(rows));
    const bool four = bits() % 2 == 0;
    const auto colors = bits() % 3 + 2;
    TInt2DArray a;
    TDouble2DArray d;
    SetLength(a, cols, rows), SetLength(d, cols, rows);
    each(a, [&](Integer& cell) { cell = static_cast<Integer>(bits() % colors); });
    each(d, [&](Double& cell) { cell = static_cast<Double>(bits() % 5); });
    Bounds bounds, start{y, y, x, x};
    TInt2DArray ints;
    CloneArray(a, ints);
    const Integer wanted = a[x][y];
    const Integer count = fill(x, y, 9, four, a, bounds);
    expect_filled(a, ints, region(ints, x, y, four, [=](Integer v) { return v == wanted; }), 9, count, bounds, start);

    // Fill values inside the tolerance and outside.
    const Double value = static_cast<Double>(bits() % 8), middle = d[x][y];
    TDouble2DArray reals;
    CloneArray(d, reals);
    const Integer filled = fill(x, y, -1.0, value, four, d, bounds);
    const auto near = region(reals, x, y, four, [=](Double v) { return std::abs(v - middle) <= 1.0; });
    expect_filled(d, reals, near, value, filled, bounds, start);
    if (HasFailure()) return;
  }
}

TEST(FloodFill, ChessboardIsOneCellOverSidesAndAColourOverCorners) {
  TInt2DArray a;
  SetLength(a, 200, 300);
  for (Integer c = 0; c < 200; ++c) {
    for (Integer r = 0; r < 300; ++r) a[c][r] = (c + r) % 2;
  }
  Bounds b;
  EXPECT_EQ(fill(10, 10, 5, true, a, b), 1);
  EXPECT_EQ(b, (Bounds{10, 10, 10, 10}));
  EXPECT_EQ(fill(11, 10, 5, false, a, b), 30000);
  EXPECT_EQ(b, (Bounds{299, 0, 0, 199}));
}

TEST(FloodFill, SnakeOfManySpansNeedsNoCallStack) {
  TInt2DArray a;
  SetLength(a, 1001, 1001);
  for (Integer c = 0; c < 1001; ++c) {
    for (Integer r = 0; r < 1001; ++r) a[c][r] = r % 2 == 0 || c == (r % 4 == 1 ? 1000 : 0);
  }
  Bounds b;
  EXPECT_EQ(fill(0, 0, 2, true, a, b), 501 * 1001 + 500);
  EXPECT_EQ(b, (Bounds{1000, 0, 0, 1000}));
}

TEST(FloodFill, CodesLeaveCellsAndBounds) {
  TInt2DArray a = {{1, 1}, {1, 2}}, ragged = {{1, 1}, {1}};
  TDouble2DArray d = {{1, 1}, {1, 2}};
  Bounds b;
  for (const auto& [x, y] : {std::pair{-1, 0}, {0, -1}, {2, 0}, {0, 2}}) {
    EXPECT_EQ(fill(x, y, 1, true, a, b), kStartOutside);
    EXPECT_EQ(fill(x, y, 0.0, 1.0, true, d, b), kStartOutside);
  }
  EXPECT_EQ(fill(0, 0, 1, true, a, b), kAlreadyFilled);
  EXPECT_EQ(fill(0, 0, 5, true, ragged, b), kStartOutside);
  EXPECT_EQ(b, Bounds());
  EXPECT_EQ(a, (TInt2DArray{{1, 1}, {1, 2}}));
}

TEST(FloodFill, NaNMatchesNothingAndMayBeTheFillValue) {
  TDouble2DArray d = {{kNaN, 1}, {1, 1}};
  Bounds b;
  EXPECT_EQ(fill(0, 0, 5.0, 3.0, true, d, b), 0);
  EXPECT_EQ(b, (Bounds{0, 0, 0, 0}));
  EXPECT_EQ(fill(1, 1, kNaN, 3.0, true, d, b), 0);
  EXPECT_EQ(b, (Bounds{1, 1, 1, 1}));
  EXPECT_EQ(fill(1, 1, 0.0, kNaN, true, d, b), 3);
  EXPECT_EQ(fill(1, 1, 0.0, 1.0, true, d, b), 0);
}

TEST(FloodFill, InfiniteToleranceTakesAllNumbers) {
  TDouble2DArray d = {{-kInf, 1}, {1e300, kInf}};
  Bounds b;
  EXPECT_EQ(fill(0, 1, kInf, 0.0, true, d, b), 4);
  EXPECT_EQ(d, (TDouble2DArray{{0, 0}, {0, 0}}));
  TDouble2DArray infinite = {{-kInf, 1}};
  EXPECT_EQ(fill(0, 0, kInf, 0.0, true, infinite, b), 0) << "the upper limit is not a number";
}

}  // namespace
}  // namespace ZOR_openarrays

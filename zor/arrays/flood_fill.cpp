#include "zor/arrays/flood_fill.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>
#include <utility>

#include "zor/arrays/walk_internal.h"
#include "zor/base/ZOR_zorbase.h"

namespace ZOR_openarrays {
namespace {

using zor::detail::Shape;
using zor::detail::to_integer;

/// Rows of a column that are still to be looked at, both ends inclusive. They lie beside a filled span of the column
/// before it, `direction` (1 or -1) columns back.
struct Stretch {
  std::int32_t col, low, high, direction;
};

class Stretches {
 public:
  void push(const Stretch& stretch) {
    if (count_ == cells_.size()) SetLength(cells_, static_cast<Int64>(2 * count_ + 64));
    cells_[count_++] = stretch;
  }
  std::span<const Stretch> all() const noexcept { return {cells_.data(), count_}; }
  void clear() noexcept { count_ = 0; }

 private:
  TDynArray<Stretch> cells_;
  std::size_t count_ = 0;
};

/// What a fill has covered.
struct Region {
  std::size_t cells = 0;
  Integer row_max, row_min, col_min, col_max;

  Region(Integer x, Integer y) noexcept : row_max(y), row_min(y), col_min(x), col_max(x) {}
  void add(Integer col, Integer low, Integer high) noexcept {
    cells += static_cast<std::size_t>(high - low) + 1;
    row_max = (std::max)(row_max, high);
    row_min = (std::min)(row_min, low);
    col_min = (std::min)(col_min, col);
    col_max = (std::max)(col_max, col);
  }
};

/// Spans run along the columns, whose cells lie side by side. `taker(col)` gives a function of a row of that column,
/// which fills its cell and returns true if it matches and is not yet filled. The fill proceeds in generations: what
/// lies beside the spans of one generation is the next, so that few stretches wait and their cells stay in the cache.
template <class Taker>
Region fill_region(const Shape<2>& shape, Integer x, Integer y, bool four_connected, Taker taker) {
  const Integer cols = to_integer(shape.length[0]), last_row = to_integer(shape.length[1]) - 1;
  const Int64 reach = four_connected ? 0 : 1;
  Region region(x, y);
  Stretches now, next;
  const auto look = [&](Integer col, Int64 low, Int64 high, Integer direction) {
    low = (std::max)(low, Int64{0});
    high = (std::min)(high, Int64{last_row});
    if (low <= high && col >= 0 && col < cols) {
      next.push({col, static_cast<Integer>(low), static_cast<Integer>(high), direction});
    }
  };
  // Fills all spans that have a cell in the stretch. Where a span goes beyond its origin, new cells may lie behind it:
  // the origin and the cells at its ends, which did not match, are rows `known_low` to `known_high` there.
  const auto fill_spans = [&](const Stretch& stretch, Int64 known_low, Int64 known_high) {
    const auto take = taker(stretch.col);
    const Integer ahead = stretch.col + stretch.direction, behind = stretch.col - stretch.direction;
    for (Int64 row = stretch.low; row <= stretch.high; ++row) {
      if (!take(static_cast<Integer>(row))) continue;
      auto first = static_cast<Integer>(row), last = first;
      while (first > 0 && take(first - 1)) --first;
      while (last < last_row && take(last + 1)) ++last;
      region.add(stretch.col, first, last);
      const Int64 low = first - reach, high = last + reach;
      look(ahead, low, high, stretch.direction);
      look(behind, low, (std::min)(known_low - 1, high), -stretch.direction);
      look(behind, (std::max)(known_high + 1, low), high, -stretch.direction);
      row = Int64{last} + 1;  // known not to match
    }
  };
  fill_spans({x, y, y, 1}, Int64{last_row} + 1, last_row);  // nothing is known
  while (!next.all().empty()) {
    std::swap(now, next);
    next.clear();
    for (const Stretch& stretch : now.all()) fill_spans(stretch, stretch.low + reach - 1, stretch.high - reach + 1);
  }
  return region;
}

bool inside(Integer x, Integer y, const Shape<2>& shape) noexcept {
  return x >= 0 && y >= 0 && static_cast<std::size_t>(x) < shape.length[0] &&
         static_cast<std::size_t>(y) < shape.length[1];
}

Integer report(const Region& region, Integer& row_max, Integer& row_min, Integer& col_min, Integer& col_max) noexcept {
  row_max = region.row_max;
  row_min = region.row_min;
  col_min = region.col_min;
  col_max = region.col_max;
  return to_integer(region.cells);
}

}  // namespace

Integer FloodFillArray(Integer X, Integer Y, Integer FillValue, Boolean FourConnected, TInt2DArray& A, Integer& RowMax,
                       Integer& RowMin, Integer& ColMin, Integer& ColMax) {
  const auto shape = zor::detail::shape_of(A);
  if (!inside(X, Y, shape)) return kStartOutside;
  const Integer wanted = A[X][Y];
  if (wanted == FillValue) return kAlreadyFilled;
  TIntArray* const columns = A.data();
  const Region region = fill_region(shape, X, Y, FourConnected, [=](Integer col) {
    return [=, cells = columns[col].data()](Integer row) {
      if (cells[row] != wanted) return false;
      cells[row] = FillValue;
      return true;
    };
  });
  return report(region, RowMax, RowMin, ColMin, ColMax);
}

Integer FloodFillArray(Integer X, Integer Y, Double Tolerance, Double FillValue, Boolean FourConnected,
                       TDouble2DArray& A, Integer& RowMax, Integer& RowMin, Integer& ColMin, Integer& ColMax) {
  const auto shape = zor::detail::shape_of(A);
  if (!inside(X, Y, shape)) return kStartOutside;
  const Double low = A[X][Y] - std::fabs(Tolerance), high = A[X][Y] + std::fabs(Tolerance);
  TDoubleArray* const columns = A.data();
  const auto taker = [=](Integer col) {
    return [=, cells = columns[col].data()](Integer row) {
      if (!(low <= cells[row] && cells[row] <= high)) return false;
      cells[row] = FillValue;
      return true;
    };
  };
  const auto run = [&](auto how) {
    return report(fill_region(shape, X, Y, FourConnected, how), RowMax, RowMin, ColMin, ColMax);
  };
  if (!(low <= FillValue && FillValue <= high)) return run(taker);
  // Filled cells go on matching: they are told apart by a mark.
  TBool2DArray filled;
  SetLength(filled, static_cast<Int64>(shape.length[0]), static_cast<Int64>(shape.length[1]));
  TBoolArray* const marks = filled.data();
  return run([=](Integer col) {
    return [take = taker(col), done = marks[col].data()](Integer row) {
      if (done[row] || !take(row)) return false;
      return done[row] = true;
    };
  });
}

}  // namespace ZOR_openarrays

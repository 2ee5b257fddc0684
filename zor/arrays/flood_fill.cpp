#include "zor/arrays/flood_fill.h"

#include <algorithm>
#include <cmath>

#include "zor/arrays/walk_internal.h"
#include "zor/base/ZOR_zorbase.h"

namespace ZOR_openarrays {
namespace {

using zor::detail::Shape;
using zor::detail::to_integer;

/// Rows low to high of one column, both inclusive.
struct Span {
  std::size_t col, low, high;
};

/// Spans that are filled but whose neighbours have not been looked at.
class PendingSpans {
 public:
  bool empty() const noexcept { return count_ == 0; }
  void push(const Span& span) {
    if (count_ == cells_.size()) SetLength(cells_, static_cast<Int64>(2 * count_ + 64));
    cells_[count_++] = span;
  }
  Span pop() noexcept { return cells_[--count_]; }

 private:
  TDynArray<Span> cells_;
  std::size_t count_ = 0;
};

/// What a fill has covered.
struct Region {
  std::size_t cells = 0;
  Span rows;  // lowest and highest row
  std::size_t first_col, last_col;

  Region(std::size_t x, std::size_t y) noexcept : rows{x, y, y}, first_col(x), last_col(x) {}
  void add(const Span& span) noexcept {
    cells += span.high - span.low + 1;
    rows.low = (std::min)(rows.low, span.low);
    rows.high = (std::max)(rows.high, span.high);
    first_col = (std::min)(first_col, span.col);
    last_col = (std::max)(last_col, span.col);
  }
};

/// Spans run along the columns, whose cells lie side by side. `open_in(col)` gives the test
/// whether the cell in a row of that column matches and is not yet filled; `fill(span)` ends that for its cells.
template <class OpenIn, class Fill>
Region fill_region(const Shape<2>& shape, std::size_t x, std::size_t y, bool four_connected, OpenIn open_in,
                   Fill fill) {
  const auto [cols, rows] = shape.length;
  const std::size_t reach = four_connected ? 0 : 1;
  Region region(x, y);
  PendingSpans pending;
  // Fills all spans of a column that have a cell in the rows from low to high.
  const auto fill_column = [&, rows = rows](std::size_t col, std::size_t low, std::size_t high) {
    const auto open = open_in(col);
    for (std::size_t row = low; row <= high; ++row) {
      if (!open(row)) continue;
      Span span{col, row, row};
      if (row == low) {
        while (span.low > 0 && open(span.low - 1)) --span.low;
      }
      while (span.high + 1 < rows && open(span.high + 1)) ++span.high;
      pending.push(span);
      fill(span);
      region.add(span);
      row = span.high + 1;  // known not to be open
    }
  };
  fill_column(x, y, y);
  while (!pending.empty()) {
    const Span span = pending.pop();
    const std::size_t low = span.low - (std::min)(span.low, reach), high = (std::min)(span.high + reach, rows - 1);
    if (span.col > 0) fill_column(span.col - 1, low, high);
    if (span.col + 1 < cols) fill_column(span.col + 1, low, high);
  }
  return region;
}

bool inside(Integer x, Integer y, const Shape<2>& shape) noexcept {
  return x >= 0 && y >= 0 && static_cast<std::size_t>(x) < shape.length[0] &&
         static_cast<std::size_t>(y) < shape.length[1];
}

Integer report(const Region& region, Integer& row_max, Integer& row_min, Integer& col_min, Integer& col_max) noexcept {
  row_max = to_integer(region.rows.high);
  row_min = to_integer(region.rows.low);
  col_min = to_integer(region.first_col);
  col_max = to_integer(region.last_col);
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
  const Region region = fill_region(
      shape, static_cast<std::size_t>(X), static_cast<std::size_t>(Y), FourConnected,
      [=](std::size_t col) {
        return [=, cells = columns[col].data()](std::size_t row) { return cells[row] == wanted; };
      },
      [=](const Span& s) { std::fill(&columns[s.col][s.low], &columns[s.col][s.high] + 1, FillValue); });
  return report(region, RowMax, RowMin, ColMin, ColMax);
}

Integer FloodFillArray(Integer X, Integer Y, Double Tolerance, Double FillValue, Boolean FourConnected,
                       TDouble2DArray& A, Integer& RowMax, Integer& RowMin, Integer& ColMin, Integer& ColMax) {
  const auto shape = zor::detail::shape_of(A);
  if (!inside(X, Y, shape)) return kStartOutside;
  const Double low = A[X][Y] - std::fabs(Tolerance), high = A[X][Y] + std::fabs(Tolerance);
  TDoubleArray* const columns = A.data();
  const auto matches_in = [=](std::size_t col) {
    return [=, cells = columns[col].data()](std::size_t row) { return (low <= cells[row]) & (cells[row] <= high); };
  };
  const auto fill = [=](const Span& s) { std::fill(&columns[s.col][s.low], &columns[s.col][s.high] + 1, FillValue); };
  const auto run = [&](auto open_in, auto take) {
    const Region region =
        fill_region(shape, static_cast<std::size_t>(X), static_cast<std::size_t>(Y), FourConnected, open_in, take);
    return report(region, RowMax, RowMin, ColMin, ColMax);
  };
  if (!(low <= FillValue && FillValue <= high)) return run(matches_in, fill);
  // Filled cells go on matching: they are told apart by a mark.
  TBool2DArray filled;
  SetLength(filled, static_cast<Int64>(shape.length[0]), static_cast<Int64>(shape.length[1]));
  TBoolArray* const marks = filled.data();
  return run(
      [=](std::size_t col) {
        return [=, done = marks[col].data(), matches = matches_in(col)](std::size_t row) {
          return !done[row] && matches(row);
        };
      },
      [=](const Span& s) {
        fill(s);
        std::fill(&marks[s.col][s.low], &marks[s.col][s.high] + 1, true);
      });
}

}  // namespace ZOR_openarrays

#include "zor/arrays/masks.h"

#include <algorithm>
#include <cstdint>

#include "zor/arrays/walk_internal.h"
#include "zor/base/ZOR_zorbase.h"

namespace ZOR_openarrays {
namespace {

/// Cells from (x1, y1) to (x2, y2), both inclusive.
struct Corners {
  Int64 x1, y1, x2, y2;
};

Int64 square(Int64 x) noexcept { return x * x; }

/// Half the square of a side, rounded down.
std::uint64_t half_square(Int64 side) noexcept {
  const auto s = static_cast<std::uint64_t>(side);
  return s * s / 2;
}

Double ratio(Int64 numerator, std::uint64_t denominator) noexcept {
  return denominator == 0 ? 0.0 : static_cast<Double>(numerator) / static_cast<Double>(denominator);
}

/// Sets the cells between the corners, as far as they lie in the mask, for which `within(c, r)` holds.
template <class Within>
void draw(TBool2DArray& mask, const Corners& box, Within within) {
  const auto [cols, rows] = zor::detail::shape_of(mask).length;
  const Int64 last_col = (std::min)(box.x2, static_cast<Int64>(cols) - 1);
  const Int64 last_row = (std::min)(box.y2, static_cast<Int64>(rows) - 1);
  for (Int64 c = (std::max)(box.x1, Int64{0}); c <= last_col; ++c) {
    Boolean* const column = mask[c].data();
    for (Int64 r = (std::max)(box.y1, Int64{0}); r <= last_row; ++r) column[r] = column[r] || within(c, r);
  }
}

void draw_ellipse(TBool2DArray& mask, const Corners& box) {
  const std::uint64_t a = half_square(box.x2 - box.x1), b = half_square(box.y2 - box.y1);
  const Int64 cx = (box.x1 + box.x2) / 2, cy = (box.y1 + box.y2) / 2;
  draw(mask, box, [=](Int64 c, Int64 r) { return ratio(square(c - cx), a) + ratio(square(r - cy), b) <= 1.0; });
}

void draw_ring(TBool2DArray& mask, Int64 cx, Int64 cy, Int64 inner, Int64 outer) {
  draw(mask, {cx - outer, cy - outer, cx + outer, cy + outer}, [=](Int64 c, Int64 r) {
    const Int64 distance = square(c - cx) + square(r - cy);
    return square(inner) <= distance && distance <= square(outer);
  });
}

}  // namespace

template <class A>
  requires Num<A, 2>
Integer FillArrayMasked(A& a, CellOf<A> Value, const TBool2DArray& Mask) {
  constexpr bool kReal = RealArray<A>;
  using Cell = CellType<A>;
  const auto shape = zor::detail::shape_of(a);
  if (shape.empty() || (!kReal && Mask.empty())) return kNothingToFill;
  const Cell value = Value;
  if (Mask.empty()) {
    zor::detail::for_runs(
        shape, [=](std::span<Cell> x) { std::ranges::fill(x, value); }, a);
    return zor::detail::to_integer(shape.cells());
  }
  if (zor::detail::shape_of(Mask) != shape) return kMaskOfOtherSize;
  std::size_t written = 0;
  zor::detail::for_runs(
      shape,
      [&](std::span<Cell> x, std::span<const Boolean> keep) {
        for (std::size_t i = 0; i < x.size(); ++i) {
          x[i] = keep[i] ? x[i] : value;
          written += !keep[i];
        }
      },
      a, Mask);
  return kReal ? zor::detail::to_integer(written) : 0;
}

Integer CreateMaskShape(TBool2DArray& Mask, TShapeKind Kind, const TIntArray& Params) {
  const bool round = Kind == skCircle || Kind == skRing;
  const std::size_t wanted = Kind == skCircle ? 3 : 4;
  Integer code = Kind > skRing || Params.size() != wanted ? kWrongShapeParams : 0;
  for (std::size_t i = 2; round && i < (std::min)(wanted, Params.size()); ++i) {
    if (Params[i] < 0) code = kNegativeRadius;
  }
  if (code != 0) return code;
  const Int64 x = Params[0], y = Params[1], p = Params[2];
  if (Kind == skCircle) {
    draw_ring(Mask, x, y, 0, p);
    return 0;
  }
  const Int64 q = Params[3];
  if (Kind == skRing) {
    draw_ring(Mask, x, y, (std::min)(p, q), (std::max)(p, q));
  } else if (Kind == skEllipse) {
    draw_ellipse(Mask, {x, y, p, q});
  } else {
    draw(Mask, {x, y, p, q}, [](Int64, Int64) { return true; });
  }
  return 0;
}

template Integer FillArrayMasked<TDouble2DArray>(TDouble2DArray&, CellOf<TDouble2DArray>, const TBool2DArray&);
template Integer FillArrayMasked<TInt2DArray>(TInt2DArray&, CellOf<TInt2DArray>, const TBool2DArray&);

}  // namespace ZOR_openarrays

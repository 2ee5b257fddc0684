#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/base/enums.h"

/// \file  Masks: arrays of Boolean of the size of a raster, and shapes drawn into them.
/// A mask protects: cells whose mask cell is True stay.

namespace ZOR_openarrays {

inline constexpr Integer kMaskOfOtherSize = -1;   ///< The mask has another size than the array.
inline constexpr Integer kNothingToFill = -2;     ///< The array is empty; of integers also: the mask is null.
inline constexpr Integer kWrongShapeParams = -1;  ///< Too many or too few parameters, or an unknown shape.
inline constexpr Integer kNegativeRadius = -2;    ///< A radius is negative.

/// Writes Value into the cells whose mask cell is False. Returns the number of cells written for doubles, 0 for
/// integers; kNothingToFill if A is empty; kMaskOfOtherSize. A null mask means all cells for doubles, and is
/// kNothingToFill for integers.
template <class A>
  requires Num<A, 2>
ZOR_API Integer FillArrayMasked(A& a, CellOf<A> Value, const TBool2DArray& Mask);

/// Sets the cells of a shape to True and clears none, so that calls add up. Cells (c, r) outside the mask are left out.
/// Params holds, and a cell belongs to the shape if:
///
/// | Kind | Params | Cells |
/// |---|---|---|
/// | skRectangle | x1, y1, x2, y2 | x1 <= c <= x2 and y1 <= r <= y2 |
/// | skEllipse | x1, y1, x2, y2 | in that rectangle, and dx^2 / (w^2 div 2) + dy^2 / (h^2 div 2) <= 1 |
/// | skCircle | cx, cy, radius | (c - cx)^2 + (r - cy)^2 <= radius^2 |
/// | skRing | cx, cy, r1, r2 | r1^2 <= (c - cx)^2 + (r - cy)^2 <= r2^2, the radii in either order |
///
/// Here w = x2 - x1, h = y2 - y1, dx = c - (x1 + x2) div 2, dy = r - (y1 + y2) div 2; div rounds toward 0, the division
/// does not, and a term whose denominator is 0 (a side of 0 or 1) is 0. Where x1 > x2 or y1 > y2 there is no cell.
/// Returns 0; kWrongShapeParams; kNegativeRadius, which wins over the other.
///
///     TBool2DArray mask;
///     SetLength(mask, 640, 480);
///     CreateMaskShape(mask, skCircle, {320, 240, 200});      // protects a disc in the middle
///
/// \warning The ellipse of this formula passes through the corners of its rectangle or beyond: with even w and h
/// all cells of the rectangle belong to it, with odd ones all but a few at the far edges. For an ellipse that touches
/// the sides set the cells with 4 dx^2 / w^2 + 4 dy^2 / h^2 <= 1.
ZOR_API Integer CreateMaskShape(TBool2DArray& Mask, TShapeKind Kind, const TIntArray& Params);

}  // namespace ZOR_openarrays

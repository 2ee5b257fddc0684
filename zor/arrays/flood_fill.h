#pragma once

#include "zor/arrays/array_concepts.h"

/// \file  Filling a connected region of a raster.
/// A[x][y], x being the column and y the row, both from 0. The region holds the start cell (X, Y) and all matching
/// cells that can be reached from it: over the four sides of a cell if FourConnected, over its corners as well if not.
/// Returns the number of cells filled; the bounds become the rows and columns that the region spans. The order of
/// visiting plays no part, and depth is no matter of the call stack: regions of any shape are filled, with memory at
/// most in proportion to the number of cells. EOutOfMemory leaves the region filled in part.

namespace ZOR_openarrays {

inline constexpr Integer kStartOutside = -1;   ///< The start cell lies outside the array, or the array is empty.
inline constexpr Integer kAlreadyFilled = -2;  ///< The start cell already holds FillValue.

/// Fills the cells equal to the start cell. On kStartOutside and kAlreadyFilled neither cells nor bounds are touched.
ZOR_API Integer FloodFillArray(Integer X, Integer Y, Integer FillValue, Boolean FourConnected, TInt2DArray& A,
                               Integer& RowMax, Integer& RowMin, Integer& ColMin, Integer& ColMax);

/// Fills the cells from T - |Tolerance| to T + |Tolerance|, where T is the start cell before the call. FillValue may
/// lie in that range: cells of the region that hold it already count as well. Where a limit of the range is NaN,
/// nothing matches: the result is 0, and the bounds are Y, Y, X, X.
ZOR_API Integer FloodFillArray(Integer X, Integer Y, Double Tolerance, Double FillValue, Boolean FourConnected,
                               TDouble2DArray& A, Integer& RowMax, Integer& RowMin, Integer& ColMin, Integer& ColMax);

}  // namespace ZOR_openarrays

#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Finding cells by value.
/// Indices count from 0; a negative result is a code. An empty array gives kEmptyArray.

namespace ZOR_openarrays {

inline constexpr Integer kNotFound = -2;     ///< No cell matches.
inline constexpr Integer kOutsideData = -2;  ///< The value lies outside the first and last cell.

/// Index of the first cell equal to Value, else kNotFound.
ZOR_API Integer FindInArray(Integer Value, const TIntArray& A);
/// Index of the first matching text, else kNotFound. With IgnoreCase both sides are compared in lower case. With
/// Partial a cell matches if S stands somewhere in it (an empty S in every cell), otherwise it must be equal.
ZOR_API Integer FindInArray(const TString& S, const TStrArray& A, Boolean IgnoreCase, Boolean Partial);

/// Index of the cell equal or nearest to Value in an array sorted in the direction told, by bisection; of two equally
/// near cells the higher index, of equal cells any. kOutsideData if Value lies outside the first and last cell in that
/// direction, so also if the direction is wrong, and for NaN. Cells that are not sorted give one of them.
ZOR_API Integer FindInSortedArray(Double Value, const TDoubleArray& A, Boolean Ascending);

/// Lists the cells equal to Value, in storage order, at most MaxCount of them (all if MaxCount is below 1). Returns
/// their number. In one dimension Res gets the indices, in two Res[0] the columns and Res[1] the rows, each plus
/// Offset; without hits they have length 0. Res stays as it was if A is empty.
ZOR_API Integer ListCellPositions(const TBoolArray& A, Boolean Value, Integer MaxCount, Integer Offset, TIntArray& Res);
ZOR_API Integer ListCellPositions(const TBool2DArray& A, Boolean Value, Integer MaxCount, Integer Offset,
                                  TInt2DArray& Res);

}  // namespace ZOR_openarrays

#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"
#include "zor/base/enums.h"

/// \file  Projections of a raster on one of its edges, and the rectangle around its cells other than 0.
/// A[x][y], x being the column and y the row, both from 0.

namespace ZOR_openarrays {

inline constexpr Integer kBadEdgeIndex = -2;  ///< Of EdgeVector: an index outside the array was skipped.

/// Projects A: with orHorizontal Res gets one cell for each row, taken over the columns listed in EdgeIx, with
/// orVertical one for each column, taken over the rows listed. A null list, or none, means all of them; an index listed
/// twice counts twice. eoMin and eoMax take the smallest and largest cell, eoSum and eoMean add in the order of the
/// list. eoMean divides by the number of cells added with orVertical, but by the number of all columns with
/// orHorizontal, whatever the list holds. eoStdDev is sqrt((sum x^2 - (sum x)^2 / n) / (n - 1)) over the n cells taken,
/// 0 for fewer than three; integers are squared in 32 bits, which wrap around beyond 46340. Centre data first whose
/// mean is large against its deviations. Results: 0; kEmptyArray, Res as it was; kBadEdgeIndex if the list holds an
/// index outside A: it is skipped, and Res is filled all the same. If nothing is left, eoMin gives uc_MaxDouble, eoMax
/// -uc_MaxDouble, the others 0. NaN is neither smallest nor largest. Res may be a column of A, and then takes its
/// place.
template <class A>
  requires Num<A, 2>
ZOR_API Integer EdgeVector(const A& a, TOrientation Orient, TEdgeOp EdgeOp, const TIntArray& EdgeIx, TDoubleArray& Res);
template <class A>
  requires Num<A, 2>
ZOR_API Integer EdgeVector(const A& a, TOrientation Orient, TEdgeOp EdgeOp, TDoubleArray& Res);

/// First and last column, first and last row that hold a cell other than 0; NaN is other than 0. All four are -1 if
/// there is none or the array is empty.
template <class A>
  requires Num<A, 2>
ZOR_API void BoundingRect(const A& a, Integer& Left, Integer& Right, Integer& Top, Integer& Bottom);

}  // namespace ZOR_openarrays

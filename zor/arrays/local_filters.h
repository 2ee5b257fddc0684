#pragma once

#include "zor/arrays/array_concepts.h"

/// \file  Mean and median of the neighbourhood of a cell, and the bends of a sequence. Indices count from 0.

namespace ZOR_openarrays {

/// Mean of the cells around place Ix: the centre, and those at a distance of up to Radius whose index lies from Low to
/// High. 0.0 for an empty array. Ix, Radius, Low and High are each limited to the indices of the array, but distances
/// are counted from Ix as given: beside the array the edge cell stands for the centre and may come in once more as a
/// neighbour. The centre always counts; with Low above High it stands alone. Cells are added in the order of their
/// distance, the lower index first.
///
///     LocalMean(TDoubleArray{0, 1, 2, 3, 4}, 0, 2, 0, 4);      // (0 + 1 + 2) / 3
template <class A>
  requires Num<A, 1>
ZOR_API Double LocalMean(const A& a, Integer Ix, Integer Radius, Integer Low, Integer High);

/// Median of the same cells: the middle one, of an even number the mean of the two in the middle, after
/// ZOR_math1::SortArray has sorted a copy of them, whose feedback steps it shares. NaN stays where the sort leaves it.
template <class A>
  requires Num<A, 1>
ZOR_API Double LocalMedian(const A& a, Integer Ix, Integer Radius, Integer Low, Integer High);

/// Finds where the slope of a sequence changes. The slope of the first two cells is the reference; a step A[i] - A[i -
/// 1] that differs from the reference by more than Tolerance is a break at i - 1, and becomes the reference. Returns
/// the number of breaks, whose indices become BreakPts; 0 for fewer than three cells, and then BreakPts stays. A
/// Tolerance of 0 sees rounding errors, a negative one breaks everywhere, NaN nowhere. Integers have no tolerance.
///
///     CheckLinearity({1, 2, 3, 5, 7}, 1e-9, breaks);      // 1, and breaks = {2}
ZOR_API Integer CheckLinearity(const TDoubleArray& A, Double Tolerance, TIntArray& BreakPts);
ZOR_API Integer CheckLinearity(const TIntArray& A, TIntArray& BreakPts);

}  // namespace ZOR_openarrays

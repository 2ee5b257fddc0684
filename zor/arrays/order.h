#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Sorting arrays together with the places where their cells came from.
/// For cells alone see SortArray of ZOR_math1. NaN cells never move, and cells on both sides of one are not compared.

namespace ZOR_openarrays {

inline constexpr Integer kSortAborted = -2;    ///< AbortMathProc was set before the sort was done.
inline constexpr Integer kOutputIsInput = -3;  ///< Array and index array are the same variable.

/// Sorts the cells in place; Ix[i] becomes the position, counted from 1, at which the cell now at i stood before.
/// Fewer than two cells give kEmptyArray, with Ix filled all the same. Comb sort with the first gap taken from n - 1;
/// it is not stable: the order in which equal cells end up is that of the exchanges made.
/// AbortMathProc is cleared first. Before each pass there is a feedback step with a test for an abort, which gives
/// kSortAborted; array and index array then fit each other. Without a MathFeedBackProc the passes run at once, ProcStat
/// grows by their number at the end, and nothing is aborted. The procedure may reassign the variables: the sort goes on
/// in the cells that it began with.
template <class A>
  requires Num<A, 1>
ZOR_API Integer SortArray(Boolean Ascending, A& a, TIntArray& Ix);

/// Sorts the cells and keeps one of each value. Returns the number of cells removed, or kEmptyArray for fewer than two
/// cells. Other handles of the array keep their cells. Feedback is that of SortArray of ZOR_math1, without abort.
ZOR_API Integer SortAndRemoveDuplicates(TIntArray& A, Boolean Ascending);

}  // namespace ZOR_openarrays

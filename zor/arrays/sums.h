#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Sums over masks, differences and diagonals.
/// Doubles are added in storage order, with the bits of the plain loop.

namespace ZOR_openarrays {

inline constexpr Integer kMaskMismatch = -1;   ///< Of SumArrayMasked: the mask has another size.
inline constexpr Integer kNothingToSum = -2;   ///< Of SumArrayMasked: the array is empty.
inline constexpr Double kEmptyOperand = -1.0;  ///< Of SumOfSquaredDiffs: an array is empty.
inline constexpr Double kOtherLength = -2.0;   ///< Of SumOfSquaredDiffs: the lengths differ.
inline constexpr Double kNoSuchColumn = -3.0;  ///< Of SumOfSquaredDiffs: Col lies outside M.

/// Sum of the cells whose mask cell is False: Mask excludes. Returns the number of cells summed. A null Mask means all
/// cells. An empty A gives kNothingToSum, a Mask of another size kMaskMismatch; Sum is then left as it was. Integers
/// are added as Double.
template <class A>
  requires Num<A, 2>
ZOR_API Integer SumArrayMasked(const A& a, const TBool2DArray& Mask, Double& Sum);

/// Sum of (A - B)^2; or between A and column Col of M, counted from 0, of which the rows must be as many as A has
/// cells. Negative results are kEmptyOperand, kOtherLength, kNoSuchColumn; of several the last.
ZOR_API Double SumOfSquaredDiffs(const TDoubleArray& A, const TDoubleArray& B);
ZOR_API Double SumOfSquaredDiffs(const TDoubleArray& A, const TDouble2DArray& M, Integer Col);

/// Sum of the cells with equal indices; integers wrap around at 32 bits. Results: 0; kEmptyArray; kSizeMismatch if A is
/// not square. Trace is set to 0 first in all cases.
template <class A>
  requires Num<A, 2>
ZOR_API Integer TraceOfArray(const A& a, CellType<A>& Trace);

}  // namespace ZOR_openarrays

#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Products of two vectors given as arrays of one dimension.
/// Integers wrap around at 32 bits. On a negative code nothing is touched.

namespace ZOR_openarrays {

inline constexpr Integer kNotThreeCells = -2;  ///< Of VectorCrossProduct: a vector has not exactly 3 cells.

/// Dot = sum of A[i] * B[i], added in order of i from 0.0 with the bits of the plain loop. Results: 0; kEmptyArray;
/// kSizeMismatch.
template <class A>
  requires Num<A, 1>
ZOR_API Integer VectorDotProduct(const A& a, const Same<A>& b, CellType<A>& Dot);

/// C = A x B, right-handed: (1, 0, 0) x (0, 1, 0) = (0, 0, 1). C may be A or B. Results: 0; kEmptyArray;
/// kNotThreeCells.
template <class A>
  requires Num<A, 1>
ZOR_API Integer VectorCrossProduct(const Same<A>& a, const Same<A>& b, A& C);

}  // namespace ZOR_openarrays

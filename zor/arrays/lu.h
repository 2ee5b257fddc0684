#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Triangular factors and determinant of a square matrix; a[c][r] is the cell in column c and row r.
/// Each cell is one running difference with its terms in ascending order; they may be fused, see
/// zor/portable_kernels.h. Outputs stay as they were unless the result is 0. Results: 0; kEmptyArray if A is empty or
/// not square; kNotFinite; kSizeMismatch if two outputs are the same variable.

namespace ZOR_openarrays {

inline constexpr Integer kNotFinite = -2;  ///< A cell of A is infinite or NaN, or one of the factors overflowed.

/// A = L U always, and the product of the diagonal of U is always the determinant. L is unit lower triangular and U
/// upper triangular if that goes well: no pivot is 0 above cells other than 0, and no cell of U exceeds 1000 times the
/// largest magnitude of A. Else rows are exchanged to bring the largest magnitude of each column on the diagonal, and L
/// is that triangle with its rows put back; for an odd number of exchanges row 0 of U and column 0 of L have their
/// signs changed. A singular matrix has a 0 on the diagonal of U. L or U may be A.
ZOR_API Integer LUdecomposition(const TDouble2DArray& A, TDouble2DArray& L, TDouble2DArray& U);

/// P A = L U with L unit lower triangular, U upper triangular and P a permutation matrix of 0 and 1: P[c][r] = 1 where
/// row r of P A is row c of A. The pivot is the cell of the column with the largest magnitude, the first one of equals.
/// Swaps becomes the number of rows exchanged on the way: det A = (-1)^Swaps times the product of the diagonal of U. A
/// singular matrix has a 0 there. PermuteArray takes P.
ZOR_API Integer LUPdecomposition(const TDouble2DArray& A, TDouble2DArray& L, TDouble2DArray& U, TInt2DArray& P,
                                 Integer& Swaps);

/// Product of the diagonal of U of LUdecomposition, ascending, from 1.0. 0.0 if A is empty or not square, NaN if a cell
/// is not finite. It may leave the range of numbers for matrices of harmless size.
ZOR_API Double Determinant(const TDouble2DArray& A);

}  // namespace ZOR_openarrays

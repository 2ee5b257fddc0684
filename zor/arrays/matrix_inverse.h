#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Inverse of a matrix, and the hat matrix of a regression. a[c][r] is the cell in column c and row r.

namespace ZOR_openarrays {

inline constexpr Integer kNotInvertible = -1;   ///< Of InvertArray: the array is empty or not square.
inline constexpr Integer kSingular = -3;        ///< No inverse was found.
inline constexpr Integer kInverseAborted = -4;  ///< AbortMathProc was set.

/// Replaces a square matrix by its inverse: Crout's factors with implicit scaled partial pivoting, then substitution of
/// the unit vectors. A pivot below 1e-100 in magnitude, a row of zeros, and a column without a number to compare give
/// kSingular; rounding may leave a larger pivot to a singular matrix, so that its inverse is not told from that of a
/// nearly singular one: Determinant and the singular values tell more. The residual of A times its inverse is a small
/// multiple of 2^-53 times size and condition number. Multiplication and subtraction may be fused, see
/// zor/portable_kernels.h.
///
/// There is a feedback step with a test for an abort for each column of the factors and of the inverse. Results: 0;
/// kNotInvertible; kSingular; kInverseAborted. A row of zeros leaves A as it was, the other failures leave the factors
/// as they are at that point. Other handles of the array see what happens, as with all work in place. If a feedback
/// procedure gives A another size, A keeps it and the result is kNotInvertible. Lack of memory leaves A as it was.
ZOR_API Integer InvertArray(TDouble2DArray& A);

/// H = X (X' X)^-1 X', rows by rows: what takes the observations of a linear regression to their fitted values.
/// Results: 0; kEmptyArray; kSingular, always for fewer rows than columns; kInverseAborted; kSizeMismatch if X and H
/// are the same variable. H stays as it was unless the result is 0. Columns that depend on each other are found only
/// if the inversion meets a pivot near 0; the singular values of X tell for sure. Feedback is that of InvertArray.
ZOR_API Integer CalcHatMatrix(const TDouble2DArray& X, TDouble2DArray& H);

}  // namespace ZOR_openarrays

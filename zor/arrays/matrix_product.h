#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Products of matrices and of vectors. An array of two dimensions is a matrix, a[c][r] being the cell in column
/// c and row r.

namespace ZOR_openarrays {

/// C = A B, with the columns of B and the rows of A: C[c][r] is the sum of A[k][r] * B[c][k], with k ascending from 0.
/// Sums of doubles may fuse multiplication and addition, see zor/portable_kernels.h; an integer factor of a double one
/// is converted first; integers wrap around at 32 bits. C may be A or B. Results: 0; kEmptyArray; kSizeMismatch if A
/// has not as many columns as B has rows.
ZOR_API Integer MultiplyArrays(const TDouble2DArray& A, const TDouble2DArray& B, TDouble2DArray& C);
ZOR_API Integer MultiplyArrays(const TDouble2DArray& A, const TInt2DArray& B, TDouble2DArray& C);
ZOR_API Integer MultiplyArrays(const TInt2DArray& A, const TDouble2DArray& B, TDouble2DArray& C);
ZOR_API Integer MultiplyArrays(const TInt2DArray& A, const TInt2DArray& B, TInt2DArray& C);

/// C = A B' of two vectors, A being a column and B a row: C[c][r] = A[r] * B[c]. The lengths may differ. Integers wrap
/// around at 32 bits. Results: 0; kEmptyArray.
ZOR_API Integer MultiplyArrays(const TDoubleArray& A, const TDoubleArray& B, TDouble2DArray& C);
ZOR_API Integer MultiplyArrays(const TIntArray& A, const TIntArray& B, TInt2DArray& C);

}  // namespace ZOR_openarrays

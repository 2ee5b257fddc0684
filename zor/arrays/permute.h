#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"
#include "zor/base/enums.h"

/// \file  Reordering the columns or rows of an array by a permutation matrix.

namespace ZOR_openarrays {

inline constexpr Integer kNoPermutation = -2;  ///< Perm is not square, of another size, or no permutation matrix.

/// Reorders the columns (acrColumns) or rows (acrRows) of A into Res. Perm is a matrix of 0 and 1 with one 1 in each
/// column and row, Perm[col][row], as LUPdecomposition gives it: with Flag False, column (row) r of Res is column (row)
/// c of A where Perm[c][r] = 1, so that rows give the product P A and columns A P'. Flag True goes the other way round
/// and brings back what False has reordered. Res may be A. Results: 0; kEmptyArray if A or Perm is empty;
/// kNoPermutation. On a negative code nothing is touched.
///
///     PermuteArray({{1, 2}, {3, 4}}, {{0, 1}, {1, 0}}, acrColumns, false, res);   // {{3, 4}, {1, 2}}
ZOR_API Integer PermuteArray(const TDouble2DArray& A, const TInt2DArray& Perm, TApplyColRow ColRow, Boolean Flag,
                             TDouble2DArray& Res);

}  // namespace ZOR_openarrays

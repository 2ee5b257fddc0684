#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Flipping, transposing, flattening, and taking out a row or a column.
/// a[col][row][layer][slot], indices from 0. FlipDimArray works in place, and all handles that share the cells see it;
/// the routines that change a size build a new array, and other handles keep what they had.

namespace ZOR_openarrays {

inline constexpr Integer kNoSuchDimension = -2;  ///< Dim is below 1 or above the number of dimensions.

/// Arrays of numbers of two dimensions.
template <class A>
concept NumPlane = Num<A, 2>;

/// Reverses the order of the cells along one index: Dim 1 is the column (the outermost), 2 the row, 3 the layer, 4 the
/// time slot. Results: 0; kEmptyArray; kNoSuchDimension.
template <NumArray A>
ZOR_API Integer FlipDimArray(A& a, Integer Dim);

/// Exchanges columns and rows: A[c][r] becomes A[r][c]. Results: 0; kEmptyArray.
template <class A>
  requires ArrayOf<A, 2, 2, Double, Integer, Boolean>
ZOR_API Integer TransposeArray(A& a);

/// All cells in one line. With ColumnWise column after column, Res[r + rows * c] = A[c][r]; otherwise row after row,
/// Res[c + cols * r] = A[c][r]. An empty A leaves Res as it is.
template <NumPlane A>
ZOR_API void SerializeArray(const A& a, Boolean ColumnWise, typename A::value_type& Res);

/// Takes out a row; the rows behind it move down by one. False, with nothing changed, if Row lies outside or A is
/// empty. The only row leaves columns of length 0: the array is empty then.
template <NumPlane A>
ZOR_API Boolean RemoveRow(A& a, Integer Row);
/// Takes out a column, likewise. The only column leaves a null array.
template <NumPlane A>
ZOR_API Boolean RemoveColumn(A& a, Integer Col);

}  // namespace ZOR_openarrays

#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Preparation of the columns and rows of an array, and their correlation. Cells are changed in place, also
/// through other handles of the array.

namespace ZOR_openarrays {

inline constexpr Integer kZeroSeries = -1;  ///< A column (row) holds zeros only; the others were normalised.

/// Divides each column (row) by its Euclidean length, the root of the sum of squares in the order of the cells. One
/// whose sum of squares is 0, be it by underflow, stays and makes the result kZeroSeries. kEmptyArray if A is empty.
ZOR_API Integer NormalizeColumns(TDouble2DArray& A);
ZOR_API Integer NormalizeRows(TDouble2DArray& A);

/// Subtracts from each column (row) its mean, summed with twice the precision of a double as MeanArray does. If Means
/// holds cells when the routine is called, it becomes the array of the means, else it stays null. An empty A changes
/// nothing. Means may be a column of A.
ZOR_API void MeanCenterColumnsOfArray(TDouble2DArray A, TDoubleArray& Means);
ZOR_API void MeanCenterRowsOfArray(TDouble2DArray A, TDoubleArray& Means);

/// Correlation coefficient of two columns x and y, counted from 0: with the n rows, (Sum(x y) - Sum(x) Sum(y) / n) /
/// sqrt(|Sum(x x) - Sum(x)^2 / n| |Sum(y y) - Sum(y)^2 / n|), the sums in twice the precision of a double. 0.0 for
/// fewer than three rows, for a column that is constant or not in A, and if a sum of squares is not above 0 or NaN.
ZOR_API Double PearsonCorrCoeffColsOfArray(const TDouble2DArray& A, Integer Col1, Integer Col2);

}  // namespace ZOR_openarrays

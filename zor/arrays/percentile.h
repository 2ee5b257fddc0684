#pragma once

#include "zor/arrays/array_concepts.h"

/// \file  Percentiles of arrays: always one of the cells, never a value between two.

namespace ZOR_openarrays {

/// The cell at index k, counted from 0, of the ascending order of the n cells of the range, where k = Round(Pct * n /
/// 100), ties to even, limited to n - 1, and Pct is limited to 0..100. Bounds are limited to the array, and exchanged
/// if a low bound is above its high bound. An array that is null or empty gives 0.0, a NaN Pct gives NaN; a NaN cell
/// counts as greater than every number. Cells are selected in a copy, in time proportional to n.
/// \warning Pct 50 is not the usual median: an even n takes the upper of the two middle cells, and n = 3, 7, 11, ...
/// the cell above the middle one: (1, 2, 3) gives 3. The median is TVector::Quartiles or TVector::Percentile.
template <class A>
  requires Num<A, 1>
ZOR_API Double PercentileArray(Double Pct, const A& a);
ZOR_API Double PercentileArray(Double Pct, const TDoubleArray& A, Integer Low, Integer High);
ZOR_API Double PercentileArray(Double Pct, const TDouble2DArray& A, Integer LowCol, Integer LowRow, Integer HighCol,
                               Integer HighRow);

}  // namespace ZOR_openarrays

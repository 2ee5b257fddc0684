#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Between numbers and truth values, cell by cell.
/// Results: 0; kEmptyArray, nothing touched. Res is set to the shape of A.

namespace ZOR_openarrays {

/// A = not A.
ZOR_API Integer InvertArray(TBoolArray& A);
ZOR_API Integer InvertArray(TBool2DArray& A);

/// Res = TrueValue where A is true, FalseValue elsewhere.
template <class R>
  requires ArrayOf<R, 1, 2, Double, Integer>
ZOR_API Integer BoolToNumArray(const ShapeOf<R, Boolean>& A, CellOf<R> FalseValue, CellOf<R> TrueValue, R& Res);

/// Res = True where A is greater than Threshold; a cell equal to it, and NaN, give False.
template <class A>
  requires ArrayOf<A, 1, 2, Double, Integer>
ZOR_API Integer DichotomizeArray(const A& a, CellOf<A> Threshold, ShapeOf<A, Boolean>& Res);
/// Res = True where A lies from Low to High, both inclusive; the limits may be exchanged. NaN gives False.
template <class A>
  requires ArrayOf<A, 1, 2, Double, Integer>
ZOR_API Integer DichotomizeArray(const A& a, CellOf<A> Low, CellOf<A> High, ShapeOf<A, Boolean>& Res);

}  // namespace ZOR_openarrays

#pragma once

#include "zor/arrays/array_concepts.h"

/// \file  Questions about the cells of an array as a whole.

namespace ZOR_openarrays {

/// True if all lengths and all cells are equal. Two empty arrays are equal, whatever their lengths.
template <class A>
  requires ArrayOf<A, 1, 4, Integer>
ZOR_API Boolean EqualArrays(const A& a, const Same<A>& b);

/// True if no two pairs of neighbours differ in opposite directions: at most 2 cells, and cells that are all equal, are
/// monotone. More than 2 cells with NaN among them are not.
template <class A>
  requires Num<A, 1>
ZOR_API Boolean IsMonotone(const A& a);
/// True if all pairs of neighbours differ in the same direction. At most 2 cells are strictly monotone, even two equal
/// ones. More than 2 cells with NaN among them are not.
template <class A>
  requires Num<A, 1>
ZOR_API Boolean IsStrictlyMonotone(const A& a);

/// True if the array holds exactly two different values, which are Value1, the smaller one, and Value2. Both are 0 if
/// the result is False: for fewer than 2 cells, and if one is NaN. The two zeros are equal.
/// \note One repeated value gives False for doubles, but True for integers, with both values equal to it.
template <class A>
  requires Num<A, 1>
ZOR_API Boolean IsDichotomous(const A& a, CellType<A>& Value1, CellType<A>& Value2);

}  // namespace ZOR_openarrays

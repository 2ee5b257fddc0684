#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Counting cells.
/// Ranges are indices from 0, both ends inclusive, as pairs: low and high bound of the column, then of the row, layer,
/// slot. Counts end at 2147483647. Negative results: kEmptyArray; kBadRange.

namespace ZOR_openarrays {

/// Number of cells of the range with a value from Low to High, both inclusive. kBadRange if a bound is negative or
/// beyond its dimension, a low bound is above its high bound, Low is above High, or one of these is NaN.
template <class A>
  requires Num<A, 1>
ZOR_API Integer CountValues(const A& a, Integer LowElem, Integer HighElem, CellOf<A> Low, CellOf<A> High);
template <class A>
  requires Num<A, 2>
ZOR_API Integer CountValues(const A& a, Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, CellOf<A> Low,
                            CellOf<A> High);
template <class A>
  requires Num<A, 3>
ZOR_API Integer CountValues(const A& a, Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow,
                            Integer LowLayer, Integer HighLayer, CellOf<A> Low, CellOf<A> High);
template <class A>
  requires Num<A, 4>
ZOR_API Integer CountValues(const A& a, Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow,
                            Integer LowLayer, Integer HighLayer, Integer LowSlot, Integer HighSlot, CellOf<A> Low,
                            CellOf<A> High);

/// Number of true cells of the array or of a range. A pair 0, 0 means the whole of that dimension; other bounds must
/// lie in the array, else kBadRange; a pair in the wrong order is exchanged.
ZOR_API Integer CountTrueCellsOfArray(const TBoolArray& A);
ZOR_API Integer CountTrueCellsOfArray(const TBool2DArray& A);
ZOR_API Integer CountTrueCellsOfArray(const TBool2DArray& A, Integer LowCol, Integer HighCol, Integer LowRow,
                                      Integer HighRow);

}  // namespace ZOR_openarrays

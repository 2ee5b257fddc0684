#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Filling arrays with values and series.
/// Sizes stay as they are, and all handles that share the cells see them changed. Results: 0; kEmptyArray; others as
/// told. On a negative code nothing is touched. Integers wrap around at 32 bits.

namespace ZOR_openarrays {

/// A fill also takes TBoolArray and TBool2DArray.
template <class A>
concept FillableArray = NumArray<A> || ArrayOf<A, 1, 2, Boolean>;

/// Every cell = Value. With bounds: the cells of the range, both ends inclusive, indices from 0, all low bounds before
/// all high bounds; (0, 0) is the first cell alone. kBadRange if a low bound is above its high bound or a bound lies
/// outside.
template <FillableArray A>
ZOR_API Integer FillArray(A& a, CellOf<A> Value);
template <class A>
  requires Num<A, 1>
ZOR_API Integer FillArray(A& a, CellOf<A> Value, Integer LowElem, Integer HighElem);
template <class A>
  requires Num<A, 2>
ZOR_API Integer FillArray(A& a, CellOf<A> Value, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow);
template <class A>
  requires Num<A, 3>
ZOR_API Integer FillArray(A& a, CellOf<A> Value, Integer LowCol, Integer LowRow, Integer LowLayer, Integer HighCol,
                          Integer HighRow, Integer HighLayer);
template <class A>
  requires Num<A, 4>
ZOR_API Integer FillArray(A& a, CellOf<A> Value, Integer LowCol, Integer LowRow, Integer LowLayer, Integer LowTimeSlot,
                          Integer HighCol, Integer HighRow, Integer HighLayer, Integer HighTimeSlot);

/// Cells in storage order = Start, Start + Delta, ... In one dimension cell i is Start + i * Delta. In more dimensions
/// a running value is raised by Delta after each cell, so that the rounding of the two differs: with Delta 0.1 the cell
/// ten steps from 0 is 1.0 in one dimension and 0.9999999999999999 in two. Without arguments: 0, 1, 2, ...
template <NumArray A>
ZOR_API Integer FillArraySerial(A& a, CellOf<A> Start, CellOf<A> Delta);
template <NumArray A>
ZOR_API Integer FillArraySerial(A& a);

/// Cells of which all indices are equal = Value, all others 0. kSizeMismatch unless all dimensions have one length.
template <class A>
  requires ArrayOf<A, 2, 4, Double, Integer>
ZOR_API Integer FillDiagArray(A& a, CellOf<A> Value);

}  // namespace ZOR_openarrays

#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Copying an array, or a block of it, into an array that exists.
/// Dest keeps its size and all cells that are not reached; every handle that shares its cells sees them changed.
/// Offsets and bounds are indices from 0, bounds are inclusive, all low bounds stand before all high bounds. The source
/// may be Dest: the block may overlap with its target, and arrives as it was. Results: 0; kEmptyArray if Src or Dest is
/// empty; kBadRange if an offset or a bound is negative or outside its array, a low bound is above its high bound, or
/// the copy would go beyond the end of Dest in a dimension. On a negative code nothing is touched.
///
///     TDouble2DArray plane = {{0, 0, 0}, {0, 0, 0}};
///     CopyArray({{1, 2}}, 1, 1, plane);         // {{0, 0, 0}, {0, 1, 2}}

namespace ZOR_openarrays {

/// Dest[DestIx + i] = Src[i], in every dimension alike, for all of Src.
template <class A>
  requires ArrayOf<A, 1, 1, Double, Integer, Boolean>
ZOR_API Integer CopyArray(const Same<A>& Src, Integer DestIx, A& Dest);
template <class A>
  requires ArrayOf<A, 2, 2, Double, Integer, Boolean>
ZOR_API Integer CopyArray(const Same<A>& Src, Integer DestCol, Integer DestRow, A& Dest);
template <class A>
  requires Num<A, 3>
ZOR_API Integer CopyArray(const Same<A>& Src, Integer DestCol, Integer DestRow, Integer DestLayer, A& Dest);
template <class A>
  requires Num<A, 4>
ZOR_API Integer CopyArray(const Same<A>& Src, Integer DestCol, Integer DestRow, Integer DestLayer, Integer DestSlot,
                          A& Dest);

/// Dest[DestIx + i] = Src[Low + i], in every dimension alike, for the cells from Low to High.
template <class A>
  requires Num<A, 1>
ZOR_API Integer CopyArray(const Same<A>& Src, Integer Low, Integer High, Integer DestIx, A& Dest);
template <class A>
  requires Num<A, 2>
ZOR_API Integer CopyArray(const Same<A>& Src, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                          Integer DestCol, Integer DestRow, A& Dest);
template <class A>
  requires Num<A, 3>
ZOR_API Integer CopyArray(const Same<A>& Src, Integer LowCol, Integer LowRow, Integer LowLayer, Integer HighCol,
                          Integer HighRow, Integer HighLayer, Integer DestCol, Integer DestRow, Integer DestLayer,
                          A& Dest);
template <class A>
  requires Num<A, 4>
ZOR_API Integer CopyArray(const Same<A>& Src, Integer LowCol, Integer LowRow, Integer LowLayer, Integer LowSlot,
                          Integer HighCol, Integer HighRow, Integer HighLayer, Integer HighSlot, Integer DestCol,
                          Integer DestRow, Integer DestLayer, Integer DestSlot, A& Dest);

}  // namespace ZOR_openarrays

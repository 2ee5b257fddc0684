#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"
#include "zor/base/enums.h"

/// \file  Rescaling a range of cells.

namespace ZOR_openarrays {

inline constexpr Integer kNoScale =
    -3;  ///< Mode is unknown, no cell is a number, or the numbers of the mapping overflow.

/// Puts (x - Value1) / scale into the cells from the lows to the highs, indices from 0, both ends inclusive (0, 0 is
/// one cell). The numbers of the mapping come from those cells alone:
///
/// | Mode | Value1 | Value2 | scale |
/// |---|---|---|---|
/// | rsmRange | the minimum | the maximum | Value2 - Value1 |
/// | rsmStandardize | the mean | the standard deviation with n - 1 | Value2 |
/// | rsmCenter | the mean | 1.0 | 1.0 |
/// | rsmMaxAbs | 0.0 | the largest absolute value | Value2 |
///
/// A scale of 0 (cells that are all equal) gives 0.0 in all cells. NaN cells stay as they are and do not enter. Mean
/// and deviation carry twice the precision in their sums. Works in place: all handles that share the cells see it.
/// Results: 0; kEmptyArray; kBadRange if a bound lies outside or a low is above its high; kNoScale, also where a cell
/// is infinite. On a negative code nothing is touched.
template <class A>
  requires ArrayOf<A, 1, 1, Double>
ZOR_API Integer RescaleArray(A& a, Integer Low, Integer High, TRescaleMode Mode, Double& Value1, Double& Value2);
template <class A>
  requires ArrayOf<A, 2, 2, Double>
ZOR_API Integer RescaleArray(A& a, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, TRescaleMode Mode,
                             Double& Value1, Double& Value2);

}  // namespace ZOR_openarrays

#pragma once

#include "zor/arrays/array_concepts.h"

/// \file  Random sub-arrays.

namespace ZOR_openarrays {

inline constexpr Integer kBadColumnShare = -1;   ///< No column, or more than all of them.
inline constexpr Integer kBadRowShare = -2;      ///< No row, or more than all of them.
inline constexpr Integer kNoSampleSource = -3;   ///< Src is empty.
inline constexpr Integer kNoSampleDest = -4;     ///< Dest is null.
inline constexpr Integer kNoSampleIndices = -5;  ///< ColIx or RowIx is null, or both are one variable.
inline constexpr Integer kSampleTooLarge = -6;   ///< More than kMaxDistinctValues columns or rows to draw from.

/// Dest[c][r] = Src[ColIx[c] - 1][RowIx[r] - 1] for randomly drawn columns and rows, whose numbers, from 1, come back
/// in ColIx and RowIx. As many columns are drawn as ColPct per cent are, rounded, ties to even, and rows likewise.
/// Columns are distinct, and stand in order if all are taken; rows are distinct and mixed unless BootStrap, which draws
/// them with repetition. Dest, ColIx and RowIx must not be null before the call and get their sizes from it; Dest may
/// be Src. Returns 0; kNoSampleSource, kNoSampleDest, kNoSampleIndices, the first of them; kBadColumnShare,
/// kBadRowShare, the last of them, for a percentage above 100 or NaN or too small for one column (row);
/// kSampleTooLarge. Nothing is touched on a negative result. Draws by FillRandomUniform, which calls Randomize.
/// \warning Distinct columns and rows are no uniform sample: see FillRandomUniform without duplicates. With BootStrap
/// the rows are drawn fairly.
ZOR_API Integer Resample2DArray(const TDouble2DArray& Src, TDouble2DArray& Dest, Double ColPct, Double RowPct,
                                Boolean BootStrap, TIntArray& ColIx, TIntArray& RowIx);

}  // namespace ZOR_openarrays

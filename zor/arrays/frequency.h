#pragma once

#include "zor/arrays/array_concepts.h"

/// \file  Frequency distributions of the cells of arrays.

namespace ZOR_openarrays {

inline constexpr Integer kBoundOutside = -1;    ///< The array is empty, or a bound is negative or beyond its dimension.
inline constexpr Integer kBoundsReversed = -2;  ///< A low bound is above its high bound.
inline constexpr Integer kBadBinLimits = -3;    ///< LastBin is not above FirstBin.
inline constexpr Integer kBadBinWidth = -4;     ///< BinWidth is not above 0, infinite, or NaN.
inline constexpr Integer kTooManyBins = -5;     ///< More than 1000 bins.
inline constexpr Integer kMaskNotFitting = -6;  ///< The mask has another size than the array, or is null.

/// Counts the cells of a range in bins: bin b counts the cells x with b = Floor((x - FirstBin) / BinWidth), and Histo
/// gets Round(|LastBin - FirstBin| / BinWidth) + 1 bins. Cells below FirstBin count in Underflow; cells at or above
/// LastBin + BinWidth, NaN, and those that a number of bins rounded down leaves beyond the last bin count in Overflow.
/// MaxCnt becomes the largest count of a bin. All bounds 0 mean the whole array. Cells whose mask is true are skipped.
/// Result 0, or a code above; of several faults the last one of -1, -2, -3, -4, -6, -5 is told, except that an empty
/// array and a bad BinWidth return at once. The outputs are touched only by a success.
ZOR_API Integer FrequDistOfArray(const TDoubleArray& A, Integer Low, Integer High, Double FirstBin, Double LastBin,
                                 Double BinWidth, TIntArray& Histo, Integer& Underflow, Integer& Overflow,
                                 Integer& MaxCnt);
ZOR_API Integer FrequDistOfArray(const TDouble2DArray& A, Integer LowCol, Integer LowRow, Integer HighCol,
                                 Integer HighRow, Double FirstBin, Double LastBin, Double BinWidth, TIntArray& Histo,
                                 Integer& Underflow, Integer& Overflow, Integer& MaxCnt);
ZOR_API Integer FrequDistOfArray(const TDouble2DArray& A, const TBool2DArray& Mask, Integer LowCol, Integer LowRow,
                                 Integer HighCol, Integer HighRow, Double FirstBin, Double LastBin, Double BinWidth,
                                 TIntArray& Histo, Integer& Underflow, Integer& Overflow, Integer& MaxCnt);

}  // namespace ZOR_openarrays

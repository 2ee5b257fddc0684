#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/base/colors.h"

/// \file  From numbers to steps, from steps to colours.

namespace ZOR_openarrays {

inline constexpr Integer kTooFewSteps = -1;    ///< Of DiscretizeArray: NumSteps is below 3.
inline constexpr Integer kBadStepLimits = -2;  ///< Of DiscretizeArray: LowIn is not below HighIn.
inline constexpr Integer kNothingToMap = -1;   ///< Of ConvertToColorMap: the array is empty.
inline constexpr Integer kNoColors = -2;       ///< Of ConvertToColorMap: no table, or one without colours.

/// Maps each cell on one of NumSteps equidistant levels from LowOut to HighOut: cells up to LowIn on the first, from
/// HighIn on on the last, and those between, in NumSteps - 2 steps of equal width, on the others. NaN stays. Returns 0,
/// also for an empty array; kTooFewSteps; kBadStepLimits, also if a limit is NaN or HighIn - LowIn overflows; of both
/// the latter.
///
///     TDouble2DArray a = {{0, 5, 10}};
///     DiscretizeArray(a, 3, 0, 10, 0, 2);      // {{0, 1, 2}}
ZOR_API Integer DiscretizeArray(TDouble2DArray& A, Integer NumSteps, Double LowIn, Double HighIn, Double LowOut,
                                Double HighOut);

/// Replaces each cell by the colour of that number, counted from 1; values beyond the table get its first or last
/// colour. Returns 0; kNothingToMap; kNoColors, which wins over the other.
ZOR_API Integer ConvertToColorMap(TInt2DArray& A, const ZOR_zorcolors::TColorArray* ColorArray);

}  // namespace ZOR_openarrays

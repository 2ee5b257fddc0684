#pragma once

#include "zor/runtime/types.h"

/// \file  Result codes shared by the routines on arrays. 0 is success; other codes are told at the routines.

namespace ZOR_openarrays {

inline constexpr ZOR_runtime::Integer kEmptyArray = -1;     ///< An input array is empty.
inline constexpr ZOR_runtime::Integer kSizeMismatch = -2;   ///< Two arrays differ in size, or an array is not square.
inline constexpr ZOR_runtime::Integer kBadRange = -2;       ///< Indices outside the array, or a low above its high.
inline constexpr ZOR_runtime::Integer kBadLimits = -2;      ///< Limits or parameters that fit no distribution.
inline constexpr ZOR_runtime::Integer kTooFewValues = -3;   ///< Fewer different values than cells.
inline constexpr ZOR_runtime::Integer kTooManyValues = -4;  ///< More than kMaxDistinctValues to draw from.

}  // namespace ZOR_openarrays

#pragma once

#include <array>

#include "zor/runtime/types.h"

/// \file  Universal constants.
///
///     using namespace ZOR_univconst;
///     const double ways = std::exp(uc_LnFactorial[52] - uc_LnFactorial[47]);   // 52! / 47!

namespace ZOR_univconst {

/// The largest finite values. A search for the smallest number starts from them, one for the largest from the negative.
inline constexpr ZOR_runtime::Double uc_MaxDouble = 1.7976931348623157e308;
inline constexpr ZOR_runtime::Double uc_MaxReal = uc_MaxDouble;
inline constexpr ZOR_runtime::Double uc_MaxSingle = 3.4028234663852886e38;  ///< Of a Single.
inline constexpr ZOR_runtime::Int64 uc_MaxInt64 = 9223372036854775807;

inline constexpr ZOR_runtime::Double uc_sqrt2 = 1.4142135623730951;        ///< Square root of 2.
inline constexpr ZOR_runtime::Double uc_sqrt2pitom1 = 0.3989422804014327;  ///< 1 / sqrt(2 pi).

/// Highest index of uc_LnFactorial.
inline constexpr ZOR_runtime::Integer kMaxLnFactorial = 1000;
/// uc_LnFactorial[n] = ln(n!), each the double nearest to it.
extern ZOR_API const std::array<ZOR_runtime::Double, kMaxLnFactorial + 1> uc_LnFactorial;

}  // namespace ZOR_univconst

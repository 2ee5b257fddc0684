#pragma once

#include <array>

#include "zor/base/ZOR_zorbase.h"

/// \file  Levels of significance for which critical values are tabulated.

namespace ZOR_statis {

using namespace ZOR_zorbase;

enum TSignifLevel : Byte { Dot20 = 0, Dot15 = 1, Dot10 = 2, Dot05 = 3, Dot01 = 4 };
enum TSignifLevelEx : Byte {
  Dot001 = 0,
  Dot002 = 1,
  Dot005 = 2,
  Dot010 = 3,
  Dot020 = 4,
  Dot050 = 5,
  Dot100 = 6,
  Dot200 = 7,
  Dot500 = 8
};

/// The levels as numbers, indexed by TSignifLevelEx.
inline constexpr std::array<Double, 9> NUMERICSIGLEVEL = {0.001, 0.002, 0.005, 0.01, 0.02, 0.05, 0.1, 0.2, 0.5};
/// The levels as numbers, indexed by TSignifLevel.
inline constexpr std::array<Double, 5> NUMERICSIGNIFLEVEL = {0.2, 0.15, 0.1, 0.05, 0.01};

}  // namespace ZOR_statis

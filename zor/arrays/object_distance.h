#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/base/enums.h"

/// \file  Distance between two objects of a table.

namespace ZOR_openarrays {

inline constexpr Integer kUserDistance = -1;     ///< Mode is dmUserDef, which needs an owner with an event.
inline constexpr Integer kNoSuchObject = -2;     ///< Obj1 or Obj2 is no row of the array.
inline constexpr Integer kNoSuchVariable = -3;   ///< First or Last is no column of the array.
inline constexpr Integer kReversedColumns = -4;  ///< Last is below First.

/// Distance between rows Obj1 and Obj2 of A, x and y, over the columns First to Last, all counted from 0. Sums are
/// taken in the order of the columns.
///
/// | Mode | Dist |
/// |---|---|
/// | dmTanimoto | sum xy / (sum x^2 + sum y^2 - sum xy); 1 for two zero rows, being a similarity |
/// | dmManhattan | sum of absolute differences |
/// | dmEuclid, dmEuclidSqr | root of the sum of squared differences; that sum itself |
/// | dmDice | 2 sum xy / (sum x^2 + sum y^2); 1 for two zero rows, being a similarity |
///
/// Returns 0; kUserDistance, kNoSuchObject, kNoSuchVariable, kReversedColumns, the last that applies. Dist is set to 0
/// first in all cases. An empty array has neither rows nor columns.
ZOR_API Integer DistanceOfObjects(const TDouble2DArray& A, TDistMode Mode, Integer Obj1, Integer Obj2, Integer First,
                                  Integer Last, Double& Dist);

}  // namespace ZOR_openarrays

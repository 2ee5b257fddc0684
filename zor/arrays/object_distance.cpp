#include "zor/arrays/object_distance.h"

#include <cmath>

#include "zor/arrays/walk_internal.h"

namespace ZOR_openarrays {
namespace {

bool inside(Integer i, std::size_t n) noexcept { return i >= 0 && static_cast<std::size_t>(i) < n; }

/// Similarities are quotients of products; two zero objects are alike.
Double similarity(Double numerator, Double denominator) noexcept {
  return denominator == 0.0 ? 1.0 : numerator / denominator;
}

}  // namespace

Integer DistanceOfObjects(const TDouble2DArray& A, TDistMode Mode, Integer Obj1, Integer Obj2, Integer First,
                          Integer Last, Double& Dist) {
  const auto [cols, rows] = zor::detail::shape_of(A).length;
  Integer code = Mode >= dmUserDef ? kUserDistance : 0;
  if (!inside(Obj1, rows) || !inside(Obj2, rows)) code = kNoSuchObject;
  if (!inside(First, cols) || !inside(Last, cols)) code = kNoSuchVariable;
  if (Last < First) code = kReversedColumns;
  if (code != 0) {
    Dist = 0.0;
    return code;
  }
  // Sums that the mode does not use cost nothing beside the walk over the columns.
  Double xx = 0.0, yy = 0.0, xy = 0.0, absolute = 0.0, squared = 0.0;
  for (Integer col = First; col <= Last; ++col) {
    const Double x = A[col][Obj1], y = A[col][Obj2];
    xx += x * x, yy += y * y, xy += x * y;
    absolute += std::fabs(x - y), squared += (x - y) * (x - y);
  }
  switch (Mode) {
    case dmTanimoto:
      Dist = similarity(xy, xx + yy - xy);
      break;
    case dmManhattan:
      Dist = absolute;
      break;
    case dmEuclid:
      Dist = std::sqrt(squared);
      break;
    case dmEuclidSqr:
      Dist = squared;
      break;
    case dmDice:
    case dmUserDef:
      Dist = similarity(2.0 * xy, xx + yy);
      break;
  }
  return 0;
}

}  // namespace ZOR_openarrays

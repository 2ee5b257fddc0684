#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Angles in radians and degrees.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Angle of the vector (x, y) to the x axis in radians, from 0 to 2 pi, both inclusive: a y just below 0 is rounded to
/// 2 pi. On the y axis pi/2 for y > 0 and 3 pi/2 otherwise, so also for (0, 0), where std::atan2 gives 0.
ZOR_API Double AngleToXAxis(Double x, Double y) noexcept;

/// The angle brought to the interval from -pi to pi, both of which stay as they are. NaN if it is not finite.
ZOR_API Double CanonicalAngleRadians(Double a) noexcept;
/// The same in degrees, from -180 to 180.
ZOR_API Double CanonicalAngleDegrees(Double a) noexcept;

/// Rewrites an angle from one notation to another: dfDecimal degrees; dfDegMin whole degrees and minutes; dfDegMinSec
/// whole degrees, whole minutes and seconds. Parts that the new notation does not have become 0. dfPlain on either side
/// changes nothing. The parts are cut, not rounded: 1.1 degrees are 1, 6 and 3.2e-13.
/// Only Deg carries a sign, and minutes always count upward: -10.5 is split into -10 and 30', but -10 and 30' are
/// joined to -9.5. For negative angles convert the absolute value.
/// Raises EZORMath1Error "ConvertDegrees: invalid range of minutes" or "... of seconds" unless both lie from 0 to 60,
/// whatever the notations; the angle then stays.
ZOR_API void ConvertDegrees(Double& Deg, Double& Min, Double& Sec, TDegreeFormat Source, TDegreeFormat Dest);

/// Rounds an angle in degrees, minutes and seconds up or down to a step that suits a scale: 1, 2, 3, 5, 10, 15, 20, 30
/// or 60 of the unit of its first part that is not 0 (also 90, 180 or 360 for degrees, the last one for all above);
/// 60 is written as 1 of the next unit. Minutes and seconds are first limited to 59. 0 stays; a negative part makes
/// the whole angle 0.
ZOR_API void RoundDegrees(Integer& Deg, Integer& Min, Integer& Sec, Boolean Up) noexcept;

}  // namespace ZOR_math1

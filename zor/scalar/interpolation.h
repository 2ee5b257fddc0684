#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Linear interpolation in tables.
/// Computed as a + (b - a) * f, so that f = 0 gives a exactly.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Value at x of a table of equally spaced values, the first of which stands at Low and the last at High; Low may be
/// greater than High. Outside, the first or last segment is extended. NaN if x, Low or High is NaN. Integer cells are
/// computed as Double.
/// Raises EZORMath1Error for fewer than two cells ("InterpolTable: pivot array must contain at least 2 values") and
/// for High = Low ("InterpolTable: specified range of pivot array is zero").
ZOR_API Double InterpolTable(Double x, Double Low, Double High, const TDoubleArray& Table);
ZOR_API Double InterpolTable(Double x, Double Low, Double High, const TIntArray& Table);

/// Value at x of a table of points: Table[0] holds their x, rising or falling, Table[1] their y. From the first and
/// from the last point on outward the first or last segment is extended if Extrapolate is set; else the result is 0.0,
/// also exactly at these two points. NaN for x = NaN. Two points with equal x divide by zero.
/// Raises EZORMath1Error for fewer than two points or columns of different length ("InterpolXYTable: pivot array must
/// contain at least 2 rows"), then for other than two columns ("InterpolXYTable: pivot array must contain 2 columns").
ZOR_API Double InterpolXYTable(Double x, const TDouble2DArray& Table, Boolean Extrapolate);

/// Bilinear interpolation: s from 0 to 1 leads from the pair (z1, z2) to the pair (z3, z4), t from the first to the
/// second of a pair.
ZOR_API Double InterpolZofXYRect(Double z1, Double z2, Double z3, Double z4, Double s, Double t) noexcept;

}  // namespace ZOR_math1

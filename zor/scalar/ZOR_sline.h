#pragma once

#include "zor/base/ZOR_zorbase.h"
#include "zor/scalar/ZOR_sline_fwd.h"
#include "zor/scalar/sline.h"

/// \file  Straight lines in the plane, A x + B y + C = 0, vertical ones among them.
/// Angles are in radians. A line is kept in the form in which it was built: the same line has many A, B, C, nothing is
/// normalised, and the sign of Distance depends on the form. A and B are not both 0. Failures raise EZORSLineError,
/// which is no EZORError, and leave the line as it was. Lines have no events.
///
///     using namespace ZOR_sline;
///     TSLine roof, wall;
///     roof.LineFrom2Points(0, 3, 4, 5);
///     wall.LineFrom2Points(2, 0, 2, 9);
///     Double x, y;
///     if (roof.InterSection(&wall, x, y)) std::cout << x << ' ' << y << '\n';   // 2 4
///     std::cout << roof << '\n';                                                // -2 x + 4 y - 12 = 0

#pragma once

#include "zor/base/ZOR_zorbase.h"
#include "zor/scalar/ZOR_math1_fwd.h"
#include "zor/scalar/angle_text.h"
#include "zor/scalar/angles.h"
#include "zor/scalar/axis_scale.h"
#include "zor/scalar/bits.h"
#include "zor/scalar/byte_order.h"
#include "zor/scalar/date_text.h"
#include "zor/scalar/elementary.h"
#include "zor/scalar/exchange.h"
#include "zor/scalar/float_text.h"
#include "zor/scalar/geometry.h"
#include "zor/scalar/histogram_bin.h"
#include "zor/scalar/interpolation.h"
#include "zor/scalar/kahan_sum.h"
#include "zor/scalar/math1_errors.h"
#include "zor/scalar/number_scan.h"
#include "zor/scalar/number_theory.h"
#include "zor/scalar/polynomial.h"
#include "zor/scalar/radix_text.h"
#include "zor/scalar/random_deviates.h"
#include "zor/scalar/rounding.h"
#include "zor/scalar/selection.h"
#include "zor/scalar/sorted_list.h"
#include "zor/scalar/sorting.h"

/// \file  Mathematics on single numbers and on plain runs of cells.
/// Rounding and axis scales, compensated sums, number theory, elementary functions, polynomials, angles, points of the
/// plane, bits, random deviates, numbers as text and back; selection, sorting, sorted lists and interpolation in
/// tables. Cells count from 0, except in the forms that take an untyped pointer and a TVarKind, whose positions count
/// from 1. A routine raises only where it says so; all others take every argument: overflow gives an infinity, a
/// division by zero an infinity or NaN. Only GRandom and LongRand keep a state; all other routines may run on several
/// threads at once, each on cells of its own.
///
///     using namespace ZOR_math1;
///     Double first, step;
///     Word minor;
///     CalcScalePars(5, 2.5, 7.5, first, step, minor);
///     std::cout << first << ' ' << step << ' ' << minor << '\n';        // 3 1 5: ticks at 3, 4, 5, ...
///     TDoubleArray heights = {1.71, 1.83, 1.66};
///     SortArray(heights, true);
///     std::cout << heights[0] << ' ' << Round125(heights[2]) << '\n';   // 1.66 2
///     for (const Integer p : FindPrimeFactors(12)) std::cout << p << ' ';   // 2 2 3

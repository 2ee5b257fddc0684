#pragma once

#include <array>

#include "zor/analysis/math2_errors.h"
#include "zor/vectors/vector.h"

/// \file  Smoothing and derivatives by a window that moves along a signal.
///
/// Elements FirstElem to LastElem of SourceVec are read; the bounds are moved into the vector and exchanged if
/// reversed. Of a range of n elements the value at FirstElem + k goes to DestVec[k + 1]: the result lies in elements 1
/// to n of DestVec, wherever the range begins. DestVec keeps its size and its other elements; what does not fit is
/// dropped. The first and the last WinLen div 2 places, where the window would leave the range, repeat the value beside
/// them (0 where that lies beyond DestVec). DestVec may be SourceVec. One OnChange.
///
/// The window has an odd number of WinLen elements, and the range needs at least one more. Failures raise
/// EZORMath2Error: "<Routine>: " and "either SourceVec or DestVec is undefined", "specified range for ... is smaller
/// than the length of the ...", "length of ... is out of range", "length of ... must be odd"; the first that applies.
///
/// Values are plain sums from the centre of the window outwards, except for FirstDeriv, which adds from left to right.
/// Time: n WinLen, several values at once.

namespace ZOR_math2 {

using namespace ZOR_zorbase;
using ZOR_vector::TVector;

/// \name Tables of A. Savitzky and M. J. E. Golay, Anal. Chem. 36 (1964), 1627, with the corrections of J. Steinier et
/// al. (1972) Row (L - 5) / 2 belongs to the window length L = 5, 7, ..., 25. Column 0 is the norm, column 1 the weight
/// of the centre, column 1 + j that of the two elements at distance j.
/// @{
using TGolayTable = std::array<std::array<Integer, 14>, 11>;
/// Smoothing by a polynomial of degree 2 or 3.
extern ZOR_API const TGolayTable GolayPoly;
/// Second derivative of a polynomial of degree 2 or 3, for elements at distance 1.
extern ZOR_API const TGolayTable Golay2ndDeriv;
/// @}

/// Mean of the window. WinLen >= 3.
ZOR_API void MovingAverageSmooth(const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec,
                                 Integer WinLen);
/// Mean with weights that fall linearly from the centre to 0 just outside the window. WinLen >= 3.
ZOR_API void WeightedAverageSmooth(const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec,
                                   Integer WinLen);
/// Median of the window. WinLen >= 3. A NaN stays where it is when the window is sorted. ProcStat grows by the passes
/// of those sorts; MathFeedBackProc, if set, is called for each.
ZOR_API void MovingMedianSmooth(const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec,
                                Integer WinLen);
/// Value at the centre of the parabola (or cubic) that fits the window best. WinLen 5 to 25. Keeps parabolas and
/// cubics.
ZOR_API void PolynomialSmooth(const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec,
                              Integer WinLen);
/// Second derivative of that parabola, per square of the distance of two elements. WinLen 5 to 25.
ZOR_API void SecondDeriv(const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec,
                         Integer WinLen);
/// Slope of the straight line that fits the window best, per distance of two elements. WinLen 5 to 25.
ZOR_API void FirstDeriv(const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec,
                        Integer WinLen);

}  // namespace ZOR_math2

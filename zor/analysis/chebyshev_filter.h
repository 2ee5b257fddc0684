#pragma once

#include "zor/analysis/math2_errors.h"
#include "zor/matrices/matrix.h"
#include "zor/vectors/vector.h"

/// \file  Recursive Chebyshev filters.

namespace ZOR_math2 {

using namespace ZOR_zorbase;
using ZOR_matrix::TMatrix;
using ZOR_vector::TVector;

/// Coefficients of a recursive low-pass or high-pass filter with an even number of at most 20 poles.
///
/// CutOff is a fraction of the sampling rate, 0 to 0.5. Ripple is the height of the ripples of the passband in percent,
/// 0 to 29; 0 gives a Butterworth filter. At CutOff the response is 0.7071 of the ripple's peak; the gain is 1 at
/// frequency 0 (low-pass) or 0.5 (high-pass), which with Ripple > 0 is a valley between peaks of 1 / (1 - Ripple /
/// 100). Coeffs gets 2 columns and NPoles rows: row k holds the weight of the input (column 1) and of the output
/// (column 2) k elements before. OnChange, OnResize of a new size, OnChange. NPoles 0 or less, if even, gives A0 = 1
/// and fills Coeffs, whose size stays, with 0. A low-pass at 0 and a high-pass at 0.5 pass nothing: all coefficients
/// and A0 are 0.
///
/// The coefficients are those of one polynomial of degree NPoles, which loses digits where CutOff is low or high, up to
/// an unstable filter. Cut-offs of a low-pass where the response is right to 1e-3 for every Ripple (of a high-pass: 0.5
/// less these):
///
/// | Poles | 2, 4 | 6 | 8 | 10 | 12 | 14, 16 | 18, 20 |
/// |---|---|---|---|---|---|---|---|
/// | from | 0.001 | 0.005 | 0.02 | 0.05 | 0.05 | 0.1 | 0.15 |
/// | to | 0.499 | 0.495 | 0.49 | 0.48 | 0.47 | 0.45 | 0.43 |
///
/// Raises EZORMath2Error "CalcChebFilterCoeffs: " and "NPoles must be even", "NPoles must not be greater than 20",
/// "invalid Ripple value", "invalid cutoff frequency", "argument is undefined" (null Coeffs), in this order.
/// Source: S. W. Smith, The Scientist and Engineer's Guide to Digital Signal Processing, 1997, ch. 20.
ZOR_API void CalcChebFilterCoeffs(Integer NPoles, Boolean HighPass, Double CutOff, Double Ripple, Double& A0,
                                  TMatrix* Coeffs);

/// Runs a recursive filter with the coefficients of CalcChebFilterCoeffs forwards, then backwards: no phase shift, and
/// the square of the filter's magnitude response. Elements FirstElem to LastElem, bounds moved into SourceVec and
/// exchanged if reversed, go to the same places of DestVec, which keeps its size and may be SourceVec; what does not
/// fit is dropped. Elements outside the range are context, those outside the vector count as 0. One OnChange. A null
/// argument raises EZORMath2Error "ChebychevFilter: SourceVec, DestVec and/or Coeffs is undefined".
ZOR_API void ChebychevFilter(const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec, Double A0,
                             const TMatrix* Coeffs);

}  // namespace ZOR_math2

#pragma once

#include "zor/analysis/math2_errors.h"
#include "zor/matrices/matrix.h"

/// \file  Partial least squares.

namespace ZOR_math2 {

using namespace ZOR_zorbase;
using ZOR_matrix::TMatrix;
using ZOR_vector::TVector;

/// SIMPLS (S. de Jong, Chemom. Intell. Lab. Syst. 18 (1993), 251): predicts the m columns of Y from the p columns of X,
/// rows being objects, by NumFactors factors with scores of length 1. The columns are centred, with Flag also scaled to
/// unit variance. All results may be null:
///
/// | Result | Columns x rows | Holds |
/// |---|---|---|
/// | M1, M2 | factors x n | scores of X, of Y |
/// | M3, M4 | factors x p, x m | loadings of X, of Y |
/// | M5 | factors x p | weights; the largest magnitude of each is positive |
/// | M6 | m x (p + 1) | regression coefficients in units of the data, the constant last |
/// | V1, V2 | factors | share of the squares of X, of Y that a factor takes |
/// | M7 | m x n | the fitted Y |
///
/// Fewer factors come out where X or Y is used up. Throws EZORMath2Error "SimPLS: numbers of rows do not match" (also
/// for null), "SimPLS: invalid number of factors" unless 1 <= NumFactors <= min(n - 1, p).
ZOR_API void SimPLS(const TMatrix* X, const TMatrix* Y, Integer NumFactors, Boolean Flag, TMatrix* M1, TMatrix* M2,
                    TMatrix* M3, TMatrix* M4, TMatrix* M5, TMatrix* M6, TVector* V1, TVector* V2, TMatrix* M7);

}  // namespace ZOR_math2

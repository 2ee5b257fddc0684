#pragma once

#include "zor/analysis/math2_errors.h"
#include "zor/matrices/matrix.h"

/// \file  Linear least squares by singular values.
/// A deviation factor is the root of a diagonal cell of (A' A)^-1: times the residual standard deviation it is the
/// standard error of the coefficient. Singular values below 1e-14 times the largest count as 0; NearSingular tells of
/// them, and of all solutions the shortest is found. High powers of a variable that is far from 0 are near singular in
/// that sense: centre the variable.
///
/// The decomposition makes four feedback steps for each column and can be aborted; AbortMathProc is not cleared.
/// Results get their size here: one OnChange each, and OnResize. An argument may be a result as well.

namespace ZOR_math2 {

using namespace ZOR_zorbase;
using ZOR_matrix::TMatrix;
using ZOR_vector::TVector;

/// Solves U diag(W) V' X = B by a decomposition of SingValDecomp in the sense of least squares: X = V diag(1 / W) U' B;
/// where W is 0 nothing is added. Dev, which may be null, gets the deviation factors sqrt(sum over j of V(j, i)^2 /
/// W[j]^2). True; false, with nothing stored, for another object that is null and for sizes that do not fit.
ZOR_API Boolean SingValEquSolve(const TMatrix* U, const TMatrix* V, const TVector* W, const TVector* B, TVector* X,
                                TVector* Dev);

/// Solves InMat Coef = Y in the sense of least squares; a row of InMat is one equation. Dev, which may be null, gets
/// the deviation factors. InMat is overwritten by its left singular vectors. With fewer rows than columns NearSingular
/// becomes true, and Coef is the shortest of the exact solutions. False, with Coef and Dev as they were: aborted, not
/// converged, a cell that is not finite, another null object, or a Y that has not one element for each row.
ZOR_API Boolean MultiLinReg(TMatrix* InMat, const TVector* Y, TVector* Coef, TVector* Dev, Boolean& NearSingular);

}  // namespace ZOR_math2

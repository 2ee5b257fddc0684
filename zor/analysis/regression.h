#pragma once

#include "zor/analysis/math2_errors.h"
#include "zor/matrices/matrix.h"

/// \file  Linear regression on columns of a matrix, ridge regression and inflation of variances.
/// All go through singular values: four feedback steps for each column, AbortMathProc is not cleared. NearSingular
/// reports values below 1e-14 times the largest, which are left out. A deviation factor times the residual standard
/// deviation is the standard error of its coefficient. After an abort, or without convergence, all numbers are 0 and
/// NearSingular is true. Results get their size here and may be null but for Coef; matrices of data do not change.

namespace ZOR_math2 {

using namespace ZOR_zorbase;
using ZOR_matrix::TMatrix;
using ZOR_vector::TVector;

/// Least squares of column TargetCol on the columns of ColList, counted from 1, and a constant if IncludeConst. Coef
/// and Dev get an element for each column, in the order of the list, and the constant last. Value1: R squared (about
/// the mean with a constant, else about 0); Value2: residual standard deviation; Value3: F of the regression. Throws
/// EZORMath2Error "MultiLinReg: column index out of range" (also without any coefficient), "MultiLinReg: not enough
/// data points".
ZOR_API void MultiLinReg(const TMatrix* InMat, const TIntArray& ColList, Integer TargetCol, Boolean IncludeConst,
                         Double& Value1, Double& Value2, Double& Value3, TVector* Coef, TVector* Dev,
                         Boolean& NearSingular);

/// Ridge regression (A. E. Hoerl, R. W. Kennard, Technometrics 12 (1970), 55): least |Y - InMat b|^2 + RidgeFactor
/// |b|^2, the data as they are. Throws EZORMath2Error "RidgeReg: invalid ridge factor" (negative, NaN) and "RidgeReg:
/// numbers of rows do not match", also for null objects.
ZOR_API void RidgeReg(const TMatrix* InMat, const TVector* Y, Double RidgeFactor, TVector* Coef, TVector* Dev,
                      Boolean& NearSingular);

/// RidgeReg of columns and Y scaled to mean 0 and standard deviation 1. V1: coefficients in units of the data, the
/// constant last; V2: their deviation factors; V3, V4: coefficients and factors of the scaled form. The coefficient of
/// a constant column is 0. Throws as RidgeReg, as "RidgeRegStd: ...".
ZOR_API void RidgeRegStd(const TMatrix* InMat, const TVector* Y, Double RidgeFactor, TVector* V1, TVector* V2,
                         TVector* V3, TVector* V4, Boolean& NearSingular);

/// VIF[j] = 1 / (1 - R^2) of listed column j on the other listed ones and a constant; an empty list means all
/// columns. 1.0 for a single column; uc_MaxDouble for a constant column, one that the others determine, and too few
/// rows. Feedback gets whole per cent behind each column, without a sender. Throws EZORMath2Error "VarInflatFactor:
/// column index out of range", also for null.
ZOR_API void VarInflatFactor(const TMatrix* InMat, const TIntArray& ColList, TDoubleArray& VIF,
                             const TOnPercentDoneEvent& Feedback = {});

}  // namespace ZOR_math2

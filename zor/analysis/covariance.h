#pragma once

#include "zor/analysis/math2_errors.h"
#include "zor/matrices/matrix.h"

/// \file  Covariance, correlation and their like, of the columns of a matrix.

namespace ZOR_math2 {

using namespace ZOR_zorbase;
using ZOR_matrix::TMatrix;

/// Puts into the top left cells of CovMat, which keeps its size and needs a column and a row for each column of the
/// range, a symmetric matrix of the columns x_i of a range of n rows; (0, 0) means all columns or rows.
///
/// | Mode | Cell (i, j) |
/// |---|---|
/// | 0 | raw second moment: sum of x_i x_j / (n - 1) |
/// | 1 | covariance: sum of (x_i - mean_i) (x_j - mean_j) / (n - 1) |
/// | 2 | correlation; 1.0 on the diagonal, 0.0 beside it where a column is constant |
/// | 3 | square of the correlation; 0.0 where a column is constant, also on the diagonal |
/// | 4 | sum of (x_i - x_j)^2 / (n - 1) |
/// | else | 0 |
///
/// Means and variances come from sums with twice the precision; the sums of products run down the rows and may fuse
/// multiplication and addition, see zor/portable_kernels.h. AbortMathProc is cleared at first; then one feedback step
/// for each row in the modes above 0, and one of n for each cell up to the diagonal, row after row, behind which the
/// computation can be aborted: the cells up to there are stored. One OnChange. False after an
/// abort; also, with nothing stored, for a null object, CovMat too small or equal to InMat, a range that is not inside
/// InMat, or one of a single row.
ZOR_API Boolean CalcCovar(const TMatrix* InMat, TMatrix* CovMat, Integer FirstCol, Integer LastCol, Integer FirstRow,
                          Integer LastRow, Integer Mode);

}  // namespace ZOR_math2

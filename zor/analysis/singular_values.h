#pragma once

#include "zor/analysis/math2_errors.h"
#include "zor/matrices/matrix.h"

/// \file  Singular values of a matrix and its pseudo-inverse.
/// Both make four feedback steps for each column and can be aborted; AbortMathProc is not cleared. Memory that cannot
/// be had raises EOutOfMemory. For the method and its accuracy see docs/design/multivariate.md.

namespace ZOR_math2 {

using namespace ZOR_zorbase;
using ZOR_matrix::TMatrix;
using ZOR_vector::TVector;

/// Decomposes U = U diag(W) V' (G. H. Golub, C. Reinsch, 1970). U, n columns and m rows, gets the left singular
/// vectors, V (n x n) the right ones in its columns, W the n singular values, none negative, in no order. Columns of U
/// and of V have length 1 and are orthogonal to one another. m < n is allowed: rows of 0 are thought of below U, n - m
/// values are 0 up to rounding, and U gets the upper m rows of its vectors. One OnChange each, and OnResize.
/// False, with nothing stored: aborted, a cell that is not finite, a null object, or two that are the same. Also false
/// if a value did not converge in 30 steps: what was found is stored then.
ZOR_API Boolean SingValDecomp(TMatrix* U, TMatrix* V, TVector* W);

/// PInv = V diag(1 / W) U', the inverse in the sense of Moore and Penrose, of as many columns as InMat has rows. Values
/// of W up to Threshold count as 0; a Threshold of 0 stands for max(columns, rows) * largest value * 1.2e-16. PInv may
/// be InMat. False if the decomposition failed, with all cells of PInv 0; or for a null object.
ZOR_API Boolean PseudoInverse(const TMatrix* InMat, TMatrix* PInv, Double Threshold);

}  // namespace ZOR_math2

#pragma once

#include "zor/analysis/math2_errors.h"
#include "zor/matrices/matrix.h"

/// \file  Eigenvectors of symmetric matrices and principal components.
/// The last result lies in one store of the program: read it before the next call, and from one thread. (To have
/// eigenvectors of your own, quicker, see EigenDecomposition of ZOR_openarrays.)

namespace ZOR_math2 {

using namespace ZOR_zorbase;
using ZOR_matrix::TMatrix;

/// Eigenvalues, in no order, and eigenvectors of length 1 of a symmetric matrix by Jacobi rotations. Only the cells
/// with column >= row are read; those with column > row are lost: one OnChange. AbortMathProc is cleared; then one
/// feedback step for each sweep and each pair of columns. False after an abort or 100 sweeps, with the state reached in
/// the store; false with the store as it was for null, fewer rows than columns, or more than 10000 columns. Throws
/// EZORMath2Error "CalcEigVec: not enough memory".
ZOR_API Boolean CalcEigVec(TMatrix* Mat);
/// iy = 0: eigenvalue ix; 1 to GetEigenSize(): component iy of eigenvector ix. 0.0 outside and from an empty store.
ZOR_API Double GetEigenResult(Integer ix, Integer iy) noexcept;
/// Columns of the last matrix, also behind RemoveEigenMatrix.
ZOR_API Integer GetEigenSize() noexcept;
/// Empties the store.
ZOR_API void RemoveEigenMatrix() noexcept;

/// Principal components of a range: the eigenvectors of its matrix of CalcCovar (Mode as there), by falling
/// eigenvalues, in the store; those not above 0 keep their places. With Normalize the values are shares of their sum of
/// magnitudes. FirstCol and LastCol must be given: (0, 0) does not mean all columns here. False if CalcCovar or
/// CalcEigVec fails.
ZOR_API Boolean CalcPrincComp(const TMatrix* InMat, Integer FirstCol, Integer LastCol, Integer FirstRow,
                              Integer LastRow, Integer Mode, Boolean Normalize);
ZOR_API Boolean CalcPrincComp(const TMatrix* InMat, Integer FirstCol, Integer LastCol, Integer FirstRow,
                              Integer LastRow, Integer Mode);

}  // namespace ZOR_math2

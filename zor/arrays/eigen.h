#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Eigenvalues and eigenvectors of a matrix.

namespace ZOR_openarrays {

inline constexpr Integer kNotSymmetric = -2;     ///< A cell is not finite, or A is not symmetric although Flag says so.
inline constexpr Integer kValuesInVectors = -2;  ///< Values is a column of Vectors, which would take its cells away.
inline constexpr Integer kComplexValues = -3;    ///< A has complex eigenvalues.
inline constexpr Integer kNoConvergence = -4;    ///< The iteration has not come to an end.

/// Eigenvalues and eigenvectors of the square matrix A, A[col][row]: A Vectors[i] = Values[i] Vectors[i]. The values
/// fall; equal ones are kept in the order in which the method finds them. Each vector has length 1; of its components
/// that have the largest magnitude, to within 1e-8 of it, the first one is positive.
///
/// With Flag True A must be symmetric, and cells that lie opposite to each other may differ by 1e-12 of the largest
/// magnitude; their mean is taken. With Flag False A may be any matrix with real eigenvalues; one that is symmetric to
/// the last bit goes the symmetric way. The symmetric way gives orthogonal vectors, and values with an error of a small
/// multiple of 2^-53 times the largest of them; the general one solves the equation to within such an error of the norm
/// of A. A pair of complex eigenvalues that rounding errors could have made of two equal real ones counts as these; a
/// matrix that lacks vectors (as ((1, 1), (0, 1)) does) gets nearly equal ones for equal values.
///
/// Vectors may be A, and Values a column of A if Vectors is not. Results: 0; kEmptyArray if A is empty or not square;
/// kNotSymmetric; kValuesInVectors; kComplexValues; kNoConvergence. On a negative code nothing is touched. Methods:
/// Martin, Reinsch, Wilkinson, Householder's tridiagonalization of a symmetric matrix, 1968; Francis, The QR
/// transformation, 1961.
///
///     TDouble2DArray vectors;  TDoubleArray values;
///     EigenDecomposition({{2, 1}, {1, 2}}, true, vectors, values);   // values = {3, 1}
ZOR_API Integer EigenDecomposition(const TDouble2DArray& A, Boolean Flag, TDouble2DArray& Vectors,
                                   TDoubleArray& Values);

}  // namespace ZOR_openarrays

#pragma once

#include "zor/base/ZOR_zorbase.h"
#include "zor/matrices/matrix.h"
#include "zor/vectors/vector.h"

/// \file  Scatter between and within classes, and the distance of Mahalanobis.

namespace ZOR_math2 {

using namespace ZOR_zorbase;

/// Results of ClassScatterMatrices.
inline constexpr Integer kOtherNumberOfObjects = -1;  ///< Classes has another length, or Data is empty or ragged.
inline constexpr Integer kBadClassNumber = -2;        ///< A class is not in 1 to the number of objects.
inline constexpr Integer kEmptyClass = -3;            ///< A class is empty though one behind it is not.

/// Data[v][k] is variable v of object k, Classes[k] the class of object k, counted from 1. In the results the first
/// index is the variable, the second the class: numbers of objects, means, variances (n - 1; 0.0 of a class of one
/// object), and the scatter matrices between classes, Sb = sum of count (mean - m)(mean - m)', and within, Sw = sum of
/// (x - mean)(x - mean)'. 0, or a code with NumClasses 0 and the other results as they were.
ZOR_API Integer ClassScatterMatrices(const TDouble2DArray& Data, const TIntArray& Classes, Integer& NumClasses,
                                     TIntArray& ClassCount, TDouble2DArray& ClassMeans, TDouble2DArray& ClassVars,
                                     TDouble2DArray& Sb, TDouble2DArray& Sw);

/// sqrt((V1 - V2)' InvCov (V1 - V2)). Throws EZORVectorError "MahalanobisDistance: " + "dimensions of vectors do not
/// match", "inverse covariance matrix is not quadratric", "dimension of vectors and inverse covariance matrix do not
/// match", "the inverse covariance matrix must be symmetric and positive definite" (the squared distance is negative).
/// Null counts as size 0.
ZOR_API Double MahalanobisDistance(const ZOR_vector::TVector* V1, const ZOR_vector::TVector* V2,
                                   const ZOR_matrix::TMatrix* InvCov);

}  // namespace ZOR_math2

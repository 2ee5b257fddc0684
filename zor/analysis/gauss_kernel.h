#pragma once

#include "zor/analysis/math2_errors.h"
#include "zor/matrices/matrix.h"
#include "zor/vectors/vector.h"

/// \file  Nearness of objects by a Gaussian function of their distance.

namespace ZOR_math2 {

using namespace ZOR_zorbase;
using ZOR_matrix::TMatrix;
using ZOR_vector::TVector;

/// exp(-s), s = sum of (V1[i] - V2[i])^2 over the elements of V2, divided by Sigma^2, at most 20: never below 2e-9.
/// There is no factor 1/2. What V1 lacks counts as 0. Objects at distance 0 give 1, others with Sigma = 0 and sums that
/// are NaN exp(-20); 0.0 for a null argument.
ZOR_API Double CalcGaussKernel(const TVector* V1, const TVector* V2, Double Sigma);
/// The same between V and a row of M, over the columns of M. A row outside counts as zeros.
ZOR_API Double CalcGaussKernelMat(const TVector* V, const TMatrix* M, Integer Row, Double Sigma);

}  // namespace ZOR_math2

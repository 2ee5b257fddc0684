#pragma once

#include <cstddef>

#include "zor/export.h"
#include "zor/kernels/steps.h"

/// \file  Cyclic Jacobi rotations of a symmetric matrix (H. Rutishauser, Numer. Math. 9 (1966), 1): slower than
/// symmetric_eigen, with the rotations and steps in a fixed order.

namespace zor::kernels {

/// Leaves the eigenvalues in values and in vectors[j] the vector of length 1 that belongs to values[j]. Only the cells
/// a[q][p], q >= p, are read; those above the diagonal are lost. `work` has 2 n cells. One step for each sweep and one
/// for each pair p < q; where a step asks for an end, the pair at hand is finished. False then, and after 100 sweeps.
ZOR_API bool jacobi_eigen(double* const* a, std::size_t n, double* values, double* const* vectors, double* work,
                          StepAborts step);

}  // namespace zor::kernels

#pragma once

#include <cstddef>

#include "zor/export.h"

/// \file  Eigenvalues and eigenvectors of a real symmetric matrix: reflections to tridiagonal form, then implicit QL
/// steps (Martin, Reinsch, Wilkinson, 1968; Dubrulle, Martin, Wilkinson, The implicit QL algorithm, 1968). The error of
/// each value is a small multiple of 2^-53 times the one of largest size. Matrices whose squares would leave the range
/// of numbers are scaled by a power of 2. At most 50 steps are made for each value on average. All levels give the same
/// bits.

namespace zor::kernels {

constexpr std::size_t symmetric_eigen_work(std::size_t n) noexcept { return (4 + 32) * n + 1; }

/// The n eigenvalues, in the order in which the method finds them, and in column k of a the vector of length 1 that
/// belongs to values[k]; these vectors are orthogonal. a, n columns of n cells, holds the symmetric matrix before.
/// `work` has the cells named above. False if a cell is not finite (the values are NaN then and a is as it was), or if
/// a value did not converge.
ZOR_API bool symmetric_eigen(double* const* a, std::size_t n, double* values, double* work) noexcept;

}  // namespace zor::kernels

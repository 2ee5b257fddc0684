#pragma once

#include <cstddef>

#include "zor/export.h"

/// \file  Real eigenvalues and eigenvectors of a square matrix: balancing (Parlett, Reinsch, 1969), reflections to
/// Hessenberg form, double-shift QR steps (Francis, 1961; Martin, Peters, Wilkinson, 1970), vectors by
/// back-substitution. A pair of complex eigenvalues ends the work, unless a change of the matrix within its rounding
/// errors (8 n 2^-52 of its norm) makes the pair real and equal: repeated eigenvalues come out of rounding as such
/// pairs. At most 60 steps are made for each value. All levels give the same bits.

namespace zor::kernels {

enum class EigenState { found, not_finite, complex_values, not_converged };

constexpr std::size_t general_eigen_work(std::size_t n) noexcept { return 3 * n; }

/// The n eigenvalues, in the order in which the method finds them, and in column k of z the vector of length 1 that
/// belongs to values[k]. a, n columns of n cells, holds the matrix and is destroyed; z has n columns of n cells. `work`
/// has the cells named above, `exchanges` n. Where not all eigenvalues are found the results mean nothing.
ZOR_API EigenState general_eigen(double* const* a, std::size_t n, double* values, double* const* z, double* work,
                                 std::size_t* exchanges) noexcept;

}  // namespace zor::kernels

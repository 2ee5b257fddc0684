#pragma once

#include <cstddef>

#include "zor/export.h"
#include "zor/kernels/steps.h"

/// \file  Singular values and vectors of a matrix (Golub, Kahan, 1965; Golub, Reinsch, Singular value decomposition and
/// least squares solutions, 1970): reflections to bidiagonal form, then sweeps of implicit shifted QR steps.
/// Columns are given by pointers, a[c][r] is the cell in row r of column c; m rows, n columns, m >= n. A matrix with
/// many more rows than columns is reduced to its triangular factor first (Chan, 1982). The error of each value is a
/// small multiple of 2^-53 times the largest one. Matrices of any size of cells are scaled by a power of 2 where
/// squares would leave the range of numbers. At most 30 sweeps are made for each value. All levels give the same bits.

namespace zor::kernels {

/// Cells of `work` for the two functions.
constexpr std::size_t singular_values_work(std::size_t n) noexcept { return 4 * n; }
constexpr std::size_t singular_value_decomposition_work(std::size_t n) noexcept { return (4 + 64) * n; }

/// The n singular values, none negative, in the order in which the method finds them; a is destroyed. False if a cell
/// is not finite (the values are NaN then), or if a value did not converge in 30 sweeps.
ZOR_API bool singular_values(double* const* a, std::size_t m, std::size_t n, double* values, double* work) noexcept;

/// a = U diag(values) V': u holds a and gets U, m x n with orthonormal columns; v, n x n, gets the orthogonal V.
/// `square` are n columns of n cells to work in. Results as above; where a cell is not finite u is as it was, and v is
/// not written.
ZOR_API bool singular_value_decomposition(double* const* u, std::size_t m, std::size_t n, double* values,
                                          double* const* v, double* const* square, double* work) noexcept;

/// How a decomposition with steps ended: with all values; with some that did not converge, everything else as it came;
/// at a cell that is not finite; by a step, with u lost.
enum class Decomposed { done, not_converged, not_finite, aborted };

/// The same with 4 n steps: one for each column in the reduction of u, in the accumulation of V, in that of U, and in
/// the search for each value.
ZOR_API Decomposed singular_value_decomposition(double* const* u, std::size_t m, std::size_t n, double* values,
                                                double* const* v, double* const* square, double* work, StepAborts step);

}  // namespace zor::kernels

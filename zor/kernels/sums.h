#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "zor/export.h"

/// \file  Sums and products of cells in the order told.
/// The functions named `_in_order` carry one chain, with the bits of the plain loop `s = start; s += term(0); s +=
/// term(1); ...`; hand the result of one run as `start` of the next to sum over several runs. Both spans of a call have
/// the same length. For sums with twice the precision see moments.h.

namespace zor::kernels {

/// Sum of x[i].
ZOR_API double sum_in_order(std::span<const double> x, double start = 0.0) noexcept;

/// Sum of x[i] * y[i]. With subspans of two series this is their lag product.
ZOR_API double dot_in_order(std::span<const double> x, std::span<const double> y, double start = 0.0) noexcept;

/// Sum of x[i * x_stride] * y[i * y_stride] for i < n: rows of matrices whose columns lie one behind the other.
ZOR_API double dot_strided_in_order(const double* x, std::ptrdiff_t x_stride, const double* y, std::ptrdiff_t y_stride,
                                    std::size_t n, double start = 0.0) noexcept;

/// Sum of x[i * stride] for i < n.
ZOR_API double sum_strided_in_order(const double* x, std::ptrdiff_t stride, std::size_t n, double start = 0.0) noexcept;

/// Sum of x[i] * x[i].
ZOR_API double sum_of_squares_in_order(std::span<const double> x, double start = 0.0) noexcept;

/// Sum of (x[i] - y[i]) * (x[i] - y[i]): the squared Euclidean distance.
ZOR_API double squared_distance_in_order(std::span<const double> x, std::span<const double> y,
                                         double start = 0.0) noexcept;

/// Sum of x[i], wrapping around at 32 bits.
ZOR_API std::int32_t sum_wrapping(std::span<const std::int32_t> x) noexcept;

/// Sum of x[i] * y[i], wrapping around at 32 bits.
ZOR_API std::int32_t dot_wrapping(std::span<const std::int32_t> x, std::span<const std::int32_t> y) noexcept;

/// Exact sum of x[i] in 64 bits.
ZOR_API std::int64_t sum_wide(std::span<const std::int32_t> x) noexcept;

}  // namespace zor::kernels

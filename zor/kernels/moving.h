#pragma once

#include <cstddef>
#include <span>

#include "zor/export.h"

/// \file  Values of a window that moves along a signal by one cell at a time.
/// out[i] belongs to the window x[i] to x[i + length - 1]; x has out.size() + length - 1 cells, none of which may be a
/// cell of out. Lanes run across positions: each value has the bits of the plain loop.

namespace zor::kernels {

/// factor * s / divisor with s = w[0] c + w[1] (x[+1] + x[-1]) + w[2] (x[+2] + x[-2]) + ..., added in this order; c is
/// the centre of the window, whose length is 2 weights.size() - 1.
ZOR_API void moving_symmetric(std::span<const double> x, std::span<const double> weights, double factor, double divisor,
                              std::span<double> out) noexcept;

/// (0 + w[0] x[0] + w[1] x[1] + ...) / divisor over the cells of the window, whose length is weights.size().
ZOR_API void moving_weighted(std::span<const double> x, std::span<const double> weights, double divisor,
                             std::span<double> out) noexcept;

/// The middle one of an odd number of cells; no cell may be NaN, and zeros of both signs count as equal. `work` has
/// room for one window. Time for each value: proportional to length^2 / lanes in short windows, to length in long ones.
ZOR_API void moving_median(std::span<const double> x, std::size_t length, std::span<double> out,
                           std::span<double> work) noexcept;

}  // namespace zor::kernels

#pragma once

#include <cstddef>
#include <span>

#include "zor/export.h"

/// \file  Complex transform of a power-of-two length in place, radix 2, decimation in time, without scaling. Samples
/// are interleaved: the real part of sample k in cell 2k, its imaginary part in cell 2k + 1.
///
/// The bits are those of the plain loops, stage after stage: two stages share a sweep and blocks are finished depth
/// first, but each sample meets the same operations in the same order.

namespace zor::kernels {

/// Twiddle factors of all stages of n samples, 2n cells: that of butterfly j of the stage with blocks of 2h samples
/// stands at sample h + j. Each stage runs w += w (exp(i theta) - 1), theta = sign pi / h, from two sines.
ZOR_API void make_twiddles(std::span<double> twiddles, int sign) noexcept;

/// Transforms the samples with the sign that the twiddles of their number were made for.
ZOR_API void transform_radix2(std::span<double> samples, std::span<const double> twiddles) noexcept;

}  // namespace zor::kernels

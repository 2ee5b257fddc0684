#pragma once

#include <cstddef>
#include <span>

#include "zor/export.h"
#include "zor/kernels/levels/wavelet.h"

/// \file  Steps of the discrete wavelet transform of a block whose length is a power of two.
/// A forward step on p cells puts p / 2 smooth values in front and p / 2 details behind. Smooth value and detail i
/// belong to the places 2 i + 2 - L + k of the block, k = 0 .. L - 1, L the length of the filters: places left of the
/// block occur, places right of it do not. The bits are those of the plain loop over i, then k, with sums from 0.0.

namespace zor::kernels {

/// Where a place left of the block leads: to its right end, nowhere, to its mirror image within the block.
enum class LeftEdge { wrap, zero, mirror };

struct WaveletFilters {
  FilterPair pair;
  LeftEdge edge;
};

/// `steps` steps, at most log2 of the length, each on the smooth half that the one before left. The work array holds
/// half as many cells as the block: smooth values go into the one and the other array in turn, details straight to
/// their last place.
ZOR_API void wavelet_forward(std::span<double> block, std::size_t steps, const WaveletFilters& filters,
                             std::span<double> work) noexcept;

/// `steps` inverse steps, at most log2 of the length, the last of them on the whole block, each one before on half as
/// many cells as the next.
ZOR_API void wavelet_inverse(std::span<double> block, std::size_t steps, const WaveletFilters& filters,
                             std::span<double> work) noexcept;

}  // namespace zor::kernels

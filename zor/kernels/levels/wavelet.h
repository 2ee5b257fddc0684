#pragma once

#include <cstddef>

/// \file  What levels/wavelet.cpp offers at each level: the cells of a step that lie far from both edges.

namespace zor::kernels {

/// Length of the longest filter.
inline constexpr std::size_t kLongestFilter = 6;
/// Values of a half block that belong to its left edge in a forward step.
inline constexpr std::size_t kForwardEdge = kLongestFilter / 2 - 1;
/// Cells at either end of a block that belong to the edges in an inverse step.
inline constexpr std::size_t kInverseEdge = kLongestFilter - 2;

/// Low-pass and high-pass filter of `length` 2, 4 or 6.
struct FilterPair {
  const double *low, *high;
  std::size_t length;
};

struct WaveletTable {
  /// smooth[i] and detail[i] from cells[2 i + 2 - length .. 2 i + 1], for i from kForwardEdge to half - 1, downwards:
  /// detail may be cells + half.
  void (*forward)(const double* cells, std::size_t half, double* smooth, double* detail, FilterPair filters);
  /// cells[x] from smooth and detail, for x from kInverseEdge to 2 half - kInverseEdge - 1, upwards: detail may be
  /// cells + half.
  void (*inverse)(const double* smooth, const double* detail, std::size_t half, double* cells, FilterPair filters);
};

}  // namespace zor::kernels

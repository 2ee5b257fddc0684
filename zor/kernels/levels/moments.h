#pragma once

#include <cstddef>

#include "zor/kernels/moments.h"

/// \file  The inner loops of moments.h, on whole blocks of kPartialSums cells.

namespace zor::kernels {

struct MomentsTable {
  /// Adds cells to `sum` and their squares to `squares`.
  void (*moments)(const double* x, std::size_t blocks, PartialSums& sum, PartialSums& squares);
  void (*sum)(const double* x, std::size_t blocks, PartialSums& sum);
  void (*dot)(const double* x, const double* y, std::size_t blocks, PartialSums& sum);
  /// Whether n cells have the bits of `value`.
  bool (*same_bits)(const double* x, std::size_t n, double value);
};

}  // namespace zor::kernels

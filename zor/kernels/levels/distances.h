#pragma once

#include <cstddef>

/// \file  The inner loops of distances.h.

namespace zor::kernels {

/// The columns of all features.
struct Features {
  const double* const* columns;
  std::size_t count;
};

struct DistancesTable {
  void (*euclidean)(Features features, std::size_t i0, std::size_t rows, std::size_t j0, std::size_t cols, bool root,
                    double* out, std::size_t stride);
};

}  // namespace zor::kernels

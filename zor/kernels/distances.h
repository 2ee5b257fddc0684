#pragma once

#include <cstddef>
#include <span>

#include "zor/export.h"

/// \file  Distances of objects whose features are columns: feature k of object i is columns[k][i].

namespace zor::kernels {

/// out[i * stride + j] = sum over the columns k of (columns[k][i0 + i] - columns[k][j0 + j])^2, or its square root, for
/// i < rows and j < cols. Each sum takes the columns in order and fuses nothing.
ZOR_API void euclidean(std::span<const double* const> columns, std::size_t i0, std::size_t rows, std::size_t j0,
                       std::size_t cols, bool root, double* out, std::size_t stride) noexcept;

}  // namespace zor::kernels

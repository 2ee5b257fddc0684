#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "zor/export.h"

/// \file  Cells moved to other places, unchanged.

namespace zor::kernels {

/// out[i] = x[i]. Runs of cells that are near are copied faster than by memmove, which keeps them out of the cache. The
/// runs have one length and are the same or apart.
ZOR_API void copy(std::span<const double> x, std::span<double> out) noexcept;

/// Turns the order of the cells around.
ZOR_API void reverse(std::span<double> x) noexcept;
ZOR_API void reverse(std::span<std::int32_t> x) noexcept;

/// rows[r][c] = columns[c][r] for c < n_columns, r < n_rows. Nothing that is written may be read.
ZOR_API void transpose(const double* const* columns, std::size_t n_columns, double* const* rows,
                       std::size_t n_rows) noexcept;

}  // namespace zor::kernels

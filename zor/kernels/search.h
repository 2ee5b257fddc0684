#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "zor/export.h"

/// \file  Searching and comparing runs of cells. Indices count from 0, kNone stands for "none".
/// Cells are compared with ==: NaN equals nothing, the two zeros are equal.

namespace zor::kernels {

inline constexpr std::size_t kNone = static_cast<std::size_t>(-1);

/// Index of the first cell equal to `value`, else kNone.
ZOR_API std::size_t find_equal(std::span<const double> x, double value) noexcept;
ZOR_API std::size_t find_equal(std::span<const std::int32_t> x, std::int32_t value) noexcept;

/// Number of cells equal to `value`.
ZOR_API std::size_t count_equal(std::span<const double> x, double value) noexcept;
ZOR_API std::size_t count_equal(std::span<const std::int32_t> x, std::int32_t value) noexcept;

/// Looks for the smallest |x[i] - value| below `difference`, of equal ones the first. Where there is one, stores it in
/// `difference` and returns its index, else kNone: so several runs are searched one after the other. A NaN is never
/// near. Differences of integers are taken in 64 bits.
ZOR_API std::size_t nearest(std::span<const double> x, double value, double& difference) noexcept;
ZOR_API std::size_t nearest(std::span<const std::int32_t> x, std::int32_t value, std::int64_t& difference) noexcept;

/// Whether every cell equals the first one. True for no cell; false for NaN.
ZOR_API bool all_equal(std::span<const double> x) noexcept;
ZOR_API bool all_equal(std::span<const std::int32_t> x) noexcept;

/// Index of the first i with x[i] != y[i], else kNone. Both have the same length.
ZOR_API std::size_t first_difference(std::span<const double> x, std::span<const double> y) noexcept;
ZOR_API std::size_t first_difference(std::span<const std::int32_t> x, std::span<const std::int32_t> y) noexcept;

/// Whether x and y have the same length and equal cells.
ZOR_API bool equal(std::span<const double> x, std::span<const double> y) noexcept;
ZOR_API bool equal(std::span<const std::int32_t> x, std::span<const std::int32_t> y) noexcept;

}  // namespace zor::kernels

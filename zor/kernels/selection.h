#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "zor/export.h"

/// \file  The k-th smallest of a run of cells without sorting it.
///
/// The cells are work space: they come back as some permutation of what they were, so callers hand over a private copy.
/// Ranks count from 0, and a rank beyond the last cell means the last cell; of no cells every value is 0. A value is
/// the very cell that a full ascending sort would put at its rank; among zeros of both signs, which are equal, it may
/// be any of them. A NaN counts as greater than every number. The time is proportional to the number of cells for
/// every input, equal and hostile cells included.

namespace zor::kernels {

/// Value at rank k of the ascending order.
ZOR_API double select_kth(std::span<double> cells, std::size_t k) noexcept;
ZOR_API std::int32_t select_kth(std::span<std::int32_t> cells, std::size_t k) noexcept;

/// Two neighbours of the ascending order, as percentiles between two cells need them.
template <class T>
struct Neighbours {
  T lower;
  T upper;
};

/// Values at the ranks k and k + 1.
ZOR_API Neighbours<double> select_pair(std::span<double> cells, std::size_t k) noexcept;
ZOR_API Neighbours<std::int32_t> select_pair(std::span<std::int32_t> cells, std::size_t k) noexcept;

/// values[j] = value at rank ranks[j]. The ranks are in ascending order (equal ones allowed), `values` is at least as
/// long. Ranks that lie close together cost little more than one.
ZOR_API void select_many(std::span<double> cells, std::span<const std::size_t> ranks,
                         std::span<double> values) noexcept;
ZOR_API void select_many(std::span<std::int32_t> cells, std::span<const std::size_t> ranks,
                         std::span<std::int32_t> values) noexcept;

/// Value at rank k; no cell moves and nothing is allocated. Bisects the bit patterns in up to 65 sweeps over the cells.
ZOR_API double select_unmoved(std::span<const double> cells, std::size_t k) noexcept;
ZOR_API std::int32_t select_unmoved(std::span<const std::int32_t> cells, std::size_t k) noexcept;

/// Value at index k if the cells lo to hi were sorted ascending, by quickselect with the middle cell as pivot.
/// The order in which the cells come back is that of the plain algorithm: nothing moves if all cells of the range are
/// equal; otherwise lo to hi is partitioned about the cell at (lo + hi) div 2 by one upward scan, and the part that
/// holds k is partitioned again. Use select_kth where this order does not matter: many equal cells make this form
/// quadratic. lo and hi are clipped to the cells; an empty range gives 0.0. k below lo counts as lo; k above hi gives
/// the value that stood at lo. Comparisons with a NaN are false: the result is then one of the cells.
ZOR_API double quick_select(std::span<double> cells, std::int64_t k, std::int64_t lo, std::int64_t hi) noexcept;

}  // namespace zor::kernels

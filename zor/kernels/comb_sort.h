#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

#include "zor/export.h"

/// \file  The comb sort of the library: bits and number of passes are those of the plain loop.
///
/// A sort starts from a gap that no pass uses (the number of cells, or one less) and shrinks it before each pass:
///
///     do {
///       gap = next_comb_gap(gap);
///       for (i = 0; i + gap < n; ++i)
///         if (cells[i] > cells[i + gap]) exchange them;                  // descending: cells[i] < cells[i + gap]
///     } while (gap > 1 || something was exchanged in this pass);
///
/// Only a pair that is strictly out of order is exchanged: equal cells, zeros of both signs among them, stay, and a NaN
/// never moves. The sort works in place, without allocation, and is not stable. Fewer than two cells, or a starting
/// gap of 0, give no pass at all. Indices count from 0.
/// Source: W. Dobosiewicz, An efficient variation of bubble sort, Inf. Process. Lett. 11 (1980).

namespace zor::kernels {

/// The gap that follows `gap`: max(1, floor(gap * 10 / 13)), for every size without overflow.
constexpr std::size_t next_comb_gap(std::size_t gap) noexcept {
  const std::size_t next = gap / 13 * 10 + gap % 13 * 10 / 13;
  return next < 1 ? 1 : next;
}

/// Passes of a sort that finds n cells in order, starting from gap n: the fewest that it can take.
constexpr std::size_t fewest_comb_passes(std::size_t n) noexcept {
  std::size_t passes = 0;
  if (n > 1) {
    for (std::size_t gap = n; gap > 1 || passes == 0; ++passes) gap = next_comb_gap(gap);
  }
  return passes;
}

/// Sorts the cells; returns the number of passes that the plain loop makes.
/// Several passes run at once through the cache; use comb_pass where something has to happen between passes.
ZOR_API std::size_t comb_sort(std::span<double> cells, std::size_t start_gap, bool ascending) noexcept;
ZOR_API std::size_t comb_sort(std::span<float> cells, std::size_t start_gap, bool ascending) noexcept;
ZOR_API std::size_t comb_sort(std::span<std::int32_t> cells, std::size_t start_gap, bool ascending) noexcept;

/// Sorts the keys and makes each exchange in `companions`, of the same length, too.
ZOR_API std::size_t comb_sort_pairs(std::span<double> keys, std::span<std::int64_t> companions, std::size_t start_gap,
                                    bool ascending) noexcept;

/// One pass with the given gap (at least 1); returns whether anything was exchanged.
ZOR_API bool comb_pass(std::span<double> cells, std::size_t gap, bool ascending) noexcept;
ZOR_API bool comb_pass(std::span<float> cells, std::size_t gap, bool ascending) noexcept;
ZOR_API bool comb_pass(std::span<std::int32_t> cells, std::size_t gap, bool ascending) noexcept;

/// The same pass over anything that can be compared and exchanged by index: `out_of_order(i, j)` with j = i + gap
/// decides, `exchange(i, j)` acts at once. Returns whether anything was exchanged.
template <class OutOfOrder, class Exchange>
bool comb_pass_with(std::size_t n, std::size_t gap, OutOfOrder&& out_of_order, Exchange&& exchange) {
  bool exchanged = false;
  for (std::size_t i = 0, j = gap; j < n; ++i, ++j) {
    if (!out_of_order(i, j)) continue;
    exchange(i, j);
    exchanged = true;
  }
  return exchanged;
}

/// The same sort over anything that can be compared and exchanged by index; `after_pass()` follows each pass.
/// Returns the number of passes. Ends only if `out_of_order` is a strict order that `exchange` really mends.
template <class OutOfOrder, class Exchange, class AfterPass>
std::size_t comb_sort_with(std::size_t n, std::size_t start_gap, OutOfOrder&& out_of_order, Exchange&& exchange,
                           AfterPass&& after_pass) {
  if (n < 2 || start_gap < 1) return 0;
  std::size_t passes = 0;
  bool exchanged = false;
  for (std::size_t gap = start_gap; passes == 0 || gap > 1 || exchanged; ++passes) {
    gap = next_comb_gap(gap);
    exchanged = comb_pass_with(n, gap, out_of_order, exchange);
    after_pass();
  }
  return passes;
}

}  // namespace zor::kernels

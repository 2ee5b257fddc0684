#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

#include "zor/base/feedback.h"
#include "zor/kernels/comb_sort.h"
#include "zor/kernels/selection.h"
#include "zor/scalar/sorting.h"

/// \file  Values at ranks of a run of cells, as if it had been sorted.

namespace zor::detail {

/// values[j] = the cell that an ascending SortArray of `work` puts at index ranks[j] (ascending, all valid). `work` is
/// left in any order. Selection gives these values in a fraction of the time. Where it could not give the very same
/// cell (a NaN, which the sort never moves; zeros of both signs), or where a feedback procedure wants to see the
/// passes, the run is really sorted. ProcStat grows by the passes made, in the case of selection by those that a sorted
/// run would take.
template <class T>
void ranked_values(std::span<T> work, std::span<const std::size_t> ranks, std::span<T> values) {
  const auto by_sorting = [&] {
    ZOR_math1::SortArray(work, true);
    for (std::size_t j = 0; j < ranks.size(); ++j) values[j] = work[ranks[j]];
  };
  bool selectable = !feedback_listens();
  if constexpr (std::is_floating_point_v<T>) {
    bool nan = false;
    for (const T x : work) nan |= x != x;
    const auto is_negative_zero = [](T x) { return x == 0 && std::signbit(x); };
    selectable = selectable && !nan && std::ranges::none_of(work, is_negative_zero);
  }
  if (!selectable) return by_sorting();
  kernels::select_many(work, ranks, values);
  ZOR_zorbase::ProcStat += static_cast<double>(kernels::fewest_comb_passes(work.size()));
}

}  // namespace zor::detail

#pragma once

#include <algorithm>
#include <array>

#include "zor/datatable/table_statistics.h"
#include "zor/runtime/numbers.h"

/// \file  The one walk over the cells of a table that take part in a statistic.

namespace ZOR_datatable {

struct TTableStatistics::Gate {
  bool metric_only = false;
  bool rounded = false;
  std::array<bool, 256> takes{};  ///< by state

  template <class Takes>
  Gate(bool metric, bool round, Takes state_takes) : metric_only(metric), rounded(round) {
    for (unsigned state = 0; state < 256; ++state) {
      takes[state] = is_numeric_state(static_cast<Byte>(state)) && state_takes(state);
    }
  }
  static Gate numeric(bool metric, bool round = false) {
    return {metric, round, [](unsigned) { return true; }};
  }
  static Gate marked(Byte mask, bool metric) {
    return {metric, false, [mask](unsigned state) { return (mask & state & 252u) != 0; }};
  }
};

// Runs in which every cell takes part are handed on as they lie in memory; others are packed block by block.
template <class F>
void TTableStatistics::for_cells(const Gate& gate, Range cols, Range down, F f) const {
  constexpr std::size_t kBlock = 512;
  std::array<Double, kBlock + 1> packed;
  for (Integer c = cols.lo; c <= cols.hi; ++c) {
    const TMScaleType scale = FFrame.columns[c - 1].type.MScaleType;
    if (gate.metric_only && !is_metric(scale)) continue;
    const std::span<const Double> all = ColumnView(c);
    const std::size_t begin = std::min(zor::detail::to_size(down.lo - 1), all.size());
    const std::span<const Double> cells = all.subspan(begin, std::min(down.size(), all.size() - begin));
    const std::span<const Byte> states = column_states(c).subspan(begin, cells.size());
    const bool round = gate.rounded && is_categorial(scale);
    for (std::size_t i = 0; i < cells.size();) {
      if (!round && gate.takes[states[i]]) {
        const auto stop = std::find_if(states.begin() + static_cast<std::ptrdiff_t>(i), states.end(),
                                       [&](Byte state) { return !gate.takes[state]; });
        const auto end = static_cast<std::size_t>(stop - states.begin());
        if (end - i >= kBlock) {
          f(cells.subspan(i, end - i));
          i = end;
          continue;
        }
      }
      const std::size_t end = std::min(i + kBlock, cells.size());
      std::size_t n = 0;
      for (; i < end; ++i) {
        packed[n] = round ? zor::detail::round_to_even(cells[i]) : cells[i];
        n += gate.takes[states[i]];
      }
      if (n > 0) f(std::span<const Double>(packed.data(), n));
    }
  }
}

}  // namespace ZOR_datatable

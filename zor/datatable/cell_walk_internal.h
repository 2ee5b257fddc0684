#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

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

// Runs of plain numbers are handed on as they lie in memory; others are packed block by block, eight cells at a time
// where their states are all 0.
template <class F>
void TTableStatistics::for_cells(const Gate& gate, Range cols, Range down, F f) const {
  constexpr std::size_t kBlock = 2048, kWord = 8;
  std::array<Double, kBlock + 1> packed;
  for (Integer c = cols.lo; c <= cols.hi; ++c) {
    const TMScaleType scale = FFrame.columns[c - 1].type.MScaleType;
    if (gate.metric_only && !is_metric(scale)) continue;
    const std::span<const Double> all = ColumnView(c);
    const std::size_t begin = std::min(zor::detail::to_size(down.lo - 1), all.size());
    const std::span<const Double> cells = all.subspan(begin, std::min(down.size(), all.size() - begin));
    const std::span<const Byte> states = column_states(c).subspan(begin, cells.size());
    const bool round = gate.rounded && is_categorial(scale), plain = gate.takes[0] && !round;
    const auto all_zero = [&](std::size_t i) {
      std::uint64_t word = 0;
      std::memcpy(&word, states.data() + i, kWord);
      return word == 0;
    };
    for (std::size_t i = 0; i < cells.size();) {
      std::size_t end = i;
      while (plain && end + kWord <= cells.size() && all_zero(end)) end += kWord;
      if (end - i >= kBlock / 4) {
        f(cells.subspan(i, end - i));
        i = end;
        continue;
      }
      end = std::min(i + kBlock, cells.size());
      std::size_t n = 0;
      while (i < end) {
        if (plain && i + kWord <= end && all_zero(i)) {
          std::memcpy(packed.data() + n, cells.data() + i, kWord * sizeof(Double));
          i += kWord, n += kWord;
          continue;
        }
        for (const std::size_t stop = std::min(i + kWord, end); i < stop; ++i) {
          packed[n] = round ? zor::detail::round_to_even(cells[i]) : cells[i];
          n += gate.takes[states[i]];
        }
      }
      if (n > 0) f(std::span<const Double>(packed.data(), n));
    }
  }
}

}  // namespace ZOR_datatable

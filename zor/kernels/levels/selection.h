#pragma once

#include <cstddef>
#include <cstdint>

/// \file  What levels/selection.cpp offers at each level.

namespace zor::kernels {

/// How many cells are below `low`, not above `low`, strictly between `low` and `high`, and not above `high`.
struct WindowCounts {
  std::size_t below, upto_low, between, upto_high;
};

template <class T>
struct SelectionLoops {
  /// Brings the cells strictly between low <= high to the front and counts. No cell is a NaN.
  WindowCounts (*window)(T* x, std::size_t n, T low, T high);
  /// Brings the NaN to the end; returns how many cells are none.
  std::size_t (*numbers_first)(T* x, std::size_t n);
};

struct SelectionTable {
  SelectionLoops<double> of_double;
  SelectionLoops<std::int32_t> of_int32;
};

}  // namespace zor::kernels

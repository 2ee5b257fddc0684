#pragma once

#include <cstddef>
#include <cstdint>

/// \file  What levels/comb_sort.cpp offers at each level.
/// `gaps` are all gaps of a sort, falling strictly, the last one 1.

namespace zor::kernels {

template <class T>
struct CombSortLoops {
  std::size_t (*sort)(T* x, std::size_t n, const std::size_t* gaps, std::size_t count, bool ascending);
  bool (*pass)(T* x, std::size_t n, std::size_t gap, bool ascending);
};

struct CombSortTable {
  CombSortLoops<double> of_double;
  CombSortLoops<float> of_float;
  CombSortLoops<std::int32_t> of_int32;
  std::size_t (*sort_pairs)(double* keys, std::int64_t* companions, std::size_t n, const std::size_t* gaps,
                            std::size_t count, bool ascending);
};

}  // namespace zor::kernels

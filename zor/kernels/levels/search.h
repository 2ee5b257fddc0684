#pragma once

#include <cstddef>
#include <cstdint>

/// \file  The inner loops of search.h. What looks for a place gives `n` where there is none.

namespace zor::kernels {

template <class T, class Difference>
struct SearchLoops {
  std::size_t (*find_equal)(const T* x, std::size_t n, T value);
  std::size_t (*find_other)(const T* x, std::size_t n, T value);
  std::size_t (*first_difference)(const T* x, const T* y, std::size_t n);
  std::size_t (*count_equal)(const T* x, std::size_t n, T value);
  std::size_t (*nearest)(const T* x, std::size_t n, T value, Difference& difference);
};

struct SearchTable {
  SearchLoops<double, double> real;
  SearchLoops<std::int32_t, std::int64_t> integer;
};

}  // namespace zor::kernels

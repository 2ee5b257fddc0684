#pragma once

#include <cmath>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>

/// \file  Bisection in sorted cells, which vectors and columns of matrices share.

namespace zor::detail {

/// Index of a cell equal to value, else of the nearer one of the last two candidates, on a tie the later; from 0. There
/// is one cell at least.
template <class T>
std::size_t nearest_in_sorted(std::span<const T> cells, bool ascending, T value) noexcept {
  std::size_t lo = 0, hi = cells.size() - 1;
  while (hi - lo >= 2) {
    const std::size_t mid = lo + (hi - lo) / 2;
    if (cells[mid] == value) return mid;
    ((cells[mid] > value) == ascending ? hi : lo) = mid;
  }
  using Wide = std::conditional_t<std::floating_point<T>, T, std::int64_t>;
  const auto distance = [value](T x) { return std::abs(Wide{x} - Wide{value}); };
  return distance(cells[hi]) > distance(cells[lo]) ? lo : hi;
}

}  // namespace zor::detail

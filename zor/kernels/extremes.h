#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "zor/export.h"
#include "zor/kernels/search.h"

/// \file  Smallest and largest cell with their places.

namespace zor::kernels {

/// What min_max has found so far. The caller sets the start values `minimum` and `maximum`.
template <class T>
struct Extremes {
  T minimum;
  T maximum;
  std::size_t min_index = kNone;
  std::size_t max_index = kNone;
};

/// Takes the cells of x in: in their order, a cell below `minimum` becomes the minimum, one above `maximum` the
/// maximum, with its index, `base` + i. So the first of equal extremes keeps its index (and its sign, of zeros), NaN is
/// never extreme, and where no cell passes the start value the index stays. Several runs are taken one after the other.
ZOR_API void min_max(std::span<const double> x, Extremes<double>& extremes, std::size_t base = 0) noexcept;
ZOR_API void min_max(std::span<const float> x, Extremes<float>& extremes, std::size_t base = 0) noexcept;
ZOR_API void min_max(std::span<const std::int32_t> x, Extremes<std::int32_t>& extremes, std::size_t base = 0) noexcept;

}  // namespace zor::kernels

#pragma once

#include <cmath>
#include <concepts>
#include <limits>
#include <span>

#include "zor/base/stream_numbers.h"

/// \file  The bounds in front of the cells in the stream form of vectors and matrices.

namespace zor::detail {

/// Reads a bound, which is stored as a cell of type T; false if the stream ends or it is none.
template <class T>
bool read_bound(ZOR_runtime::TStream& stream, ZOR_runtime::Integer& bound) {
  using Limits = std::numeric_limits<ZOR_runtime::Integer>;
  T x{};
  if (read_numbers(stream, std::span<T>(&x, 1)) != 1) return false;
  if constexpr (std::floating_point<T>) {
    const T whole = std::nearbyint(x);
    if (!(whole >= Limits::min() && whole <= Limits::max())) return false;
    bound = static_cast<ZOR_runtime::Integer>(whole);
  } else {
    bound = x;
  }
  return true;
}

}  // namespace zor::detail

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

#include "zor/arrays/walk_internal.h"

/// \file  Moving blocks of cells between places that differ.

namespace zor::detail {

/// Copies n cells; the two runs may overlap.
template <class T>
void copy_run(const T* from, std::size_t n, T* to) noexcept {
  if (n != 0) std::memmove(to, from, n * sizeof(T));
}

/// Copies the block of `count` cells in each dimension that begins at `from` of src to `to` of dest. Where both are the
/// same array the walk goes away from the target, so that every cell is read before it is overwritten.
template <class A>
void copy_block(const A& src, const std::size_t* from, A& dest, const std::size_t* to, const std::size_t* count) {
  if constexpr (kDims<A> == 1) {
    copy_run(src.data() + *from, *count, dest.data() + *to);
  } else {
    const bool downward = src.data() == dest.data() && *from < *to;
    for (std::size_t k = 0; k < *count; ++k) {
      const std::size_t i = downward ? *count - 1 - k : k;
      copy_block(src[*from + i], from + 1, dest[*to + i], to + 1, count + 1);
    }
  }
}

/// Whether an inner array of `a` has a second handle, so that it may stand somewhere in another array as well.
template <class A>
bool shares_inner(const A& a) noexcept {
  if constexpr (kDims<A> == 1) {
    return false;
  } else {
    return std::any_of(a.begin(), a.end(), [](const auto& inner) { return !inner.IsUnique() || shares_inner(inner); });
  }
}

}  // namespace zor::detail

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>

/// \file  Turning columns into rows, as record files hold them, and back.

namespace zor::detail {

/// Two cells of each of two lines, turned: p, q become the lines to, to2.
template <class T>
void transpose_pair(const T* p, const T* q, T* to, T* to2) noexcept {
  const T first[2] = {p[0], q[0]}, second[2] = {p[1], q[1]};
  std::memcpy(to, first, sizeof(first));
  std::memcpy(to2, second, sizeof(second));
}

/// to(j)[i] = from(i)[j] for i < n, j < m, where from(i) and to(j) are pointers to cells. Goes in squares of a cache
/// line, along the longer side, so that the lines of the shorter one stay in the caches.
template <class From, class To>
void transpose_block(std::size_t n, std::size_t m, From from, To to) {
  constexpr std::size_t kSide = 8;
  const auto square = [&](std::size_t i0, std::size_t j0) {
    const std::size_t i1 = (std::min)(i0 + kSide, n), j1 = (std::min)(j0 + kSide, m);
    std::size_t i = i0;
    for (; i + 2 <= i1; i += 2) {
      const auto *p = from(i), *q = from(i + 1);
      std::size_t j = j0;
      for (; j + 2 <= j1; j += 2) transpose_pair(p + j, q + j, to(j) + i, to(j + 1) + i);
      if (j < j1) to(j)[i] = p[j], to(j)[i + 1] = q[j];
    }
    if (i < i1) {
      const auto* p = from(i);
      for (std::size_t j = j0; j < j1; ++j) to(j)[i] = p[j];
    }
  };
  if (n >= m) {
    for (std::size_t i = 0; i < n; i += kSide) {
      for (std::size_t j = 0; j < m; j += kSide) square(i, j);
    }
  } else {
    for (std::size_t j = 0; j < m; j += kSide) {
      for (std::size_t i = 0; i < n; i += kSide) square(i, j);
    }
  }
}

}  // namespace zor::detail

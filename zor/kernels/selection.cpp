#include "zor/kernels/selection.h"

#include <algorithm>

namespace zor::kernels {
namespace {

template <class T>
bool before(T a, T b) {  // the ascending order with NaN behind all numbers
  return a < b || (a == a && b != b);
}

template <class T>
T kth(std::span<T> x, std::size_t k) {
  if (x.empty()) return T(0);
  k = std::min(k, x.size() - 1);
  std::nth_element(x.begin(), x.begin() + static_cast<std::ptrdiff_t>(k), x.end(), before<T>);
  return x[k];
}

template <class T>
void many(std::span<T> x, std::span<const std::size_t> ranks, std::span<T> values) {
  for (std::size_t j = 0; j < ranks.size(); ++j) values[j] = kth(x, ranks[j]);
}

template <class T>
Neighbours<T> pair(std::span<T> x, std::size_t k) {
  return {kth(x, k), kth(x, k < x.size() ? k + 1 : k)};
}

// Splits lo to hi about the cell at m; returns where that cell ends up. Equal cells go to its right.
std::int64_t partition(double* x, std::int64_t lo, std::int64_t hi, std::int64_t m) {
  const double pivot = x[m];
  std::swap(x[m], x[lo]);
  std::int64_t i = lo + 1;
  while (i <= hi && x[i] < pivot) ++i;
  for (std::int64_t j = i + 1; j <= hi; ++j) {
    if (x[j] < pivot) std::swap(x[j], x[i++]);
  }
  x[lo] = x[i - 1];
  x[i - 1] = pivot;
  return i - 1;
}

}  // namespace

double select_kth(std::span<double> x, std::size_t k) noexcept { return kth(x, k); }
std::int32_t select_kth(std::span<std::int32_t> x, std::size_t k) noexcept { return kth(x, k); }
Neighbours<double> select_pair(std::span<double> x, std::size_t k) noexcept { return pair(x, k); }
Neighbours<std::int32_t> select_pair(std::span<std::int32_t> x, std::size_t k) noexcept { return pair(x, k); }
void select_many(std::span<double> x, std::span<const std::size_t> ranks, std::span<double> values) noexcept {
  many(x, ranks, values);
}
void select_many(std::span<std::int32_t> x, std::span<const std::size_t> ranks,
                 std::span<std::int32_t> values) noexcept {
  many(x, ranks, values);
}

double quick_select(std::span<double> cells, std::int64_t k, std::int64_t lo, std::int64_t hi) noexcept {
  lo = std::max<std::int64_t>(lo, 0);
  hi = std::min(hi, static_cast<std::int64_t>(cells.size()) - 1);
  if (hi < lo) return 0.0;
  k = std::max(k, lo);
  double* const x = cells.data();
  const double first = x[lo];
  std::int64_t i = lo + 1;
  while (i <= hi && x[i] == first) ++i;
  if (i > hi) return first;
  while (true) {
    const std::int64_t p = partition(x, lo, hi, lo + (hi - lo) / 2);
    if (k == p) return x[k];
    if (k < p) {
      hi = p;
    } else {
      lo = p + 1;
      if (lo > hi) return first;
    }
  }
}

}  // namespace zor::kernels

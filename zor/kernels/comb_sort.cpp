#include "zor/kernels/comb_sort.h"

#include "zor/kernels/dispatch.h"
#include "zor/kernels/levels/comb_sort.h"

namespace zor::kernels {

ZOR_KERNEL_TABLE(CombSortTable, kCombSort)

namespace {

constexpr std::size_t kMostGaps = 256;  // 2^64 shrinks to 1 in fewer

// loops(gaps, number of them) for a sort of n cells.
template <class Loops>
std::size_t with_gaps(std::size_t n, std::size_t gap, Loops loops) {
  if (n < 2 || gap < 1) return 0;
  std::size_t gaps[kMostGaps];
  std::size_t count = 0;
  do {
    gap = next_comb_gap(gap);
    gaps[count++] = gap;
  } while (gap > 1);
  return loops(gaps, count);
}

template <class T>
std::size_t sort(const CombSortLoops<T>& loops, std::span<T> x, std::size_t gap, bool ascending) {
  return with_gaps(x.size(), gap, [&](const std::size_t* gaps, std::size_t count) {
    return loops.sort(x.data(), x.size(), gaps, count, ascending);
  });
}

template <class T>
bool pass(const CombSortLoops<T>& loops, std::span<T> x, std::size_t gap, bool ascending) {
  return gap < x.size() && loops.pass(x.data(), x.size(), gap, ascending);
}

}  // namespace

std::size_t comb_sort(std::span<double> x, std::size_t gap, bool up) noexcept {
  return sort(table().of_double, x, gap, up);
}
std::size_t comb_sort(std::span<float> x, std::size_t gap, bool up) noexcept {
  return sort(table().of_float, x, gap, up);
}
std::size_t comb_sort(std::span<std::int32_t> x, std::size_t gap, bool up) noexcept {
  return sort(table().of_int32, x, gap, up);
}
std::size_t comb_sort_pairs(std::span<double> keys, std::span<std::int64_t> companions, std::size_t gap,
                            bool up) noexcept {
  return with_gaps(keys.size(), gap, [&](const std::size_t* gaps, std::size_t count) {
    return table().sort_pairs(keys.data(), companions.data(), keys.size(), gaps, count, up);
  });
}
bool comb_pass(std::span<double> x, std::size_t gap, bool up) noexcept { return pass(table().of_double, x, gap, up); }
bool comb_pass(std::span<float> x, std::size_t gap, bool up) noexcept { return pass(table().of_float, x, gap, up); }
bool comb_pass(std::span<std::int32_t> x, std::size_t gap, bool up) noexcept {
  return pass(table().of_int32, x, gap, up);
}

}  // namespace zor::kernels

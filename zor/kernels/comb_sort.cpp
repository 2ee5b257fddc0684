#include "zor/kernels/comb_sort.h"

namespace zor::kernels {
namespace {

template <class T>
bool pass(std::span<T> x, std::size_t gap, bool ascending) {
  const auto exchange = [x](std::size_t i, std::size_t j) { std::swap(x[i], x[j]); };
  return ascending ? comb_pass_with(
                         x.size(), gap, [x](std::size_t i, std::size_t j) { return x[i] > x[j]; }, exchange)
                   : comb_pass_with(
                         x.size(), gap, [x](std::size_t i, std::size_t j) { return x[i] < x[j]; }, exchange);
}

template <class T>
std::size_t sort(std::span<T> x, std::size_t gap, bool ascending) {
  if (x.size() < 2 || gap < 1) return 0;
  std::size_t passes = 0;
  for (bool exchanged = true; gap > 1 || exchanged; ++passes) {
    gap = next_comb_gap(gap);
    exchanged = pass(x, gap, ascending);
  }
  return passes;
}

}  // namespace

std::size_t comb_sort(std::span<double> x, std::size_t gap, bool ascending) noexcept { return sort(x, gap, ascending); }
std::size_t comb_sort(std::span<float> x, std::size_t gap, bool ascending) noexcept { return sort(x, gap, ascending); }
std::size_t comb_sort(std::span<std::int32_t> x, std::size_t gap, bool ascending) noexcept {
  return sort(x, gap, ascending);
}
bool comb_pass(std::span<double> x, std::size_t gap, bool ascending) noexcept { return pass(x, gap, ascending); }
bool comb_pass(std::span<float> x, std::size_t gap, bool ascending) noexcept { return pass(x, gap, ascending); }
bool comb_pass(std::span<std::int32_t> x, std::size_t gap, bool ascending) noexcept { return pass(x, gap, ascending); }

}  // namespace zor::kernels

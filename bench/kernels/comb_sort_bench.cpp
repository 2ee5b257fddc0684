#include "zor/kernels/comb_sort.h"

#include <algorithm>

#include "bench/pair.h"

namespace zor::kernels {
namespace {

template <class T>
struct Cells {
  std::vector<T> fresh, x;
  void reset() { x = fresh; }
};

template <class T>
Cells<T> cells(std::size_t n) {
  const std::vector<double> noise = bench::noise(n);
  Cells<T> c{std::vector<T>(n), {}};
  std::transform(noise.begin(), noise.end(), c.fresh.begin(),
                 [](double v) { return std::is_integral_v<T> ? static_cast<T>(v * 0x1p30) : static_cast<T>(v); });
  return c;
}

template <class T>
auto& ours(Cells<T>& c) {
  comb_sort(std::span<T>(c.x), c.x.size(), true);
  return c.x;
}

template <class T>
auto& peer(Cells<T>& c) {
  std::sort(c.x.begin(), c.x.end());
  return c.x;
}

const std::vector<std::size_t> kSizes{10'000, 1'000'000};

ZOR_BENCH_PAIR(CombSort, cells<double>, ours<double>, peer<double>, bench::equal)
    .against("std::sort")
    .goal(0.35)
    .sizes(kSizes)
    .remark("bits and passes of the plain comb sort");

ZOR_BENCH_PAIR(CombSortSingle, cells<float>, ours<float>, peer<float>, bench::equal)
    .against("std::sort")
    .goal(0.35)
    .sizes(kSizes);

ZOR_BENCH_PAIR(CombSortInteger, cells<std::int32_t>, ours<std::int32_t>, peer<std::int32_t>, bench::equal)
    .against("std::sort")
    .goal(0.35)
    .sizes(kSizes);

}  // namespace
}  // namespace zor::kernels

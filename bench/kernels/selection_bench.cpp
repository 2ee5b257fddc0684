#include "zor/kernels/selection.h"

#include <algorithm>

#include "bench/pair.h"

namespace zor::kernels {
namespace {

struct Cells {
  std::vector<double> fresh, x;
  void reset() { x = fresh; }
};

Cells cells(std::size_t n) { return {bench::noise(n), {}}; }

double nth(std::vector<double>& x, std::size_t k) {
  const auto at = x.begin() + static_cast<std::ptrdiff_t>(k);
  std::nth_element(x.begin(), at, x.end());
  return *at;
}

const std::vector<std::size_t> kSizes{10'000, 1'000'000};

ZOR_BENCH_PAIR(
    Median, cells, [](Cells& c) { return select_kth(c.x, c.x.size() / 2); },
    [](Cells& c) { return nth(c.x, c.x.size() / 2); }, bench::equal)
    .against("std::nth_element")
    .goal(0.5)
    .sizes(kSizes);

ZOR_BENCH_PAIR(
    Quartiles, cells,
    [](Cells& c) {
      const std::size_t n = c.x.size(), ranks[] = {n / 4, n / 4 + 1, n / 2, n / 2 + 1, 3 * (n / 4), 3 * (n / 4) + 1};
      std::vector<double> values(std::size(ranks));
      select_many(c.x, ranks, values);
      return values;
    },
    [](Cells& c) {
      const std::size_t n = c.x.size();
      std::vector<double> values;
      for (const std::size_t k : {n / 4, n / 4 + 1, n / 2, n / 2 + 1, 3 * (n / 4), 3 * (n / 4) + 1})
        values.push_back(nth(c.x, k));
      return values;
    },
    bench::equal)
    .against("std::nth_element")
    .goal(0.5)
    .sizes(kSizes);

}  // namespace
}  // namespace zor::kernels

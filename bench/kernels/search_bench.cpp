#include "zor/kernels/search.h"

#include "bench/pair.h"

namespace zor::kernels {
namespace {

struct Cells {
  std::vector<double> x;
};

Cells cells(std::size_t n) { return {bench::noise(n)}; }

ZOR_BENCH_PAIR(
    FindEqual, cells, [](Cells& c) { return find_equal(c.x, c.x.back()); },
    [](Cells& c) { return static_cast<std::size_t>(std::find(c.x.begin(), c.x.end(), c.x.back()) - c.x.begin()); },
    bench::equal)
    .against("std::find")
    .goal(1.0)
    .sizes({1000, 1'000'000});

ZOR_BENCH_PAIR(
    FindNearest, cells,
    [](Cells& c) {
      double difference = 1e308;
      return nearest(c.x, 0.1, difference);
    },
    [](Cells& c) {
      const auto nearer = [](double a, double b) { return std::abs(a - 0.1) < std::abs(b - 0.1); };
      return static_cast<std::size_t>(std::min_element(c.x.begin(), c.x.end(), nearer) - c.x.begin());
    },
    bench::equal)
    .against("std::min_element")
    .goal(1.0)
    .sizes({1000, 1'000'000});

}  // namespace
}  // namespace zor::kernels

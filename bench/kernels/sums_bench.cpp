#include "zor/kernels/sums.h"

#include "bench/pair.h"

namespace zor::kernels {
namespace {

struct Cells {
  std::vector<double> x, y;
};

Cells cells(std::size_t n) { return {bench::noise(n, 1), bench::noise(n, 2)}; }

const std::vector<std::size_t> kSizes{1000, 1'000'000};

ZOR_BENCH_PAIR(
    SumInOrder, cells, [](Cells& c) { return sum_in_order(c.x); },
    [](Cells& c) {
      double s = 0.0;
      for (const double v : c.x) s += v;
      return s;
    },
    bench::equal)
    .against("plain loop")
    .goal(1.0)
    .sizes(kSizes)
    .remark("one chain of additions");

ZOR_BENCH_PAIR(
    DotInOrder, cells, [](Cells& c) { return dot_in_order(c.x, c.y); },
    [](Cells& c) {
      double s = 0.0;
      for (std::size_t i = 0; i < c.x.size(); ++i) s += c.x[i] * c.y[i];
      return s;
    },
    bench::equal)
    .against("plain loop")
    .goal(1.0)
    .sizes(kSizes)
    .remark("one chain of additions");

}  // namespace
}  // namespace zor::kernels

#include "zor/scalar/sorting.h"

#include <algorithm>

#include "bench/pair.h"

namespace ZOR_math1 {
namespace {

struct Cells {
  std::vector<Double> fresh, x;
  void reset() { x = fresh; }
};

Cells cells(std::size_t n) { return {zor::bench::noise(n), {}}; }

ZOR_BENCH_PAIR(
    SortArray, cells,
    [](Cells& c) -> auto& {
      SortArray(c.x, true);
      return c.x;
    },
    [](Cells& c) -> auto& {
      std::sort(c.x.begin(), c.x.end());
      return c.x;
    },
    zor::bench::equal)
    .against("std::sort")
    .goal(0.35)
    .sizes({10'000, 1'000'000})
    .remark("bits and passes of the plain comb sort");

}  // namespace
}  // namespace ZOR_math1

#include "zor/scalar/selection.h"

#include "bench/pair.h"

namespace ZOR_math1 {
namespace {

struct Cells {
  std::vector<Double> fresh, x;
  void reset() { x = fresh; }
  Integer last() const { return static_cast<Integer>(x.size()) - 1; }
};

Cells cells(std::size_t n) { return {zor::bench::noise(n), {}}; }

/// Half of the cells are 0.
Cells half_equal(std::size_t n) {
  Cells c = cells(n);
  for (Double& x : c.fresh) x = x < 0.0 ? 0.0 : x;
  return c;
}

ZOR_BENCH_RATE(QuickSelect, cells, [](Cells& c) { return QuickSelect(std::span(c.x), c.last() / 2, 0, c.last()); });

ZOR_BENCH_RATE(QuickSelectAroundAValue, half_equal,
               [](Cells& c) { return QuickSelect(c.x, c.last() * 3 / 4, 0, c.last(), 0.0); });

}  // namespace
}  // namespace ZOR_math1

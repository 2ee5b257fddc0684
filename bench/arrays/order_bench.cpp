#include <algorithm>
#include <utility>
#include <vector>

#include "bench/pair.h"
#include "zor/arrays/ZOR_openarrays.h"

namespace ZOR_openarrays {
namespace {

namespace bench = zor::bench;

struct Cells {
  std::vector<double> x;
  TDoubleArray a;
  TIntArray ix;
  std::vector<double> sorted;
  std::vector<Integer> places;
  void reset() { a = TDoubleArray(x.begin(), x.end()); }
};

/// Different numbers: of equal ones the orders of the places may differ.
Cells cells(std::size_t n) {
  Cells c;
  c.x = bench::noise(n);
  c.sorted.resize(n);
  c.places.resize(n);
  return c;
}

/// Sorted cells and their places.
using Result = std::pair<std::vector<double>, std::vector<Integer>>;

ZOR_BENCH_PAIR(
    SortArrayWithIndex, cells,
    [](Cells& c) {
      SortArray(true, c.a, c.ix);
      return [&c] { return Result({c.a.begin(), c.a.end()}, {c.ix.begin(), c.ix.end()}); };
    },
    [](Cells& c) {
      std::vector<std::pair<double, Integer>> pairs(c.x.size());
      for (std::size_t i = 0; i < pairs.size(); ++i) pairs[i] = {c.x[i], static_cast<Integer>(i) + 1};
      std::sort(pairs.begin(), pairs.end());
      for (std::size_t i = 0; i < pairs.size(); ++i) {
        c.sorted[i] = pairs[i].first;
        c.places[i] = pairs[i].second;
      }
      return [&c] { return Result(c.sorted, c.places); };
    },
    bench::equal)
    .against("std::sort of pairs, then gather")
    .goal(0.6)
    .sizes({10'000, 1'000'000});

ZOR_BENCH_PAIR(
    PercentileArray, cells, [](Cells& c) { return PercentileArray(50.0, c.a); },
    [](Cells& c) {
      std::vector<double> work(c.a.begin(), c.a.end());
      const auto middle = work.begin() + static_cast<std::ptrdiff_t>(work.size() / 2);
      std::nth_element(work.begin(), middle, work.end());
      return *middle;
    },
    bench::equal)
    .against("std::nth_element of a copy")
    .goal(0.5)
    .sizes({10'000, 1'000'000});

}  // namespace
}  // namespace ZOR_openarrays

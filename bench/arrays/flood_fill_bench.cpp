#include <utility>
#include <vector>

#include "bench/pair.h"
#include "zor/arrays/ZOR_openarrays.h"

namespace ZOR_openarrays {
namespace {

namespace bench = zor::bench;

/// n by n cells: a region of 0 with walls of 1 here and there, in which nothing is filled yet.
struct Raster {
  TInt2DArray a;
  std::vector<std::pair<Integer, Integer>> stack;

  void reset() {
    for (auto& column : a) {
      for (Integer& cell : column) cell = cell == 2 ? 0 : cell;
    }
  }
};

Raster open_raster(std::size_t n) {
  Raster raster;
  SetLength(raster.a, static_cast<Integer>(n), static_cast<Integer>(n));
  return raster;
}

Raster raster_with_walls(std::size_t n) {
  Raster raster = open_raster(n);
  const auto noise = bench::noise(n * n);
  for (std::size_t i = 0; i < n * n; ++i) raster.a[i / n][i % n] = noise[i] > 0.6;
  raster.a[0][0] = 0;
  return raster;
}

template <bool four_connected>
const auto kSpans = [](Raster& raster) {
  Integer row_max, row_min, col_min, col_max;
  FloodFillArray(0, 0, 2, four_connected, raster.a, row_max, row_min, col_min, col_max);
  return raster.a;
};

/// The textbook's fill: a stack of cells, each of which puts its open neighbours on it.
template <std::size_t neighbours>
const auto kCells = [](Raster& raster) {
  static constexpr std::pair<Integer, Integer> kSteps[] = {{-1, 0},  {1, 0},  {0, -1}, {0, 1},
                                                           {-1, -1}, {-1, 1}, {1, -1}, {1, 1}};
  auto& a = raster.a;
  const Integer cols = Length(a), rows = Length(a[0]);
  auto& stack = raster.stack;
  stack.assign(1, {0, 0});
  a[0][0] = 2;
  while (!stack.empty()) {
    const auto [x, y] = stack.back();
    stack.pop_back();
    for (std::size_t i = 0; i < neighbours; ++i) {
      const Integer c = x + kSteps[i].first, r = y + kSteps[i].second;
      if (c < 0 || c >= cols || r < 0 || r >= rows || a[c][r] != 0) continue;
      a[c][r] = 2;
      stack.emplace_back(c, r);
    }
  }
  return a;
};

constexpr auto square = [](std::size_t n) { return static_cast<double>(n * n); };

ZOR_BENCH_PAIR(FloodFillOpen4, open_raster, kSpans<true>, kCells<4>, bench::equal)
    .against("stack of cells")
    .goal(0.5)
    .sizes({2000})
    .items(square);
ZOR_BENCH_PAIR(FloodFillOpen8, open_raster, kSpans<false>, kCells<8>, bench::equal)
    .against("stack of cells")
    .goal(0.5)
    .sizes({2000})
    .items(square);
ZOR_BENCH_PAIR(FloodFillWalls4, raster_with_walls, kSpans<true>, kCells<4>, bench::equal)
    .against("stack of cells")
    .goal(0.5)
    .sizes({2000})
    .items(square);
ZOR_BENCH_PAIR(FloodFillWalls8, raster_with_walls, kSpans<false>, kCells<8>, bench::equal)
    .against("stack of cells")
    .goal(0.5)
    .sizes({2000})
    .items(square);

}  // namespace
}  // namespace ZOR_openarrays

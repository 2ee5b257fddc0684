#include "zor/scalar/geometry.h"

#include "bench/pair.h"

namespace ZOR_math1 {
namespace {

/// Ends of n pairs of segments, four points a pair.
std::vector<TPointDouble> segment_pairs(std::size_t n) {
  const std::vector<double> x = zor::bench::noise(4 * n, 1), y = zor::bench::noise(4 * n, 2);
  std::vector<TPointDouble> ends(4 * n);
  for (std::size_t i = 0; i < ends.size(); ++i) ends[i] = {x[i], y[i]};
  return ends;
}

ZOR_BENCH_RATE(SegmentsIntersect, segment_pairs, [](const std::vector<TPointDouble>& p) {
  std::size_t hits = 0;
  for (std::size_t i = 0; i < p.size(); i += 4) hits += SegmentsIntersect(p[i], p[i + 1], p[i + 2], p[i + 3]);
  return hits;
}).sizes({1'000'000});

}  // namespace
}  // namespace ZOR_math1

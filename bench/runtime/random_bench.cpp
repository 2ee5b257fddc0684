#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

#include "bench/pair.h"
#include "zor/runtime/random.h"

namespace {

struct Cells {
  std::vector<double> x;
  std::mt19937_64 bits{1};
};

Cells cells(std::size_t n) { return {std::vector<double>(n)}; }

// Two generators never give the same numbers: the means must be those of the interval, within five standard deviations.
constexpr auto means_agree = [](const std::vector<double>& ours, const std::vector<double>& peer) {
  const auto off = [](const std::vector<double>& x) {
    double sum = 0.0;
    for (const double v : x) sum += v - 3.5;
    return std::abs(sum) > 5.0 * std::sqrt(static_cast<double>(x.size()) * 0.75);
  };
  return !off(ours) && !off(peer);
};

ZOR_BENCH_PAIR(
    FillRandomUniform, cells,
    [](Cells& c) -> auto& {
      zor::detail::fill_random(c.x, 2.0, 3.0);
      return c.x;
    },
    [](Cells& c) -> auto& {
      std::uniform_real_distribution<double> uniform(2.0, 5.0);
      for (double& x : c.x) x = uniform(c.bits);
      return c.x;
    },
    means_agree)
    .against("std::mt19937_64 + uniform_real_distribution")
    .goal(0.5)
    .sizes({1000, 1'000'000});

}  // namespace

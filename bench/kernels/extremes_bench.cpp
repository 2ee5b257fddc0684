#include "zor/kernels/extremes.h"

#include <Eigen/Core>
#include <array>

#include "bench/pair.h"

namespace zor::kernels {
namespace {

struct Cells {
  std::vector<double> x;
  auto map() { return Eigen::Map<const Eigen::ArrayXd>(x.data(), static_cast<Eigen::Index>(x.size())); }
};

ZOR_BENCH_PAIR(
    MinMax, [](std::size_t n) { return Cells{bench::noise(n)}; },
    [](Cells& c) {
      Extremes<double> e{1.7e308, -1.7e308};
      min_max(c.x, e);
      return std::array{e.minimum, e.maximum};
    },
    [](Cells& c) {
      return std::array{c.map().minCoeff(), c.map().maxCoeff()};
    },
    bench::equal)
    .against("Eigen minCoeff + maxCoeff, without indices")
    .goal(0.6)
    .sizes({1000, 1'000'000})
    .remark("with the indices; a short run is searched again for each new extreme");

}  // namespace
}  // namespace zor::kernels

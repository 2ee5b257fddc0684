#include <Eigen/Core>

#include "bench/arrays/flat.h"
#include "bench/pair.h"
#include "zor/arrays/ZOR_openarrays.h"

namespace ZOR_openarrays {
namespace {

namespace bench = zor::bench;

/// n columns of n cells, and the same for the peer.
struct Plane {
  TDouble2DArray a;
  Eigen::MatrixXd x;
};

Plane plane(std::size_t n) {
  const auto noise = bench::noise(n * n);
  const auto size = static_cast<Eigen::Index>(n);
  Plane p;
  p.x = Eigen::Map<const Eigen::MatrixXd>(noise.data(), size, size);
  SetLength(p.a, static_cast<Integer>(n), static_cast<Integer>(n));
  for (std::size_t c = 0; c < n; ++c) std::copy_n(noise.data() + c * n, n, p.a[c].data());
  return p;
}

constexpr auto square = [](std::size_t n) { return static_cast<double>(n * n); };

ZOR_BENCH_PAIR(
    TransposeArray, plane,
    [](Plane& p) {
      TransposeArray(p.a);
      return [&p] { return flat(p.a); };
    },
    [](Plane& p) {
      Eigen::MatrixXd y = p.x.transpose();
      p.x.swap(y);
      return [&p] { return flat(p.x); };
    },
    bench::equal)
    .against("Eigen, into a new matrix")
    .sizes({100, 1000, 1024})
    .items(square);
ZOR_BENCH_PAIR(
    FlipDimArrayRows, plane,
    [](Plane& p) {
      FlipDimArray(p.a, 2);
      return [&p] { return flat(p.a); };
    },
    [](Plane& p) {
      p.x.colwise().reverseInPlace();
      return [&p] { return flat(p.x); };
    },
    bench::equal)
    .against("Eigen")
    .sizes({1000})
    .items(square);

}  // namespace
}  // namespace ZOR_openarrays

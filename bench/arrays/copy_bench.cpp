#include <Eigen/Core>

#include "bench/arrays/flat.h"
#include "bench/pair.h"
#include "zor/arrays/ZOR_openarrays.h"

namespace ZOR_openarrays {
namespace {

namespace bench = zor::bench;

/// n columns of n cells and a target, as arrays, as a line and for the peer.
struct Planes {
  TDouble2DArray a, res;
  TDoubleArray line;
  TIntArray whole;
  Eigen::ArrayXXd x, y;
};

Planes planes(std::size_t n) {
  const auto noise = bench::noise(n * n);
  const auto size = static_cast<Eigen::Index>(n);
  Planes p;
  p.x = Eigen::Map<const Eigen::ArrayXXd>(noise.data(), size, size) * 1e6;
  p.y = Eigen::ArrayXXd::Zero(size, size);
  SetLength(p.a, static_cast<Integer>(n), static_cast<Integer>(n));
  SetLength(p.res, static_cast<Integer>(n), static_cast<Integer>(n));
  for (std::size_t c = 0; c < n; ++c) std::copy_n(p.x.data() + c * n, n, p.a[c].data());
  p.line = TDoubleArray(p.x.data(), p.x.data() + p.x.size());
  return p;
}
constexpr auto square = [](std::size_t n) { return static_cast<double>(n * n); };

ZOR_BENCH_PAIR(
    CloneArray, planes,
    [](Planes& p) {
      CloneArray(p.a, p.res);
      return [&p] { return flat(p.res); };
    },
    [](Planes& p) {
      p.y = p.x;
      return [&p] { return flat(p.y); };
    },
    bench::equal)
    .against("Eigen")
    .sizes({100, 1000})
    .items(square);
ZOR_BENCH_PAIR(
    CloneArrayToInteger, planes,
    [](Planes& p) {
      CloneArray(p.line, p.whole);
      return [&p] { return flat(p.whole); };
    },
    [](Planes& p) {
      SetLength(p.whole, Length(p.line));
      for (std::size_t i = 0; i < p.line.size(); ++i) p.whole[i] = static_cast<Integer>(std::rint(p.line[i]));
      return [&p] { return flat(p.whole); };
    },
    bench::equal)
    .against("rint, without limits")
    .sizes({100, 1000})
    .items(square)
    .remark("the limits of an integer and NaN cost the difference while the cells are near");
ZOR_BENCH_PAIR(
    CopyArrayBlock, planes,
    [](Planes& p) {
      const Integer half = Length(p.a) / 2;
      CopyArray(p.a, 0, 0, half - 1, half - 1, half, half, p.res);
      return [&p] { return flat(p.res); };
    },
    [](Planes& p) {
      const Eigen::Index half = p.x.cols() / 2;
      p.y.block(half, half, half, half) = p.x.block(0, 0, half, half);
      return [&p] { return flat(p.y); };
    },
    bench::equal)
    .against("Eigen")
    .sizes({100, 1000})
    .items([](std::size_t n) { return static_cast<double>(n * n / 4); });

}  // namespace
}  // namespace ZOR_openarrays

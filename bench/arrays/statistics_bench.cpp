#include <Eigen/Core>
#include <array>
#include <cmath>

#include "bench/pair.h"
#include "zor/arrays/ZOR_openarrays.h"

namespace ZOR_openarrays {
namespace {

namespace bench = zor::bench;

struct Line {
  TDoubleArray a;
  Eigen::ArrayXd x;
  Integer last;
};

Line line(std::size_t n) {
  const auto u = bench::noise(n, 1);
  return {TDoubleArray(u.begin(), u.end()), Eigen::Map<const Eigen::ArrayXd>(u.data(), static_cast<Eigen::Index>(n)),
          static_cast<Integer>(n) - 1};
}

ZOR_BENCH_PAIR(
    MinMaxArray, line,
    [](Line& d) {
      std::array<double, 2> r;
      MinMaxArray(d.a, r[0], r[1]);
      return r;
    },
    [](Line& d) {
      return std::array{d.x.minCoeff(), d.x.maxCoeff()};
    },
    bench::equal)
    .against("Eigen minCoeff and maxCoeff")
    .goal(0.6)
    .sizes({1'000'000})
    .remark("0.57 to 0.81 in runs beside other work: one pass of memory against two");

ZOR_BENCH_PAIR(
    MeanArray, line,
    [](Line& d) {
      double mean = 0.0;
      MeanArray(d.a, 0, d.last, mean);
      return mean;
    },
    [](Line& d) { return d.x.mean(); }, bench::close(1e-14))
    .against("Eigen")
    .goal(1.0)
    .sizes({1'000'000})
    .remark(
        "ours sums with twice the precision, to the last bit the mean of MeanVarArray: six operations a cell against "
        "one");

ZOR_BENCH_PAIR(
    StdDevArray, line,
    [](Line& d) {
      double deviation = 0.0;
      StdDevArray(d.a, 0, d.last, deviation);
      return deviation;
    },
    [](Line& d) { return std::sqrt((d.x - d.x.mean()).square().sum() / static_cast<double>(d.x.size() - 1)); },
    bench::close(1e-12))
    .against("Eigen, two passes")
    .goal(1.0)
    .sizes({1'000'000})
    .remark("ours carries sum and squares in twice the precision; both of one pass");

}  // namespace
}  // namespace ZOR_openarrays

#include <Eigen/Core>
#include <utility>

#include "bench/arrays/flat.h"
#include "bench/pair.h"
#include "zor/arrays/ZOR_openarrays.h"

namespace ZOR_openarrays {
namespace {

namespace bench = zor::bench;

/// Two lines, a result, and the same cells for the peer.
struct Lines {
  TDoubleArray a, b, res;
  Eigen::ArrayXd x, y, z;
};

Lines lines(std::size_t n) {
  const auto u = bench::noise(n, 1), v = bench::noise(n, 2);
  Lines d{TDoubleArray(u.begin(), u.end()), TDoubleArray(v.begin(), v.end()), {}, {}, {}, {}};
  d.x = Eigen::Map<const Eigen::ArrayXd>(u.data(), static_cast<Eigen::Index>(n));
  d.y = Eigen::Map<const Eigen::ArrayXd>(v.data(), static_cast<Eigen::Index>(n));
  return d;
}

/// The same for n columns of n cells.
struct Planes {
  TDouble2DArray a, b, res;
  Eigen::ArrayXXd x, y, z;
};

Planes planes(std::size_t n) {
  const auto u = bench::noise(n * n, 1), v = bench::noise(n * n, 2);
  const auto size = static_cast<Eigen::Index>(n);
  Planes d;
  d.x = Eigen::Map<const Eigen::ArrayXXd>(u.data(), size, size);
  d.y = Eigen::Map<const Eigen::ArrayXXd>(v.data(), size, size);
  for (auto [array, from] : {std::pair{&d.a, &u}, std::pair{&d.b, &v}}) {
    SetLength(*array, static_cast<Integer>(n), static_cast<Integer>(n));
    for (std::size_t c = 0; c < n; ++c) {
      std::copy_n(from->begin() + static_cast<std::ptrdiff_t>(c * n), n, (*array)[c].begin());
    }
  }
  return d;
}

constexpr auto add = [](auto& d) {
  AddArrays(d.a, d.b, d.res);
  return [&d] { return flat(d.res); };
};
constexpr auto peer_add = [](auto& d) {
  d.z = d.x + d.y;
  return [&d] { return flat(d.z); };
};
constexpr auto add_fresh = [](auto& d) {
  std::remove_reference_t<decltype(d.res)> res;
  AddArrays(d.a, d.b, res);
  return [res = std::move(res)] { return flat(res); };
};
constexpr auto peer_add_fresh = [](auto& d) {
  std::remove_reference_t<decltype(d.z)> z = d.x + d.y;
  return [z = std::move(z)] { return flat(z); };
};
constexpr auto scale = [](auto& d) {
  MultiplyArrayByScalar(d.a, 1.5, d.res);
  return [&d] { return flat(d.res); };
};
constexpr auto peer_scale = [](auto& d) {
  d.z = d.x * 1.5;
  return [&d] { return flat(d.z); };
};
constexpr auto scale_fresh = [](auto& d) {
  std::remove_reference_t<decltype(d.res)> res;
  MultiplyArrayByScalar(d.a, 1.5, res);
  return [res = std::move(res)] { return flat(res); };
};
constexpr auto peer_scale_fresh = [](auto& d) {
  std::remove_reference_t<decltype(d.z)> z = d.x * 1.5;
  return [z = std::move(z)] { return flat(z); };
};
constexpr auto square = [](std::size_t n) { return static_cast<double>(n * n); };

ZOR_BENCH_PAIR(AddArraysD1, lines, add, peer_add, bench::equal).against("Eigen").goal(1.05).sizes({10'000, 1'000'000});
ZOR_BENCH_PAIR(AddArraysD1Fresh, lines, add_fresh, peer_add_fresh, bench::equal)
    .against("Eigen")
    .goal(1.4)
    .sizes({10'000, 1'000'000});
ZOR_BENCH_PAIR(AddArraysD2, planes, add, peer_add, bench::equal)
    .against("Eigen")
    .goal(1.05)
    .sizes({1000})
    .items(square);
ZOR_BENCH_PAIR(AddArraysD2Fresh, planes, add_fresh, peer_add_fresh, bench::equal)
    .against("Eigen")
    .goal(1.4)
    .sizes({1000})
    .items(square);
ZOR_BENCH_PAIR(MultiplyArrayByScalarD1, lines, scale, peer_scale, bench::equal)
    .against("Eigen")
    .goal(1.05)
    .sizes({10'000, 1'000'000});
ZOR_BENCH_PAIR(MultiplyArrayByScalarD2, planes, scale, peer_scale, bench::equal)
    .against("Eigen")
    .goal(1.05)
    .sizes({1000})
    .items(square);
ZOR_BENCH_PAIR(MultiplyArrayByScalarD1Fresh, lines, scale_fresh, peer_scale_fresh, bench::equal)
    .against("Eigen")
    .goal(1.4)
    .sizes({10'000, 1'000'000});
ZOR_BENCH_PAIR(MultiplyArrayByScalarD2Fresh, planes, scale_fresh, peer_scale_fresh, bench::equal)
    .against("Eigen")
    .goal(1.4)
    .sizes({1000})
    .items(square);
ZOR_BENCH_RATE(FillRandomUniformD1, lines, [](Lines& d) {
  FillRandomUniform(d.a, 0, 1);
  return d.a[0];
}).sizes({1'000'000});

}  // namespace
}  // namespace ZOR_openarrays

#include <Eigen/Core>
#include <algorithm>
#include <array>
#include <memory>
#include <random>

#include "bench/pair.h"
#include "zor/vectors/ZOR_vector.h"

namespace ZOR_vector {
namespace {

namespace bench = zor::bench;

/// A vector, a second one, and the same cells for the peer.
struct Data {
  std::unique_ptr<TVector> v = std::make_unique<TVector>(), w = std::make_unique<TVector>();
  std::vector<double> x, y, work;
  Eigen::Map<Eigen::ArrayXd> a() { return {x.data(), static_cast<Eigen::Index>(x.size())}; }
  Eigen::Map<Eigen::ArrayXd> b() { return {y.data(), static_cast<Eigen::Index>(y.size())}; }
};

std::vector<double> cells_of(const TVector& v) { return {v.begin(), v.end()}; }

Data data(std::size_t n) {
  Data d;
  d.x = bench::noise(n, 1);
  d.y = bench::noise(n, 2);
  d.work = d.x;
  for (auto [vec, cells] : {std::pair{d.v.get(), &d.x}, std::pair{d.w.get(), &d.y}}) {
    vec->SetNrOfElem(static_cast<Integer>(n));
    std::ranges::copy(*cells, vec->Edit().begin());
  }
  return d;
}

/// The same, put back in random order before each call.
struct Unsorted : Data {
  std::vector<double> original;
  void reset() {
    work = original;
    std::ranges::copy(original, v->Edit().begin());
  }
};

Unsorted unsorted(std::size_t n) {
  Unsorted u{data(n), {}};
  u.original = u.x;
  return u;
}

ZOR_BENCH_PAIR(
    VectorAdd, data,
    [](Data& d) {
      d.v->Add(d.w.get());
      return [&d] { return cells_of(*d.v); };
    },
    [](Data& d) {
      d.a() += d.b();
      return [&d] { return d.x; };
    },
    bench::equal)
    .against("Eigen")
    .goal(1.05)
    .sizes({10'000, 1'000'000});

ZOR_BENCH_PAIR(
    VectorSMult, data,
    [](Data& d) {
      d.v->SMult(1.0000001);
      return [&d] { return cells_of(*d.v); };
    },
    [](Data& d) {
      d.a() *= 1.0000001;
      return [&d] { return d.x; };
    },
    bench::equal)
    .against("Eigen")
    .goal(1.05)
    .sizes({10'000, 1'000'000});

ZOR_BENCH_PAIR(
    VectorMeanVar, data,
    [](Data& d) {
      std::array<double, 2> r;
      d.v->MeanVar(0, 0, r[0], r[1]);
      return r;
    },
    [](Data& d) {
      const double mean = d.a().mean();
      return std::array{mean, (d.a() - mean).square().sum() / static_cast<double>(d.x.size() - 1)};
    },
    bench::close(1e-12))
    .against("Eigen, two passes")
    .goal(1.0)
    .sizes({1'000'000});

ZOR_BENCH_PAIR(
    VectorMinMax, data,
    [](Data& d) {
      std::array<double, 2> r;
      Integer lo = 0, hi = 0;
      d.v->MinMax(0, 0, r[0], r[1], lo, hi);
      return r;
    },
    [](Data& d) {
      return std::array{d.a().minCoeff(), d.a().maxCoeff()};
    },
    bench::equal)
    .against("Eigen minCoeff and maxCoeff, without places")
    .goal(0.6)
    .sizes({1'000'000});

ZOR_BENCH_PAIR(
    VectorSum, data, [](Data& d) { return d.v->Sum(0, 0); },
    [](Data& d) {
      double sum = 0.0;
      for (const double x : d.x) sum += x;
      return sum;
    },
    bench::equal)
    .against("plain loop")
    .goal(1.0)
    .sizes({1'000'000});

ZOR_BENCH_PAIR(
    VectorDotProduct, data, [](Data& d) { return d.v->DotProduct(d.w.get()); },
    [](Data& d) {
      double sum = 0.0;
      for (std::size_t i = 0; i < d.x.size(); ++i) sum += d.x[i] * d.y[i];
      return sum;
    },
    bench::equal)
    .against("plain loop")
    .goal(1.0)
    .sizes({1'000'000});

ZOR_BENCH_PAIR(
    VectorSortElems, unsorted,
    [](Unsorted& d) {
      d.v->SortElems(true, 0, 0);
      return [&d] { return cells_of(*d.v); };
    },
    [](Unsorted& d) {
      std::ranges::sort(d.work);
      return [&d] { return d.work; };
    },
    bench::equal)
    .against("std::sort")
    .goal(0.35)
    .sizes({10'000, 1'000'000});

ZOR_BENCH_PAIR(
    VectorMedian, data, [](Data& d) { return d.v->Percentile(50.0, 0, 0); },
    [](Data& d) {
      d.work = d.x;
      const auto middle = d.work.begin() + static_cast<std::ptrdiff_t>(d.work.size() / 2);
      std::nth_element(d.work.begin(), middle, d.work.end());
      return (*middle + *std::max_element(d.work.begin(), middle)) / 2.0;
    },
    bench::close(1e-15))
    .against("copy, std::nth_element, largest of the lower half")
    .goal(0.5)
    .sizes({1'000'000});

/// Shares of the cells in each hundredth of [0, 1); cells outside belong to none.
std::vector<double> hundredths(const std::vector<double>& cells) {
  std::vector<double> shares(100);
  for (const double x : cells)
    if (x >= 0.0 && x < 1.0) shares[static_cast<std::size_t>(x * 100.0)] += 1.0 / static_cast<double>(cells.size());
  return shares;
}

// Two generators share no number; their million cells are spread alike to about 1e-4.
ZOR_BENCH_PAIR(
    VectorFillRandomUniform, data,
    [](Data& d) {
      d.v->FillRandomUniform(0.0, 1.0);
      return [&d] { return hundredths(cells_of(*d.v)); };
    },
    [](Data& d) {
      static std::mt19937_64 engine(1);
      std::uniform_real_distribution<double> uniform(0.0, 1.0);
      for (double& x : d.x) x = uniform(engine);
      return [&d] { return hundredths(d.x); };
    },
    bench::close(1e-3))
    .against("std::mt19937_64 and std::uniform_real_distribution")
    .goal(0.5)
    .sizes({1'000'000});

ZOR_BENCH_RATE(VectorFillRandomGauss, data, [](Data& d) {
  d.v->FillRandomGauss(0.0, 1.0);
  return d.v->GetVal(1);
}).sizes({1'000'000});

ZOR_BENCH_RATE(VectorHistogram, data, [](Data& d) {
  TIntArray histo;
  Integer under = 0, over = 0, most = 0;
  d.v->Histogram(1, d.v->NrOfElem(), -1.0, 0.99, 0.01, histo, under, over, most);
  return most;
}).sizes({1'000'000});

ZOR_BENCH_RATE(VectorCRC, data, [](Data& d) { return d.v->CRCofData().Length(); }).sizes({1'000'000});

}  // namespace
}  // namespace ZOR_vector

#include <memory>

#include "bench/pair.h"
#include "zor/analysis/ZOR_math2.h"

#if defined(ZOR_PEER_GSL)
#include <gsl/gsl_movstat.h>
#endif

namespace ZOR_math2 {
namespace {

namespace bench = zor::bench;

struct Signal {
  std::vector<double> x, out;
  std::shared_ptr<TVector> source = std::make_shared<TVector>(), dest = std::make_shared<TVector>(),
                           kernel = std::make_shared<TVector>();
};
Signal signal(std::size_t n) {
  Signal s;
  s.x = bench::noise(n);
  s.out.resize(n);
  s.source->SetNrOfElem(static_cast<Integer>(n));
  s.dest->SetNrOfElem(static_cast<Integer>(n));
  std::ranges::copy(s.x, s.source->Edit().begin());
  CalcSincLPKernel(25, 0.1, 1, s.kernel.get());
  return s;
}

/// Both ends repeat the first and the last value, as in the library.
template <class Value>
std::vector<double>& plain(Signal& s, std::size_t length, Value value) {
  const std::size_t half = length / 2, n = s.x.size();
  for (std::size_t i = half; i < n - half; ++i) s.out[i] = value(&s.x[i], half);
  std::fill_n(s.out.begin(), half, s.out[half]);
  std::fill(s.out.end() - static_cast<std::ptrdiff_t>(half), s.out.end(), s.out[n - half - 1]);
  return s.out;
}

template <Integer Length>
auto& average(Signal& s) {
  MovingAverageSmooth(s.source.get(), 1, s.source->NrOfElem(), s.dest.get(), Length);
  return *s.dest;
}
template <std::size_t Length>
auto& average_peer(Signal& s) {
  return plain(s, Length, [](const double* x, std::size_t half) {
    double sum = *x;
    for (std::size_t j = 1; j <= half; ++j) sum += x[j] + *(x - j);
    return sum / static_cast<double>(Length);
  });
}
ZOR_BENCH_PAIR(MovingAverage9, signal, average<9>, average_peer<9>, bench::equal)
    .against("plain loop")
    .goal(0.2)
    .sizes({1'000'000});
ZOR_BENCH_PAIR(MovingAverage25, signal, average<25>, average_peer<25>, bench::equal)
    .against("plain loop")
    .goal(0.2)
    .sizes({1'000'000});
ZOR_BENCH_PAIR(MovingAverage101, signal, average<101>, average_peer<101>, bench::equal)
    .against("plain loop")
    .goal(0.2)
    .sizes({1'000'000});

ZOR_BENCH_PAIR(
    PolynomialSmooth25, signal,
    [](Signal& s) -> auto& {
      PolynomialSmooth(s.source.get(), 1, s.source->NrOfElem(), s.dest.get(), 25);
      return *s.dest;
    },
    [](Signal& s) -> auto& {
      return plain(s, 25, [](const double* x, std::size_t half) {
        const auto& row = GolayPoly[10];
        double sum = row[1] * *x;
        for (std::size_t j = 1; j <= half; ++j) sum += row[1 + j] * (x[j] + *(x - j));
        return sum / row[0];
      });
    },
    bench::equal)
    .against("plain loop")
    .goal(0.15)
    .sizes({1'000'000});

ZOR_BENCH_PAIR(
    KernelFilter25, signal,
    [](Signal& s) -> auto& {
      MovingKernelFilter(s.source.get(), 1, s.source->NrOfElem(), s.dest.get(), s.kernel.get());
      return *s.dest;
    },
    [](Signal& s) -> auto& {
      const auto n = static_cast<std::ptrdiff_t>(s.x.size());
      for (std::ptrdiff_t i = 0; i < n; ++i) {
        double sum = 0.0;
        for (std::ptrdiff_t k = 0; k < 25; ++k) {
          const auto c = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(i - 12 + k, 0, n - 1));
          sum += s.x[c] * s.kernel->Cells()[static_cast<std::size_t>(k)];
        }
        s.out[static_cast<std::size_t>(i)] = sum;
      }
      return s.out;
    },
    bench::equal)
    .against("plain loop")
    .goal(0.2)
    .sizes({1'000'000});

#if defined(ZOR_PEER_GSL)
template <Integer Length>
auto& median(Signal& s) {
  MovingMedianSmooth(s.source.get(), 1, s.source->NrOfElem(), s.dest.get(), Length);
  return *s.dest;
}
template <std::size_t Length>
auto& median_peer(Signal& s) {
  gsl_movstat_workspace* work = gsl_movstat_alloc(Length);
  const auto x = gsl_vector_const_view_array(s.x.data(), s.x.size());
  auto out = gsl_vector_view_array(s.out.data(), s.out.size());
  gsl_movstat_median(GSL_MOVSTAT_END_TRUNCATE, &x.vector, &out.vector, work);
  gsl_movstat_free(work);
  std::fill_n(s.out.begin(), Length / 2, s.out[Length / 2]);
  std::fill_n(s.out.rbegin(), Length / 2, s.out[s.out.size() - 1 - Length / 2]);
  return s.out;
}
ZOR_BENCH_PAIR(MovingMedian9, signal, median<9>, median_peer<9>, bench::equal)
    .against("GSL movstat")
    .goal(0.05)
    .sizes({1'000'000});
ZOR_BENCH_PAIR(MovingMedian25, signal, median<25>, median_peer<25>, bench::equal)
    .against("GSL movstat")
    .goal(0.12)
    .sizes({1'000'000});
ZOR_BENCH_PAIR(MovingMedian101, signal, median<101>, median_peer<101>, bench::equal)
    .against("GSL movstat")
    .goal(0.5)
    .sizes({1'000'000});
#endif

}  // namespace
}  // namespace ZOR_math2

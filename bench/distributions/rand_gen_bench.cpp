#include "zor/distributions/rand_gen.h"

#if defined(ZOR_PEER_GSL)
#include <gsl/gsl_randist.h>
#include <gsl/gsl_rng.h>

#include <array>
#include <cmath>
#include <memory>

#include "bench/pair.h"

namespace ZOR_statis {
namespace {

namespace bench = zor::bench;

struct Deviates {
  std::unique_ptr<TRandGen> ours = std::make_unique<TRandGen>();
  std::unique_ptr<gsl_rng, void (*)(gsl_rng*)> peer{gsl_rng_alloc(gsl_rng_mt19937), gsl_rng_free};
  std::size_t count;
};
Deviates deviates(std::size_t n) {
  Deviates d{.count = n};
  d.ours->LowBorder = -4.0;
  d.ours->HighBorder = 4.0;
  d.ours->NormalDistri(0.0, 1.0);
  return d;
}

/// Mean and standard deviation of `count` numbers.
template <class Draw>
std::array<double, 2> moments(std::size_t count, Draw draw) {
  double sum = 0.0, squares = 0.0;
  for (std::size_t i = 0; i < count; ++i) {
    const double x = draw();
    sum += x;
    squares += x * x;
  }
  const double n = static_cast<double>(count), mean = sum / n;
  return {mean, std::sqrt(squares / n - mean * mean)};
}

ZOR_BENCH_PAIR(
    TRandGenNormal, deviates, [](Deviates& d) { return moments(d.count, [&d] { return d.ours->Random(); }); },
    [](Deviates& d) { return moments(d.count, [&d] { return gsl_ran_gaussian(d.peer.get(), 1.0); }); },
    bench::close(0.01))
    .against("GSL gsl_ran_gaussian (polar), mt19937")
    .goal(0.7)
    .sizes({1'000'000})
    .remark(
        "rejection from a table between -4 and 4: 3.2 tries of three uniform numbers a result, each an atomic step");

}  // namespace
}  // namespace ZOR_statis
#endif

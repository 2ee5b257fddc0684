#include <Eigen/Dense>
#include <memory>

#include "bench/pair.h"
#include "zor/analysis/curve_fit.h"

namespace ZOR_math2 {
namespace {

namespace bench = zor::bench;

struct Pairs {
  std::vector<double> x, y;
  std::shared_ptr<TCurveFit> fit = std::make_shared<TCurveFit>();
};
Pairs pairs(std::size_t n) {
  Pairs p{bench::noise(n), bench::noise(n, 2)};
  for (std::size_t i = 0; i < n; ++i) {
    p.x[i] = std::round(1e6 * p.x[i]) + 2e6;
    p.y[i] = std::round(1e6 * p.y[i]) + 2e6 + p.x[i];
  }
  return p;
}

// Each pair at a time, as a user's loop enters them.
ZOR_BENCH_PAIR(
    EnterPairs, pairs,
    [](Pairs& p) {
      p.fit->Init();
      for (std::size_t i = 0; i < p.x.size(); ++i) p.fit->EnterStatValue(p.x[i], p.y[i]);
      return p.fit->MeanX();
    },
    [](Pairs& p) {
      double s[33] = {};
      for (std::size_t i = 0; i < p.x.size(); ++i) {
        const double x = p.x[i], y = p.y[i], ix = 1 / x, iy = 1 / y, lx = std::log(x), ly = std::log(y), d = x - y;
        const double terms[33] = {x,
                                  y,
                                  x * x,
                                  y * y,
                                  d,
                                  d * d,
                                  x * y,
                                  x * x * y,
                                  x * y * y,
                                  x * x * x,
                                  y * y * y,
                                  x * x * x * x,
                                  y * y * y * y,
                                  iy,
                                  ix * iy,
                                  iy * iy,
                                  x * iy,
                                  y * ix,
                                  ix,
                                  ix * ix,
                                  lx,
                                  lx * ly,
                                  lx * lx,
                                  y * ly,
                                  y * lx,
                                  x * lx,
                                  lx * iy,
                                  ly * ix,
                                  ly,
                                  ly * ly,
                                  x * ly,
                                  x * x * ly,
                                  y * y * lx};
        for (std::size_t k = 0; k < 33; ++k) s[k] += terms[k];
      }
      benchmark::DoNotOptimize(s);
      return s[0] / static_cast<double>(p.x.size());
    },
    bench::close(1e-12))
    .against("plain loop over 33 sums")
    .goal(1.2)
    .sizes({1'000'000})
    .remark("13 of the sums with twice the precision; the pairs are kept");

ZOR_BENCH_PAIR(
    KendallsTau, pairs,
    [](Pairs& p) {
      p.fit->Init();
      p.fit->EnterStatValues(p.x, p.y);
      double significance;
      return p.fit->KendallsTau(significance);
    },
    [](Pairs& p) {
      double c = 0, d = 0, tx = 0, ty = 0;
      for (std::size_t i = 0; i < p.x.size(); ++i)
        for (std::size_t j = i + 1; j < p.x.size(); ++j) {
          const double dx = p.x[i] - p.x[j], dy = p.y[i] - p.y[j], s = dx * dy;
          c += s > 0;
          d += s < 0;
          tx += s == 0 && dx != 0;
          ty += s == 0 && dy != 0;
        }
      return (c - d) / std::sqrt((c + d + tx) * (c + d + ty));
    },
    bench::close(1e-13))
    .against("all pairs of pairs")
    .goal(0.01)
    .sizes({10'000})
    .remark("with the entry of the pairs");

ZOR_BENCH_PAIR(
    CenteredPolyFit5, pairs,
    [](Pairs& p) {
      if (p.fit->NumData() == 0) p.fit->EnterStatValues(p.x, p.y);
      TDoubleArray k;
      double shift = 0.0, quality;
      Boolean singular;
      p.fit->CalcCenteredPolyFit(5, k, shift, quality, singular);
      return p.fit->Evaluate(2.5e6) / 1e6;
    },
    [](Pairs& p) {
      const auto n = static_cast<Eigen::Index>(p.x.size());
      const Eigen::Map<const Eigen::VectorXd> x(p.x.data(), n), y(p.y.data(), n);
      const double mean = x.mean(), scale = std::sqrt((x.array() - mean).square().mean());
      Eigen::MatrixXd design(n, 6);
      design.col(0).setOnes();
      for (Eigen::Index j = 1; j < 6; ++j) design.col(j) = design.col(j - 1).array() * ((x.array() - mean) / scale);
      const Eigen::VectorXd b = design.householderQr().solve(y);
      double value = 0.0;
      for (Eigen::Index j = 6; j-- > 0;) value = value * ((2.5e6 - mean) / scale) + b(j);
      return value / 1e6;
    },
    bench::close(1e-9))
    .against("Eigen, HouseholderQR")
    .goal(1.2)
    .sizes({100'000})
    .remark("by singular values, with significances and the quality of the fit");

}  // namespace
}  // namespace ZOR_math2

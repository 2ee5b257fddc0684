#if defined(ZOR_PEER_GSL)
#include <gsl/gsl_cdf.h>
#include <gsl/gsl_sf_gamma.h>

#include "bench/pair.h"
#include "zor/statistics/ZOR_statis.h"

namespace ZOR_statis {
namespace {

namespace bench = zor::bench;

/// Values from 0.1 to 20, and probabilities.
struct Values {
  std::vector<double> x, p, out;
};
Values values(std::size_t n) {
  Values v{bench::noise(n), bench::noise(n, 7), std::vector<double>(n)};
  for (double& x : v.x) x = 10.05 + 9.95 * x;
  for (double& p : v.p) p = 0.5 + 0.4999 * p;
  return v;
}
template <class F>
std::vector<double>& over(const std::vector<double>& in, Values& v, F f) {
  for (std::size_t i = 0; i < in.size(); ++i) v.out[i] = f(in[i]);
  return v.out;
}

#define ZOR_DISTRIBUTION_PAIR(name, in, ours, peer, tolerance, ratio)                                           \
  ZOR_BENCH_PAIR(                                                                                               \
      name, values, [](Values& v) -> auto& { return over(v.in, v, [](double x) { return ours; }); },            \
      [](Values& v) -> auto& { return over(v.in, v, [](double x) { return peer; }); }, bench::close(tolerance)) \
      .against("GSL")                                                                                           \
      .goal(ratio)                                                                                              \
      .sizes({10'000})

ZOR_DISTRIBUTION_PAIR(Chi2Integral, x, chi2DistriIntegral(x, 7.0), gsl_cdf_chisq_P(x, 7.0), 1e-12, 1.0);
ZOR_DISTRIBUTION_PAIR(TIntegral, x, tDistriIntegral(x / 5, 9.0), gsl_cdf_tdist_P(x / 5, 9.0), 1e-12, 1.0);
ZOR_DISTRIBUTION_PAIR(FIntegral, x, FDistriIntegral(x / 5, 4.0, 11.0), gsl_cdf_fdist_P(x / 5, 4.0, 11.0), 1e-12, 1.0);
ZOR_DISTRIBUTION_PAIR(Chi2Quantile, p, chi2DistriQuantile(x, 7.0), gsl_cdf_chisq_Pinv(x, 7.0), 1e-8, 0.5);
ZOR_DISTRIBUTION_PAIR(TQuantile, p, tDistriQuantile(x, 9.0), gsl_cdf_tdist_Pinv(x, 9.0), 1e-8, 0.5);
ZOR_DISTRIBUTION_PAIR(FQuantile, p, FDistriQuantile(x, 4.0, 11.0), gsl_cdf_fdist_Pinv(x, 4.0, 11.0), 1e-8, 0.5);
ZOR_DISTRIBUTION_PAIR(IncompleteGamma, x, IncompleteGamma(x, 7.0), gsl_sf_gamma_inc_P(7.0, x), 1e-7, 0.35);
ZOR_DISTRIBUTION_PAIR(IncompleteBeta, p, IncompleteBeta(x, 3.0, 7.0), gsl_sf_beta_inc(3.0, 7.0, x), 1e-7, 0.35);

}  // namespace
}  // namespace ZOR_statis
#endif

#include "bits.h"
#include "zor/statistics/ZOR_statis.h"

using namespace ZOR_statis;

ZOR_BITS(distributions) {
  std::vector<double> t, chi2, f, binomial, quantiles, tests;
  for (double x = 0.05; x < 60.0; x *= 1.3) {
    for (const double df : {0.5, 3.0, 40.0, 2000.0, 3e6}) {
      t.insert(t.end(), {tDistriIntegral(-x, df), tDistriDensity(x, df)});
      chi2.insert(chi2.end(), {chi2DistriIntegral(x * df / 8, df), chi2DistriUpperTail(x * df / 8, df)});
      f.insert(f.end(), {FDistriIntegral(x, df, 9.0), FDistriUpperTail(x, df, 9.0), FDistriDensity(x, 5.0, df)});
    }
    binomial.push_back(BinomDistriIntegral(500, x / 70.0, 60));
    quantiles.insert(quantiles.end(), {tDistriQuantile(x / 61.0, 4.0), chi2DistriQuantile(x / 61.0, 3.5),
                                       FDistriQuantile(x / 61.0, 3.0, 8.0), nDistriQuantile(x / 61.0)});
    tests.insert(tests.end(),
                 {KSPValue(30, x / 120.0), LillieforsPValue(30, x / 200.0), ShapiroWilkIntegral(1.0 - x / 200.0, 30, 0),
                  UDistriIntegral(9, 12, static_cast<Integer>(x))});
  }
  bits::print("t", t);
  bits::print("chi2", chi2);
  bits::print("f", f);
  bits::print("binomial", binomial);
  bits::print("quantiles", quantiles);
  bits::print("tests", tests);
}

#include "zor/analysis/curve_fit.h"
#include "zor/kernels/moments.h"

namespace ZOR_math2 {

void TCurveFit::CalcAnovaReg(Integer NumVars, Boolean IncludeConst, Integer& dfreg, Integer& dfres, Integer& dftotal,
                             Double& SSE, Double& SSR, Double& SST, Double& MSE, Double& MSR,
                             Double& F) const noexcept {
  const Integer count = NumData();
  const Double n = count;
  dfreg = NumVars;
  dftotal = IncludeConst ? count - 1 : count;
  dfres = static_cast<Integer>(static_cast<Cardinal>(dftotal) - static_cast<Cardinal>(dfreg));
  const Double m = IncludeConst ? MeanX() : 0.0;
  SSE = sums_.diff2.hi;
  SSR = sums_.yy.hi - 2.0 * m * sums_.y.hi + n * m * m;
  SST = sums_.xx.hi - 2.0 * m * sums_.x.hi + n * m * m;
  MSE = dfres < 1 ? 0.0 : SSE / dfres;
  MSR = dfreg < 1 ? 0.0 : SSR / dfreg;
  F = dfres < 1 || MSR == 0.0 ? 0.0 : MSE == 0.0 ? 1e10 : MSR / MSE;
}

}  // namespace ZOR_math2

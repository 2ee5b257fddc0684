#include "zor/analysis/gauss_kernel.h"

#include <cmath>

namespace ZOR_math2 {

namespace {

template <class OtherAt>
Double gauss(const TVector& vector, Integer n, Double Sigma, OtherAt other_at) {
  Double sum = 0.0;
  for (Integer i = 1; i <= n; ++i) {
    const Double d = vector.GetVal(i) - other_at(i);
    sum += d * d;
  }
  if (sum == 0.0) return 1.0;
  const Double s = sum / (Sigma * Sigma);
  return std::exp(s <= 20.0 ? -s : -20.0);
}

}  // namespace

Double CalcGaussKernel(const TVector* V1, const TVector* V2, Double Sigma) {
  if (!V1 || !V2) return 0.0;
  return gauss(*V1, V2->NrOfElem(), Sigma, [&](Integer i) { return V2->GetVal(i); });
}

Double CalcGaussKernelMat(const TVector* V, const TMatrix* M, Integer Row, Double Sigma) {
  if (!V || !M) return 0.0;
  return gauss(*V, M->NrOfColumns(), Sigma, [&](Integer i) { return M->GetVal(i, Row); });
}

}  // namespace ZOR_math2

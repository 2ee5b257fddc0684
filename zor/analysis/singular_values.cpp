#include "zor/analysis/singular_values.h"

#include <algorithm>
#include <cmath>

#include "zor/analysis/decomposition_internal.h"
#include "zor/kernels/product.h"
#include "zor/vectors/store_internal.h"

namespace ZOR_math2 {

using zor::detail::ColumnBlock;
using zor::detail::Decomposition;
using zor::detail::to_size;
using zor::kernels::Decomposed;

Boolean SingValDecomp(TMatrix* U, TMatrix* V, TVector* W) {
  if (!U || !V || !W || U == V) return false;
  const std::size_t rows = to_size(U->NrOfRows());
  const Decomposition d(*U);
  if (d.ended == Decomposed::aborted || d.ended == Decomposed::not_finite) return false;
  zor::detail::store(*U, d.u, rows);
  zor::detail::store(*V, d.v);
  zor::detail::store(*W, d.w);
  return d.done();
}

Boolean PseudoInverse(const TMatrix* InMat, TMatrix* PInv, Double Threshold) {
  if (!InMat || !PInv) return false;
  const std::size_t n = to_size(InMat->NrOfColumns()), m = to_size(InMat->NrOfRows());
  Decomposition d(*InMat);
  ColumnBlock inverse(m, n);
  if (d.done()) {
    if (Threshold == 0.0) Threshold = static_cast<Double>(std::max(n, m)) * d.largest() * 1.2e-16;
    for (std::size_t i = 0; i < n; ++i) {
      const bool counts = std::fabs(d.w[i]) > Threshold;
      for (Double& x : d.v[i]) x = counts ? x / d.w[i] : 0.0;
    }
    zor::kernels::multiply(d.v.columns.data(), zor::kernels::Form::plain, d.u.columns.data(),
                           zor::kernels::Form::transposed, inverse.columns.data(), n, m, n);
  }
  zor::detail::store(*PInv, inverse);
  return d.done();
}

}  // namespace ZOR_math2

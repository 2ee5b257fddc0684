#include "zor/analysis/least_squares.h"

#include <algorithm>
#include <vector>

#include "zor/analysis/decomposition_internal.h"
#include "zor/kernels/twofold.h"
#include "zor/vectors/store_internal.h"

namespace ZOR_math2 {
namespace {

using zor::detail::ColumnBlock;
using zor::detail::Decomposition;

std::vector<Double> inverses(std::span<const Double> w) {
  std::vector<Double> gain(w.size());
  std::ranges::transform(w, gain.begin(), zor::detail::inverse_or_zero);
  return gain;
}

/// y - a x, with twice the precision until the end.
std::vector<Double> residuals(const ColumnBlock& a, std::span<const Double> y, std::span<const Double> x) {
  std::vector<Double> high(y.begin(), y.end()), low(y.size(), 0.0);
  for (std::size_t j = 0; j < x.size(); ++j) {
    const std::span<const Double> column = a[j];
    for (std::size_t i = 0; i < high.size(); ++i) {
      const auto term = zor::kernels::two_product(column[i], -x[j]);
      const auto sum = zor::kernels::two_sum(high[i], term.hi);
      high[i] = sum.hi;
      low[i] += sum.lo + term.lo;
    }
  }
  for (std::size_t i = 0; i < high.size(); ++i) high[i] += low[i];
  return high;
}

/// Solves again for what is left (A. Bjorck, BIT 7 (1967), 257): columns of very different size cost digits at first.
void refine(const ColumnBlock& a, const Decomposition& d, std::span<const Double> y, std::span<Double> x) {
  std::vector<Double> change(x.size());
  for (int round = 0; round < 2; ++round) {
    zor::detail::apply_inverse(d.u, d.v, inverses(d.w), residuals(a, y, x), change, {});
    for (std::size_t i = 0; i < x.size(); ++i) x[i] += change[i];
  }
}

}  // namespace

Boolean SingValEquSolve(const TMatrix* U, const TMatrix* V, const TVector* W, const TVector* B, TVector* X,
                        TVector* Dev) {
  if (!U || !V || !W || !B || !X) return false;
  const Integer n = U->NrOfColumns();
  if (V->NrOfColumns() != n || V->NrOfRows() != n || W->NrOfElem() != n || B->NrOfElem() != U->NrOfRows()) return false;
  std::vector<Double> x(W->Cells().size()), deviations(Dev ? x.size() : 0);
  zor::detail::apply_inverse(ColumnBlock(*U), ColumnBlock(*V), inverses(W->Cells()), B->Cells(), x, deviations);
  zor::detail::store(*X, x);
  if (Dev) zor::detail::store(*Dev, deviations);
  return true;
}

Boolean MultiLinReg(TMatrix* InMat, const TVector* Y, TVector* Coef, TVector* Dev, Boolean& NearSingular) {
  NearSingular = false;
  if (!InMat || !Y || !Coef || Y->NrOfElem() != InMat->NrOfRows()) return false;
  const std::vector<Double> y(Y->begin(), Y->end());
  const ColumnBlock design(*InMat);
  Decomposition d(*InMat);
  if (!d.done()) return false;
  NearSingular = d.drop_small_values();
  std::vector<Double> coefficients(d.w.size()), deviations(Dev ? d.w.size() : 0);
  zor::detail::apply_inverse(d.u, d.v, inverses(d.w), y, coefficients, deviations);
  refine(design, d, y, coefficients);
  zor::detail::store(*InMat, d.u, y.size());
  zor::detail::store(*Coef, coefficients);
  if (Dev) zor::detail::store(*Dev, deviations);
  return true;
}

}  // namespace ZOR_math2

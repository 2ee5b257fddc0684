#include <algorithm>
#include <cmath>
#include <vector>

#include "zor/base/feedback.h"
#include "zor/kernels/singular_values.h"
#include "zor/kernels/sums.h"
#include "zor/matrices/heap_guard_internal.h"
#include "zor/matrices/matrix.h"
#include "zor/matrices/transpose_block_internal.h"

namespace ZOR_matrix {
namespace {

/// NaN is never the largest, wherever it stands.
Double largest_of(const std::vector<Double>& sums) {
  Double largest = 0.0;
  for (const Double sum : sums) largest = sum > largest ? sum : largest;
  return largest;
}

/// `steps` feedback steps; false if one of them asked for an end. Without a listener they are taken at once.
bool feedback_steps(std::size_t steps) {
  if (!zor::detail::feedback_listens()) return !zor::detail::feedback_step_aborts(static_cast<Double>(steps));
  for (; steps > 0; --steps) {
    if (zor::detail::feedback_step_aborts()) return false;
  }
  return true;
}

/// The largest singular value of a matrix given by its columns, which are lost; NaN if it was not found. The steps are
/// those of the reduction of each column, of the two accumulations, and of the search for each value.
Double spectral_norm(TDouble2DArray& a) {
  const std::size_t m = a[0].size(), n = a.size();
  if (!feedback_steps(n)) return NAN;
  std::vector<Double*> columns;
  for (TDoubleArray& column : a) columns.push_back(column.data());
  std::vector<Double> values(n), work(zor::kernels::singular_values_work(n));
  if (!zor::kernels::singular_values(columns.data(), m, n, values.data(), work.data())) return NAN;
  return feedback_steps(3 * n) ? largest_of(values) : NAN;
}

}  // namespace

Double TMatrix::Norm(TNormType nt) const {
  const auto add_magnitude = [](Double sum, Double x) { return sum + std::fabs(x); };
  std::vector<Double> sums;
  switch (nt) {
    case ntColwise:
      for (const TArray& column : Mat) {
        Double sum = 0.0;
        for (const Double x : column) sum = add_magnitude(sum, x);
        sums.push_back(sum);
      }
      return largest_of(sums);
    case ntRowwise:
      sums.assign(zor::detail::to_size(FNRow), 0.0);
      for (const TArray& column : Mat) std::ranges::transform(sums, column, sums.begin(), add_magnitude);
      return largest_of(sums);
    case ntFrobenius: {
      Double sum = 0.0;
      for (const TArray& column : Mat) sum = zor::kernels::sum_of_squares_in_order(column, sum);
      return std::sqrt(sum);
    }
    case ntSpectral:
      break;
  }
  // The kernel wants at least as many rows as columns; a matrix and the same turned have the same singular values.
  T2DArray work;
  const Integer longer = std::max(FNCol, FNRow), shorter = std::min(FNCol, FNRow);
  zor::detail::heap_guard(*this, [&] { SetLength(work, shorter, longer); });
  if (FNRow >= FNCol) {
    for (Integer c = 0; c < FNCol; ++c) std::ranges::copy(Mat[c], work[c].begin());
  } else {
    zor::detail::transpose_block(
        Mat.size(), zor::detail::to_size(FNRow), [&](std::size_t c) { return Mat[c].data(); },
        [&](std::size_t r) { return work[r].data(); });
  }
  const Double norm = spectral_norm(work);
  if (std::isnan(norm)) throw EZORMatrixError("near singular covariance matrix");
  return norm;
}

template <class Self, Cell T>
T MatrixCore<Self, T>::Trace() const {
  T sum = 0;
  if (dense_columns() == dense_rows()) {
    for (Integer i = 0; i < dense_columns(); ++i) sum += Mat[i][i];
  }
  return sum;
}

#define ZOR_INSTANCES(M, T) template T MatrixCore<M, T>::Trace() const;

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix

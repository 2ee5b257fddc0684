#include <algorithm>
#include <cmath>
#include <vector>

#include "zor/arrays/lu.h"
#include "zor/arrays/matrix_inverse.h"
#include "zor/kernels/cholesky.h"
#include "zor/matrices/heap_guard_internal.h"
#include "zor/matrices/matrix.h"

namespace ZOR_matrix {

Boolean TMatrix::Invert() {
  const Integer n = FNCol;
  T2DArray work = Mat;
  const Integer code = zor::detail::memory_guard(*this, [&] { return ZOR_openarrays::InvertArray(work); });
  const bool fits = FNCol == n && FNRow == Length(work[0]);  // a feedback procedure may have resized this matrix
  if (code != ZOR_openarrays::kNotInvertible && fits) swap_cells(work);
  return code == 0 && fits;
}

Double TMatrix::Determinant() const {
  T2DArray lower, upper;
  const auto factor = [&] { return ZOR_openarrays::LUdecomposition(Mat, lower, upper); };
  if (zor::detail::memory_guard(*this, factor) != 0) return 0.0;
  Double product = 1.0;
  for (Integer i = 0; i < FNCol; ++i) product *= upper[i][i];
  return product;
}

Boolean TMatrix::LUdecomposition(TMatrix* MatL, TMatrix* MatU) const {
  if (!MatL || !MatU || MatL == MatU) return false;
  T2DArray lower, upper;
  const auto factor = [&] { return ZOR_openarrays::LUdecomposition(Mat, lower, upper); };
  if (zor::detail::memory_guard(*this, factor) != 0) return false;
  MatL->write_result(lower);
  MatU->write_result(upper);
  return true;
}

Boolean TMatrix::CholeskyDecomp(TMatrix* MatL) {
  const Integer n = FNCol;
  if (!MatL || MatL == this || FNRow != n) return false;
  T2DArray lower;
  std::vector<Double*> columns;
  const bool found = zor::detail::heap_guard(*this, [&] {
    SetLength(lower, n, n);
    for (TArray& column : lower) columns.push_back(column.data());
    return zor::kernels::cholesky(column_pointers().data(), columns.size(), columns.data());
  });
  if (!found) return false;
  MatL->Resize(n, n);
  // A handler of the resizing may have changed either matrix.
  if (MatL->FNCol != n || MatL->FNRow != n || FNCol != n || FNRow != n) return false;
  for (Integer c = 0; c < n; ++c) {
    std::copy(lower[c].begin() + c, lower[c].end(), MatL->Mat[c].begin() + c);
    for (Integer r = 0; r < c; ++r) Mat[c][r] = lower[r][c];
  }
  MatL->Changed();
  return true;
}

Boolean TMatrix::Balance(Double Tolerance) {
  if (FNCol != FNRow) return false;
  constexpr int kMostPasses = 100;
  const Double tolerance = Tolerance > 1.05 ? 1.05 : Tolerance > 1.000001 ? Tolerance : 1.000001;
  const auto n = Mat.size();
  std::vector<Double*> columns;
  for (TArray& column : Mat) columns.push_back(column.data());
  int passes = 0;
  for (Double largest = 2.1; largest > tolerance && passes < kMostPasses;) {
    ++passes;
    largest = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
      Double row_sum = 0.0, column_sum = 0.0;
      for (std::size_t j = 0; j < n; ++j) {
        if (j == i) continue;
        row_sum += std::fabs(columns[j][i]);
        column_sum += std::fabs(columns[i][j]);
      }
      const Double factor = std::sqrt(row_sum / column_sum);
      if (column_sum == 0.0 || factor == 0.0 || !std::isfinite(factor)) continue;
      largest = (std::max)(largest, factor);
      for (std::size_t j = 0; j < n; ++j) {
        if (j == i) continue;
        columns[j][i] /= factor;
        columns[i][j] *= factor;
      }
    }
  }
  return passes < kMostPasses;
}

Integer TMatrix::CalcHatMatrix(TMatrix* HatMat) const {
  if (!HatMat || HatMat == this) return ZOR_openarrays::kSizeMismatch;
  const T2DArray x = Mat;
  T2DArray cells;
  const Integer code = zor::detail::memory_guard(*this, [&] {
    const Integer result = ZOR_openarrays::CalcHatMatrix(x, cells);
    if (result != 0) {
      cells = HatMat->Mat;
      SetLength(cells, Length(x[0]), Length(x[0]));
    }
    return result;
  });
  HatMat->swap_cells(cells);
  return code;
}

}  // namespace ZOR_matrix

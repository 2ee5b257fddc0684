#include "zor/analysis/eigenvectors.h"

#include <cmath>
#include <exception>
#include <new>
#include <utility>
#include <vector>

#include "zor/analysis/covariance.h"
#include "zor/analysis/decomposition_internal.h"
#include "zor/base/feedback.h"
#include "zor/kernels/jacobi.h"

namespace ZOR_math2 {

namespace {

using zor::detail::ColumnBlock;
using zor::detail::to_size;

constexpr Integer kMostColumns = 10000;

struct Store {
  Integer size = 0;
  std::vector<Double> values;
  ColumnBlock vectors{0, 0};  // a column is a vector
};
Store g_store;

bool step() { return zor::detail::feedback_step_aborts(); }

/// The cells with column > row as the rotations left them.
void lose_upper_cells(TMatrix& to, const ColumnBlock& from) {
  auto edit = to.Edit();
  for (std::size_t c = 0; c < from.size(); ++c) {
    const auto column = edit.Column(static_cast<Integer>(c + 1));
    for (std::size_t r = 0; r < c && r < column.size(); ++r) column[r] = from[c][r];
  }
}

}  // namespace

Boolean CalcEigVec(TMatrix* Mat) {
  if (!Mat || Mat->NrOfColumns() > kMostColumns || Mat->NrOfRows() < Mat->NrOfColumns()) return false;
  const std::size_t n = to_size(Mat->NrOfColumns());
  try {
    ColumnBlock cells(*Mat, 1, n, 1, n);
    Store found{Mat->NrOfColumns(), std::vector<Double>(n), ColumnBlock(n, n)};
    std::vector<Double> work(2 * n);
    AbortMathProc = false;
    const bool done = zor::kernels::jacobi_eigen(cells.columns.data(), n, found.values.data(),
                                                 found.vectors.columns.data(), work.data(), step);
    g_store = std::move(found);
    lose_upper_cells(*Mat, cells);
    return done;
  } catch (const std::bad_alloc&) {
    std::throw_with_nested(EZORMath2Error("CalcEigVec: not enough memory"));
  } catch (const EOutOfMemory&) {
    std::throw_with_nested(EZORMath2Error("CalcEigVec: not enough memory"));
  }
}

Double GetEigenResult(Integer ix, Integer iy) noexcept {
  const auto count = static_cast<Integer>(g_store.values.size());
  if (ix < 1 || ix > count || iy < 0 || iy > count) return 0.0;
  const std::size_t vector = to_size(ix - 1);
  return iy == 0 ? g_store.values[vector] : g_store.vectors[vector][to_size(iy - 1)];
}

Integer GetEigenSize() noexcept { return g_store.size; }

void RemoveEigenMatrix() noexcept {
  g_store.values = {};
  g_store.vectors.columns = {};
  g_store.vectors.cells = nullptr;
}

Boolean CalcPrincComp(const TMatrix* InMat, Integer FirstCol, Integer LastCol, Integer FirstRow, Integer LastRow,
                      Integer Mode, Boolean Normalize) {
  const Int64 columns = Int64{LastCol} - FirstCol + 1;
  if (!InMat || columns < 1 || columns > InMat->NrOfColumns()) return false;
  TMatrix covariances;
  covariances.Resize(static_cast<Integer>(columns), static_cast<Integer>(columns));
  if (!CalcCovar(InMat, &covariances, FirstCol, LastCol, FirstRow, LastRow, Mode) || !CalcEigVec(&covariances))
    return false;
  std::vector<Double>& values = g_store.values;
  if (Normalize) {
    Double sum = 0.0;
    for (const Double v : values) sum += std::abs(v);
    if (sum != 0.0)
      for (Double& v : values) v /= sum;
  }
  for (std::size_t i = 0; i < values.size(); ++i) {
    std::size_t largest = i;
    Double most = 0.0;
    for (std::size_t k = i; k < values.size(); ++k) {
      if (values[k] > most) most = values[largest = k];
    }
    std::swap(values[i], values[largest]);
    for (std::size_t r = 0; i != largest && r < g_store.vectors.rows; ++r)
      std::swap(g_store.vectors[i][r], g_store.vectors[largest][r]);
  }
  return true;
}

Boolean CalcPrincComp(const TMatrix* InMat, Integer FirstCol, Integer LastCol, Integer FirstRow, Integer LastRow,
                      Integer Mode) {
  return CalcPrincComp(InMat, FirstCol, LastCol, FirstRow, LastRow, Mode, true);
}

}  // namespace ZOR_math2

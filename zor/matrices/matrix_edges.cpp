#include <cmath>
#include <numeric>

#include "zor/base/ZOR_univconst.h"
#include "zor/kernels/extremes.h"
#include "zor/kernels/moments.h"
#include "zor/kernels/sums.h"
#include "zor/matrices/matrix.h"
#include "zor/matrices/row_blocks_internal.h"
#include "zor/vectors/store_internal.h"

namespace ZOR_matrix {
namespace {

namespace kernels = zor::kernels;

/// The value of one edge cell; `full` is the number of all cells of the line.
Double fold(TEdgeOp op, std::span<const Double> cells, Integer full) {
  constexpr Double kMost = ZOR_univconst::uc_MaxDouble;
  switch (op) {
    case eoMin:
    case eoMax: {
      kernels::Extremes<Double> extremes{kMost, -kMost};
      kernels::min_max(cells, extremes);
      return op == eoMin ? extremes.minimum : extremes.maximum;
    }
    case eoSum:
      return kernels::sum_in_order(cells);
    case eoMean:
      return kernels::sum_in_order(cells) / full;
    case eoStdDev:
      return cells.size() < 3 ? 0.0 : std::sqrt(kernels::mean_variance(cells).variance);
  }
  return 0.0;
}

/// The indices of the list that exist, from 0; all of them for an empty list.
std::vector<std::size_t> valid_indices(const TIntArray& list, Integer size) {
  std::vector<std::size_t> indices;
  if (list.empty()) {
    indices.resize(static_cast<std::size_t>(size));
    std::iota(indices.begin(), indices.end(), std::size_t{0});
  }
  for (const Integer i : list)
    if (i >= 1 && i <= size) indices.push_back(static_cast<std::size_t>(i - 1));
  return indices;
}

}  // namespace

template <class Self, Cell T>
Integer MatrixCore<Self, T>::EdgeVector(TOrientation Orient, TEdgeOp EdgeOp, const TIntArray& EdgeIx,
                                        TVector* Dest) const {
  if (!Dest) return kNoDestination;
  const Boolean horizontal = Orient == orHorizontal;
  const Integer full = horizontal ? dense_columns() : dense_rows();
  const std::vector<std::size_t> indices = valid_indices(EdgeIx, full);
  std::vector<Double> values;
  if (horizontal) {
    const auto n = static_cast<std::size_t>(dense_rows());
    values.resize(n);
    std::vector<const T*> columns;
    for (const std::size_t c : indices) columns.push_back(Mat[c].data());
    zor::detail::for_rows(std::span<const T* const>(columns), 0, n,
                          [&](std::size_t r, std::span<const T> row) { values[r] = fold(EdgeOp, row, full); });
  } else {
    std::vector<T> listed(indices.size());
    for (const TArray& column : Mat) {
      if (EdgeIx.empty()) {
        values.push_back(fold(EdgeOp, column, full));
      } else {
        for (std::size_t i = 0; i < indices.size(); ++i) listed[i] = column[indices[i]];
        values.push_back(fold(EdgeOp, listed, full));
      }
    }
  }
  const Integer code = !EdgeIx.empty() && indices.size() != EdgeIx.size() ? kBadIndex : 0;
  zor::detail::store_each(*Dest, values);
  return code;
}

#define ZOR_INSTANCES(M, T) \
  template Integer MatrixCore<M, T>::EdgeVector(TOrientation, TEdgeOp, const TIntArray&, TVector*) const;

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix

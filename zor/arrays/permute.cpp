#include "zor/arrays/permute.h"

#include <algorithm>
#include <vector>

#include "zor/arrays/copy_cells_internal.h"

namespace ZOR_openarrays {
namespace {

using Order = std::vector<std::size_t>;

/// The row of the 1 of each column of `perm`, n x n; empty if that is no permutation matrix.
Order rows_of_ones(const TInt2DArray& perm) {
  const auto n = static_cast<std::ptrdiff_t>(perm.size());
  Order rows;
  std::vector<bool> taken(perm.size());
  for (const TIntArray& column : perm) {
    const auto one = std::find(column.begin(), column.end(), 1);
    const auto row = static_cast<std::size_t>(one - column.begin());
    if (one == column.end() || std::count(column.begin(), column.end(), 0) != n - 1 || taken[row]) return {};
    taken[row] = true;
    rows.push_back(row);
  }
  return rows;
}

Order inverse(const Order& order) {
  Order result(order.size());
  for (std::size_t i = 0; i < order.size(); ++i) result[order[i]] = i;
  return result;
}

}  // namespace

Integer PermuteArray(const TDouble2DArray& A, const TInt2DArray& Perm, TApplyColRow ColRow, Boolean Flag,
                     TDouble2DArray& Res) {
  const auto shape = zor::detail::shape_of(A), perm_shape = zor::detail::shape_of(Perm);
  if (shape.empty() || perm_shape.empty()) return kEmptyArray;
  const auto [cols, rows] = shape.length;
  const std::size_t n = ColRow == acrColumns ? cols : rows;
  if (perm_shape.length != std::array{n, n}) return kNoPermutation;
  Order from = rows_of_ones(Perm);
  if (from.empty()) return kNoPermutation;
  if (!Flag) from = inverse(from);

  TDouble2DArray made;
  zor::detail::set_length_unset(made, cols, rows);
  for (std::size_t c = 0; c < cols; ++c) {
    if (ColRow == acrColumns) {
      zor::detail::copy_run(A[from[c]].data(), rows, made[c].data());
    } else {
      for (std::size_t r = 0; r < rows; ++r) made[c][r] = A[c][from[r]];
    }
  }
  Res.swap(made);
  return 0;
}

}  // namespace ZOR_openarrays

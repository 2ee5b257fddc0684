#pragma once

#include <algorithm>
#include <span>

#include "zor/kernels/selection.h"
#include "zor/runtime/numbers.h"

/// \file  The percentile of matrices, which is one of the cells.

namespace zor::detail {

/// The cell of rank Round(prob n / 100), at most n - 1, of the ascending order; prob, no NaN, is moved into 0 to 100.
/// The n >= 1 cells come back in another order.
inline double nearest_percentile(std::span<double> work, double prob) noexcept {
  const auto n = static_cast<double>(work.size());
  const auto rank = static_cast<std::size_t>(ZOR_runtime::Round(std::clamp(prob, 0.0, 100.0) * n / 100.0));
  return kernels::select_kth(work, rank);  // a rank beyond the last cell means the last
}

}  // namespace zor::detail

#include "zor/arrays/percentile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

#include "zor/arrays/walk_internal.h"
#include "zor/kernels/selection.h"
#include "zor/runtime/numbers.h"

namespace ZOR_openarrays {
namespace {

using zor::detail::Box;

template <class A, std::size_t N>
Double percentile(Double pct, const A& a, const Box<N>& box) {
  if (std::isnan(pct)) return pct;
  std::size_t n = 1;
  for (const std::size_t length : box.count) n *= length;
  TDynArray<CellType<A>> work;
  zor::detail::set_length_unset(work, n);
  CellType<A>* to = work.data();
  zor::detail::for_runs(
      box, [&](std::span<const CellType<A>> run) { to = std::ranges::copy(run, to).out; }, a);
  const auto count = static_cast<std::int64_t>(n);
  const std::int64_t rank = ZOR_runtime::Round(std::clamp(pct, 0.0, 100.0) * static_cast<Double>(count) / 100.0);
  const std::int64_t k = std::min(rank, count - 1);
  return static_cast<Double>(zor::kernels::select_kth(std::span<CellType<A>>(work), static_cast<std::size_t>(k)));
}

/// The cells from lows to highs after the bounds were limited to the array and put in order.
template <class A, std::size_t N>
Double percentile_of_range(Double pct, const A& a, std::array<Integer, N> low, std::array<Integer, N> high) {
  const auto shape = zor::detail::shape_of(a);
  if (shape.empty()) return 0.0;
  Box<N> box;
  for (std::size_t d = 0; d < N; ++d) {
    const Integer last = zor::detail::to_integer(shape.length[d] - 1);
    low[d] = std::clamp(low[d], 0, last);
    high[d] = std::clamp(high[d], 0, last);
    if (low[d] > high[d]) std::swap(low[d], high[d]);
  }
  zor::detail::box_of(shape, low, high, box);
  return percentile(pct, a, box);
}

}  // namespace

template <class A>
  requires Num<A, 1>
Double PercentileArray(Double Pct, const A& a) {
  if (a.empty()) return 0.0;
  return percentile(Pct, a, zor::detail::whole(zor::detail::shape_of(a)));
}

Double PercentileArray(Double Pct, const TDoubleArray& A, Integer Low, Integer High) {
  return percentile_of_range<TDoubleArray, 1>(Pct, A, {Low}, {High});
}

Double PercentileArray(Double Pct, const TDouble2DArray& A, Integer LowCol, Integer LowRow, Integer HighCol,
                       Integer HighRow) {
  return percentile_of_range<TDouble2DArray, 2>(Pct, A, {LowCol, LowRow}, {HighCol, HighRow});
}

template Double PercentileArray<TDoubleArray>(Double, const TDoubleArray&);
template Double PercentileArray<TIntArray>(Double, const TIntArray&);

}  // namespace ZOR_openarrays

#include "zor/scalar/selection.h"

#include <algorithm>

#include "zor/kernels/selection.h"

namespace ZOR_math1 {
namespace {

/// Value at index k of the cells from lo on, if they were sorted; the one at lo if k lies behind the last.
Double select_from(std::span<Double> cells, Int64 k, Int64 lo) {
  if (zor::detail::to_size(lo) >= cells.size()) return 0.0;
  cells = cells.subspan(zor::detail::to_size(lo));
  const std::size_t rank = zor::detail::to_size(k - (std::max)(lo, Int64{0}));
  return rank < cells.size() ? zor::kernels::select_kth(cells, rank) : cells.front();
}

}  // namespace

Double QuickSelect(std::span<Double> Arr, Integer k, Integer Lo, Integer Hi) noexcept {
  return zor::kernels::quick_select(Arr, k, Lo, Hi);
}

Double QuickSelect(std::span<const Double> Arr, Integer k, Integer Lo, [[maybe_unused]] Integer Hi, Double Value) {
  TDoubleArray others;
  zor::detail::set_length_unset(others, Arr.size());
  Double* const end = std::copy_if(Arr.begin(), Arr.end(), others.begin(), [=](Double cell) { return cell != Value; });
  const std::span<Double> copy(others.begin(), end);
  const Int64 less = std::count_if(copy.begin(), copy.end(), [=](Double cell) { return cell < Value; });
  const auto equal = static_cast<Int64>(Arr.size() - copy.size());
  if (k < less) return select_from(copy, k, Lo);
  if (k >= less + equal) return select_from(copy, k - equal, Lo);
  return Value;
}

}  // namespace ZOR_math1

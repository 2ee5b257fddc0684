#include "zor/arrays/order.h"

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <numeric>
#include <utility>

#include "zor/base/feedback.h"
#include "zor/kernels/comb_sort.h"
#include "zor/scalar/sorting.h"

namespace ZOR_openarrays {
namespace {

namespace kernels = zor::kernels;

void sort_at_once(std::span<Double> keys, std::span<Integer> ix, Boolean ascending) {
  TDynArray<std::int64_t> places(ix.begin(), ix.end());
  ProcStat += static_cast<Double>(kernels::comb_sort_pairs(keys, places, keys.size() - 1, ascending));
  std::ranges::transform(places, ix.begin(), [](std::int64_t place) { return static_cast<Integer>(place); });
}

/// Integers are exact as doubles.
void sort_at_once(std::span<Integer> cells, std::span<Integer> ix, Boolean ascending) {
  TDoubleArray keys(cells.begin(), cells.end());
  sort_at_once(keys, ix, ascending);
  std::ranges::transform(keys, cells.begin(), [](Double key) { return static_cast<Integer>(key); });
}

template <class T>
Integer sort_with_feedback(std::span<T> cells, std::span<Integer> ix, Boolean ascending) {
  const auto out_of_order = [&](std::size_t i, std::size_t j) {
    return ascending ? cells[i] > cells[j] : cells[i] < cells[j];
  };
  const auto exchange = [&](std::size_t i, std::size_t j) {
    std::swap(cells[i], cells[j]);
    std::swap(ix[i], ix[j]);
  };
  std::size_t gap = cells.size() - 1;
  bool exchanged = true;
  while (exchanged) {
    if (zor::detail::feedback_step_aborts()) return kSortAborted;
    gap = kernels::next_comb_gap(gap);
    exchanged = kernels::comb_pass_with(cells.size(), gap, out_of_order, exchange) || gap > 1;
  }
  return 0;
}

}  // namespace

template <class A>
  requires Num<A, 1>
Integer SortArray(Boolean Ascending, A& a, TIntArray& Ix) {
  AbortMathProc = false;
  if constexpr (std::same_as<A, TIntArray>) {
    if (&a == &Ix) return kOutputIsInput;
  }
  const A cells = a;
  TIntArray places;
  zor::detail::set_length_unset(places, cells.size());
  std::iota(places.begin(), places.end(), 1);
  Ix = places;
  if (cells.size() < 2) return kEmptyArray;
  const std::span<CellType<A>> run(a.data(), a.size());
  if (zor::detail::feedback_listens()) return sort_with_feedback(run, std::span<Integer>(places), Ascending);
  sort_at_once(run, std::span<Integer>(places), Ascending);
  return 0;
}

Integer SortAndRemoveDuplicates(TIntArray& A, Boolean Ascending) {
  const std::size_t n = A.size();
  if (n < 2) return kEmptyArray;
  TIntArray sorted(A.begin(), A.end());
  ZOR_math1::SortArray(std::span<Integer>(sorted), Ascending);
  const auto kept = static_cast<std::size_t>(std::unique(sorted.begin(), sorted.end()) - sorted.begin());
  TIntArray(sorted.begin(), sorted.begin() + kept).swap(A);
  return zor::detail::to_integer(n - kept);
}

template Integer SortArray<TDoubleArray>(Boolean, TDoubleArray&, TIntArray&);
template Integer SortArray<TIntArray>(Boolean, TIntArray&, TIntArray&);

}  // namespace ZOR_openarrays

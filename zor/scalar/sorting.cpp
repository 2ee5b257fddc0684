#include "zor/scalar/sorting.h"

#include <utility>

#include "zor/kernels/comb_sort.h"
#include "zor/scalar/untyped_internal.h"

namespace ZOR_math1 {
namespace {

template <class T>
void sort(std::span<T> cells, Boolean ascending) {
  if (cells.size() < 2) return;
  std::size_t gap = cells.size();
  if (!zor::detail::feedback_listens()) {
    // Nobody looks between the passes: several of them go through the cache at once.
    ProcStat += static_cast<Double>(zor::kernels::comb_sort(cells, gap, ascending));
    return;
  }
  bool exchanged = true;
  while (exchanged) {
    gap = zor::kernels::next_comb_gap(gap);
    exchanged = zor::kernels::comb_pass(cells, gap, ascending) || gap > 1;
    zor::detail::feedback_step();
  }
}

}  // namespace

void SortArray(std::span<Double> Arr, Boolean Ascending) { sort(Arr, Ascending); }
void SortArray(std::span<Single> Arr, Boolean Ascending) { sort(Arr, Ascending); }
void SortArray(std::span<Integer> Arr, Boolean Ascending) { sort(Arr, Ascending); }

void SortArray(void* Arr, Integer Count, TVarKind Kind, Boolean Ascending) {
  zor::detail::with_typed_cells(Arr, Count, Kind, [&](auto cells) { sort(cells, Ascending); });
}

Boolean SortSwap(Double& a, Double& b, Boolean Ascending) noexcept {
  if (Ascending ? b > a : !(b > a)) return false;
  std::swap(a, b);
  return true;
}

}  // namespace ZOR_math1

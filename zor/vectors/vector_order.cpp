#include <algorithm>
#include <limits>
#include <utility>

#include "zor/base/ZOR_univconst.h"
#include "zor/kernels/comb_sort.h"
#include "zor/kernels/search.h"
#include "zor/runtime/random.h"
#include "zor/vectors/sorted_search_internal.h"
#include "zor/vectors/vector.h"

namespace ZOR_vector {

namespace kernels = zor::kernels;

template <class Self, Cell T>
Integer VectorCore<Self, T>::Find(Integer LowElem, Integer HighElem, T value) const {
  MakeValidElemRange(LowElem, HighElem);
  std::conditional_t<RealCell<T>, Double, Int64> difference = 0;
  if constexpr (RealCell<T>) {
    difference = ZOR_univconst::uc_MaxDouble;
  } else {
    difference = std::numeric_limits<Int64>::max();
  }
  const std::size_t at = kernels::nearest(range(LowElem, HighElem), value, difference);
  return at == kernels::kNone ? 0 : LowElem + static_cast<Integer>(at);
}

template <class Self, Cell T>
Integer VectorCore<Self, T>::FindExact(Integer LowElem, Integer HighElem, T value) const {
  MakeValidElemRange(LowElem, HighElem);
  const std::size_t at = kernels::find_equal(range(LowElem, HighElem), value);
  return at == kernels::kNone ? 0 : LowElem + static_cast<Integer>(at);
}

template <class Self, Cell T>
Integer VectorCore<Self, T>::FindInSortedVector(Boolean Ascending, T Value) const {
  return 1 + static_cast<Integer>(zor::detail::nearest_in_sorted(Cells(), Ascending, Value));
}

template <class Self, Cell T>
void VectorCore<Self, T>::SortElems(Boolean Ascending, Integer RangeFirst, Integer RangeLast) {
  MakeValidElemRange(RangeFirst, RangeLast);
  if (RangeFirst == RangeLast) return;
  const auto n = static_cast<std::size_t>(RangeLast - RangeFirst + 1);
  if (!OnSortExchange) {
    kernels::comb_sort(cells().subspan(static_cast<std::size_t>(RangeFirst - 1), n), n - 1, Ascending);
  } else {
    // Element i of the sort is element number first + i; a handler may have cut the vector short.
    const auto first = static_cast<std::size_t>(RangeFirst);
    const auto out_of_order = [&](std::size_t i, std::size_t j) {
      if (first + j > FVec.size()) return false;
      const T a = FVec[first + i - 1], b = FVec[first + j - 1];
      return Ascending ? a > b : b > a;
    };
    const auto exchange = [&](std::size_t i, std::size_t j) {
      std::swap(FVec[first + i - 1], FVec[first + j - 1]);
      SortExchange(0, static_cast<Integer>(first + i), static_cast<Integer>(first + j), 0, 0);
    };
    kernels::comb_sort_with(n, n - 1, out_of_order, exchange, [] {});
  }
  Changed();
}

template <class Self, Cell T>
void VectorCore<Self, T>::Mirror() {
  std::ranges::reverse(cells());
  Changed();
}

template <class Self, Cell T>
void VectorCore<Self, T>::ShuffleElems() {
  ZOR_runtime::Randomize();
  const Integer n = NrOfElem();
  for (Integer i = 0; i < n; ++i) {
    const Integer a = ZOR_runtime::Random(n), b = ZOR_runtime::Random(n);
    std::swap(FVec[a], FVec[b]);
  }
}

#define ZOR_INSTANCES(V, T)                                                \
  template Integer VectorCore<V, T>::Find(Integer, Integer, T) const;      \
  template Integer VectorCore<V, T>::FindExact(Integer, Integer, T) const; \
  template Integer VectorCore<V, T>::FindInSortedVector(Boolean, T) const; \
  template void VectorCore<V, T>::SortElems(Boolean, Integer, Integer);    \
  template void VectorCore<V, T>::Mirror();                                \
  template void VectorCore<V, T>::ShuffleElems();

ZOR_INSTANCES(TVector, Double)
ZOR_INSTANCES(TIntVector, Integer)

}  // namespace ZOR_vector

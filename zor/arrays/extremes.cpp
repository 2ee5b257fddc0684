#include "zor/arrays/extremes.h"

#include <array>
#include <concepts>
#include <cstdint>
#include <limits>

#include "zor/arrays/walk_internal.h"
#include "zor/kernels/extremes.h"

namespace ZOR_openarrays {
namespace {

namespace kernels = zor::kernels;
using zor::detail::for_runs;
using zor::detail::shape_of;
using zor::detail::to_integer;

/// What the search starts from, and what stays if no cell is found.
template <class T>
constexpr kernels::Extremes<T> sentinels() {
  return {(std::numeric_limits<T>::max)(), std::numeric_limits<T>::lowest()};
}

/// Search over several runs that starts from the first cell that is a number.
template <class T>
class Search {
 public:
  void operator()(std::span<const T> x) noexcept {
    std::size_t first = 0;
    if (!found()) {
      while (first < x.size() && x[first] != x[first]) ++first;
      if (first < x.size()) extremes_ = {x[first], x[first], seen_ + first, seen_ + first};
    }
    kernels::min_max(x.subspan(first), extremes_, seen_ + first);
    seen_ += x.size();
  }
  bool found() const noexcept { return extremes_.min_index != kernels::kNone; }
  const kernels::Extremes<T>& extremes() const noexcept { return extremes_; }

 private:
  kernels::Extremes<T> extremes_ = sentinels<T>();
  std::size_t seen_ = 0;
};

template <class A>
Search<CellType<A>> search(const A& a) {
  Search<CellType<A>> found;
  for_runs(
      shape_of(a), [&](auto x) { found(x); }, a);
  return found;
}

enum class Which { kMin, kMax };

/// Value and index in storage order of one extreme of A.
template <Which which, class A>
CellType<A> extreme(const A& a, std::size_t& index) {
  using T = CellType<A>;
  const Search<T> found = search(a);
  index = 0;
  if (!found.found()) {
    if (!shape_of(a).empty()) return std::numeric_limits<T>::quiet_NaN();
    if constexpr (std::same_as<T, Double> && kRank<A> <= 2) return which == Which::kMin ? 2147483647.0 : -2147483648.0;
    return which == Which::kMin ? found.extremes().minimum : found.extremes().maximum;
  }
  index = which == Which::kMin ? found.extremes().min_index : found.extremes().max_index;
  return which == Which::kMin ? found.extremes().minimum : found.extremes().maximum;
}

template <Which which, class A>
CellType<A> extreme_at(const A& a, Integer& ix) {
  std::size_t index = 0;
  const CellType<A> value = extreme<which>(a, index);
  ix = to_integer(index);
  return value;
}

template <Which which, class A>
CellType<A> extreme_at(const A& a, Integer& col, Integer& row) {
  std::size_t index = 0;
  const CellType<A> value = extreme<which>(a, index);
  const std::size_t rows = a.empty() || a[0].empty() ? 1 : a[0].size();
  col = to_integer(index / rows);
  row = to_integer(index % rows);
  return value;
}

template <class T, class Out>
Integer give(const Search<T>& found, bool empty, Out& min, Out& max) {
  min = found.extremes().minimum;
  max = found.extremes().maximum;
  return empty ? kEmptyArray : 0;
}

/// The extremes of a range; `box` stays without cells where there is no range.
template <class A, std::size_t N>
Integer range_extremes(const A& a, const std::array<Integer, N>& low, const std::array<Integer, N>& high,
                       zor::detail::Box<N>& box, kernels::Extremes<CellType<A>>& extremes) {
  const auto shape = shape_of(a);
  if (shape.empty()) return kEmptyArray;
  for (std::size_t d = 0; d < N; ++d) {
    const auto length = static_cast<std::int64_t>(shape.length[d]);
    if (low[d] < 0 || high[d] < 0 || low[d] >= length || high[d] >= length) return kBadRange;
  }
  if (!zor::detail::box_of(shape, low, high, box)) {
    box = {};
    return 0;
  }
  std::size_t seen = 0;
  for_runs(
      box,
      [&](std::span<const CellType<A>> x) {
        kernels::min_max(x, extremes, seen);
        seen += x.size();
      },
      a);
  return 0;
}

/// Index in dimension d of the cell that was found at `index` of the box, else 0.
template <std::size_t N>
Integer place(const zor::detail::Box<N>& box, std::size_t index, std::size_t d) {
  if (index == kernels::kNone) return 0;
  for (std::size_t inner = N - 1; inner > d; --inner) index /= box.count[inner];
  return to_integer(box.low[d] + index % box.count[d]);
}

}  // namespace

template <NumArray A>
CellType<A> MaxArray(const A& a) {
  std::size_t index = 0;
  return extreme<Which::kMax>(a, index);
}

template <NumArray A>
CellType<A> MinArray(const A& a) {
  std::size_t index = 0;
  return extreme<Which::kMin>(a, index);
}

template <class A>
  requires Num<A, 1>
CellType<A> MaxArray(const A& a, Integer& Ix) {
  return extreme_at<Which::kMax>(a, Ix);
}
template <class A>
  requires Num<A, 1>
CellType<A> MinArray(const A& a, Integer& Ix) {
  return extreme_at<Which::kMin>(a, Ix);
}
template <class A>
  requires Num<A, 2>
CellType<A> MaxArray(const A& a, Integer& Col, Integer& Row) {
  return extreme_at<Which::kMax>(a, Col, Row);
}
template <class A>
  requires Num<A, 2>
CellType<A> MinArray(const A& a, Integer& Col, Integer& Row) {
  return extreme_at<Which::kMin>(a, Col, Row);
}

template <NumArray A>
Integer MinMaxArray(const A& a, CellType<A>& Min, CellType<A>& Max) {
  return give(search(a), shape_of(a).empty(), Min, Max);
}

template <std::same_as<TSingleArray> A>
Integer MinMaxArray(const A& a, Double& Min, Double& Max) {
  return give(search(a), a.empty(), Min, Max);
}

Integer MinMaxArray(std::span<const Double> A, Double& Min, Double& Max) {
  Search<Double> found;
  found(A);
  return give(found, A.empty(), Min, Max);
}

Integer MinMaxArray(std::span<const Integer> A, Integer& Min, Integer& Max) {
  Search<Integer> found;
  found(A);
  return give(found, A.empty(), Min, Max);
}

template <class A>
  requires Num<A, 1>
Integer MinMaxArray(const A& a, Integer Low, Integer High, CellType<A>& Min, CellType<A>& Max, Integer& MinIx,
                    Integer& MaxIx) {
  auto extremes = sentinels<CellType<A>>();
  zor::detail::Box<1> box;
  const Integer code = range_extremes<A, 1>(a, {Low}, {High}, box, extremes);
  Min = extremes.minimum;
  Max = extremes.maximum;
  MinIx = place(box, extremes.min_index, 0);
  MaxIx = place(box, extremes.max_index, 0);
  return code;
}

template <class A>
  requires Num<A, 2>
Integer MinMaxArray(const A& a, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, CellType<A>& Min,
                    CellType<A>& Max, Integer& MinCol, Integer& MinRow, Integer& MaxCol, Integer& MaxRow) {
  auto extremes = sentinels<CellType<A>>();
  zor::detail::Box<2> box;
  const Integer code = range_extremes<A, 2>(a, {LowCol, LowRow}, {HighCol, HighRow}, box, extremes);
  Min = extremes.minimum;
  Max = extremes.maximum;
  MinCol = place(box, extremes.min_index, 0);
  MinRow = place(box, extremes.min_index, 1);
  MaxCol = place(box, extremes.max_index, 0);
  MaxRow = place(box, extremes.max_index, 1);
  return code;
}

#define ZOR_INSTANCES(A)                      \
  template CellType<A> MaxArray<A>(const A&); \
  template CellType<A> MinArray<A>(const A&); \
  template Integer MinMaxArray<A>(const A&, CellType<A>&, CellType<A>&);
#define ZOR_LINE_INSTANCES(A)                           \
  ZOR_INSTANCES(A)                                      \
  template CellType<A> MaxArray<A>(const A&, Integer&); \
  template CellType<A> MinArray<A>(const A&, Integer&); \
  template Integer MinMaxArray<A>(const A&, Integer, Integer, CellType<A>&, CellType<A>&, Integer&, Integer&);
#define ZOR_PLANE_INSTANCES(A)                                                                                        \
  ZOR_INSTANCES(A)                                                                                                    \
  template CellType<A> MaxArray<A>(const A&, Integer&, Integer&);                                                     \
  template CellType<A> MinArray<A>(const A&, Integer&, Integer&);                                                     \
  template Integer MinMaxArray<A>(const A&, Integer, Integer, Integer, Integer, CellType<A>&, CellType<A>&, Integer&, \
                                  Integer&, Integer&, Integer&);

ZOR_LINE_INSTANCES(TDoubleArray)
ZOR_LINE_INSTANCES(TIntArray)
ZOR_PLANE_INSTANCES(TDouble2DArray)
ZOR_PLANE_INSTANCES(TInt2DArray)
ZOR_INSTANCES(TDouble3DArray)
ZOR_INSTANCES(TDouble4DArray)
ZOR_INSTANCES(TInt3DArray)
ZOR_INSTANCES(TInt4DArray)
template Integer MinMaxArray<TSingleArray>(const TSingleArray&, Double&, Double&);

}  // namespace ZOR_openarrays

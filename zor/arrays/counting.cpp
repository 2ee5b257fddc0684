#include "zor/arrays/counting.h"

#include <array>
#include <utility>

#include "zor/arrays/walk_internal.h"

namespace ZOR_openarrays {
namespace {

using zor::detail::Box;

/// Number of cells of the region for which test(cell) holds.
template <class A, class Region, class Test>
Integer count_cells(const A& a, const Region& region, Test test) {
  std::size_t count = 0;
  zor::detail::for_runs(
      region,
      [&](std::span<const CellType<A>> x) {
        for (const auto cell : x) count += static_cast<std::size_t>(test(cell));
      },
      a);
  return zor::detail::to_integer(count);
}

template <class A, std::size_t N>
Integer count_values(const A& a, const std::array<Integer, N>& low_bounds, const std::array<Integer, N>& high_bounds,
                     CellType<A> low, CellType<A> high) {
  const auto shape = zor::detail::shape_of(a);
  if (shape.empty()) return kEmptyArray;
  Box<N> box;
  if (!zor::detail::box_of(shape, low_bounds, high_bounds, box) || !(low <= high)) return kBadRange;
  return count_cells(a, box, [=](CellType<A> x) { return (low <= x) & (x <= high); });
}

template <class A>
Integer count_true(const A& a) {
  const auto shape = zor::detail::shape_of(a);
  if (shape.empty()) return kEmptyArray;
  return count_cells(a, shape, [](Boolean x) { return x; });
}

}  // namespace

template <class A>
  requires Num<A, 1>
Integer CountValues(const A& a, Integer LowElem, Integer HighElem, CellOf<A> Low, CellOf<A> High) {
  return count_values<A, 1>(a, {LowElem}, {HighElem}, Low, High);
}

template <class A>
  requires Num<A, 2>
Integer CountValues(const A& a, Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, CellOf<A> Low,
                    CellOf<A> High) {
  return count_values<A, 2>(a, {LowCol, LowRow}, {HighCol, HighRow}, Low, High);
}

template <class A>
  requires Num<A, 3>
Integer CountValues(const A& a, Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, Integer LowLayer,
                    Integer HighLayer, CellOf<A> Low, CellOf<A> High) {
  return count_values<A, 3>(a, {LowCol, LowRow, LowLayer}, {HighCol, HighRow, HighLayer}, Low, High);
}

template <class A>
  requires Num<A, 4>
Integer CountValues(const A& a, Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, Integer LowLayer,
                    Integer HighLayer, Integer LowSlot, Integer HighSlot, CellOf<A> Low, CellOf<A> High) {
  return count_values<A, 4>(a, {LowCol, LowRow, LowLayer, LowSlot}, {HighCol, HighRow, HighLayer, HighSlot}, Low, High);
}

Integer CountTrueCellsOfArray(const TBoolArray& A) { return count_true(A); }
Integer CountTrueCellsOfArray(const TBool2DArray& A) { return count_true(A); }

Integer CountTrueCellsOfArray(const TBool2DArray& A, Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow) {
  const auto shape = zor::detail::shape_of(A);
  if (shape.empty()) return kEmptyArray;
  const auto repair = [&](Integer& low, Integer& high, std::size_t length) {
    if (low == 0 && high == 0) high = zor::detail::to_integer(length - 1);
    if (low > high) std::swap(low, high);
  };
  repair(LowCol, HighCol, shape.length[0]);
  repair(LowRow, HighRow, shape.length[1]);
  Box<2> box;
  if (!zor::detail::box_of<2>(shape, {LowCol, LowRow}, {HighCol, HighRow}, box)) return kBadRange;
  return count_cells(A, box, [](Boolean x) { return x; });
}

#define ZOR_PAIR Integer, Integer
#define ZOR_INSTANCES(A, ...) template Integer CountValues<A>(const A&, __VA_ARGS__, CellOf<A>, CellOf<A>);

ZOR_INSTANCES(TDoubleArray, ZOR_PAIR)
ZOR_INSTANCES(TIntArray, ZOR_PAIR)
ZOR_INSTANCES(TDouble2DArray, ZOR_PAIR, ZOR_PAIR)
ZOR_INSTANCES(TInt2DArray, ZOR_PAIR, ZOR_PAIR)
ZOR_INSTANCES(TDouble3DArray, ZOR_PAIR, ZOR_PAIR, ZOR_PAIR)
ZOR_INSTANCES(TInt3DArray, ZOR_PAIR, ZOR_PAIR, ZOR_PAIR)
ZOR_INSTANCES(TDouble4DArray, ZOR_PAIR, ZOR_PAIR, ZOR_PAIR, ZOR_PAIR)
ZOR_INSTANCES(TInt4DArray, ZOR_PAIR, ZOR_PAIR, ZOR_PAIR, ZOR_PAIR)

}  // namespace ZOR_openarrays

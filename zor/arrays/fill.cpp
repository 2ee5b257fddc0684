#include "zor/arrays/fill.h"

#include <algorithm>
#include <cstdint>

#include "zor/arrays/walk_internal.h"
#include "zor/kernels/elementwise.h"

namespace ZOR_openarrays {
namespace {

namespace kernels = zor::kernels;
using zor::detail::for_runs;
using zor::detail::shape_of;

void fill_run(std::span<Boolean> x, Boolean value) { std::ranges::fill(x, value); }
void fill_run(std::span<Double> x, Double value) { kernels::fill(x, value); }
void fill_run(std::span<Integer> x, Integer value) { kernels::fill(x, value); }

template <class A, class Region>
void fill_region(A& a, const Region& region, CellType<A> value) {
  for_runs(
      region, [=](std::span<CellType<A>> x) { fill_run(x, value); }, a);
}

template <class A, std::size_t N>
Integer fill_range(A& a, CellType<A> value, const std::array<Integer, N>& low, const std::array<Integer, N>& high) {
  const auto shape = shape_of(a);
  if (shape.empty()) return kEmptyArray;
  zor::detail::Box<N> box;
  if (!zor::detail::box_of(shape, low, high, box)) return kBadRange;
  fill_region(a, box, value);
  return 0;
}

/// Value after `value` in a running series.
Double next(Double value, Double delta) { return value + delta; }
Integer next(Integer value, Integer delta) {
  return static_cast<Integer>(static_cast<std::uint32_t>(value) + static_cast<std::uint32_t>(delta));
}

/// The cell whose indices are all i.
template <class A>
auto& diagonal_cell(A& a, std::size_t i) {
  if constexpr (kRank<A> == 1) {
    return a[i];
  } else {
    return diagonal_cell(a[i], i);
  }
}

}  // namespace

template <FillableArray A>
Integer FillArray(A& a, CellOf<A> Value) {
  const auto shape = shape_of(a);
  if (shape.empty()) return kEmptyArray;
  fill_region(a, shape, Value);
  return 0;
}

template <class A>
  requires Num<A, 1>
Integer FillArray(A& a, CellOf<A> Value, Integer LowElem, Integer HighElem) {
  return fill_range<A, 1>(a, Value, {LowElem}, {HighElem});
}

template <class A>
  requires Num<A, 2>
Integer FillArray(A& a, CellOf<A> Value, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) {
  return fill_range<A, 2>(a, Value, {LowCol, LowRow}, {HighCol, HighRow});
}

template <class A>
  requires Num<A, 3>
Integer FillArray(A& a, CellOf<A> Value, Integer LowCol, Integer LowRow, Integer LowLayer, Integer HighCol,
                  Integer HighRow, Integer HighLayer) {
  return fill_range<A, 3>(a, Value, {LowCol, LowRow, LowLayer}, {HighCol, HighRow, HighLayer});
}

template <class A>
  requires Num<A, 4>
Integer FillArray(A& a, CellOf<A> Value, Integer LowCol, Integer LowRow, Integer LowLayer, Integer LowTimeSlot,
                  Integer HighCol, Integer HighRow, Integer HighLayer, Integer HighTimeSlot) {
  return fill_range<A, 4>(a, Value, {LowCol, LowRow, LowLayer, LowTimeSlot},
                          {HighCol, HighRow, HighLayer, HighTimeSlot});
}

template <NumArray A>
Integer FillArraySerial(A& a, CellOf<A> Start, CellOf<A> Delta) {
  using T = CellType<A>;
  const auto shape = shape_of(a);
  if (shape.empty()) return kEmptyArray;
  const T start = Start, delta = Delta;
  if constexpr (std::same_as<A, TDoubleArray>) {
    for (std::size_t i = 0; i < a.size(); ++i) a[i] = start + static_cast<Double>(static_cast<std::int64_t>(i)) * delta;
  } else {
    T first = start;
    for_runs(
        shape,
        [&](std::span<T> x) {
          kernels::fill_serial(x, first, delta);
          first = next(x.back(), delta);
        },
        a);
  }
  return 0;
}

template <NumArray A>
Integer FillArraySerial(A& a) {
  return FillArraySerial(a, 0, 1);
}

template <class A>
  requires ArrayOf<A, 2, 4, Double, Integer>
Integer FillDiagArray(A& a, CellOf<A> Value) {
  const auto shape = shape_of(a);
  if (shape.empty()) return kEmptyArray;
  if (!std::ranges::all_of(shape.length, [&](std::size_t n) { return n == shape.length[0]; })) return kSizeMismatch;
  fill_region(a, shape, CellType<A>{0});
  for (std::size_t i = 0; i < shape.length[0]; ++i) diagonal_cell(a, i) = Value;
  return 0;
}

#define ZOR_INSTANCES(A)                                         \
  template Integer FillArray<A>(A&, CellOf<A>);                  \
  template Integer FillArraySerial<A>(A&, CellOf<A>, CellOf<A>); \
  template Integer FillArraySerial<A>(A&);
#define ZOR_BOUNDS_1 Integer, Integer
#define ZOR_BOUNDS_2 ZOR_BOUNDS_1, ZOR_BOUNDS_1
#define ZOR_RANGE_INSTANCES(A, ...) \
  ZOR_INSTANCES(A)                  \
  template Integer FillArray<A>(A&, CellOf<A>, __VA_ARGS__);
#define ZOR_DIAGONAL_INSTANCES(A, ...) \
  ZOR_RANGE_INSTANCES(A, __VA_ARGS__)  \
  template Integer FillDiagArray<A>(A&, CellOf<A>);

ZOR_RANGE_INSTANCES(TDoubleArray, ZOR_BOUNDS_1)
ZOR_RANGE_INSTANCES(TIntArray, ZOR_BOUNDS_1)
ZOR_DIAGONAL_INSTANCES(TDouble2DArray, ZOR_BOUNDS_2)
ZOR_DIAGONAL_INSTANCES(TInt2DArray, ZOR_BOUNDS_2)
ZOR_DIAGONAL_INSTANCES(TDouble3DArray, ZOR_BOUNDS_2, ZOR_BOUNDS_1)
ZOR_DIAGONAL_INSTANCES(TInt3DArray, ZOR_BOUNDS_2, ZOR_BOUNDS_1)
ZOR_DIAGONAL_INSTANCES(TDouble4DArray, ZOR_BOUNDS_2, ZOR_BOUNDS_2)
ZOR_DIAGONAL_INSTANCES(TInt4DArray, ZOR_BOUNDS_2, ZOR_BOUNDS_2)
template Integer FillArray<TBoolArray>(TBoolArray&, CellOf<TBoolArray>);
template Integer FillArray<TBool2DArray>(TBool2DArray&, CellOf<TBool2DArray>);

}  // namespace ZOR_openarrays

#include "zor/arrays/boolean_arrays.h"

#include <utility>

#include "zor/arrays/walk_internal.h"

namespace ZOR_openarrays {
namespace {

/// Res = operation(A), cell by cell, into cells of another type.
template <class A, class R, class Operation>
Integer convert(const A& a, R& res, Operation operation) {
  const auto shape = zor::detail::shape_of(a);
  if (shape.empty()) return kEmptyArray;
  zor::detail::write_result(res, shape, [&](R& out) {
    zor::detail::for_runs(
        shape,
        [&](auto x, auto y) {
          for (std::size_t i = 0; i < y.size(); ++i) y[i] = operation(x[i]);
        },
        a, out);
  });
  return 0;
}

template <class A>
Integer invert(A& a) {
  const auto shape = zor::detail::shape_of(a);
  if (shape.empty()) return kEmptyArray;
  zor::detail::for_runs(
      shape,
      [](std::span<Boolean> x) {
        for (Boolean& cell : x) cell = !cell;
      },
      a);
  return 0;
}

}  // namespace

Integer InvertArray(TBoolArray& A) { return invert(A); }
Integer InvertArray(TBool2DArray& A) { return invert(A); }

template <class R>
  requires ArrayOf<R, 1, 2, Double, Integer>
Integer BoolToNumArray(const ShapeOf<R, Boolean>& A, CellOf<R> FalseValue, CellOf<R> TrueValue, R& Res) {
  const CellType<R> no = FalseValue, yes = TrueValue;
  return convert(A, Res, [=](Boolean x) { return x ? yes : no; });
}

template <class A>
  requires ArrayOf<A, 1, 2, Double, Integer>
Integer DichotomizeArray(const A& a, CellOf<A> Threshold, ShapeOf<A, Boolean>& Res) {
  const CellType<A> threshold = Threshold;
  return convert(a, Res, [=](CellType<A> x) { return x > threshold; });
}

template <class A>
  requires ArrayOf<A, 1, 2, Double, Integer>
Integer DichotomizeArray(const A& a, CellOf<A> Low, CellOf<A> High, ShapeOf<A, Boolean>& Res) {
  CellType<A> low = Low, high = High;
  if (high < low) std::swap(low, high);
  return convert(a, Res, [=](CellType<A> x) { return (low <= x) & (x <= high); });
}

#define ZOR_INSTANCES(A)                                                                    \
  template Integer BoolToNumArray<A>(const ShapeOf<A, Boolean>&, CellOf<A>, CellOf<A>, A&); \
  template Integer DichotomizeArray<A>(const A&, CellOf<A>, ShapeOf<A, Boolean>&);          \
  template Integer DichotomizeArray<A>(const A&, CellOf<A>, CellOf<A>, ShapeOf<A, Boolean>&);

ZOR_INSTANCES(TDoubleArray)
ZOR_INSTANCES(TDouble2DArray)
ZOR_INSTANCES(TIntArray)
ZOR_INSTANCES(TInt2DArray)

}  // namespace ZOR_openarrays

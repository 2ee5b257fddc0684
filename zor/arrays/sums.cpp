#include "zor/arrays/sums.h"

#include <cstdint>

#include "zor/arrays/walk_internal.h"
#include "zor/kernels/sums.h"

namespace ZOR_openarrays {
namespace {

namespace kernels = zor::kernels;
using zor::detail::for_runs;
using zor::detail::shape_of;

Double sum_run(std::span<const Double> x, Double start) { return kernels::sum_in_order(x, start); }
Double sum_run(std::span<const Integer> x, Double start) {
  for (const Integer cell : x) start += static_cast<Double>(cell);
  return start;
}

Double add(Double a, Double b) { return a + b; }
Integer add(Integer a, Integer b) {
  return static_cast<Integer>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

}  // namespace

template <class A>
  requires Num<A, 2>
Integer SumArrayMasked(const A& a, const TBool2DArray& Mask, Double& Sum) {
  using T = CellType<A>;
  const auto shape = shape_of(a);
  if (shape.empty()) return kNothingToSum;
  Double sum = 0.0;
  std::size_t count = 0;
  if (Mask.empty()) {
    for_runs(
        shape, [&](std::span<const T> x) { sum = sum_run(x, sum); }, a);
    count = shape.cells();
  } else {
    if (shape_of(Mask) != shape) return kMaskMismatch;
    for_runs(
        shape,
        [&](std::span<const T> x, std::span<const Boolean> excluded) {
          for (std::size_t i = 0; i < x.size(); ++i) {
            if (excluded[i]) continue;
            sum += static_cast<Double>(x[i]);
            ++count;
          }
        },
        a, Mask);
  }
  Sum = sum;
  return zor::detail::to_integer(count);
}

Double SumOfSquaredDiffs(const TDoubleArray& A, const TDoubleArray& B) {
  if (A.empty() || B.empty()) return kEmptyOperand;
  if (A.size() != B.size()) return kOtherLength;
  return kernels::squared_distance_in_order(A, B);
}

Double SumOfSquaredDiffs(const TDoubleArray& A, const TDouble2DArray& M, Integer Col) {
  const auto shape = shape_of(M);
  if (A.empty() || shape.empty()) return kEmptyOperand;
  if (Col < 0 || zor::detail::to_size(Col) >= shape.length[0]) return kNoSuchColumn;
  return SumOfSquaredDiffs(A, M[Col]);
}

template <class A>
  requires Num<A, 2>
Integer TraceOfArray(const A& a, CellType<A>& Trace) {
  const auto shape = shape_of(a);
  const Integer code = shape.empty() ? kEmptyArray : shape.length[0] != shape.length[1] ? kSizeMismatch : 0;
  CellType<A> trace = 0;
  for (std::size_t i = 0; code == 0 && i < shape.length[0]; ++i) trace = add(trace, a[i][i]);
  Trace = trace;
  return code;
}

#define ZOR_INSTANCES(A)                                                      \
  template Integer SumArrayMasked<A>(const A&, const TBool2DArray&, Double&); \
  template Integer TraceOfArray<A>(const A&, CellType<A>&);

ZOR_INSTANCES(TDouble2DArray)
ZOR_INSTANCES(TInt2DArray)

}  // namespace ZOR_openarrays

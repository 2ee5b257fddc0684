#include "zor/arrays/means.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "zor/arrays/walk_internal.h"
#include "zor/kernels/moments.h"
#include "zor/scalar/run_statistics_internal.h"

namespace ZOR_openarrays {
namespace {

namespace kernels = zor::kernels;
using zor::detail::Box;

template <std::size_t N>
using Bounds = std::array<Integer, N>;

/// The range as a box: 0, kEmptyArray, or kBadRange.
template <class A, std::size_t N>
Integer measure(const A& a, const Bounds<N>& low, const Bounds<N>& high, Box<N>& box) {
  const auto shape = zor::detail::shape_of(a);
  if (shape.empty()) return kEmptyArray;
  return zor::detail::box_of(shape, low, high, box) ? 0 : kBadRange;
}

template <class A, std::size_t N>
kernels::MeanVar mean_variance(const A& a, const Box<N>& box) {
  return zor::detail::mean_variance_of([&](auto take) {
    zor::detail::for_runs(
        box, [&](std::span<const CellType<A>> run) { take(run); }, a);
  });
}

/// a + b, with the error of the sum kept.
kernels::DoubleDouble plus(kernels::DoubleDouble a, kernels::DoubleDouble b) {
  const Double s = a.hi + b.hi;
  if (!std::isfinite(s)) return {s, 0.0};
  const Double part = s - a.hi;
  const Double rest = a.lo + b.lo + ((a.hi - (s - part)) + (b.hi - part));
  const Double hi = s + rest;
  return {hi, rest - (hi - s)};
}

template <class A, std::size_t N>
Double mean_of(const A& a, const Box<N>& box) {
  kernels::DoubleDouble sum;
  zor::detail::for_runs(
      box,
      [&](std::span<const CellType<A>> run) {
        zor::detail::for_doubles(run, [&](std::span<const Double> x) { sum = plus(sum, kernels::sum_twofold(x)); });
      },
      a);
  std::size_t n = 1;
  for (const std::size_t length : box.count) n *= length;
  return kernels::mean_of_sum(sum, n);
}

template <class A, std::size_t N>
Integer mean_array(const A& a, const Bounds<N>& low, const Bounds<N>& high, Double& mean) {
  Box<N> box;
  const Integer code = measure(a, low, high, box);
  mean = code == 0 ? mean_of(a, box) : 0.0;
  return code;
}

template <class A, std::size_t N>
Integer mean_var_array(const A& a, const Bounds<N>& low, const Bounds<N>& high, Double& mean, Double& variance) {
  Box<N> box;
  const Integer code = measure(a, low, high, box);
  const kernels::MeanVar result = code == 0 ? mean_variance(a, box) : kernels::MeanVar{};
  mean = result.mean;
  variance = result.variance;
  return code;
}

template <class A, std::size_t N>
Integer std_dev_array(const A& a, const Bounds<N>& low, const Bounds<N>& high, Double& deviation) {
  Double mean, variance;
  const Integer code = mean_var_array(a, low, high, mean, variance);
  deviation = std::sqrt(variance);
  return code;
}

}  // namespace

template <class A>
  requires Num<A, 1>
Integer MeanArray(const A& a, Integer LowElem, Integer HighElem, Double& Mean) {
  return mean_array<A, 1>(a, {LowElem}, {HighElem}, Mean);
}

template <class A>
  requires Num<A, 2>
Integer MeanArray(const A& a, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Mean) {
  return mean_array<A, 2>(a, {LowCol, LowRow}, {HighCol, HighRow}, Mean);
}

template <class A>
  requires Num<A, 3>
Integer MeanArray(const A& a, Integer LowCol, Integer LowRow, Integer LowLayer, Integer HighCol, Integer HighRow,
                  Integer HighLayer, Double& Mean) {
  return mean_array<A, 3>(a, {LowCol, LowRow, LowLayer}, {HighCol, HighRow, HighLayer}, Mean);
}

template <class A>
  requires Num<A, 4>
Integer MeanArray(const A& a, Integer LowCol, Integer LowRow, Integer LowLayer, Integer LowSlot, Integer HighCol,
                  Integer HighRow, Integer HighLayer, Integer HighSlot, Double& Mean) {
  return mean_array<A, 4>(a, {LowCol, LowRow, LowLayer, LowSlot}, {HighCol, HighRow, HighLayer, HighSlot}, Mean);
}

template <class A>
  requires Num<A, 1>
Integer StdDevArray(const A& a, Integer LowElem, Integer HighElem, Double& StdDev) {
  return std_dev_array<A, 1>(a, {LowElem}, {HighElem}, StdDev);
}

template <class A>
  requires Num<A, 2>
Integer StdDevArray(const A& a, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& StdDev) {
  return std_dev_array<A, 2>(a, {LowCol, LowRow}, {HighCol, HighRow}, StdDev);
}

template <class A>
  requires Num<A, 3>
Integer StdDevArray(const A& a, Integer LowCol, Integer LowRow, Integer LowLayer, Integer HighCol, Integer HighRow,
                    Integer HighLayer, Double& StdDev) {
  return std_dev_array<A, 3>(a, {LowCol, LowRow, LowLayer}, {HighCol, HighRow, HighLayer}, StdDev);
}

template <class A>
  requires Num<A, 4>
Integer StdDevArray(const A& a, Integer LowCol, Integer LowRow, Integer LowLayer, Integer LowSlot, Integer HighCol,
                    Integer HighRow, Integer HighLayer, Integer HighSlot, Double& StdDev) {
  return std_dev_array<A, 4>(a, {LowCol, LowRow, LowLayer, LowSlot}, {HighCol, HighRow, HighLayer, HighSlot}, StdDev);
}

template <class A>
  requires Num<A, 1>
Integer MeanVarArray(const A& a, Integer LowElem, Integer HighElem, Double& Mean, Double& Variance) {
  return mean_var_array<A, 1>(a, {LowElem}, {HighElem}, Mean, Variance);
}

template <class A>
  requires Num<A, 2>
Integer MeanVarArray(const A& a, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Mean,
                     Double& Variance) {
  return mean_var_array<A, 2>(a, {LowCol, LowRow}, {HighCol, HighRow}, Mean, Variance);
}

template <class A>
  requires Num<A, 1>
Integer MeanAbsDev(const A& a, Integer Count, Double& Dev) {
  const Integer code = a.empty() ? kEmptyArray : Count < 0 || zor::detail::to_size(Count) > a.size() ? kBadRange : 0;
  if (code != 0) {
    Dev = 0.0;
    return code;
  }
  const std::size_t n = Count == 0 ? a.size() : zor::detail::to_size(Count);
  const Double mean = mean_of(a, Box<1>{{0}, {n}});
  Double sum = 0.0;
  for (std::size_t i = 0; i < n; ++i) sum += std::abs(static_cast<Double>(a[i]) - mean);
  Dev = sum / static_cast<Double>(n);
  return 0;
}

#define ZOR_BOUNDS_1 Integer, Integer
#define ZOR_BOUNDS_2 ZOR_BOUNDS_1, ZOR_BOUNDS_1
#define ZOR_INSTANCES(A, ...)                                    \
  template Integer MeanArray<A>(const A&, __VA_ARGS__, Double&); \
  template Integer StdDevArray<A>(const A&, __VA_ARGS__, Double&);
#define ZOR_VARIANCE_INSTANCES(A, ...) \
  ZOR_INSTANCES(A, __VA_ARGS__)        \
  template Integer MeanVarArray<A>(const A&, __VA_ARGS__, Double&, Double&);

ZOR_VARIANCE_INSTANCES(TDoubleArray, ZOR_BOUNDS_1)
ZOR_VARIANCE_INSTANCES(TIntArray, ZOR_BOUNDS_1)
ZOR_VARIANCE_INSTANCES(TDouble2DArray, ZOR_BOUNDS_2)
ZOR_VARIANCE_INSTANCES(TInt2DArray, ZOR_BOUNDS_2)
ZOR_INSTANCES(TDouble3DArray, ZOR_BOUNDS_2, ZOR_BOUNDS_1)
ZOR_INSTANCES(TInt3DArray, ZOR_BOUNDS_2, ZOR_BOUNDS_1)
ZOR_INSTANCES(TDouble4DArray, ZOR_BOUNDS_2, ZOR_BOUNDS_2)
ZOR_INSTANCES(TInt4DArray, ZOR_BOUNDS_2, ZOR_BOUNDS_2)
template Integer MeanAbsDev<TDoubleArray>(const TDoubleArray&, Integer, Double&);
template Integer MeanAbsDev<TIntArray>(const TIntArray&, Integer, Double&);

}  // namespace ZOR_openarrays

#include "zor/arrays/rescale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "zor/arrays/walk_internal.h"
#include "zor/kernels/elementwise.h"
#include "zor/kernels/extremes.h"
#include "zor/kernels/moments.h"

namespace ZOR_openarrays {
namespace {

namespace kernels = zor::kernels;
using zor::detail::Box;

/// The two numbers told to the caller, and the divisor.
struct Mapping {
  Double value1, value2, scale;
};

template <class A, std::size_t N>
kernels::Extremes<Double> extremes_of(const A& a, const Box<N>& box) {
  constexpr Double kInfinity = std::numeric_limits<Double>::infinity();
  kernels::Extremes<Double> extremes{kInfinity, -kInfinity};
  zor::detail::for_runs(
      box, [&](std::span<const Double> run) { kernels::min_max(run, extremes); }, a);
  return extremes;
}

/// Mean and variance of the cells that are numbers; NaN if there are none.
template <class A, std::size_t N>
kernels::MeanVar moments_of(const A& a, const Box<N>& box) {
  std::array<Double, 16 * kernels::kPartialSums> numbers;
  kernels::MeanVar result = kernels::mean_variance_of_runs([&](auto take) {
    std::size_t count = 0;
    const auto hand_out = [&] { take(std::span<const Double>(numbers.data(), std::exchange(count, 0))); };
    zor::detail::for_runs(
        box,
        [&](std::span<const Double> run) {
          for (const Double x : run) {
            if (std::isnan(x)) continue;
            numbers[count++] = x;
            if (count == numbers.size()) hand_out();
          }
        },
        a);
    hand_out();
  });
  if (result.n == 0) result.mean = std::numeric_limits<Double>::quiet_NaN();
  return result;
}

template <class A, std::size_t N>
Mapping mapping_of(const A& a, const Box<N>& box, TRescaleMode mode) {
  switch (mode) {
    case rsmRange: {
      const auto e = extremes_of(a, box);
      return {e.minimum, e.maximum, e.maximum - e.minimum};
    }
    case rsmStandardize: {
      const auto m = moments_of(a, box);
      const Double deviation = std::sqrt(m.variance);
      return {m.mean, deviation, deviation};
    }
    case rsmCenter:
      return {moments_of(a, box).mean, 1.0, 1.0};
    default: {
      const auto e = extremes_of(a, box);
      const Double largest = std::max(e.maximum, -e.minimum);
      return {0.0, largest, largest};
    }
  }
}

void rescale_run(std::span<Double> run, const Mapping& map) {
  if (map.scale != 0.0) return kernels::shift_scale(run, map.value1, map.scale);
  for (Double& x : run) x = std::isnan(x) ? x : 0.0;
}

template <class A, std::size_t N>
Integer rescale(A& a, const std::array<Integer, N>& low, const std::array<Integer, N>& high, TRescaleMode mode,
                Double& value1, Double& value2) {
  const auto shape = zor::detail::shape_of(a);
  if (shape.empty()) return kEmptyArray;
  Box<N> box;
  const bool in_range = zor::detail::box_of(shape, low, high, box);
  if (mode > rsmMaxAbs) return kNoScale;
  if (!in_range) return kBadRange;
  const Mapping map = mapping_of(std::as_const(a), box, mode);
  if (!std::isfinite(map.value1) || !std::isfinite(map.scale)) return kNoScale;
  zor::detail::for_runs(
      box, [&](std::span<Double> run) { rescale_run(run, map); }, a);
  value1 = map.value1;
  value2 = map.value2;
  return 0;
}

}  // namespace

template <class A>
  requires ArrayOf<A, 1, 1, Double>
Integer RescaleArray(A& a, Integer Low, Integer High, TRescaleMode Mode, Double& Value1, Double& Value2) {
  return rescale<A, 1>(a, {Low}, {High}, Mode, Value1, Value2);
}

template <class A>
  requires ArrayOf<A, 2, 2, Double>
Integer RescaleArray(A& a, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, TRescaleMode Mode,
                     Double& Value1, Double& Value2) {
  return rescale<A, 2>(a, {LowCol, LowRow}, {HighCol, HighRow}, Mode, Value1, Value2);
}

template Integer RescaleArray<TDoubleArray>(TDoubleArray&, Integer, Integer, TRescaleMode, Double&, Double&);
template Integer RescaleArray<TDouble2DArray>(TDouble2DArray&, Integer, Integer, Integer, Integer, TRescaleMode,
                                              Double&, Double&);

}  // namespace ZOR_openarrays

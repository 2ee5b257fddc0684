#include "zor/arrays/random_fill.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "zor/arrays/fill.h"
#include "zor/arrays/shuffle.h"
#include "zor/arrays/walk_internal.h"
#include "zor/runtime/random.h"

namespace ZOR_openarrays {
namespace {

using ZOR_runtime::Random;
using ZOR_runtime::Randomize;

void fill_uniform(std::span<Double> x, Double low, Double high) {
  const Double width = high - low;
  if (std::isfinite(width)) return zor::detail::fill_random(x, low, width);
  zor::detail::fill_random(x, 0.0, 1.0);
  for (Double& cell : x) cell = low * (1.0 - cell) + high * cell;
}

void fill_uniform(std::span<Integer> x, Integer low, Integer high) {
  const Double start = low, width = static_cast<Double>(high) - start;
  // The sum may round up to the high bound, which must not appear.
  const Double last = low < high ? static_cast<Double>(high) - 1.0 : start;
  std::array<Double, 512> chunk;
  for (std::size_t done = 0; done < x.size(); done += chunk.size()) {
    const auto part = x.subspan(done, std::min(chunk.size(), x.size() - done));
    zor::detail::fill_random(std::span(chunk).first(part.size()), start, width);
    for (std::size_t i = 0; i < part.size(); ++i) {
      const Double drawn = std::floor(chunk[i]);
      part[i] = static_cast<Integer>(last < drawn ? last : drawn);
    }
  }
}

}  // namespace

template <NumArray A>
Integer FillRandomUniform(A& a, CellOf<A> Low, CellOf<A> High) {
  using T = CellType<A>;
  const auto shape = zor::detail::shape_of(a);
  if (shape.empty()) return kEmptyArray;
  const T low = Low, high = High;
  if (!(low <= high)) return kBadLimits;
  Randomize();
  zor::detail::for_runs(
      shape, [=](std::span<T> x) { fill_uniform(x, low, high); }, a);
  return 0;
}

Integer FillRandomUniform(TIntArray& A, Integer Low, Integer High, Boolean AllowDuplicates) {
  if (A.empty()) return kEmptyArray;
  if (High < Low) return kBadLimits;
  const std::int64_t values = std::int64_t{High} - Low + 1;
  if (AllowDuplicates) {
    Randomize();
    for (Integer& cell : A) {
      // More values than an Integer counts are drawn by scaling; both sums stay within Low to High.
      const std::int64_t step = values <= zor::detail::kMaxInteger
                                    ? std::int64_t{Random(static_cast<Integer>(values))}
                                    : static_cast<std::int64_t>(std::floor(Random() * static_cast<Double>(values)));
      cell = static_cast<Integer>(Low + step);
    }
    return 0;
  }
  Integer code = 0;
  if (values < static_cast<std::int64_t>(A.size())) code = kTooFewValues;
  if (values > kMaxDistinctValues) code = kTooManyValues;
  if (code != 0) return code;
  TIntArray drawn;
  zor::detail::set_length_unset(drawn, static_cast<std::size_t>(values));
  FillArraySerial(drawn, Low, 1);
  Randomize();
  ShuffleArray(drawn);
  std::copy_n(drawn.begin(), A.size(), A.begin());
  return 0;
}

template <RealArray A>
Integer FillRandomNormal(A& a, Double Mean, Double StdDev) {
  const auto shape = zor::detail::shape_of(a);
  if (shape.empty()) return kEmptyArray;
  if (!(StdDev >= 0.0) || std::isnan(Mean)) return kBadLimits;
  Randomize();
  zor::detail::for_runs(
      shape,
      [=](std::span<Double> x) {
        for (Double& cell : x) cell = ZOR_runtime::RandG(Mean, StdDev);
      },
      a);
  return 0;
}

#define ZOR_INSTANCES(A) template Integer FillRandomUniform<A>(A&, CellOf<A>, CellOf<A>);
#define ZOR_REAL_INSTANCES(A) \
  ZOR_INSTANCES(A)            \
  template Integer FillRandomNormal<A>(A&, Double, Double);

ZOR_REAL_INSTANCES(TDoubleArray)
ZOR_REAL_INSTANCES(TDouble2DArray)
ZOR_REAL_INSTANCES(TDouble3DArray)
ZOR_REAL_INSTANCES(TDouble4DArray)
ZOR_INSTANCES(TIntArray)
ZOR_INSTANCES(TInt2DArray)
ZOR_INSTANCES(TInt3DArray)
ZOR_INSTANCES(TInt4DArray)

}  // namespace ZOR_openarrays

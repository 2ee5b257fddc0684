#include "zor/arrays/frequency.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "zor/arrays/walk_internal.h"
#include "zor/scalar/bin_counter_internal.h"

namespace ZOR_openarrays {
namespace {

using zor::detail::Box;
using zor::detail::Shape;

constexpr Integer kMostBins = 1000;

struct Bins {
  Double first, last, width;
};
struct Counts {
  TIntArray& histogram;
  Integer &underflow, &overflow, &largest;
};

/// The range as a box; all bounds 0 mean everything.
template <std::size_t N>
Integer measure(const Shape<N>& shape, const std::array<Integer, N>& low, const std::array<Integer, N>& high,
                Box<N>& box) {
  const std::array<Integer, N> none{};
  box = zor::detail::whole(shape);
  if (low == none && high == none) return 0;
  Integer code = 0;
  for (std::size_t d = 0; d < N; ++d) {
    const auto outside = [&](Integer i) { return i < 0 || static_cast<std::size_t>(i) >= shape.length[d]; };
    if (outside(low[d]) || outside(high[d])) code = kBoundOutside;
  }
  for (std::size_t d = 0; d < N; ++d) {
    if (low[d] > high[d]) code = kBoundsReversed;
  }
  if (code == 0) zor::detail::box_of(shape, low, high, box);
  return code;
}

/// count(counter, box) puts the cells.
template <std::size_t N, class Count>
Integer distribution(const Shape<N>& shape, bool mask_fits, const std::array<Integer, N>& low,
                     const std::array<Integer, N>& high, const Bins& bins, Counts to, Count count) {
  if (shape.empty()) return kBoundOutside;
  Box<N> box;
  Integer code = measure(shape, low, high, box);
  if (!(bins.last > bins.first)) code = kBadBinLimits;
  if (!(bins.width > 0.0) || std::isinf(bins.width)) return kBadBinWidth;
  if (!mask_fits) code = kMaskNotFitting;
  zor::detail::BinCounter<Double> counter(bins.first, bins.last, bins.width, kMostBins);
  // Limits that are NaN have their code already.
  if (!counter.valid() && !std::isnan(bins.first) && !std::isnan(bins.last)) code = kTooManyBins;
  if (code != 0) return code;
  TIntArray histogram;
  counter.start(histogram);
  count(counter, box);
  to.histogram.swap(histogram);
  to.underflow = counter.underflow;
  to.overflow = counter.overflow;
  to.largest = counter.largest;
  return 0;
}

template <class A, std::size_t N>
Integer distribution_of(const A& a, const std::array<Integer, N>& low, const std::array<Integer, N>& high,
                        const Bins& bins, Counts to) {
  return distribution(zor::detail::shape_of(a), true, low, high, bins, to, [&](auto& counter, const Box<N>& box) {
    zor::detail::for_runs(
        box,
        [&](std::span<const Double> run) {
          for (const Double x : run) counter.put(x);
        },
        a);
  });
}

}  // namespace

Integer FrequDistOfArray(const TDoubleArray& A, Integer Low, Integer High, Double FirstBin, Double LastBin,
                         Double BinWidth, TIntArray& Histo, Integer& Underflow, Integer& Overflow, Integer& MaxCnt) {
  return distribution_of<TDoubleArray, 1>(A, {Low}, {High}, {FirstBin, LastBin, BinWidth},
                                          {Histo, Underflow, Overflow, MaxCnt});
}

Integer FrequDistOfArray(const TDouble2DArray& A, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                         Double FirstBin, Double LastBin, Double BinWidth, TIntArray& Histo, Integer& Underflow,
                         Integer& Overflow, Integer& MaxCnt) {
  return distribution_of<TDouble2DArray, 2>(A, {LowCol, LowRow}, {HighCol, HighRow}, {FirstBin, LastBin, BinWidth},
                                            {Histo, Underflow, Overflow, MaxCnt});
}

Integer FrequDistOfArray(const TDouble2DArray& A, const TBool2DArray& Mask, Integer LowCol, Integer LowRow,
                         Integer HighCol, Integer HighRow, Double FirstBin, Double LastBin, Double BinWidth,
                         TIntArray& Histo, Integer& Underflow, Integer& Overflow, Integer& MaxCnt) {
  const auto shape = zor::detail::shape_of(A);
  return distribution<2>(shape, zor::detail::shape_of(Mask) == shape, {LowCol, LowRow}, {HighCol, HighRow},
                         {FirstBin, LastBin, BinWidth}, {Histo, Underflow, Overflow, MaxCnt},
                         [&](auto& counter, const Box<2>& box) {
                           zor::detail::for_runs(
                               box,
                               [&](std::span<const Double> x, std::span<const Boolean> skip) {
                                 for (std::size_t i = 0; i < x.size(); ++i) {
                                   if (!skip[i]) counter.put(x[i]);
                                 }
                               },
                               A, Mask);
                         });
}

}  // namespace ZOR_openarrays

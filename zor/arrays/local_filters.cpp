#include "zor/arrays/local_filters.h"

#include <algorithm>
#include <cmath>

#include "zor/arrays/walk_internal.h"
#include "zor/base/ZOR_zorbase.h"
#include "zor/scalar/sorting.h"

namespace ZOR_openarrays {
namespace {

using zor::detail::to_integer;

/// Calls take(cell) for the centre and its neighbours; the array is not empty.
template <class A, class Take>
void for_neighbours(const A& a, Integer ix, Integer radius, Integer low, Integer high, Take take) {
  const auto limited = [last = to_integer(a.size() - 1)](Integer i) { return std::clamp(i, 0, last); };
  const Int64 centre = ix, first = limited(low), last = limited(high);
  take(static_cast<Double>(a[limited(ix)]));
  radius = limited(radius);
  for (Int64 k = 1; k <= radius; ++k) {
    for (const Int64 i : {centre - k, centre + k}) {
      if (first <= i && i <= last) take(static_cast<Double>(a[i]));
    }
  }
}

Double median(std::span<Double> cells) {
  ZOR_math1::SortArray(cells, true);
  const std::size_t middle = cells.size() / 2;
  return cells.size() % 2 == 1 ? cells[middle] : (cells[middle - 1] + cells[middle]) / 2.0;
}

/// Indices at which `step(i)`, the difference of the cells i and i - 1, departs from the one before.
template <class Step, class Departs>
Integer find_breaks(std::size_t n, Step step, Departs departs, TIntArray& breaks) {
  if (n < 3) return 0;
  TIntArray found;
  std::size_t count = 0;
  auto slope = step(1);
  for (std::size_t i = 2; i < n; ++i) {
    const auto next = step(i);
    if (!departs(next, slope)) continue;
    if (count == found.size()) SetLength(found, static_cast<Int64>(2 * count + 64));
    found[count++] = to_integer(i - 1);
    slope = next;
  }
  SetLength(found, static_cast<Int64>(count));
  breaks.swap(found);
  return to_integer(count);
}

}  // namespace

template <class A>
  requires Num<A, 1>
Double LocalMean(const A& a, Integer Ix, Integer Radius, Integer Low, Integer High) {
  if (a.empty()) return 0.0;
  Double sum = 0.0;
  Int64 count = 0;
  for_neighbours(a, Ix, Radius, Low, High, [&](Double x) { sum += x, ++count; });
  return sum / static_cast<Double>(count);
}

template <class A>
  requires Num<A, 1>
Double LocalMedian(const A& a, Integer Ix, Integer Radius, Integer Low, Integer High) {
  if (a.empty()) return 0.0;
  std::size_t count = 0;
  for_neighbours(a, Ix, Radius, Low, High, [&](Double) { ++count; });
  TDoubleArray cells;
  zor::detail::set_length_unset(cells, count);
  Double* next = cells.data();
  for_neighbours(a, Ix, Radius, Low, High, [&](Double x) { *next++ = x; });
  return median(cells);
}

Integer CheckLinearity(const TDoubleArray& A, Double Tolerance, TIntArray& BreakPts) {
  return find_breaks(
      A.size(), [&](std::size_t i) { return A[i] - A[i - 1]; },
      [=](Double step, Double slope) { return std::fabs(step - slope) > Tolerance; }, BreakPts);
}

Integer CheckLinearity(const TIntArray& A, TIntArray& BreakPts) {
  return find_breaks(
      A.size(), [&](std::size_t i) { return Int64{A[i]} - A[i - 1]; },
      [](Int64 step, Int64 slope) { return step != slope; }, BreakPts);
}

#define ZOR_INSTANCES(A)                                                      \
  template Double LocalMean<A>(const A&, Integer, Integer, Integer, Integer); \
  template Double LocalMedian<A>(const A&, Integer, Integer, Integer, Integer);

ZOR_INSTANCES(TDoubleArray)
ZOR_INSTANCES(TIntArray)

}  // namespace ZOR_openarrays

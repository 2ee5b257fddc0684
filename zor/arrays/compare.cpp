#include "zor/arrays/compare.h"

#include <algorithm>
#include <concepts>
#include <optional>
#include <utility>

#include "zor/arrays/walk_internal.h"
#include "zor/kernels/search.h"

namespace ZOR_openarrays {
namespace {

/// The two values of the cells, the smaller one first; of integers they may be equal.
template <class A, class T = CellType<A>>
std::optional<std::pair<T, T>> two_values(const A& a) {
  if (a.size() < 2) return {};
  const T first = a[0];
  T second = first;
  for (const T x : a) {
    if (x == first || (second != first && x == second)) continue;
    if (second != first || x != x) return {};
    second = x;
  }
  if (first != first) return {};
  if (std::same_as<T, Double> && second == first) return {};
  return std::pair<T, T>(std::min(first, second), std::max(first, second));
}

}  // namespace

template <class A>
  requires ArrayOf<A, 1, 4, Integer>
Boolean EqualArrays(const A& a, const Same<A>& b) {
  const auto shape = zor::detail::shape_of(a);
  if (shape != zor::detail::shape_of(b)) return false;
  Boolean equal = true;
  zor::detail::for_runs(
      shape, [&](auto x, auto y) { equal = equal && zor::kernels::equal(x, y); }, a, b);
  return equal;
}

template <class A>
  requires Num<A, 1>
Boolean IsMonotone(const A& a) {
  if (a.size() <= 2) return true;
  Boolean rises = false, falls = false;
  for (std::size_t i = 1; i < a.size(); ++i) {
    if (a[i - 1] < a[i]) {
      rises = true;
    } else if (a[i - 1] > a[i]) {
      falls = true;
    } else if (!(a[i - 1] == a[i])) {
      return false;
    }
    if (rises && falls) return false;
  }
  return true;
}

template <class A>
  requires Num<A, 1>
Boolean IsStrictlyMonotone(const A& a) {
  if (a.size() <= 2) return true;
  const Boolean rises = a[0] < a[1];
  for (std::size_t i = 1; i < a.size(); ++i) {
    if (!(rises ? a[i - 1] < a[i] : a[i - 1] > a[i])) return false;
  }
  return true;
}

template <class A>
  requires Num<A, 1>
Boolean IsDichotomous(const A& a, CellType<A>& Value1, CellType<A>& Value2) {
  const auto values = two_values(a);
  Value1 = values ? values->first : 0;
  Value2 = values ? values->second : 0;
  return values.has_value();
}

#define ZOR_INSTANCES(A)                            \
  template Boolean IsMonotone<A>(const A&);         \
  template Boolean IsStrictlyMonotone<A>(const A&); \
  template Boolean IsDichotomous<A>(const A&, CellType<A>&, CellType<A>&);

ZOR_INSTANCES(TDoubleArray)
ZOR_INSTANCES(TIntArray)
template Boolean EqualArrays<TIntArray>(const TIntArray&, const TIntArray&);
template Boolean EqualArrays<TInt2DArray>(const TInt2DArray&, const TInt2DArray&);
template Boolean EqualArrays<TInt3DArray>(const TInt3DArray&, const TInt3DArray&);
template Boolean EqualArrays<TInt4DArray>(const TInt4DArray&, const TInt4DArray&);

}  // namespace ZOR_openarrays

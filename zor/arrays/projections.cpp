#include "zor/arrays/projections.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "zor/arrays/walk_internal.h"
#include "zor/base/ZOR_univconst.h"
#include "zor/base/ZOR_zorbase.h"

namespace ZOR_openarrays {
namespace {

using zor::detail::to_integer;

Double square(Double x) noexcept { return x * x; }
Double square(Integer x) noexcept {
  return static_cast<Integer>(static_cast<std::uint32_t>(x) * static_cast<std::uint32_t>(x));
}

/// The indices of the list that lie below n, or all of them for an empty list.
TIntArray valid_indices(const TIntArray& list, std::size_t n) {
  TIntArray valid;
  zor::detail::set_length_unset(valid, list.empty() ? n : list.size());
  if (list.empty()) {
    for (std::size_t i = 0; i < n; ++i) valid[i] = static_cast<Integer>(i);
    return valid;
  }
  const auto end = std::copy_if(list.begin(), list.end(), valid.begin(),
                                [=](Integer i) { return i >= 0 && static_cast<std::size_t>(i) < n; });
  SetLength(valid, end - valid.begin());
  return valid;
}

/// res[i] = fold(res[i], cell) for the listed cells, in the order of the list.
template <class A, class Fold>
void project(const A& a, TOrientation orient, const TIntArray& list, TDoubleArray& res, Fold fold) {
  if (orient == orHorizontal) {
    for (const Integer col : list) {
      const auto* const cells = a[col].data();
      for (std::size_t row = 0; row < res.size(); ++row) res[row] = fold(res[row], cells[row]);
    }
    return;
  }
  for (std::size_t col = 0; col < res.size(); ++col) {
    const auto* const cells = a[col].data();
    Double folded = res[col];
    for (const Integer row : list) folded = fold(folded, cells[row]);
    res[col] = folded;
  }
}

constexpr auto kAdd = [](Double sum, auto x) { return sum + static_cast<Double>(x); };

template <class A>
void standard_deviations(const A& a, TOrientation orient, const TIntArray& list, TDoubleArray& res) {
  if (list.size() < 3) return;
  TDoubleArray squares;
  SetLength(squares, static_cast<Int64>(res.size()));
  project(a, orient, list, res, kAdd);
  project(a, orient, list, squares, [](Double sum, auto x) { return sum + square(x); });
  const auto n = static_cast<Double>(list.size());
  for (std::size_t i = 0; i < res.size(); ++i) {
    const Double variance = (squares[i] - res[i] * res[i] / n) / (n - 1.0);
    res[i] = variance < 0.0 ? 0.0 : std::sqrt(variance);
  }
}

}  // namespace

template <class A>
  requires Num<A, 2>
Integer EdgeVector(const A& a, TOrientation Orient, TEdgeOp EdgeOp, const TIntArray& EdgeIx, TDoubleArray& Res) {
  const auto [cols, rows] = zor::detail::shape_of(a).length;
  if (cols == 0) return kEmptyArray;
  const bool horizontal = Orient == orHorizontal;
  const TIntArray list = valid_indices(EdgeIx, horizontal ? cols : rows);
  TDoubleArray res;
  SetLength(res, static_cast<Int64>(horizontal ? rows : cols));
  switch (EdgeOp) {
    case eoMin:
      std::ranges::fill(res, ZOR_univconst::uc_MaxDouble);
      project(a, Orient, list, res, [](Double least, auto x) { return x < least ? static_cast<Double>(x) : least; });
      break;
    case eoMax:
      std::ranges::fill(res, -ZOR_univconst::uc_MaxDouble);
      project(a, Orient, list, res, [](Double most, auto x) { return x > most ? static_cast<Double>(x) : most; });
      break;
    case eoStdDev:
      standard_deviations(a, Orient, list, res);
      break;
    case eoSum:
    case eoMean:
      project(a, Orient, list, res, kAdd);
      break;
  }
  const std::size_t divisor = horizontal ? cols : list.size();
  if (EdgeOp == eoMean && divisor != 0) {
    for (Double& cell : res) cell /= static_cast<Double>(divisor);
  }
  const bool all_valid = EdgeIx.empty() || list.size() == EdgeIx.size();
  Res.swap(res);
  return all_valid ? 0 : kBadEdgeIndex;
}

template <class A>
  requires Num<A, 2>
Integer EdgeVector(const A& a, TOrientation Orient, TEdgeOp EdgeOp, TDoubleArray& Res) {
  return EdgeVector(a, Orient, EdgeOp, nullptr, Res);
}

template <class A>
  requires Num<A, 2>
void BoundingRect(const A& a, Integer& Left, Integer& Right, Integer& Top, Integer& Bottom) {
  const auto [cols, rows] = zor::detail::shape_of(a).length;
  std::size_t left = cols, right = 0, top = rows, end = 0;  // rows from top, in front of end
  const auto set = [](CellType<A> x) { return x != 0; };
  for (std::size_t col = 0; col < cols; ++col) {
    const auto* const cells = a[col].data();
    const auto first = static_cast<std::size_t>(std::find_if(cells, cells + rows, set) - cells);
    if (first == rows) continue;
    std::size_t last = rows;  // rows in front of `end` tell nothing new
    while (last > end && last > first + 1 && !set(cells[last - 1])) --last;
    left = (std::min)(left, col);
    right = col;
    top = (std::min)(top, first);
    end = (std::max)(end, last);
  }
  if (left == cols) {
    Left = Right = Top = Bottom = -1;
    return;
  }
  Left = to_integer(left), Right = to_integer(right);
  Top = to_integer(top), Bottom = to_integer(end - 1);
}

#define ZOR_INSTANCES(A)                                                                            \
  template Integer EdgeVector<A>(const A&, TOrientation, TEdgeOp, const TIntArray&, TDoubleArray&); \
  template Integer EdgeVector<A>(const A&, TOrientation, TEdgeOp, TDoubleArray&);                   \
  template void BoundingRect<A>(const A&, Integer&, Integer&, Integer&, Integer&);

ZOR_INSTANCES(TDouble2DArray)
ZOR_INSTANCES(TInt2DArray)

}  // namespace ZOR_openarrays

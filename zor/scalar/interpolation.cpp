#include "zor/scalar/interpolation.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "zor/scalar/math1_errors.h"

namespace ZOR_math1 {
namespace {

/// Cells seen from either end, as Double: a falling table is a rising one read from behind, with the same roundings.
template <class T>
struct Ascent {
  const TDynArray<T>& cells;
  bool falling;
  std::size_t last() const { return cells.size() - 1; }
  Double operator[](std::size_t i) const { return static_cast<Double>(cells[falling ? last() - i : i]); }
};

template <class T>
Double in_table(Double x, Double low, Double high, const TDynArray<T>& table) {
  if (table.size() < 2) zor::detail::Fail<EZORMath1Error>("InterpolTable: pivot array must contain at least 2 values");
  if (low == high) zor::detail::Fail<EZORMath1Error>("InterpolTable: specified range of pivot array is zero");
  const Ascent<T> t{table, low > high};
  if (t.falling) std::swap(low, high);
  const std::size_t last = t.last();
  const auto segments = static_cast<Double>(last);
  if (x < low) return t[0] + (t[1] - t[0]) * ((x - low) / (high - low)) * segments;
  if (x > high) return t[last] + (t[last] - t[last - 1]) * ((x - high) / (high - low)) * segments;
  const Double r = (x - low) / (high - low) * segments;
  if (std::isnan(r)) return r;
  if (r >= segments) return t[last];  // rounding may carry an x below high as far
  const auto i = static_cast<std::size_t>(r);
  return t[i] + (t[i + 1] - t[i]) * (r - std::trunc(r));
}

}  // namespace

Double InterpolTable(Double x, Double Low, Double High, const TDoubleArray& Table) {
  return in_table(x, Low, High, Table);
}
Double InterpolTable(Double x, Double Low, Double High, const TIntArray& Table) {
  return in_table(x, Low, High, Table);
}

Double InterpolXYTable(Double x, const TDouble2DArray& Table, Boolean Extrapolate) {
  if (!Table.empty()) {
    const std::size_t n = Table[0].size();
    const auto fits = [n](const TDoubleArray& column) { return column.size() == n; };
    if (n < 2 || !std::all_of(Table.begin(), Table.end(), fits))
      zor::detail::Fail<EZORMath1Error>("InterpolXYTable: pivot array must contain at least 2 rows");
  }
  if (Table.size() != 2) zor::detail::Fail<EZORMath1Error>("InterpolXYTable: pivot array must contain 2 columns");
  if (std::isnan(x)) return x;
  const bool falling = Table[0][Table[0].size() - 1] < Table[0][0];
  const Ascent<Double> xs{Table[0], falling}, ys{Table[1], falling};
  const std::size_t last = xs.last();
  // Line through the pivots i and j, seen from i.
  const auto line = [&](std::size_t i, std::size_t j) {
    return ys[i] + (x - xs[i]) / (xs[i] - xs[j]) * (ys[i] - ys[j]);
  };
  if (x > xs[0] && x < xs[last]) {
    std::size_t below = 0, i = last;  // xs[below] < x, and i is the first pivot known not to be
    while (i - below > 1) {
      const std::size_t middle = below + (i - below) / 2;
      (xs[middle] < x ? below : i) = middle;
    }
    return line(i, i - 1);
  }
  if (!Extrapolate) return 0.0;
  return x <= xs[0] ? line(0, 1) : line(last, last - 1);
}

Double InterpolZofXYRect(Double z1, Double z2, Double z3, Double z4, Double s, Double t) noexcept {
  const Double a = z1 + s * (z3 - z1);
  const Double b = z2 + s * (z4 - z2);
  return a + t * (b - a);
}

}  // namespace ZOR_math1

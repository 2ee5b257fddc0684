#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "zor/kernels/sums.h"
#include "zor/vectors/vector.h"

namespace ZOR_vector {
namespace {

/// Closed rule of Simpson's kind over the samples y, which stand one apart; exact for cubics from three samples on.
Double simpson(std::span<const Double> y) {
  const std::size_t n = y.size();
  switch (n) {
    case 0:
    case 1:
      return 0.0;
    case 2:
      return (y[0] + y[1]) / 2.0;
    case 3:
      return y[0] / 3.0 + 4.0 * y[1] / 3.0 + y[2] / 3.0;
    case 4:
      return (y[0] + 3.0 * y[1] + 3.0 * y[2] + y[3]) * 3.0 / 8.0;
    case 5:
      return (7.0 * y[0] + 32.0 * y[1] + 12.0 * y[2] + 32.0 * y[3] + 7.0 * y[4]) * 2.0 / 45.0;
    default:
      return 3.0 / 8.0 * y[0] + 7.0 / 6.0 * y[1] + 23.0 / 24.0 * y[2] +
             zor::kernels::sum_in_order(y.subspan(3, n - 6)) + 23.0 / 24.0 * y[n - 3] + 7.0 / 6.0 * y[n - 2] +
             3.0 / 8.0 * y[n - 1];
  }
}

Double trapezoids(std::span<const Double> y) {
  Double sum = 0.0;
  for (std::size_t i = 1; i < y.size(); ++i) sum += (y[i - 1] + y[i]) / 2.0;
  return sum;
}

}  // namespace

Double TVector::Integrate(Double BoundLow, Double BoundHigh, TIntegMethod Method) const {
  if (std::isnan(BoundLow) || std::isnan(BoundHigh)) return std::numeric_limits<Double>::quiet_NaN();
  if (Method > imSimpson) return 0.0;
  const Double n = NrOfElem();
  Double low = std::clamp(BoundLow, 1.0, n), high = std::clamp(BoundHigh, 1.0, n);
  if (low > high) std::swap(low, high);
  // First and last sample inside the range; first = last + 1 if it lies between two neighbours.
  const auto first = static_cast<Integer>(std::ceil(low)), last = static_cast<Integer>(std::floor(high));
  const bool between = first > last;
  if (between) {
    if (Method == imSimple) return (GetVal(last) + GetVal(first)) / 2.0 * (high - low);
    const auto curve = [&](Double x) { return GetVal(last) + (GetVal(first) - GetVal(last)) * (x - last); };
    return (curve(low) + curve(high)) / 2.0 * (high - low);
  }
  const std::span<const Double> inner = range(first, last);
  if (Method == imSimple) {
    return zor::kernels::sum_in_order(inner) / static_cast<Double>(inner.size()) * (high - low);
  }
  // Strips between the bounds and the first and last sample; those of no width must not read a neighbour.
  Double result = 0.0;
  if (low < first) {
    const Double outer = GetVal(first - 1) + (GetVal(first) - GetVal(first - 1)) * (low - first + 1.0);
    result += (outer + GetVal(first)) / 2.0 * (first - low);
  }
  if (high > last) {
    const Double outer = GetVal(last) + (GetVal(last + 1) - GetVal(last)) * (high - last);
    result += (outer + GetVal(last)) / 2.0 * (high - last);
  }
  return result + (Method == imTrapezoidal ? trapezoids(inner) : simpson(inner));
}

}  // namespace ZOR_vector

#pragma once

#include <cmath>

#include "zor/kernels/moments.h"

/// \file  The correlation coefficient of series of numbers.

namespace zor::detail {

/// cxy / sqrt(|cxx cyy|); 0.0 if a sum of squares is not positive or a centred one is 0.0.
inline double correlation(const kernels::PairMoments& m) noexcept {
  if (m.sxx <= 0.0 || m.syy <= 0.0 || m.cxx == 0.0 || m.cyy == 0.0) return 0.0;
  const double product = std::abs(m.cxx * m.cyy);
  // Of very large or small deviations only the product leaves the range of a double.
  if (!std::isnormal(product)) return m.cxy / std::sqrt(std::abs(m.cxx)) / std::sqrt(std::abs(m.cyy));
  return m.cxy / std::sqrt(product);
}

}  // namespace zor::detail

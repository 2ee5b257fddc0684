#include "zor/scalar/histogram_bin.h"

#include <cmath>
#include <limits>

#include "zor/runtime/numbers.h"

namespace ZOR_math1 {

Integer HistoBinRef(Double x, Double Origin, Double BinWidth, Double& Ref) noexcept {
  const Double place = (x - Origin) / BinWidth;
  if (BinWidth == 0.0 || std::isnan(place)) {
    Ref = std::numeric_limits<Double>::quiet_NaN();
    return 0;
  }
  const Integer bin = zor::detail::floor_to_integer(place);
  Ref = x - (Origin + bin * BinWidth);
  return bin;
}

}  // namespace ZOR_math1

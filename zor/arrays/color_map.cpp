#include "zor/arrays/color_map.h"

#include <algorithm>
#include <cmath>

#include "zor/arrays/walk_internal.h"

namespace ZOR_openarrays {

Integer DiscretizeArray(TDouble2DArray& A, Integer NumSteps, Double LowIn, Double HighIn, Double LowOut,
                        Double HighOut) {
  if (!(LowIn < HighIn) || !std::isfinite(HighIn - LowIn)) return kBadStepLimits;
  if (NumSteps < 3) return kTooFewSteps;
  const Double width = (HighIn - LowIn) / (NumSteps - 2.0), step = (HighOut - LowOut) / (NumSteps - 1.0);
  const Double highest = NumSteps - 2.0;  // the quotient of a cell just below HighIn may round up to the next level
  zor::detail::for_runs(
      zor::detail::shape_of(A),
      [=](std::span<Double> cells) {
        for (Double& x : cells) {
          const Double level = std::floor((x - LowIn) / width) + 1.0;
          const Double between = (highest < level ? highest : level) * step + LowOut;
          x = x <= LowIn ? LowOut : x >= HighIn ? HighOut : between;
        }
      },
      A);
  return 0;
}

Integer ConvertToColorMap(TInt2DArray& A, const ZOR_zorcolors::TColorArray* ColorArray) {
  TIntArray colors;
  SetLength(colors, ColorArray ? ColorArray->NrOfColors() : 0);
  if (colors.empty()) return kNoColors;
  const auto shape = zor::detail::shape_of(A);
  if (shape.empty()) return kNothingToMap;
  const Integer last = Length(colors);
  for (Integer i = 0; i < last; ++i) colors[i] = ColorArray->GetColorElem(i + 1);
  zor::detail::for_runs(
      shape,
      [last, color = colors.data()](std::span<Integer> cells) {
        for (Integer& v : cells) v = color[std::clamp(v, 1, last) - 1];
      },
      A);
  return 0;
}

}  // namespace ZOR_openarrays

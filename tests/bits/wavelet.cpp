#include <algorithm>
#include <string>

#include "bits.h"
#include "zor/transforms/ZOR_wavelet.h"

using namespace ZOR_wavelet;

ZOR_BITS(wavelet) {
  const std::vector<double> x = bits::noise(8192, 5);
  for (Integer order = 1; order <= 3; ++order) {
    for (const auto mode : {wseWrap, wseZeroPad, wseSymmetric}) {
      TWavelet1D w;
      w.SetOrder(order);
      w.SetSignalExtMode(mode);
      w.SetSize(8192);
      std::ranges::copy(x, w.Edit().begin());
      const std::string what = "order " + std::to_string(order) + ", extension " + std::to_string(mode);
      w.Transform(13);
      bits::print(what, w.Cells());
      w.InverseTransform(13);
      bits::print(what + ", inverse", w.Cells());
    }
  }
}

#include <algorithm>
#include <string>

#include "bits.h"
#include "zor/transforms/ZOR_fourier.h"

using namespace ZOR_fourier;

// Windows are left out, but for that of the user: their cosines are those of the C library.
ZOR_BITS(fourier) {
  for (const Integer n : {1, 2, 8, 512, 2048, 65536}) {
    const std::vector<double> x = bits::noise(static_cast<std::size_t>(2 * n), 7);
    TFastFourier f;
    f.SetSpectrumSize(n);
    std::ranges::copy(x, f.Edit().begin());
    f.SetWeightingWindow(fwUserDef);
    for (Integer i = 1; i <= n; ++i) f.SetWgtFunction(i, 1.0 / i);
    f.Transform();
    const std::string what = std::to_string(n) + " samples";
    bits::print(what, f.Cells());
    const std::vector<double> readers{f.PowerMax(),       f.MagniMax(),         f.RealMax(),
                                      f.ImagMin(),        f.RMS(0, n),          f.PowerSpec(n / 2),
                                      f.Magnitude(n / 3), f.FourSerSinCoeff(1), f.FourSerCosCoeff(0)};
    bits::print(what + ", readers", readers);
    f.InverseTransform();
    bits::print(what + ", inverse", f.Cells());
  }
}

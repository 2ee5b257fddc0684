#pragma once

#include "zor/base/ZOR_zorbase.h"
#include "zor/transforms/ZOR_fourier_fwd.h"
#include "zor/transforms/fourier.h"

/// \file  Fast Fourier transform of complex samples of a power-of-two length N, in place.
/// The forward transform has the positive exponent and no scaling, X[k] = sum of x[n] exp(+2 pi i k n / N); the inverse
/// has the negative exponent and divides by N. Readers of the spectrum divide by N themselves. Elements count from 1 to
/// N. Lines count from 0 to N/2: line k is element k + 1, its mirror is element N - k + 1. A bad number never raises:
/// reading gives 0, writing is ignored. Nothing records whether the object holds samples or a spectrum. One object may
/// be used by one thread at a time.
///
///     using namespace ZOR_fourier;
///     TFastFourier f;                                     // 256 samples, all 0
///     for (int i = 1; i <= 256; ++i) f.SetRealSpec(i, 3.0 * std::cos(2.0 * std::numbers::pi * 10.0 * (i - 1) /
///     256.0)); f.Transform(); std::cout << f.Magnitude(10) << '\n';               // 3

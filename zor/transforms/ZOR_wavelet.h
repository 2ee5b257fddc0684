#pragma once

#include "zor/base/ZOR_zorbase.h"
#include "zor/transforms/ZOR_wavelet_fwd.h"
#include "zor/transforms/wavelet.h"

/// \file  Discrete wavelet transform of a real signal of power-of-two length, in place, with Daubechies filters.
/// Elements count from 1; reading a bad number gives 0, writing it is ignored. A step on p points puts p/2 smooth
/// values in front and p/2 details behind. Only wseWrap can be undone; the other extensions are for analysis.
///
///     using namespace ZOR_wavelet;
///     TWavelet1D w;
///     w.SetSize(8);
///     w.SetData(3, 1.0);
///     w.Transform(3);
///     w.InverseTransform(3);                   // element 3 is 1 again

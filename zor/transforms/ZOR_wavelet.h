#pragma once

#include "zor/base/ZOR_zorbase.h"
#include "zor/transforms/ZOR_wavelet_fwd.h"
#include "zor/transforms/wavelet.h"

/// \file  Discrete wavelet transform of a real signal of power-of-two length N, in place, with Daubechies' filters.
/// Value i of a forward step on p elements (i, k from 0, L = 2 Order) is the sum over k of filter[k] x[2 i + 2 - L +
/// k]. The p/2 smooth values take the places in front, the p/2 details those behind; the next step works on the smooth
/// ones. After all steps element 1 is the smooth rest, element 2 the coarsest detail, elements N/2 + 1 to N are the
/// finest details. Places left of the signal are what SignalExtMode says.
///
/// With wseWrap the steps are orthogonal: they keep the sum of squares, and the inverse restores the signal up to
/// rounding (about 1e-15 of its size). The other modes are for analysis only. A step and its inverse then miss the last
/// 2 Order - 2 elements, with wseSymmetric the first ones too, except for order 1; a pair of full transforms errs
/// everywhere, with wseSymmetric by up to several times the signal.
///
/// Elements count from 1; reading a bad number gives 0, writing it is ignored. Nothing records whether the object holds
/// a signal or coefficients. Results have the bits of the sums taken term by term in the order of i, then k. One object
/// may be used by one thread at a time.
///
///     using namespace ZOR_wavelet;
///     TWavelet1D w;
///     w.SetSize(8);
///     w.SetData(3, 1.0);
///     w.Transform(3);
///     w.InverseTransform(3);                   // element 3 is 1 again

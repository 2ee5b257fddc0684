#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Bins of a histogram.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Number b of the bin of x, where bin 0 starts at Origin: Floor((x - Origin) / BinWidth), limited to Integer. Ref
/// becomes the place of x in its bin, x - (Origin + b * BinWidth). BinWidth 0 or a NaN gives bin 0 and Ref NaN.
ZOR_API Integer HistoBinRef(Double x, Double Origin, Double BinWidth, Double& Ref) noexcept;

}  // namespace ZOR_math1

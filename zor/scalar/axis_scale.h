#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Layout of the ticks of a chart axis.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Ticks of an axis from Low to High, which may run downward.
/// Dist is the distance of two major ticks: 1, 2 or 5 times a power of ten, not above |High - Low| / NTicks, negative
/// on an axis that runs downward. A raw distance of just 2 or 5 gives the next finer step, so that an axis has at least
/// the NTicks intervals asked for; one that falls short of a power of ten by no more than 2.3e-10 of it counts as that
/// power. First is the first tick at or behind Low, seen in the direction of the axis, up to a thousandth of Dist;
/// Minor is the number of minor intervals between major ticks.
/// NTicks = 0 or less asks for ticks at all whole numbers; Minor is then 5, or 1 on an axis longer than 10.
/// If High equals Low, a bound is not finite or the distance is beyond what a double holds: First = Low, Dist = 0 and
/// Minor = 1. First is Low itself where ticks lie closer than neighbouring doubles.
ZOR_API void CalcScalePars(Integer NTicks, Double Low, Double High, Double& First, Double& Dist, Word& Minor) noexcept;

}  // namespace ZOR_math1

#pragma once

#include <span>

#include "zor/base/ZOR_zorbase.h"

/// \file  The comb sort of the library.
/// In place, not stable, without allocation. An exchange happens only where two cells stand strictly in the wrong
/// order: equal cells stay, and a NaN never moves. A feedback step follows each pass, and the feedback
/// procedure must leave the cells alone; the sort cannot be aborted.
///
///     TDoubleArray a = {3, 1, 2};
///     SortArray(a, true);          // 1, 2, 3
/// Source: W. Dobosiewicz, An efficient variation of bubble sort, Inf. Process. Lett. 11 (1980).

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Sorts the cells, ascending or descending.
ZOR_API void SortArray(std::span<Double> Arr, Boolean Ascending);
ZOR_API void SortArray(std::span<Single> Arr, Boolean Ascending);
ZOR_API void SortArray(std::span<Integer> Arr, Boolean Ascending);

/// Sorts Count cells of a kind, which lie at an address aligned for it. Null, a Count below 2 or an unknown Kind does
/// nothing.
ZOR_API void SortArray(void* Arr, Integer Count, TVarKind Kind, Boolean Ascending);

/// Orders two values; true if they were exchanged. Ascending exchanges unless b > a, so equal values and NaN count as
/// exchanged: a loop "until nothing was exchanged" would never end on them.
ZOR_API Boolean SortSwap(Double& a, Double& b, Boolean Ascending) noexcept;

}  // namespace ZOR_math1

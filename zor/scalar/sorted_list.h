#pragma once

#include <span>

#include "zor/base/ZOR_zorbase.h"

/// \file  Sorted lists of fixed size, for the k best of many values.
/// The list starts out filled, as a rule with values that cannot win; what is inserted pushes out the last cell.
///
///     TDoubleArray best = {9e9, 9e9, 9e9};
///     for (const Double d : {4.0, 1.0, 3.0, 2.0}) SortIntoArray(best, d, true, true);    // 1, 2, 3
///
/// The forms with a pointer take Count cells of a kind at an address aligned for it, and a Value of the same kind;
/// their positions count from 1. A null pointer, a Count below 1 or an unknown Kind does nothing and gives 0.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Inserts Value in front of the first cell that it does not come behind in the order; returns the index, counted from
/// 0. -1 if there is no such cell, or if it equals Value and AllowDuplicates is false. NaN is never inserted, and NaN
/// cells are passed over.
ZOR_API Integer SortIntoArray(std::span<Double> Arr, Double Value, Boolean Ascending, Boolean AllowDuplicates) noexcept;
ZOR_API Integer SortIntoArray(std::span<Single> Arr, Single Value, Boolean Ascending, Boolean AllowDuplicates) noexcept;
ZOR_API Integer SortIntoArray(std::span<Integer> Arr, Integer Value, Boolean Ascending,
                              Boolean AllowDuplicates) noexcept;
/// The same for an untyped buffer; returns the position, counted from 1, or 0.
ZOR_API Integer SortIntoArray(void* Arr, Integer Count, TVarKind Kind, const void* Value, Boolean Ascending,
                              Boolean AllowDuplicates) noexcept;

/// Puts Value at index Pos, counted from 0, and moves the cells from there on up by one. Nothing happens if Pos is
/// outside.
ZOR_API void InsertIntoArray(std::span<Double> Arr, Double Value, Integer Pos) noexcept;
ZOR_API void InsertIntoArray(std::span<Single> Arr, Single Value, Integer Pos) noexcept;
ZOR_API void InsertIntoArray(std::span<Integer> Arr, Integer Value, Integer Pos) noexcept;
/// The same for an untyped buffer, with Pos counted from 1.
ZOR_API void InsertIntoArray(void* Arr, Integer Count, TVarKind Kind, const void* Value, Integer Pos) noexcept;

}  // namespace ZOR_math1

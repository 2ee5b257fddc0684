#pragma once

#include <span>

#include "zor/base/ZOR_zorbase.h"

/// \file  The value at a place of the ascending order, without sorting.
/// A full sort is avoided, but cells may have to be moved: hand over a private copy where their order matters.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Value that would stand at index k if the cells Lo to Hi were sorted ascending; the cells of this range are
/// reordered. Nothing moves if they are all equal. Lo and Hi are limited to the array; 0.0 if Hi is below Lo. A k below
/// Lo counts as Lo; a k above Hi gives the value that stood at Lo. Comparisons with NaN are false, so that a range with
/// NaN cells gives one of its cells.
/// Quickselect with the middle cell as pivot (C. A. R. Hoare, Algorithm 65: Find, Comm. ACM 4 (1961), 321): linear on
/// the average, quadratic where many cells are equal; for such data use the form with Value.
ZOR_API Double QuickSelect(std::span<Double> Arr, Integer k, Integer Lo, Integer Hi) noexcept;

/// The same over all cells, for data in which Value occurs often: only the other cells are searched, and Arr stays as
/// it is. Hi plays no part; Lo is the first of the other cells, in their order, that takes part in the search, as a
/// rule 0. If k lies behind the last cell, the result is the other cell at Lo, or 0.0 if there is none. A NaN cell
/// counts as greater than every number; a NaN Value equals no cell. Takes time proportional to the number of cells and
/// memory for a copy of them; raises EOutOfMemory.
ZOR_API Double QuickSelect(std::span<const Double> Arr, Integer k, Integer Lo, Integer Hi, Double Value);

}  // namespace ZOR_math1

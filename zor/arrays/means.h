#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Mean, standard deviation and variance of a range of cells.
/// Ranges are indices from 0, both ends inclusive, all low bounds before all high bounds. Results: 0; kEmptyArray;
/// kBadRange if a bound is negative or beyond its dimension, or a low bound is above its high bound. The outputs are
/// set to 0 first in all cases. Sums of doubles carry twice the precision of a double, so that a mean, or a variance,
/// has the error of one rounding of the exact value, however large the mean is against the deviations: cells that are
/// all equal have that value as mean and the variance 0.0 exactly. NaN and infinite cells give NaN or infinity.
/// A sum or a square that overflows is infinite: so is the mean of 1e308 and 1.5e308, and the variance then infinity or
/// NaN. Cells that are all equal have their value as mean whatever their size.

namespace ZOR_openarrays {

/// Sum of the cells divided by their number.
template <class A>
  requires Num<A, 1>
ZOR_API Integer MeanArray(const A& a, Integer LowElem, Integer HighElem, Double& Mean);
template <class A>
  requires Num<A, 2>
ZOR_API Integer MeanArray(const A& a, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Mean);
template <class A>
  requires Num<A, 3>
ZOR_API Integer MeanArray(const A& a, Integer LowCol, Integer LowRow, Integer LowLayer, Integer HighCol,
                          Integer HighRow, Integer HighLayer, Double& Mean);
template <class A>
  requires Num<A, 4>
ZOR_API Integer MeanArray(const A& a, Integer LowCol, Integer LowRow, Integer LowLayer, Integer LowSlot,
                          Integer HighCol, Integer HighRow, Integer HighLayer, Integer HighSlot, Double& Mean);

/// Square root of the variance as MeanVarArray gives it: n - 1 in the denominator, 0.0 for one cell.
template <class A>
  requires Num<A, 1>
ZOR_API Integer StdDevArray(const A& a, Integer LowElem, Integer HighElem, Double& StdDev);
template <class A>
  requires Num<A, 2>
ZOR_API Integer StdDevArray(const A& a, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                            Double& StdDev);
template <class A>
  requires Num<A, 3>
ZOR_API Integer StdDevArray(const A& a, Integer LowCol, Integer LowRow, Integer LowLayer, Integer HighCol,
                            Integer HighRow, Integer HighLayer, Double& StdDev);
template <class A>
  requires Num<A, 4>
ZOR_API Integer StdDevArray(const A& a, Integer LowCol, Integer LowRow, Integer LowLayer, Integer LowSlot,
                            Integer HighCol, Integer HighRow, Integer HighLayer, Integer HighSlot, Double& StdDev);

/// Mean, and the sum of the squared deviations from it divided by n - 1; the variance of one cell is 0.0.
template <class A>
  requires Num<A, 1>
ZOR_API Integer MeanVarArray(const A& a, Integer LowElem, Integer HighElem, Double& Mean, Double& Variance);
template <class A>
  requires Num<A, 2>
ZOR_API Integer MeanVarArray(const A& a, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Mean,
                             Double& Variance);

/// Mean absolute deviation from the mean, sum |x - mean| / Count, of the first Count cells; a Count of 0 means all of
/// them. kBadRange if Count is negative or above the length.
template <class A>
  requires Num<A, 1>
ZOR_API Integer MeanAbsDev(const A& a, Integer Count, Double& Dev);

}  // namespace ZOR_openarrays

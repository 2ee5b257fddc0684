#pragma once

#include <concepts>
#include <span>

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Largest and smallest cells with their places.
/// Cells are compared strictly in storage order, so that the first of equal extremes wins. NaN is never extreme.

namespace ZOR_openarrays {

/// The largest (smallest) cell, and its place. Of an empty array it is a sentinel, which cannot be told from data:
/// -2147483648 (2147483647) for integers of every dimension and for doubles of one and two dimensions, -uc_MaxDouble
/// (uc_MaxDouble) for doubles of three and four. NaN if there are only NaN cells. Without a cell the place is 0.
template <NumArray A>
ZOR_API CellType<A> MaxArray(const A& a);
template <class A>
  requires Num<A, 1>
ZOR_API CellType<A> MaxArray(const A& a, Integer& Ix);
template <class A>
  requires Num<A, 2>
ZOR_API CellType<A> MaxArray(const A& a, Integer& Col, Integer& Row);
template <NumArray A>
ZOR_API CellType<A> MinArray(const A& a);
template <class A>
  requires Num<A, 1>
ZOR_API CellType<A> MinArray(const A& a, Integer& Ix);
template <class A>
  requires Num<A, 2>
ZOR_API CellType<A> MinArray(const A& a, Integer& Col, Integer& Row);

/// Smallest and largest cell. Results: 0; kEmptyArray; kBadRange if a bound is negative or beyond the array. Where no
/// cell is found - on a negative code, of NaN cells only, of a range with a low above its high bound, which is no
/// error - Min is the largest and Max the most negative value of the type (uc_MaxDouble, uc_MaxSingle, 2147483647) and
/// the places are 0. Ranges take indices from 0, both ends inclusive. With a range a cell must pass that start value:
/// of infinities only, Min stays at uc_MaxDouble. Results of a TSingleArray are given as Double.
template <NumArray A>
ZOR_API Integer MinMaxArray(const A& a, CellType<A>& Min, CellType<A>& Max);
template <std::same_as<TSingleArray> A>
ZOR_API Integer MinMaxArray(const A& a, Double& Min, Double& Max);
ZOR_API Integer MinMaxArray(std::span<const Double> A, Double& Min, Double& Max);
ZOR_API Integer MinMaxArray(std::span<const Integer> A, Integer& Min, Integer& Max);
template <class A>
  requires Num<A, 1>
ZOR_API Integer MinMaxArray(const A& a, Integer Low, Integer High, CellType<A>& Min, CellType<A>& Max, Integer& MinIx,
                            Integer& MaxIx);
template <class A>
  requires Num<A, 2>
ZOR_API Integer MinMaxArray(const A& a, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                            CellType<A>& Min, CellType<A>& Max, Integer& MinCol, Integer& MinRow, Integer& MaxCol,
                            Integer& MaxRow);

}  // namespace ZOR_openarrays

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "zor/arrays/ZOR_openarrays.h"

/// \file  Builders of arrays for the typed suites.

namespace ZOR_openarrays {

inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInf = std::numeric_limits<double>::infinity();
inline constexpr Integer kMinInteger = std::numeric_limits<Integer>::min();

/// Calls f with every cell, in storage order.
template <class A, class F>
void each(A& a, const F& f) {
  for (auto& inner : a) {
    if constexpr (kRank<std::remove_const_t<A>> == 1) {
      f(inner);
    } else {
      each(inner, f);
    }
  }
}

template <class A>
std::vector<CellType<A>> cells(const A& a) {
  std::vector<CellType<A>> all;
  each(a, [&](const auto& x) { all.push_back(x); });
  return all;
}

/// An array with 2, 3, 2, 3 cells in its dimensions.
template <class A>
A shaped() {
  A a;
  if constexpr (kRank<A> == 1) SetLength(a, 2);
  if constexpr (kRank<A> == 2) SetLength(a, 2, 3);
  if constexpr (kRank<A> == 3) SetLength(a, 2, 3, 2);
  if constexpr (kRank<A> == 4) SetLength(a, 2, 3, 2, 3);
  return a;
}

/// The same with f(0), f(1), ... in storage order.
template <class A, class F>
A shaped(const F& f) {
  A a = shaped<A>();
  int i = 0;
  each(a, [&](auto& x) { x = static_cast<CellType<A>>(f(i++)); });
  return a;
}

/// The shape of shaped() with the last inner array one cell longer.
template <class A>
void lengthen_last(A& a) {
  if constexpr (kRank<A> == 1) {
    SetLength(a, Length(a) + 1);
  } else {
    lengthen_last(a[Length(a) - 1]);
  }
}

/// Every array of numbers.
using NumTypes = testing::Types<TDoubleArray, TDouble2DArray, TDouble3DArray, TDouble4DArray, TIntArray, TInt2DArray,
                                TInt3DArray, TInt4DArray>;
using RealTypes = testing::Types<TDoubleArray, TDouble2DArray, TDouble3DArray, TDouble4DArray>;

/// n x n, with cell(col, row).
template <class Cell>
TDouble2DArray square(Integer n, Cell cell) {
  TDouble2DArray a;
  SetLength(a, n, n);
  for (Integer c = 0; c < n; ++c)
    for (Integer r = 0; r < n; ++r) a[c][r] = cell(c, r);
  return a;
}

}  // namespace ZOR_openarrays

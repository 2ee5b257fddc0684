#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/result_codes.h"

/// \file  Whole copies of arrays, also between cell types.
/// Dest gets the size of Src and cells of its own; what it held is lost. Src and Dest may be one variable. Results: 0;
/// kEmptyArray if Src is empty, Dest untouched. From Double to Integer cells are rounded to the nearest integer, ties
/// to the even one, and stop at -2147483648 and 2147483647; NaN gives 0. From Double to Single they are rounded to the
/// nearest Single; beyond its range lies an infinity.

namespace ZOR_openarrays {

/// A clone of the same type also takes TBoolArray and TBool2DArray.
template <class A>
concept ClonableArray = NumArray<A> || ArrayOf<A, 1, 2, Boolean>;
/// Arrays of numbers with as many dimensions, but the other cell type.
template <class S, class D>
concept OtherNumArray = NumArray<S> && NumArray<D> && kRank<S> == kRank<D> && !std::same_as<S, D>;

/// Dest = Src.
template <ClonableArray A>
ZOR_API Integer CloneArray(const Same<A>& Src, A& Dest);
template <class S, class D>
  requires OtherNumArray<S, D>
ZOR_API Integer CloneArray(const S& Src, D& Dest);
template <std::same_as<TSingleArray> S>
ZOR_API Integer CloneArray(const S& Src, TDoubleArray& Dest);
template <std::same_as<TSingleArray> D>
ZOR_API Integer CloneArray(const TDoubleArray& Src, D& Dest);

/// Dest[i] = Src[Length(Src) - 1 - i], for arrays of one dimension.
template <class A>
  requires ArrayOf<A, 1, 1, Double, Integer, Boolean>
ZOR_API Integer CloneAndReverseArray(const Same<A>& Src, A& Dest);
template <class S, class D>
  requires(OtherNumArray<S, D> && kRank<S> == 1)
ZOR_API Integer CloneAndReverseArray(const S& Src, D& Dest);
template <std::same_as<TSingleArray> S>
ZOR_API Integer CloneAndReverseArray(const S& Src, TDoubleArray& Dest);
template <std::same_as<TSingleArray> D>
ZOR_API Integer CloneAndReverseArray(const TDoubleArray& Src, D& Dest);

}  // namespace ZOR_openarrays

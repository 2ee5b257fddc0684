#pragma once

#include <concepts>
#include <cstddef>
#include <type_traits>

#include "zor/base/array_types.h"

/// \file  Which arrays a family takes.
/// One argument of a family decides the array type, as a rule the array that is written, else the first one. The others
/// are non-deduced (Same, CellOf, ShapeOf), so that null handles, initializer lists and literals work for them.

namespace zor::detail {

template <class A>
struct ArrayTraits {
  using Cell = A;
  template <class C>
  using WithCell = C;
  static constexpr int kRank = 0;
};
template <class T>
struct ArrayTraits<ZOR_runtime::TDynArray<T>> {
  using Cell = typename ArrayTraits<T>::Cell;
  template <class C>
  using WithCell = ZOR_runtime::TDynArray<typename ArrayTraits<T>::template WithCell<C>>;
  static constexpr int kRank = ArrayTraits<T>::kRank + 1;
};

}  // namespace zor::detail

namespace ZOR_openarrays {

using namespace ZOR_zorbase;

/// Number of dimensions; 0 for anything but a dynamic array.
template <class A>
inline constexpr int kRank = zor::detail::ArrayTraits<A>::kRank;

/// An array of `lowest` to `highest` dimensions with cells of one of the types C.
template <class A, int lowest, int highest, class... C>
concept ArrayOf =
    lowest <= kRank<A> && kRank<A> <= highest && (std::same_as<typename zor::detail::ArrayTraits<A>::Cell, C> || ...);

/// TDoubleArray to TDouble4DArray, TIntArray to TInt4DArray.
template <class A>
concept NumArray = ArrayOf<A, 1, 4, Double, Integer>;
/// TDoubleArray to TDouble4DArray.
template <class A>
concept RealArray = ArrayOf<A, 1, 4, Double>;
/// The arrays of numbers with exactly `rank` dimensions.
template <class A, int rank>
concept Num = NumArray<A> && kRank<A> == rank;

/// The type of an argument that follows another one.
template <class A>
using Same = std::type_identity_t<A>;
/// The array with the dimensions of A and cells of type C.
template <class A, class C>
using ShapeOf = typename zor::detail::ArrayTraits<A>::template WithCell<C>;

/// A cell value given as an argument. What would lose its fraction or high bits on the way into the cell, such as 2.5
/// for an Integer cell, does not compile.
template <class T>
class NoNarrow {
 public:
  template <class V>
    requires std::convertible_to<V, T> && (!std::is_arithmetic_v<V> || std::is_floating_point_v<T> ||
                                           (!std::is_floating_point_v<V> && sizeof(V) <= sizeof(T)))
  // NOLINTNEXTLINE(google-explicit-constructor)
  constexpr NoNarrow(const V& value) : value_(static_cast<T>(value)) {}
  constexpr operator T() const noexcept { return value_; }

 private:
  T value_;
};

/// A cell of A as an argument.
template <class A>
using CellOf = NoNarrow<typename zor::detail::ArrayTraits<A>::Cell>;
/// A cell of A as a result.
template <class A>
using CellType = typename zor::detail::ArrayTraits<A>::Cell;

}  // namespace ZOR_openarrays

#pragma once

#include <concepts>

#include "zor/runtime/types.h"

/// \file  Forward declarations of the vectors.

namespace ZOR_vector {

/// Cells that vectors and matrices hold.
template <class T>
concept Cell = std::same_as<T, ZOR_runtime::Double> || std::same_as<T, ZOR_runtime::Integer>;
/// Cells of the floating-point twin.
template <class T>
concept RealCell = Cell<T> && std::same_as<T, ZOR_runtime::Double>;

template <Cell T>
class BasicVector;

/// The vector with cells of type T.
template <Cell T>
using VectorOf = BasicVector<T>;

using TVector = BasicVector<ZOR_runtime::Double>;
using TIntVector = BasicVector<ZOR_runtime::Integer>;

}  // namespace ZOR_vector

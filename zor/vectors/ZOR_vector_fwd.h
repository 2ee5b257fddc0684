#pragma once

#include <concepts>
#include <type_traits>

#include "zor/runtime/types.h"

/// \file  Forward declarations of the vectors.

namespace ZOR_vector {

class TVector;
class TIntVector;

/// Cells that vectors and matrices hold.
template <class T>
concept Cell = std::same_as<T, ZOR_runtime::Double> || std::same_as<T, ZOR_runtime::Integer>;
/// Cells of the floating-point twin.
template <class T>
concept RealCell = Cell<T> && std::same_as<T, ZOR_runtime::Double>;

/// The vector with cells of type T.
template <Cell T>
using VectorOf = std::conditional_t<RealCell<T>, TVector, TIntVector>;

}  // namespace ZOR_vector

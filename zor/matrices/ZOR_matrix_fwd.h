#pragma once

#include "zor/vectors/ZOR_vector_fwd.h"

/// \file  Forward declarations of the matrices.

namespace ZOR_matrix {

template <ZOR_vector::Cell T>
class BasicMatrix;

using TMatrix = BasicMatrix<ZOR_runtime::Double>;

}  // namespace ZOR_matrix

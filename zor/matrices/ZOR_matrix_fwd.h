#pragma once

/// \file  Forward declarations of the matrices.

namespace ZOR_matrix {

class TMatrix;

}  // namespace ZOR_matrix

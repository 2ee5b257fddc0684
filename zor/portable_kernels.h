#pragma once

#include "zor/export.h"

/// \file  Whether products may fuse a multiplication with the addition behind it.

namespace zor {

/// Products of matrices, Gram matrices, factorisations and inverses fuse each multiplication with its addition (one
/// rounding in place of two) where the processor can: faster, a little more accurate, but the last digits then depend
/// on the processor. `true` rounds twice everywhere from now on: the same bits on every machine. All other operations
/// never fuse. Affects all threads; not to be switched while one of these operations runs. Initially `false`.
ZOR_API void use_portable_kernels(bool portable) noexcept;

/// What use_portable_kernels chose.
ZOR_API bool uses_portable_kernels() noexcept;

}  // namespace zor

#pragma once

#include "zor/base/memory_guard.h"
#include "zor/matrices/matrix.h"

/// \file  The guards of zor/base with the error of the matrices.

namespace zor::detail {

/// Whatever escapes action leaves as EZORMatrixError "not enough memory on heap", the cause nested.
template <class Action>
auto heap_guard(const ZOR_runtime::TComponent& component, Action action) {
  return guard_all<ZOR_matrix::EZORMatrixError>(component, kNoHeap, action);
}

/// The same for an action that runs a feedback procedure: only a lack of memory leaves so, other exceptions pass on.
template <class Action>
auto memory_guard(const ZOR_runtime::TComponent& component, Action action) {
  return guard_memory<ZOR_matrix::EZORMatrixError>(component, kNoHeap, action);
}

}  // namespace zor::detail

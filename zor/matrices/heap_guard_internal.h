#pragma once

#include <exception>

#include "zor/matrices/matrix.h"

/// \file  The one wording of a matrix that gets no memory.

namespace zor::detail {

/// Carries out action. Whatever escapes it leaves as EZORMatrixError "not enough memory on heap", the cause nested.
template <class Action>
auto heap_guard(const ZOR_runtime::TComponent& component, Action action) {
  try {
    return action();
  } catch (...) {
    std::throw_with_nested(ZOR_matrix::EZORMatrixError(component_message(component, "not enough memory on heap")));
  }
}

}  // namespace zor::detail

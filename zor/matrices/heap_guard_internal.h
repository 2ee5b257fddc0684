#pragma once

#include <exception>
#include <new>

#include "zor/matrices/matrix.h"

/// \file  The one wording of a matrix that gets no memory.

namespace zor::detail {

[[noreturn]] inline void throw_no_heap(const ZOR_runtime::TComponent& component) {
  std::throw_with_nested(ZOR_matrix::EZORMatrixError(component_message(component, "not enough memory on heap")));
}

/// Carries out action. Whatever escapes it leaves as EZORMatrixError "not enough memory on heap", the cause nested.
template <class Action>
auto heap_guard(const ZOR_runtime::TComponent& component, Action action) {
  try {
    return action();
  } catch (...) {
    throw_no_heap(component);
  }
}

/// The same for an action that runs a feedback procedure: only a lack of memory is told so, other exceptions pass on.
template <class Action>
auto memory_guard(const ZOR_runtime::TComponent& component, Action action) {
  try {
    return action();
  } catch (const ZOR_runtime::EOutOfMemory&) {
    throw_no_heap(component);
  } catch (const std::bad_alloc&) {
    throw_no_heap(component);
  }
}

}  // namespace zor::detail

#pragma once

#include <exception>
#include <new>
#include <string_view>

#include "zor/base/errors.h"

/// \file  Lack of memory reported as an error of the component that asked for it, with the cause nested.

namespace zor::detail {

/// What vectors say of their size, and what all others, and work space of vectors, say.
inline constexpr std::string_view kNoMemory = "not enough memory", kNoHeap = "not enough memory on heap";

/// Raises E with the message of a component; the exception being handled is nested in it.
template <class E>
[[noreturn]] void fail_nested(const ZOR_runtime::TComponent& component, std::string_view text) {
  std::throw_with_nested(E(component_message(component, text)));
}

/// Carries out action and returns what it returns. Whatever escapes it, a handler's exception too, becomes an E.
template <class E, class Action>
auto guard_all(const ZOR_runtime::TComponent& component, std::string_view text, Action action) {
  try {
    return action();
  } catch (...) {
    fail_nested<E>(component, text);
  }
}

/// The same where only a lack of memory becomes an E; other exceptions, as of a feedback procedure, pass on.
template <class E, class Action>
auto guard_memory(const ZOR_runtime::TComponent& component, std::string_view text, Action action) {
  try {
    return action();
  } catch (const ZOR_runtime::EOutOfMemory&) {
    fail_nested<E>(component, text);
  } catch (const std::bad_alloc&) {
    fail_nested<E>(component, text);
  }
}

}  // namespace zor::detail

#pragma once

#include <string_view>

#include "zor/runtime/exception.h"
#include "zor/runtime/object.h"

/// \file  Errors of the library and the wording of their messages.
/// An object speaks of itself as `Component "<Name>": <text>`, of a routine of its own as `Component
/// "<Name>.<routine>": <text>`, a plain routine as `<routine>: <text>`.

namespace ZOR_zorbase {

/// Base of the error classes of the units. ZOR_DECLARE_EXCEPTION gives it no fields of its own.
ZOR_DECLARE_EXCEPTION(EZORError, ZOR_runtime::Exception);

}  // namespace ZOR_zorbase

namespace zor::detail {

/// `Component "<Name>": <text>`, with the name that the component has now.
ZOR_API ZOR_runtime::TString component_message(const ZOR_runtime::TComponent& component, std::string_view text);

/// The same of one of its routines: `Component "<Name>.<routine>": <text>`.
ZOR_API ZOR_runtime::TString component_message(const ZOR_runtime::TComponent& component, std::string_view routine,
                                               std::string_view text);

/// Raises E with the message of a component, or of one of its routines.
template <class E>
[[noreturn]] void Fail(const ZOR_runtime::TComponent& component, std::string_view text) {
  throw E(component_message(component, text));
}

template <class E>
[[noreturn]] void Fail(const ZOR_runtime::TComponent& component, std::string_view routine, std::string_view text) {
  throw E(component_message(component, routine, text));
}

/// Raises E with the message of a routine, "<routine>: <text>" as one literal.
template <class E>
[[noreturn]] void Fail(std::string_view message) {
  throw E(ZOR_runtime::TString(message));
}

}  // namespace zor::detail

#include "zor/base/errors.h"

namespace ZOR_zorbase {

EZORError::~EZORError() = default;

}  // namespace ZOR_zorbase

namespace zor::detail {

ZOR_runtime::TString component_message(const ZOR_runtime::TComponent& component, std::string_view text) {
  return "Component \"" + component.Name() + "\": " + text;
}

ZOR_runtime::TString component_message(const ZOR_runtime::TComponent& component, std::string_view routine,
                                       std::string_view text) {
  return "Component \"" + component.Name() + "." + routine + "\": " + text;
}

}  // namespace zor::detail

#pragma once

#include <span>

#include "zor/base/enums.h"
#include "zor/runtime/types.h"

/// \file  Untyped buffers with a kind, seen as typed runs of cells.

namespace zor::detail {

/// Calls action with the cells as a span of their type; not for a null pointer, a count below 1 or an unknown kind.
template <class Action>
void with_typed_cells(void* cells, std::int32_t count, ZOR_zorbase::TVarKind kind, Action action) {
  if (!cells || count < 1) return;
  const auto n = static_cast<std::size_t>(count);
  switch (kind) {
    case ZOR_zorbase::vkDouble:
    case ZOR_zorbase::vkExtended:
      action(std::span(static_cast<double*>(cells), n));
      break;
    case ZOR_zorbase::vkSingle:
      action(std::span(static_cast<float*>(cells), n));
      break;
    case ZOR_zorbase::vkInteger:
    case ZOR_zorbase::vkLongint:
      action(std::span(static_cast<std::int32_t*>(cells), n));
      break;
  }
}

}  // namespace zor::detail

#pragma once

#include <algorithm>
#include <span>

#include "zor/vectors/vector.h"

/// \file  Results put into a vector.

namespace zor::detail {

/// Gives the vector the size and the values of a run of at least one cell, which must not be a part of it.
inline void store(ZOR_vector::TVector& to, std::span<const double> values) {
  to.SetNrOfElem(to_integer(values.size()));
  const auto edit = to.Edit();
  std::ranges::copy(values.first((std::min)(values.size(), edit.cells().size())), edit.begin());
}

}  // namespace zor::detail

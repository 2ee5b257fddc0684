#pragma once

#include <algorithm>
#include <span>

#include "zor/vectors/vector.h"

/// \file  Results put into a vector, with one event or one for each element.

namespace zor::detail {

/// Gives the vector the size and the values of a run of at least one cell, which must not be a part of it: OnChange and
/// OnResize of a new size, then one OnChange.
template <class V>
void store(V& to, std::span<const typename V::value_type> values) {
  to.SetNrOfElem(to_integer(values.size()));
  const auto edit = to.Edit();
  std::ranges::copy(values.first((std::min)(values.size(), edit.cells().size())), edit.begin());
}

/// The entry for what stores elements one by one, as SetVal does.
struct VectorCells {
  /// From element dest on, which may be 0 or negative; what lands outside is dropped. The run may be a part of it.
  template <class V>
  static void store(V& to, std::span<const typename V::value_type> values, std::int64_t dest) {
    to.store_cells(values, dest);
  }
};

/// Gives the vector the size of the run, then each value as SetVal does; the run must not be a part of it.
template <class V>
void store_each(V& to, std::span<const typename V::value_type> values) {
  to.SetNrOfElem(to_integer(values.size()));
  VectorCells::store(to, values, 1);
}

}  // namespace zor::detail

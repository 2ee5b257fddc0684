#pragma once

#include <span>

#include "zor/base/edit_scope.h"
#include "zor/runtime/dyn_array.h"

/// \file  Writing the columns of a matrix as raw memory, told with one event.

namespace ZOR_matrix {

/// Gives writable columns of a matrix, and calls Changed once when the scope ends. The matrix must not be resized
/// meanwhile. An exception of the handler leaves the scope, unless another one is already under way.
///
///     { auto edit = m.Edit();  std::ranges::sort(edit.Column(1)); }   // OnChange fires here
template <class Matrix, class Value>
class ColumnsEditScope {
 public:
  using Cells = ZOR_runtime::TDynArray<ZOR_runtime::TDynArray<Value>>;

  ColumnsEditScope(Matrix& matrix, const Cells& cells) noexcept : cells_(cells), tell_(matrix, {}) {}

  ZOR_runtime::Integer NrOfColumns() const noexcept { return zor::detail::to_integer(cells_.size()); }
  ZOR_runtime::Integer NrOfRows() const noexcept { return zor::detail::to_integer(cells_[0].size()); }
  /// The cells of column Nc, row 1 first; empty outside.
  std::span<Value> Column(ZOR_runtime::Integer Nc) noexcept {
    const std::size_t c = static_cast<std::size_t>(Nc) - 1;
    return c < cells_.size() ? std::span<Value>(cells_[c].data(), cells_[c].size()) : std::span<Value>();
  }

 private:
  Cells cells_;
  ZOR_zorbase::EditScope<Matrix, Value> tell_;
};

}  // namespace ZOR_matrix

#include <ostream>

#include "zor/matrices/matrix.h"
#include "zor/runtime/print.h"

namespace ZOR_matrix {

std::ostream& operator<<(std::ostream& out, const TMatrix& matrix) {
  const auto size = [](Integer n) { return zor::detail::to_size(n); };
  zor::detail::print_table(out, size(matrix.NrOfRows()), size(matrix.NrOfColumns()),
                           [&](std::size_t row, std::size_t column) {
                             return zor::detail::cell_text(matrix.Column(static_cast<Integer>(column) + 1)[row]);
                           });
  return out;
}

}  // namespace ZOR_matrix

#include <ostream>

#include "zor/runtime/print.h"
#include "zor/vectors/vector.h"

namespace ZOR_vector {
namespace {

template <class V>
std::ostream& print(std::ostream& out, const V& vec) {
  const auto cells = vec.Cells();
  zor::detail::print_table(out, cells.size(), 1,
                           [&](std::size_t row, std::size_t) { return zor::detail::cell_text(cells[row]); });
  return out;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const TVector& vec) { return print(out, vec); }
std::ostream& operator<<(std::ostream& out, const TIntVector& vec) { return print(out, vec); }

}  // namespace ZOR_vector

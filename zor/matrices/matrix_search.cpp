#include <limits>
#include <type_traits>

#include "zor/base/ZOR_univconst.h"
#include "zor/kernels/search.h"
#include "zor/matrices/matrix.h"
#include "zor/vectors/sorted_search_internal.h"

namespace ZOR_matrix {

template <class Self, Cell T>
void MatrixCore<Self, T>::Find(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, T Value,
                               Integer& ColIx, Integer& RowIx) const {
  std::conditional_t<RealCell<T>, Double, Int64> difference = 0;
  if constexpr (RealCell<T>) {
    difference = ZOR_univconst::uc_MaxDouble;
  } else {
    difference = std::numeric_limits<Int64>::max();
  }
  const Bounds cols = columns(LowCol, HighCol), within = rows(LowRow, HighRow);
  ColIx = RowIx = 0;
  Integer col = cols.lo;
  for_columns(cols, within, [&](std::span<const T> column) {
    const std::size_t at = zor::kernels::nearest(column, Value, difference);
    if (at != zor::kernels::kNone) {
      ColIx = col;
      RowIx = within.lo + static_cast<Integer>(at);
    }
    ++col;
  });
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::FindInSortedColumn(Integer Col, Boolean ColIsAscending, T Value) const {
  const std::span<const T> column = Column(Col);
  if (column.empty()) return 0;
  return 1 + static_cast<Integer>(zor::detail::nearest_in_sorted(column, ColIsAscending, Value));
}

#define ZOR_INSTANCES(M, T)                                                                              \
  template void MatrixCore<M, T>::Find(Integer, Integer, Integer, Integer, T, Integer&, Integer&) const; \
  template Integer MatrixCore<M, T>::FindInSortedColumn(Integer, Boolean, T) const;

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix

#include <algorithm>

#include "zor/arrays/shape.h"
#include "zor/matrices/heap_guard_internal.h"
#include "zor/matrices/matrix.h"

namespace ZOR_matrix {

template <Cell T>
Boolean BasicMatrix<T>::RemoveColumn(Integer col) {
  if (col < 1 || col > FNCol || FNCol == 1) return false;
  zor::detail::heap_guard(*this, [&] {
    T2DArray made;
    zor::detail::set_length_unset(made, zor::detail::to_size(FNCol - 1), zor::detail::to_size(FNRow));
    for (Integer c = 0; c < FNCol - 1; ++c) std::ranges::copy(Column(c + 1 < col ? c + 1 : c + 2), made[c].begin());
    replace_cells(made);
  });
  return true;
}

template <Cell T>
Boolean BasicMatrix<T>::RemoveRow(Integer row) {
  if (row < 1 || row > FNRow || FNRow == 1) return false;
  zor::detail::heap_guard(*this, [&] {
    T2DArray made;
    zor::detail::set_length_unset(made, zor::detail::to_size(FNCol), zor::detail::to_size(FNRow - 1));
    for (Integer c = 0; c < FNCol; ++c) {
      const std::span<const T> column = Column(c + 1);
      const auto before = column.begin() + (row - 1);
      std::copy(before + 1, column.end(), std::copy(column.begin(), before, made[c].begin()));
    }
    replace_cells(made);
  });
  return true;
}

template <Cell T>
void BasicMatrix<T>::ExchangeColumns(Integer c1, Integer c2) {
  if (c1 < 1 || c1 > FNCol || c2 < 1 || c2 > FNCol) return;
  if (c1 != c2) std::ranges::swap_ranges(Mat[c1 - 1], Mat[c2 - 1]);  // by cells: the columns stay at equal distance
  Changed();
}

template <Cell T>
void BasicMatrix<T>::ExchangeRows(Integer r1, Integer r2) {
  if (r1 < 1 || r1 > FNRow || r2 < 1 || r2 > FNRow) return;
  for (TArray& column : Mat) std::swap(column[r1 - 1], column[r2 - 1]);
  Changed();
}

template <Cell T>
void BasicMatrix<T>::MirrorColumns() {
  for (Integer c = 0; c < FNCol / 2; ++c) std::ranges::swap_ranges(Mat[c], Mat[FNCol - 1 - c]);
  Changed();
}

template <Cell T>
void BasicMatrix<T>::MirrorRows() {
  for_columns([](std::span<T> column) { std::ranges::reverse(column); });
  Changed();
}

template <Cell T>
Boolean BasicMatrix<T>::Transpose() {
  T2DArray made = Mat;
  zor::detail::heap_guard(*this, [&] { ZOR_openarrays::TransposeArray(made); });
  replace_cells(made);
  return true;
}

#define ZOR_INSTANCES(T)                                           \
  template Boolean BasicMatrix<T>::RemoveColumn(Integer);          \
  template Boolean BasicMatrix<T>::RemoveRow(Integer);             \
  template void BasicMatrix<T>::ExchangeColumns(Integer, Integer); \
  template void BasicMatrix<T>::ExchangeRows(Integer, Integer);    \
  template void BasicMatrix<T>::MirrorColumns();                   \
  template void BasicMatrix<T>::MirrorRows();                      \
  template Boolean BasicMatrix<T>::Transpose();

ZOR_INSTANCES(Double)

}  // namespace ZOR_matrix

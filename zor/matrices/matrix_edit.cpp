#include <algorithm>

#include "zor/arrays/shape.h"
#include "zor/matrices/heap_guard_internal.h"
#include "zor/matrices/matrix.h"

namespace ZOR_matrix {

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::RemoveColumn(Integer col) {
  if (col < 1 || col > dense_columns() || dense_columns() == 1) return false;
  zor::detail::heap_guard(self(), [&] {
    T2DArray made;
    zor::detail::set_length_unset(made, zor::detail::to_size(dense_columns() - 1), zor::detail::to_size(dense_rows()));
    for (Integer c = 0; c < dense_columns() - 1; ++c)
      std::ranges::copy(Column(c + 1 < col ? c + 1 : c + 2), made[c].begin());
    renew_cells(made);
  });
  return true;
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::RemoveRow(Integer row) {
  if (row < 1 || row > dense_rows() || dense_rows() == 1) return false;
  zor::detail::heap_guard(self(), [&] {
    T2DArray made;
    zor::detail::set_length_unset(made, zor::detail::to_size(dense_columns()), zor::detail::to_size(dense_rows() - 1));
    for (Integer c = 0; c < dense_columns(); ++c) {
      const std::span<const T> column = Column(c + 1);
      const auto before = column.begin() + (row - 1);
      std::copy(before + 1, column.end(), std::copy(column.begin(), before, made[c].begin()));
    }
    renew_cells(made);
  });
  return true;
}

template <class Self, Cell T>
void MatrixCore<Self, T>::ExchangeColumns(Integer c1, Integer c2) {
  if (c1 < 1 || c1 > dense_columns() || c2 < 1 || c2 > dense_columns()) return;
  if (c1 != c2) std::ranges::swap_ranges(Mat[c1 - 1], Mat[c2 - 1]);  // by cells: the columns stay at equal distance
  Changed();
}

template <class Self, Cell T>
void MatrixCore<Self, T>::ExchangeRows(Integer r1, Integer r2) {
  if (r1 < 1 || r1 > dense_rows() || r2 < 1 || r2 > dense_rows()) return;
  for (TArray& column : Mat) std::swap(column[r1 - 1], column[r2 - 1]);
  Changed();
}

template <class Self, Cell T>
void MatrixCore<Self, T>::MirrorColumns() {
  for (Integer c = 0; c < dense_columns() / 2; ++c) std::ranges::swap_ranges(Mat[c], Mat[dense_columns() - 1 - c]);
  Changed();
}

template <class Self, Cell T>
void MatrixCore<Self, T>::MirrorRows() {
  for_columns([](std::span<T> column) { std::ranges::reverse(column); });
  Changed();
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::Transpose() {
  T2DArray made = Mat;
  zor::detail::heap_guard(self(), [&] { ZOR_openarrays::TransposeArray(made); });
  renew_cells(made);
  return true;
}

#define ZOR_INSTANCES(M, T)                                          \
  template Boolean MatrixCore<M, T>::RemoveColumn(Integer);          \
  template Boolean MatrixCore<M, T>::RemoveRow(Integer);             \
  template void MatrixCore<M, T>::ExchangeColumns(Integer, Integer); \
  template void MatrixCore<M, T>::ExchangeRows(Integer, Integer);    \
  template void MatrixCore<M, T>::MirrorColumns();                   \
  template void MatrixCore<M, T>::MirrorRows();                      \
  template Boolean MatrixCore<M, T>::Transpose();

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix

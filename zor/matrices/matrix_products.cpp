#include <algorithm>
#include <vector>

#include "zor/kernels/elementwise.h"
#include "zor/kernels/product.h"
#include "zor/kernels/sums.h"
#include "zor/matrices/heap_guard_internal.h"
#include "zor/matrices/matrix.h"
#include "zor/matrices/store_block_internal.h"
#include "zor/vectors/store_internal.h"

namespace ZOR_matrix {
namespace {

namespace kernels = zor::kernels;
using kernels::Form;

/// Cells of a new matrix, each of which is about to be written.
template <class T>
TDynArray<TDynArray<T>> new_cells(const TComponent& matrix, Integer columns, Integer rows) {
  TDynArray<TDynArray<T>> made;
  zor::detail::heap_guard(
      matrix, [&] { zor::detail::set_length_unset(made, zor::detail::to_size(columns), zor::detail::to_size(rows)); });
  return made;
}

template <class T>
std::vector<T*> columns_of(TDynArray<TDynArray<T>>& a) {
  std::vector<T*> columns;
  for (TDynArray<T>& column : a) columns.push_back(column.data());
  return columns;
}

}  // namespace

template <class Self, Cell T>
void MatrixCore<Self, T>::write_result(T2DArray& made) {
  const Integer columns = Length(made), rows = Length(made[0]);
  Resize(columns, rows);
  if (!OnChange && dense_columns() == columns && dense_rows() == rows) return swap_cells(made);
  write_block(
      columns, rows, [&](Int64 i) { return made[i].data(); }, 1, 1);
}

template <class Self, Cell T>
void MatrixCore<Self, T>::multiply_sides(const Self& b, Side rows, Side columns, Self& to) const {
  const auto size = [](const MatrixCore& m, Side side) {
    return side == Side::rows ? m.dense_rows() : m.dense_columns();
  };
  const Integer n_rows = size(*this, rows), n_columns = size(b, columns);
  T2DArray made = new_cells<T>(self(), n_columns, n_rows);
  kernels::multiply(column_pointers().data(), rows == Side::rows ? Form::plain : Form::transposed,
                    b.column_pointers().data(), columns == Side::columns ? Form::plain : Form::transposed,
                    columns_of(made).data(), zor::detail::to_size(n_rows), zor::detail::to_size(n_columns),
                    zor::detail::to_size(rows == Side::rows ? dense_columns() : dense_rows()));
  to.write_result(made);
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::Multiply(const Self* MatB, Self* MatRes) {
  if (!MatB || !MatRes || dense_columns() != MatB->dense_rows()) return false;
  multiply_sides(*MatB, Side::rows, Side::columns, *MatRes);
  Changed();
  return true;
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::MultiplyTransposed(const Self* MatB, Self* MatRes) {
  if (!MatB || !MatRes || dense_columns() != MatB->dense_columns()) return false;
  multiply_sides(*MatB, Side::rows, Side::rows, *MatRes);
  Changed();
  return true;
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::TransposeAndMultiply(const Self* MatB, Self* MatRes) const {
  if (!MatB || !MatRes || dense_rows() != MatB->dense_rows()) return false;
  multiply_sides(*MatB, Side::columns, Side::columns, *MatRes);
  return true;
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::Multiply(const TVec* VecB, TVec* VecRes) {
  if (!VecB || !VecRes || dense_columns() != VecB->NrOfElem()) return false;
  std::vector<T> sums(zor::detail::to_size(dense_rows()), T{0});
  for (Integer k = 1; k <= dense_columns(); ++k) kernels::axpy(VecB->GetVal(k), Column(k), sums);
  zor::detail::store_each(*VecRes, sums);
  Changed();
  return true;
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::TransposeAndMultiply(const TVec* VecB, TVec* VecRes) const {
  if (!VecB || !VecRes || dense_rows() != VecB->NrOfElem()) return false;
  const std::span<const T> b = VecB->Cells();
  std::vector<T> sums;
  sums.reserve(Mat.size());
  Integer c = 1;
  for (; c + 3 <= dense_columns(); c += 4) {  // four chains at once
    const T *p = Column(c).data(), *q = Column(c + 1).data(), *r = Column(c + 2).data(), *s = Column(c + 3).data();
    T sum_p = 0, sum_q = 0, sum_r = 0, sum_s = 0;
    for (std::size_t k = 0; k < b.size(); ++k) {
      sum_p += p[k] * b[k];
      sum_q += q[k] * b[k];
      sum_r += r[k] * b[k];
      sum_s += s[k] * b[k];
    }
    sums.insert(sums.end(), {sum_p, sum_q, sum_r, sum_s});
  }
  for (; c <= dense_columns(); ++c) sums.push_back(kernels::dot_in_order(Column(c), b));
  zor::detail::store_each(*VecRes, sums);
  return true;
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::EMult(const Self* MatB, Self* MatRes) {
  if (!MatB || !MatRes || dense_columns() != MatB->dense_columns() || dense_rows() != MatB->dense_rows()) return false;
  T2DArray made = new_cells<T>(self(), dense_columns(), dense_rows());
  for (Integer c = 1; c <= dense_columns(); ++c) kernels::multiply(Column(c), MatB->Column(c), made[c - 1]);
  MatRes->write_result(made);
  Changed();
  return true;
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::combine_with(const Self* other,
                                          void (*combine)(std::span<T> cells, std::span<const T> others)) {
  if (!other || dense_columns() != other->dense_columns() || dense_rows() != other->dense_rows()) return false;
  for (Integer c = 1; c <= dense_columns(); ++c) combine(Mat[c - 1], other->Column(c));
  Changed();
  return true;
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::Add(const Self* MatB) {
  return combine_with(MatB, kernels::add);
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::Subtract(const Self* MatB) {
  return combine_with(MatB, kernels::subtract);
}

template <class Self, Cell T>
void MatrixCore<Self, T>::SMult(T Scalar) {
  for_columns([Scalar](std::span<T> column) { kernels::scale(column, Scalar); });
  Changed();
}

template <class Self, Cell T>
void MatrixCore<Self, T>::SAdd(T Scalar) {
  for_columns([Scalar](std::span<T> column) { kernels::shift(column, Scalar); });
  Changed();
}

#define ZOR_INSTANCES(M, T)                                                                              \
  template void MatrixCore<M, T>::write_result(T2DArray&);                                               \
  template void MatrixCore<M, T>::multiply_sides(const M&, Side, Side, M&) const;                        \
  template Boolean MatrixCore<M, T>::Multiply(const M*, M*);                                             \
  template Boolean MatrixCore<M, T>::MultiplyTransposed(const M*, M*);                                   \
  template Boolean MatrixCore<M, T>::TransposeAndMultiply(const M*, M*) const;                           \
  template Boolean MatrixCore<M, T>::Multiply(const TVec*, TVec*);                                       \
  template Boolean MatrixCore<M, T>::TransposeAndMultiply(const TVec*, TVec*) const;                     \
  template Boolean MatrixCore<M, T>::EMult(const M*, M*);                                                \
  template Boolean MatrixCore<M, T>::combine_with(const M*, void (*)(std::span<T>, std::span<const T>)); \
  template Boolean MatrixCore<M, T>::Add(const M*);                                                      \
  template Boolean MatrixCore<M, T>::Subtract(const M*);                                                 \
  template void MatrixCore<M, T>::SMult(T);                                                              \
  template void MatrixCore<M, T>::SAdd(T);

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix

#include <algorithm>
#include <vector>

#include "zor/kernels/elementwise.h"
#include "zor/kernels/product.h"
#include "zor/kernels/sums.h"
#include "zor/matrices/heap_guard_internal.h"
#include "zor/matrices/matrix.h"
#include "zor/matrices/store_block_internal.h"

namespace ZOR_matrix {
namespace {

namespace kernels = zor::kernels;
using kernels::Form;

/// Cells of a new matrix, each of which is about to be written.
TDouble2DArray new_cells(const TMatrix& matrix, Integer columns, Integer rows) {
  TDouble2DArray made;
  zor::detail::heap_guard(
      matrix, [&] { zor::detail::set_length_unset(made, zor::detail::to_size(columns), zor::detail::to_size(rows)); });
  return made;
}

std::vector<Double*> columns_of(TDouble2DArray& a) {
  std::vector<Double*> columns;
  for (TDoubleArray& column : a) columns.push_back(column.data());
  return columns;
}

/// Gives a vector its elements as SetVal does; it may be what they were computed from.
void store(const std::vector<Double>& values, TVector& to) {
  to.SetNrOfElem(zor::detail::to_integer(values.size()));
  for (std::size_t i = 0; i < values.size(); ++i) to.SetVal(static_cast<Integer>(i + 1), values[i]);
}

}  // namespace

template <Cell T>
void BasicMatrix<T>::store_result(T2DArray& made) {
  const Integer columns = Length(made), rows = Length(made[0]);
  Resize(columns, rows);
  if (!OnChange && FNCol == columns && FNRow == rows) return set_cells(made);
  store_block(
      columns, rows, [&](Int64 i) { return made[i].data(); }, 1, 1);
}

template <Cell T>
void BasicMatrix<T>::store_product(const BasicMatrix& b, Side rows, Side columns, BasicMatrix& to) const {
  const auto size = [](const BasicMatrix& m, Side side) { return side == Side::rows ? m.FNRow : m.FNCol; };
  const Integer n_rows = size(*this, rows), n_columns = size(b, columns);
  T2DArray made = new_cells(*this, n_columns, n_rows);
  kernels::multiply(column_pointers().data(), rows == Side::rows ? Form::plain : Form::transposed,
                    b.column_pointers().data(), columns == Side::columns ? Form::plain : Form::transposed,
                    columns_of(made).data(), zor::detail::to_size(n_rows), zor::detail::to_size(n_columns),
                    zor::detail::to_size(rows == Side::rows ? FNCol : FNRow));
  to.store_result(made);
}

template <Cell T>
Boolean BasicMatrix<T>::Multiply(const BasicMatrix* MatB, BasicMatrix* MatRes)
  requires RealCell<T>
{
  if (!MatB || !MatRes || FNCol != MatB->FNRow) return false;
  store_product(*MatB, Side::rows, Side::columns, *MatRes);
  Changed();
  return true;
}

template <Cell T>
Boolean BasicMatrix<T>::MultiplyTransposed(const BasicMatrix* MatB, BasicMatrix* MatRes)
  requires RealCell<T>
{
  if (!MatB || !MatRes || FNCol != MatB->FNCol) return false;
  store_product(*MatB, Side::rows, Side::rows, *MatRes);
  Changed();
  return true;
}

template <Cell T>
Boolean BasicMatrix<T>::TransposeAndMultiply(const BasicMatrix* MatB, BasicMatrix* MatRes) const
  requires RealCell<T>
{
  if (!MatB || !MatRes || FNRow != MatB->FNRow) return false;
  store_product(*MatB, Side::columns, Side::columns, *MatRes);
  return true;
}

template <Cell T>
Boolean BasicMatrix<T>::Multiply(const TVector* VecB, TVector* VecRes)
  requires RealCell<T>
{
  if (!VecB || !VecRes || FNCol != VecB->NrOfElem()) return false;
  std::vector<Double> sums(zor::detail::to_size(FNRow), 0.0);
  for (Integer k = 1; k <= FNCol; ++k) kernels::axpy(VecB->GetVal(k), Column(k), sums);
  store(sums, *VecRes);
  Changed();
  return true;
}

template <Cell T>
Boolean BasicMatrix<T>::TransposeAndMultiply(const TVector* VecB, TVector* VecRes) const
  requires RealCell<T>
{
  if (!VecB || !VecRes || FNRow != VecB->NrOfElem()) return false;
  const std::span<const T> b = VecB->Cells();
  std::vector<Double> sums;
  sums.reserve(Mat.size());
  Integer c = 1;
  for (; c + 3 <= FNCol; c += 4) {  // four chains at once
    const T *p = Column(c).data(), *q = Column(c + 1).data(), *r = Column(c + 2).data(), *s = Column(c + 3).data();
    Double sum_p = 0.0, sum_q = 0.0, sum_r = 0.0, sum_s = 0.0;
    for (std::size_t k = 0; k < b.size(); ++k) {
      sum_p += p[k] * b[k];
      sum_q += q[k] * b[k];
      sum_r += r[k] * b[k];
      sum_s += s[k] * b[k];
    }
    sums.insert(sums.end(), {sum_p, sum_q, sum_r, sum_s});
  }
  for (; c <= FNCol; ++c) sums.push_back(kernels::dot_in_order(Column(c), b));
  store(sums, *VecRes);
  return true;
}

template <Cell T>
Boolean BasicMatrix<T>::EMult(const BasicMatrix* MatB, BasicMatrix* MatRes)
  requires RealCell<T>
{
  if (!MatB || !MatRes || FNCol != MatB->FNCol || FNRow != MatB->FNRow) return false;
  T2DArray made = new_cells(*this, FNCol, FNRow);
  for (Integer c = 1; c <= FNCol; ++c) kernels::multiply(Column(c), MatB->Column(c), made[c - 1]);
  MatRes->store_result(made);
  Changed();
  return true;
}

template <Cell T>
Boolean BasicMatrix<T>::combine_with(const BasicMatrix* other,
                                     void (*combine)(std::span<T> cells, std::span<const T> others)) {
  if (!other || FNCol != other->FNCol || FNRow != other->FNRow) return false;
  for (Integer c = 1; c <= FNCol; ++c) combine(Mat[c - 1], other->Column(c));
  Changed();
  return true;
}

template <Cell T>
Boolean BasicMatrix<T>::Add(const BasicMatrix* MatB)
  requires RealCell<T>
{
  return combine_with(MatB, kernels::add);
}

template <Cell T>
Boolean BasicMatrix<T>::Subtract(const BasicMatrix* MatB)
  requires RealCell<T>
{
  return combine_with(MatB, kernels::subtract);
}

template <Cell T>
void BasicMatrix<T>::SMult(Double Scalar)
  requires RealCell<T>
{
  for_columns([Scalar](std::span<T> column) { kernels::scale(column, Scalar); });
  Changed();
}

template <Cell T>
void BasicMatrix<T>::SAdd(Double Scalar)
  requires RealCell<T>
{
  for_columns([Scalar](std::span<T> column) { kernels::shift(column, Scalar); });
  Changed();
}

template void BasicMatrix<Double>::store_result(TDouble2DArray&);
template void BasicMatrix<Double>::store_product(const TMatrix&, Side, Side, TMatrix&) const;
template Boolean BasicMatrix<Double>::Multiply(const TMatrix*, TMatrix*);
template Boolean BasicMatrix<Double>::MultiplyTransposed(const TMatrix*, TMatrix*);
template Boolean BasicMatrix<Double>::TransposeAndMultiply(const TMatrix*, TMatrix*) const;
template Boolean BasicMatrix<Double>::Multiply(const TVector*, TVector*);
template Boolean BasicMatrix<Double>::TransposeAndMultiply(const TVector*, TVector*) const;
template Boolean BasicMatrix<Double>::EMult(const TMatrix*, TMatrix*);
template Boolean BasicMatrix<Double>::combine_with(const TMatrix*,
                                                   void (*)(std::span<Double>, std::span<const Double>));
template Boolean BasicMatrix<Double>::Add(const TMatrix*);
template Boolean BasicMatrix<Double>::Subtract(const TMatrix*);
template void BasicMatrix<Double>::SMult(Double);
template void BasicMatrix<Double>::SAdd(Double);

}  // namespace ZOR_matrix

#include <algorithm>

#include "zor/arrays/walk_internal.h"
#include "zor/base/range_rule.h"
#include "zor/matrices/store_block_internal.h"
#include "zor/vectors/store_internal.h"

namespace ZOR_matrix {
namespace {

/// True if one of n values that begin at dest lands on 1 to size.
bool lands(Int64 n, Int64 dest, Int64 size) { return dest <= size && dest >= 2 - n; }

template <class T>
void fill_vector(ZOR_vector::VectorOf<T>& vec, const TDynArray<T>& values, Int64 dest) {
  vec.Fill(T{0});
  zor::detail::VectorCells::store(vec, std::span<const T>(values), dest);
}

template <class T>
void fill_array(TDynArray<T>& array, const TDynArray<T>& values, Int64 dest) {
  const auto n = static_cast<Int64>(values.size());
  const auto size = static_cast<Int64>(array.size());
  if (!lands(n, dest + 1, size)) return;
  std::ranges::fill(array, T{0});
  const auto hit = zor::detail::landing(n, dest, 0, size);
  std::copy(values.begin() + hit.first, values.begin() + hit.second, array.begin() + (dest + hit.first));
}

}  // namespace

template <class Self, Cell T>
TDynArray<T> MatrixCore<Self, T>::row_cells(Integer Row, Integer FirstCol, Integer LastCol) const {
  const Integer row = std::max(std::min(Row, dense_rows()), 1) - 1;
  const Bounds cols = columns(FirstCol, LastCol);
  TArray cells;
  zor::detail::set_length_unset(cells, cols.size());
  for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = Mat[static_cast<std::size_t>(cols.lo - 1) + i][row];
  return cells;
}

template <class Self, Cell T>
TDynArray<T> MatrixCore<Self, T>::column_cells(Integer Col, Integer FirstRow, Integer LastRow) const {
  const Bounds within = rows(FirstRow, LastRow);
  const T* column = Column(std::max(std::min(Col, dense_columns()), 1)).data();
  return TArray(column + (within.lo - 1), column + within.hi);
}

template <class Self, Cell T>
void MatrixCore<Self, T>::CopyRowToVec(TVec* DestVec, Integer Row, Integer FirstCol, Integer LastCol) const {
  if (DestVec) fill_vector<T>(*DestVec, row_cells(Row, FirstCol, LastCol), 1);
}

template <class Self, Cell T>
void MatrixCore<Self, T>::CopyColToVec(TVec* DestVec, Integer Col, Integer FirstRow, Integer LastRow) const {
  if (DestVec) fill_vector<T>(*DestVec, column_cells(Col, FirstRow, LastRow), 1);
}

template <class Self, Cell T>
void MatrixCore<Self, T>::CopyRowToVec(TVec* DestVec, Integer Row, Integer FirstCol, Integer LastCol,
                                       Integer DestElem) const {
  if (!DestVec || !lands(static_cast<Int64>(columns(FirstCol, LastCol).size()), DestElem, DestVec->NrOfElem())) return;
  fill_vector<T>(*DestVec, row_cells(Row, FirstCol, LastCol), DestElem);
}

template <class Self, Cell T>
void MatrixCore<Self, T>::CopyColToVec(TVec* DestVec, Integer Col, Integer FirstRow, Integer LastRow,
                                       Integer DestElem) const {
  if (!DestVec || !lands(static_cast<Int64>(rows(FirstRow, LastRow).size()), DestElem, DestVec->NrOfElem())) return;
  fill_vector<T>(*DestVec, column_cells(Col, FirstRow, LastRow), DestElem);
}

template <class Self, Cell T>
void MatrixCore<Self, T>::CopyRowTo1DArray(TArray Dest, Integer Row, Integer FirstCol, Integer LastCol,
                                           Integer DestElem) const {
  fill_array(Dest, row_cells(Row, FirstCol, LastCol), DestElem);
}

template <class Self, Cell T>
void MatrixCore<Self, T>::CopyColTo1DArray(TArray Dest, Integer Col, Integer FirstRow, Integer LastRow,
                                           Integer DestElem) const {
  fill_array(Dest, column_cells(Col, FirstRow, LastRow), DestElem);
}

template <class Self, Cell T>
template <class A>
Integer MatrixCore<Self, T>::copy_to_array(A& dest, Bounds cols, Bounds down, Integer dest_col,
                                           Integer dest_row) const {
  const auto shape = zor::detail::shape_of(dest);
  if (shape.empty()) return kNoArray;
  Integer code = 0;
  if (MakeValidColRange(cols.lo, cols.hi) != 0) code = kBadColumnRange;
  if (MakeValidRowRange(down.lo, down.hi) != 0) code = kBadRowRange;
  using zor::detail::outside;
  if (outside(dest_col, shape.length[0]) || outside(dest_row, shape.length[1])) code = kBadArrayPlace;
  if (code != 0) return code;

  const auto first = static_cast<std::size_t>(dest_col), top = static_cast<std::size_t>(dest_row);
  const std::size_t n = std::min(cols.size(), shape.length[0] - first);
  const std::size_t m = std::min(down.size(), shape.length[1] - top);
  using To = typename A::value_type::value_type;
  for (std::size_t i = 0; i < n; ++i) {
    const T* from = Mat[static_cast<std::size_t>(cols.lo - 1) + i].data() + (down.lo - 1);
    std::transform(from, from + m, dest[first + i].begin() + top, zor::detail::to_cell<To, T>);
  }
  return 0;
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::CopyToArray(TDouble2DArray& Dest, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi,
                                         Integer SrcRowHi, Integer DestCol, Integer DestRow) const {
  return copy_to_array(Dest, {SrcColLo, SrcColHi}, {SrcRowLo, SrcRowHi}, DestCol, DestRow);
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::CopyToArray(TInt2DArray& Dest, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi,
                                         Integer SrcRowHi, Integer DestCol, Integer DestRow) const {
  return copy_to_array(Dest, {SrcColLo, SrcColHi}, {SrcRowLo, SrcRowHi}, DestCol, DestRow);
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::DuplicateDataAsArray(T2DArray& Dest) const {
  if (zor::detail::shape_of(Dest).empty()) return kNoArray;
  zor::detail::set_length_unset(Dest, zor::detail::to_size(dense_columns()), zor::detail::to_size(dense_rows()));
  return copy_to_array(Dest, {0, 0}, {0, 0}, 0, 0);
}

void TMatrix::AssignTo(TPersistent* Dest) const {
  if (auto* matrix = dynamic_cast<TMatrix*>(Dest)) {
    matrix->Assign(this);
  } else {
    TComponent::AssignTo(Dest);
  }
}

#define ZOR_INSTANCES(M, T)                                                                                          \
  template TDynArray<T> MatrixCore<M, T>::row_cells(Integer, Integer, Integer) const;                                \
  template TDynArray<T> MatrixCore<M, T>::column_cells(Integer, Integer, Integer) const;                             \
  template void MatrixCore<M, T>::CopyRowToVec(TVec*, Integer, Integer, Integer) const;                              \
  template void MatrixCore<M, T>::CopyColToVec(TVec*, Integer, Integer, Integer) const;                              \
  template void MatrixCore<M, T>::CopyRowToVec(TVec*, Integer, Integer, Integer, Integer) const;                     \
  template void MatrixCore<M, T>::CopyColToVec(TVec*, Integer, Integer, Integer, Integer) const;                     \
  template void MatrixCore<M, T>::CopyRowTo1DArray(TArray, Integer, Integer, Integer, Integer) const;                \
  template void MatrixCore<M, T>::CopyColTo1DArray(TArray, Integer, Integer, Integer, Integer) const;                \
  template Integer MatrixCore<M, T>::CopyToArray(TDouble2DArray&, Integer, Integer, Integer, Integer, Integer,       \
                                                 Integer) const;                                                     \
  template Integer MatrixCore<M, T>::CopyToArray(TInt2DArray&, Integer, Integer, Integer, Integer, Integer, Integer) \
      const;                                                                                                         \
  template Integer MatrixCore<M, T>::DuplicateDataAsArray(T2DArray&) const;

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix

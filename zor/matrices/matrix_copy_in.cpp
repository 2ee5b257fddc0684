#include <algorithm>

#include "zor/arrays/walk_internal.h"
#include "zor/base/range_rule.h"
#include "zor/matrices/store_block_internal.h"
#include "zor/vectors/vector.h"

namespace ZOR_matrix {

using zor::detail::outside;

template <class Self, Cell T>
void MatrixCore<Self, T>::Clone(const Self* MatSource) {
  if (!MatSource) return;
  // A handler may change the source: what is stored are its cells as they are now.
  const T2DArray kept = OnChange || OnResize ? CopyOf(MatSource->Mat) : MatSource->Mat;
  Resize(MatSource->FNCol, MatSource->FNRow);
  write_block(
      static_cast<Int64>(kept.size()), static_cast<Int64>(kept[0].size()), [&](Int64 i) { return kept[i].data(); }, 1,
      1);
  Changed();
  Resized();
}

void TMatrix::Assign(const TPersistent* Source) {
  if (Source == this) return;
  const auto* matrix = dynamic_cast<const TMatrix*>(Source);
  if (!matrix) {
    TComponent::Assign(Source);
    return;
  }
  T2DArray made = matrix->Mat;
  SetLength(made, matrix->FNCol, matrix->FNRow);
  TString id = matrix->FDataID;
  swap_cells(made);
  FDataID = std::move(id);
  std::ranges::copy(matrix->FPrecis, FPrecis);
  OnChange = matrix->OnChange;
  OnResize = matrix->OnResize;
  OnSortExchange = matrix->OnSortExchange;
  OnCalcDistance = matrix->OnCalcDistance;
  OnPercentDone = matrix->OnPercentDone;
}

template <class Self, Cell T>
void MatrixCore<Self, T>::CopyFrom(const Self* MatSource, Integer SourceColLo, Integer SourceRowLo, Integer SourceColHi,
                                   Integer SourceRowHi, Integer DestCol, Integer DestRow) {
  if (!MatSource) return;
  const auto repair = [](Integer& lo, Integer& hi, Integer n) {
    lo = std::clamp(lo, 1, n);
    hi = std::clamp(hi, 1, n);
    if (lo > hi) std::swap(lo, hi);
  };
  repair(SourceColLo, SourceColHi, MatSource->FNCol);
  repair(SourceRowLo, SourceRowHi, MatSource->FNRow);
  const Bounds cols{SourceColLo, SourceColHi}, down{SourceRowLo, SourceRowHi};
  T2DArray block = MatSource->Mat;
  Int64 left = cols.lo - 1, top = down.lo - 1;
  if (OnChange || MatSource == this) {  // a handler, or this very call, may change the source
    T2DArray kept;
    zor::detail::set_length_unset(kept, cols.size(), down.size());
    auto to = kept.begin();
    MatSource->for_columns(cols, down, [&](std::span<const T> column) { std::ranges::copy(column, (to++)->begin()); });
    block.swap(kept);
    left = top = 0;
  }
  write_block(
      static_cast<Int64>(cols.size()), static_cast<Int64>(down.size()),
      [&](Int64 i) { return std::as_const(block)[left + i].data() + top; }, DestCol, DestRow);
  Changed();
}

void TMatrix::CopyFromVec(TDims Dim, const TVector* Src, Integer FirstElem, Integer LastElem, Integer DestCol,
                          Integer DestRow) {
  if (!Src) return;
  Src->MakeValidElemRange(FirstElem, LastElem);
  TArray kept;
  const Double* cells = Src->begin() + (FirstElem - 1);
  const Int64 n = Int64{LastElem} - FirstElem + 1;
  if (OnChange) {
    kept = TArray(cells, cells + n);
    cells = kept.data();
  }
  if (Dim == dimCols) {
    write_block(
        n, 1, [cells](Int64 i) { return cells + i; }, DestCol, DestRow);
  } else {
    write_block(
        1, n, [cells](Int64) { return cells; }, DestCol, DestRow);
  }
  Changed();
}

void TMatrix::CopyFromVec(const TVector* Src, Integer FirstElem, Integer LastElem, Integer DestCol, Integer DestRow) {
  CopyFromVec(dimRows, Src, FirstElem, LastElem, DestCol, DestRow);
}

void TMatrix::CopyFromVec(const TVector* Src, Integer FirstElem, Integer LastElem, Integer DestCol, Integer DestRow,
                          Boolean AsColumn) {
  CopyFromVec(AsColumn ? dimRows : dimCols, Src, FirstElem, LastElem, DestCol, DestRow);
}

template <class Self, Cell T>
template <class A>
Integer MatrixCore<Self, T>::copy_from_array(const A& src, Integer first, Integer last, Integer col, Integer row,
                                             Boolean as_column) {
  if (src.empty()) return kNoArray;
  if (first == 0 && last == 0) last = Length(src) - 1;
  Integer code = 0;
  if (outside(first, src.size()) || outside(last, src.size())) code = kBadElementRange;
  if (outside(Int64{col} - 1, zor::detail::to_size(dense_columns())) ||
      outside(Int64{row} - 1, zor::detail::to_size(dense_rows())))
    code = kBadPlace;
  if (code != 0) return code;
  if (first > last) std::swap(first, last);
  const A kept = OnChange ? CopyOf(src) : src;
  const auto* cells = kept.data() + first;
  const Int64 n = Int64{last} - first + 1;
  if (as_column) {
    write_block(
        1, n, [cells](Int64) { return cells; }, col, Int64{row} + first);
  } else {
    write_block(
        n, 1, [cells](Int64 i) { return cells + i; }, Int64{col} + first, row);
  }
  return 0;
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::CopyFromArray(const TDoubleArray& Src, Integer FirstElem, Integer LastElem, Integer Col,
                                           Integer Row, Boolean AsColumn) {
  return copy_from_array(Src, FirstElem, LastElem, Col, Row, AsColumn);
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::CopyFromArray(const TIntArray& Src, Integer FirstElem, Integer LastElem, Integer Col,
                                           Integer Row, Boolean AsColumn) {
  return copy_from_array(Src, FirstElem, LastElem, Col, Row, AsColumn);
}

template <class Self, Cell T>
template <class A>
Integer MatrixCore<Self, T>::copy_from_plane(const A& src, Bounds cols, Bounds down, Integer col, Integer row) {
  const auto shape = zor::detail::shape_of(src);
  if (shape.empty()) return kNoArray;
  const auto all = [](Bounds& range, std::size_t n) {
    if (range.lo == 0 && range.hi == 0) range.hi = zor::detail::to_integer(n) - 1;
    return outside(range.lo, n) || outside(range.hi, n);
  };
  Integer code = 0;
  if (all(cols, shape.length[0])) code = kBadColumnRange;
  if (all(down, shape.length[1])) code = kBadRowRange;
  if (outside(Int64{col} - 1, zor::detail::to_size(dense_columns())) ||
      outside(Int64{row} - 1, zor::detail::to_size(dense_rows())))
    code = kBadPlace;
  if (code != 0 || cols.lo > cols.hi || down.lo > down.hi) return code;
  const A kept = OnChange ? CopyOf(src) : src;
  write_block(
      Int64{cols.hi} - cols.lo + 1, Int64{down.hi} - down.lo + 1,
      [&](Int64 i) { return kept[cols.lo + i].data() + down.lo; }, Int64{col} + cols.lo, Int64{row} + down.lo);
  return 0;
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::CopyFromArray(const TDouble2DArray& Src, Integer SrcColLo, Integer SrcRowLo,
                                           Integer SrcColHi, Integer SrcRowHi, Integer Col, Integer Row) {
  return copy_from_plane(Src, {SrcColLo, SrcColHi}, {SrcRowLo, SrcRowHi}, Col, Row);
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::CopyFromArray(const TInt2DArray& Src, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi,
                                           Integer SrcRowHi, Integer Col, Integer Row) {
  return copy_from_plane(Src, {SrcColLo, SrcColHi}, {SrcRowLo, SrcRowHi}, Col, Row);
}

#define ZOR_INSTANCES(M, T)                                                                                            \
  template void MatrixCore<M, T>::Clone(const M*);                                                                     \
  template void MatrixCore<M, T>::CopyFrom(const M*, Integer, Integer, Integer, Integer, Integer, Integer);            \
  template Integer MatrixCore<M, T>::CopyFromArray(const TDoubleArray&, Integer, Integer, Integer, Integer, Boolean);  \
  template Integer MatrixCore<M, T>::CopyFromArray(const TIntArray&, Integer, Integer, Integer, Integer, Boolean);     \
  template Integer MatrixCore<M, T>::CopyFromArray(const TDouble2DArray&, Integer, Integer, Integer, Integer, Integer, \
                                                   Integer);                                                           \
  template Integer MatrixCore<M, T>::CopyFromArray(const TInt2DArray&, Integer, Integer, Integer, Integer, Integer,    \
                                                   Integer);

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix

#include <algorithm>

#include "zor/arrays/walk_internal.h"
#include "zor/matrices/store_block_internal.h"
#include "zor/vectors/vector.h"

namespace ZOR_matrix {
namespace {

bool outside(Int64 i, std::size_t n) { return i < 0 || static_cast<std::size_t>(i) >= n; }

}  // namespace

template <Cell T>
void BasicMatrix<T>::Clone(const BasicMatrix* MatSource) {
  if (!MatSource) return;
  // A handler may change the source: what is stored are its cells as they are now.
  const T2DArray kept = OnChange || OnResize ? CopyOf(MatSource->Mat) : MatSource->Mat;
  Resize(MatSource->FNCol, MatSource->FNRow);
  store_block(
      static_cast<Int64>(kept.size()), static_cast<Int64>(kept[0].size()), [&](Int64 i) { return kept[i].data(); }, 1,
      1);
  Changed();
  Resized();
}

template <Cell T>
void BasicMatrix<T>::Assign(const TPersistent* Source) {
  if (Source == this) return;
  if constexpr (RealCell<T>) {
    if (const auto* matrix = dynamic_cast<const BasicMatrix*>(Source)) {
      T2DArray made = matrix->Mat;
      SetLength(made, matrix->FNCol, matrix->FNRow);
      TString id = matrix->FDataID;
      set_cells(made);
      FDataID = std::move(id);
      std::ranges::copy(matrix->FPrecis, FPrecis);
      OnChange = matrix->OnChange;
      OnResize = matrix->OnResize;
      OnSortExchange = matrix->OnSortExchange;
      OnCalcDistance = matrix->OnCalcDistance;
      OnPercentDone = matrix->OnPercentDone;
      return;
    }
  }
  TComponent::Assign(Source);
}

template <Cell T>
void BasicMatrix<T>::CopyFrom(const BasicMatrix* MatSource, Integer SourceColLo, Integer SourceRowLo,
                              Integer SourceColHi, Integer SourceRowHi, Integer DestCol, Integer DestRow) {
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
  store_block(
      static_cast<Int64>(cols.size()), static_cast<Int64>(down.size()),
      [&](Int64 i) { return std::as_const(block)[left + i].data() + top; }, DestCol, DestRow);
  Changed();
}

template <Cell T>
void BasicMatrix<T>::CopyFromVec(TDims Dim, const TVec* Src, Integer FirstElem, Integer LastElem, Integer DestCol,
                                 Integer DestRow)
  requires RealCell<T>
{
  if (!Src) return;
  Src->MakeValidElemRange(FirstElem, LastElem);
  TArray kept;
  const T* cells = Src->begin() + (FirstElem - 1);
  const Int64 n = Int64{LastElem} - FirstElem + 1;
  if (OnChange) {
    kept = TArray(cells, cells + n);
    cells = kept.data();
  }
  if (Dim == dimCols) {
    store_block(
        n, 1, [cells](Int64 i) { return cells + i; }, DestCol, DestRow);
  } else {
    store_block(
        1, n, [cells](Int64) { return cells; }, DestCol, DestRow);
  }
  Changed();
}

template <Cell T>
void BasicMatrix<T>::CopyFromVec(const TVec* Src, Integer FirstElem, Integer LastElem, Integer DestCol, Integer DestRow)
  requires RealCell<T>
{
  CopyFromVec(dimRows, Src, FirstElem, LastElem, DestCol, DestRow);
}

template <Cell T>
void BasicMatrix<T>::CopyFromVec(const TVec* Src, Integer FirstElem, Integer LastElem, Integer DestCol, Integer DestRow,
                                 Boolean AsColumn)
  requires RealCell<T>
{
  CopyFromVec(AsColumn ? dimRows : dimCols, Src, FirstElem, LastElem, DestCol, DestRow);
}

template <Cell T>
template <class A>
Integer BasicMatrix<T>::copy_from_array(const A& src, Integer first, Integer last, Integer col, Integer row,
                                        Boolean as_column) {
  if (src.empty()) return kNoArray;
  if (first == 0 && last == 0) last = Length(src) - 1;
  Integer code = 0;
  if (outside(first, src.size()) || outside(last, src.size())) code = kBadElementRange;
  if (outside(Int64{col} - 1, Mat.size()) || outside(Int64{row} - 1, Mat[0].size())) code = kBadPlace;
  if (code != 0) return code;
  if (first > last) std::swap(first, last);
  const A kept = OnChange ? CopyOf(src) : src;
  const auto* cells = kept.data() + first;
  const Int64 n = Int64{last} - first + 1;
  if (as_column) {
    store_block(
        1, n, [cells](Int64) { return cells; }, col, Int64{row} + first);
  } else {
    store_block(
        n, 1, [cells](Int64 i) { return cells + i; }, Int64{col} + first, row);
  }
  return 0;
}

template <Cell T>
Integer BasicMatrix<T>::CopyFromArray(const TDoubleArray& Src, Integer FirstElem, Integer LastElem, Integer Col,
                                      Integer Row, Boolean AsColumn) {
  return copy_from_array(Src, FirstElem, LastElem, Col, Row, AsColumn);
}

template <Cell T>
Integer BasicMatrix<T>::CopyFromArray(const TIntArray& Src, Integer FirstElem, Integer LastElem, Integer Col,
                                      Integer Row, Boolean AsColumn) {
  return copy_from_array(Src, FirstElem, LastElem, Col, Row, AsColumn);
}

template <Cell T>
template <class A>
Integer BasicMatrix<T>::copy_from_plane(const A& src, Bounds cols, Bounds down, Integer col, Integer row) {
  const auto shape = zor::detail::shape_of(src);
  if (shape.empty()) return kNoArray;
  const auto all = [](Bounds& range, std::size_t n) {
    if (range.lo == 0 && range.hi == 0) range.hi = zor::detail::to_integer(n) - 1;
    return outside(range.lo, n) || outside(range.hi, n);
  };
  Integer code = 0;
  if (all(cols, shape.length[0])) code = kBadColumnRange;
  if (all(down, shape.length[1])) code = kBadRowRange;
  if (outside(Int64{col} - 1, Mat.size()) || outside(Int64{row} - 1, Mat[0].size())) code = kBadPlace;
  if (code != 0 || cols.lo > cols.hi || down.lo > down.hi) return code;
  const A kept = OnChange ? CopyOf(src) : src;
  store_block(
      Int64{cols.hi} - cols.lo + 1, Int64{down.hi} - down.lo + 1,
      [&](Int64 i) { return kept[cols.lo + i].data() + down.lo; }, Int64{col} + cols.lo, Int64{row} + down.lo);
  return 0;
}

template <Cell T>
Integer BasicMatrix<T>::CopyFromArray(const TDouble2DArray& Src, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi,
                                      Integer SrcRowHi, Integer Col, Integer Row) {
  return copy_from_plane(Src, {SrcColLo, SrcColHi}, {SrcRowLo, SrcRowHi}, Col, Row);
}

template <Cell T>
Integer BasicMatrix<T>::CopyFromArray(const TInt2DArray& Src, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi,
                                      Integer SrcRowHi, Integer Col, Integer Row) {
  return copy_from_plane(Src, {SrcColLo, SrcColHi}, {SrcRowLo, SrcRowHi}, Col, Row);
}

#define ZOR_INSTANCES(T)                                                                                             \
  template void BasicMatrix<T>::Clone(const BasicMatrix*);                                                           \
  template void BasicMatrix<T>::Assign(const TPersistent*);                                                          \
  template void BasicMatrix<T>::CopyFrom(const BasicMatrix*, Integer, Integer, Integer, Integer, Integer, Integer);  \
  template Integer BasicMatrix<T>::CopyFromArray(const TDoubleArray&, Integer, Integer, Integer, Integer, Boolean);  \
  template Integer BasicMatrix<T>::CopyFromArray(const TIntArray&, Integer, Integer, Integer, Integer, Boolean);     \
  template Integer BasicMatrix<T>::CopyFromArray(const TDouble2DArray&, Integer, Integer, Integer, Integer, Integer, \
                                                 Integer);                                                           \
  template Integer BasicMatrix<T>::CopyFromArray(const TInt2DArray&, Integer, Integer, Integer, Integer, Integer,    \
                                                 Integer);

ZOR_INSTANCES(Double)
template void BasicMatrix<Double>::CopyFromVec(TDims, const TVector*, Integer, Integer, Integer, Integer);
template void BasicMatrix<Double>::CopyFromVec(const TVector*, Integer, Integer, Integer, Integer);
template void BasicMatrix<Double>::CopyFromVec(const TVector*, Integer, Integer, Integer, Integer, Boolean);

}  // namespace ZOR_matrix

#include <algorithm>
#include <cstring>

#include "zor/arrays/walk_internal.h"
#include "zor/base/memory_guard.h"
#include "zor/base/range_rule.h"
#include "zor/vectors/vector.h"

namespace ZOR_vector {
namespace {

using zor::detail::outside;

/// The nearest index, from 0, of n >= 1 cells.
Int64 clamp_index(Int64 i, std::size_t n) noexcept { return std::clamp<Int64>(i, 0, static_cast<Int64>(n) - 1); }

}  // namespace

template <class Self, Cell T>
void VectorCore<Self, T>::store_cells(std::span<const T> values, Int64 dest) {
  if (OnChange) {
    // A handler may change or resize anything, the source too: what is stored are the values as they are now.
    const TArray kept(values.begin(), values.end());
    for (std::size_t i = 0; i < kept.size(); ++i) {
      const Int64 elem = dest + static_cast<Int64>(i);
      if (elem > zor::detail::kMaxInteger) break;
      if (elem >= 1) SetVal(static_cast<Integer>(elem), kept[i]);
    }
    return;
  }
  const Int64 first = std::max<Int64>(dest, 1);
  const Int64 last = std::min<Int64>(dest + static_cast<Int64>(values.size()) - 1, NrOfElem());
  if (first > last) return;
  // The source may overlap this vector's own cells.
  std::memmove(FVec.data() + (first - 1), values.data() + (first - dest),
               static_cast<std::size_t>(last - first + 1) * sizeof(T));
  FIsEmpty = false;
}

template <class Self, Cell T>
void VectorCore<Self, T>::Clone(const Self* VecSource) {
  if (!VecSource) return;
  // A handler of Resize may change the source: then its cells as they are now are kept.
  const TArray values = OnChange || OnResize ? CopyOf(VecSource->FVec) : VecSource->FVec;
  Resize(zor::detail::to_integer(values.size()));
  store_cells(values, 1);
  Changed();
}

template <class Self, Cell T>
Integer VectorCore<Self, T>::CopyFrom(const Self* Src, Integer SrcElemLo, Integer SrcElemHi, Integer DestElem) {
  if (!Src) return kNoSource;
  if (SrcElemLo == 0 && SrcElemHi == 0) {
    store_cells(Src->Cells(), DestElem);
  } else {
    const std::span<const T> cells = Src->Cells();
    if (outside(Int64{DestElem} - 1, FVec.size())) return kBadDestination;
    if (outside(Int64{SrcElemLo} - 1, cells.size()) || outside(Int64{SrcElemHi} - 1, cells.size()))
      return kBadSourceRange;
    store_cells(Src->range(SrcElemLo, SrcElemHi), DestElem);
  }
  Changed();
  return 0;
}

template <class Self, Cell T>
Integer VectorCore<Self, T>::CopyFrom(TArray Src, Integer SrcElemLo, Integer SrcElemHi, Integer DestElem) {
  if (Src.empty()) return kNoSource;
  const std::span<const T> cells(Src.data(), Src.size());
  if (SrcElemLo == 0 && SrcElemHi == 0) {
    store_cells(cells, DestElem);
  } else {
    if (outside(Int64{DestElem} - 1, FVec.size())) return kBadDestination;
    if (outside(SrcElemLo, cells.size()) || outside(SrcElemHi, cells.size())) return kBadSourceRange;
    const auto [lo, hi] = std::minmax(SrcElemLo, SrcElemHi);
    store_cells(cells.subspan(zor::detail::to_size(lo), zor::detail::to_size(hi - lo + 1)), DestElem);
  }
  Changed();
  return 0;
}

template <class Self, Cell T>
void VectorCore<Self, T>::CopyFrom2DArrayRow(T2DArray SrcArray, Integer Row, Integer FirstCol, Integer LastCol,
                                             Integer DestElem) {
  const auto shape = zor::detail::shape_of(SrcArray);
  if (shape.empty()) return;
  const Int64 row = clamp_index(Row, shape.length[1]);
  Int64 first = clamp_index(FirstCol, shape.length[0]), last = clamp_index(LastCol, shape.length[0]);
  if (first > last) std::swap(first, last);
  if (DestElem <= first - last || DestElem > NrOfElem()) return;
  TArray values;
  zor::detail::set_length_unset(values, static_cast<std::size_t>(last - first + 1));
  for (Int64 j = first; j <= last; ++j) values[j - first] = std::as_const(SrcArray)[j][row];
  store_cells(values, DestElem);
  Changed();
}

template <class Self, Cell T>
void VectorCore<Self, T>::CopyFrom2DArrayColumn(T2DArray SrcArray, Integer Col, Integer FirstRow, Integer LastRow,
                                                Integer DestElem) {
  const auto shape = zor::detail::shape_of(SrcArray);
  if (shape.empty()) return;
  Int64 first = clamp_index(FirstRow, shape.length[1]), last = clamp_index(LastRow, shape.length[1]);
  if (first > last) std::swap(first, last);
  if (DestElem <= first - last || DestElem > NrOfElem()) return;
  const TArray column = SrcArray[clamp_index(Col, shape.length[0])];  // a handler may exchange the inner array
  store_cells(std::span<const T>(column.data() + first, static_cast<std::size_t>(last - first + 1)), DestElem);
  Changed();
}

template <class Self, Cell T>
void VectorCore<Self, T>::CopyToArray(TArray& DestArray, Integer LowElem, Integer HighElem, Integer DestElem) const {
  const std::span<const T> values = range(LowElem, HighElem);
  const Int64 dest = std::max(DestElem, 0);
  const Int64 length = static_cast<Int64>(values.size()) + dest;
  if (length > zor::detail::kMaxInteger) zor::detail::Fail<EZORVectorError>(self(), zor::detail::kNoMemory);
  SetLength(DestArray, length);
  std::ranges::copy(values, DestArray.begin() + dest);
}

template <class Self, Cell T>
void VectorCore<Self, T>::CopyToArray(T2DArray& DestArray, Integer LowElem, Integer HighElem, Integer DestCol,
                                      Integer DestRow, Boolean AsColumn) const {
  const auto shape = zor::detail::shape_of(DestArray);
  if (shape.empty()) return;
  std::span<const T> values = range(LowElem, HighElem);
  const Int64 col = clamp_index(DestCol, shape.length[0]), row = clamp_index(DestRow, shape.length[1]);
  const Int64 room = static_cast<Int64>(AsColumn ? shape.length[1] : shape.length[0]) - (AsColumn ? row : col);
  values = values.first(std::min(values.size(), static_cast<std::size_t>(room)));
  if (AsColumn) {
    std::ranges::copy(values, DestArray[col].begin() + row);
  } else {
    for (std::size_t i = 0; i < values.size(); ++i) DestArray[static_cast<std::size_t>(col) + i][row] = values[i];
  }
}

template <class Self, Cell T>
bool VectorCore<Self, T>::assign_twin(const TPersistent* Source) {
  const auto* vec = dynamic_cast<const Self*>(Source);
  if (!vec) return false;
  if (vec == &self()) return true;
  TArray cells = CopyOf(vec->FVec);
  FVec.swap(cells);
  FIsEmpty = vec->FIsEmpty;
  OnChange = vec->OnChange;
  OnResize = vec->OnResize;
  OnSortExchange = vec->OnSortExchange;
  return true;
}

void TVector::Assign(const TPersistent* Source) {
  if (!assign_twin(Source)) TComponent::Assign(Source);
}

void TVector::AssignTo(TPersistent* Dest) const {
  if (IsClass<TVector>(Dest)) {
    Dest->Assign(this);
  } else {
    TComponent::AssignTo(Dest);
  }
}

void TIntVector::Assign(const TPersistent* Source) {
  if (!assign_twin(Source)) TComponent::Assign(Source);
}

void TIntVector::AssignTo(TPersistent* Dest) const {
  if (IsClass<TIntVector>(Dest)) {
    Dest->Assign(this);
  } else {
    TComponent::AssignTo(Dest);
  }
}

#define ZOR_INSTANCES(V, T)                                                                                  \
  template void VectorCore<V, T>::store_cells(std::span<const T>, Int64);                                    \
  template void VectorCore<V, T>::Clone(const V*);                                                           \
  template Integer VectorCore<V, T>::CopyFrom(const V*, Integer, Integer, Integer);                          \
  template Integer VectorCore<V, T>::CopyFrom(TArray, Integer, Integer, Integer);                            \
  template void VectorCore<V, T>::CopyFrom2DArrayRow(T2DArray, Integer, Integer, Integer, Integer);          \
  template void VectorCore<V, T>::CopyFrom2DArrayColumn(T2DArray, Integer, Integer, Integer, Integer);       \
  template void VectorCore<V, T>::CopyToArray(TArray&, Integer, Integer, Integer) const;                     \
  template void VectorCore<V, T>::CopyToArray(T2DArray&, Integer, Integer, Integer, Integer, Boolean) const; \
  template bool VectorCore<V, T>::assign_twin(const TPersistent*);

ZOR_INSTANCES(TVector, Double)
ZOR_INSTANCES(TIntVector, Integer)

}  // namespace ZOR_vector

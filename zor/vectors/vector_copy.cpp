#include <algorithm>
#include <cstring>

#include "zor/vectors/vector.h"

namespace ZOR_vector {
namespace {

/// Number of columns and rows of a rectangular array; 0 by 0 if it is empty or ragged.
struct Shape {
  Int64 columns = 0, rows = 0;
};

template <class T>
Shape measure(const TDynArray<TDynArray<T>>& a) noexcept {
  if (a.empty() || a[0].empty()) return {};
  const std::size_t rows = a[0].size();
  for (const auto& column : a) {
    if (column.size() != rows) return {};
  }
  return {static_cast<Int64>(a.size()), static_cast<Int64>(rows)};
}

constexpr Int64 clamp_index(Int64 i, Int64 n) noexcept { return i < 0 ? 0 : i < n ? i : n - 1; }

}  // namespace

template <Cell T>
void BasicVector<T>::store_cells(std::span<const T> values, Int64 dest) {
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

template <Cell T>
void BasicVector<T>::Clone(const BasicVector* VecSource) {
  if (!VecSource) return;
  // A handler of Resize may change the source: then its cells as they are now are kept.
  const TArray values = OnChange || OnResize ? CopyOf(VecSource->FVec) : VecSource->FVec;
  Resize(zor::detail::to_integer(values.size()));
  store_cells(values, 1);
  Changed();
}

template <Cell T>
Integer BasicVector<T>::CopyFrom(const BasicVector* Src, Integer SrcElemLo, Integer SrcElemHi, Integer DestElem) {
  if (!Src) return kNoSource;
  if (SrcElemLo == 0 && SrcElemHi == 0) {
    store_cells(Src->Cells(), DestElem);
  } else {
    const auto outside = [](Integer i, Integer n) { return i < 1 || i > n; };
    if (outside(DestElem, NrOfElem())) return kBadDestination;
    if (outside(SrcElemLo, Src->NrOfElem()) || outside(SrcElemHi, Src->NrOfElem())) return kBadSourceRange;
    store_cells(Src->range(SrcElemLo, SrcElemHi), DestElem);
  }
  Changed();
  return 0;
}

template <Cell T>
Integer BasicVector<T>::CopyFrom(TArray Src, Integer SrcElemLo, Integer SrcElemHi, Integer DestElem) {
  if (Src.empty()) return kNoSource;
  const std::span<const T> cells(Src.data(), Src.size());
  if (SrcElemLo == 0 && SrcElemHi == 0) {
    store_cells(cells, DestElem);
  } else {
    const auto outside = [&](Integer i) { return i < 0 || static_cast<std::size_t>(i) >= cells.size(); };
    if (DestElem < 1 || DestElem > NrOfElem()) return kBadDestination;
    if (outside(SrcElemLo) || outside(SrcElemHi)) return kBadSourceRange;
    const auto [lo, hi] = std::minmax(SrcElemLo, SrcElemHi);
    store_cells(cells.subspan(zor::detail::to_size(lo), zor::detail::to_size(hi - lo + 1)), DestElem);
  }
  Changed();
  return 0;
}

template <Cell T>
void BasicVector<T>::CopyFrom2DArrayRow(T2DArray SrcArray, Integer Row, Integer FirstCol, Integer LastCol,
                                        Integer DestElem) {
  const Shape shape = measure(SrcArray);
  if (shape.columns == 0) return;
  const Int64 row = clamp_index(Row, shape.rows);
  Int64 first = clamp_index(FirstCol, shape.columns), last = clamp_index(LastCol, shape.columns);
  if (first > last) std::swap(first, last);
  if (DestElem <= first - last || DestElem > NrOfElem()) return;
  TArray values;
  zor::detail::set_length_unset(values, static_cast<std::size_t>(last - first + 1));
  for (Int64 j = first; j <= last; ++j) values[j - first] = std::as_const(SrcArray)[j][row];
  store_cells(values, DestElem);
  Changed();
}

template <Cell T>
void BasicVector<T>::CopyFrom2DArrayColumn(T2DArray SrcArray, Integer Col, Integer FirstRow, Integer LastRow,
                                           Integer DestElem) {
  const Shape shape = measure(SrcArray);
  if (shape.columns == 0) return;
  Int64 first = clamp_index(FirstRow, shape.rows), last = clamp_index(LastRow, shape.rows);
  if (first > last) std::swap(first, last);
  if (DestElem <= first - last || DestElem > NrOfElem()) return;
  const TArray column = SrcArray[clamp_index(Col, shape.columns)];  // a handler may exchange the inner array
  store_cells(std::span<const T>(column.data() + first, static_cast<std::size_t>(last - first + 1)), DestElem);
  Changed();
}

template <Cell T>
void BasicVector<T>::CopyToArray(TArray& DestArray, Integer LowElem, Integer HighElem, Integer DestElem) const {
  const std::span<const T> values = range(LowElem, HighElem);
  const Int64 dest = std::max(DestElem, 0);
  const Int64 length = static_cast<Int64>(values.size()) + dest;
  if (length > zor::detail::kMaxInteger) zor::detail::Fail<EZORVectorError>(*this, "not enough memory");
  SetLength(DestArray, length);
  std::ranges::copy(values, DestArray.begin() + dest);
}

template <Cell T>
void BasicVector<T>::CopyToArray(T2DArray& DestArray, Integer LowElem, Integer HighElem, Integer DestCol,
                                 Integer DestRow, Boolean AsColumn) const {
  const Shape shape = measure(DestArray);
  if (shape.columns == 0) return;
  std::span<const T> values = range(LowElem, HighElem);
  const Int64 col = clamp_index(DestCol, shape.columns), row = clamp_index(DestRow, shape.rows);
  const Int64 room = AsColumn ? shape.rows - row : shape.columns - col;
  values = values.first(std::min(values.size(), static_cast<std::size_t>(room)));
  if (AsColumn) {
    std::ranges::copy(values, DestArray[col].begin() + row);
  } else {
    for (std::size_t i = 0; i < values.size(); ++i) DestArray[static_cast<std::size_t>(col) + i][row] = values[i];
  }
}

template <Cell T>
void BasicVector<T>::Assign(const TPersistent* Source) {
  if (Source == this) return;
  const auto* vec = dynamic_cast<const BasicVector*>(Source);
  if (!vec) {
    TComponent::Assign(Source);
    return;
  }
  TArray cells = CopyOf(vec->FVec);
  FVec.swap(cells);
  FIsEmpty = vec->FIsEmpty;
  OnChange = vec->OnChange;
  OnResize = vec->OnResize;
  OnSortExchange = vec->OnSortExchange;
}

template <Cell T>
void BasicVector<T>::AssignTo(TPersistent* Dest) const {
  if (auto* vec = dynamic_cast<BasicVector*>(Dest)) {
    vec->Assign(this);
  } else {
    TComponent::AssignTo(Dest);
  }
}

#define ZOR_INSTANCES(T)                                                                                   \
  template void BasicVector<T>::store_cells(std::span<const T>, Int64);                                    \
  template void BasicVector<T>::Clone(const BasicVector*);                                                 \
  template Integer BasicVector<T>::CopyFrom(const BasicVector*, Integer, Integer, Integer);                \
  template Integer BasicVector<T>::CopyFrom(TArray, Integer, Integer, Integer);                            \
  template void BasicVector<T>::CopyFrom2DArrayRow(T2DArray, Integer, Integer, Integer, Integer);          \
  template void BasicVector<T>::CopyFrom2DArrayColumn(T2DArray, Integer, Integer, Integer, Integer);       \
  template void BasicVector<T>::CopyToArray(TArray&, Integer, Integer, Integer) const;                     \
  template void BasicVector<T>::CopyToArray(T2DArray&, Integer, Integer, Integer, Integer, Boolean) const; \
  template void BasicVector<T>::Assign(const TPersistent*);                                                \
  template void BasicVector<T>::AssignTo(TPersistent*) const;

ZOR_INSTANCES(Double)
ZOR_INSTANCES(Integer)

}  // namespace ZOR_vector

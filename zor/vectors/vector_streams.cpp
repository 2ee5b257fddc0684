#include <algorithm>
#include <array>

#include "zor/base/reader_limits.h"
#include "zor/base/stream_numbers.h"
#include "zor/vectors/stream_bound_internal.h"
#include "zor/vectors/vector.h"

namespace ZOR_vector {
template <class Self, Cell T>
void VectorCore<Self, T>::SaveToStream(TStream& OutStream, Integer LowElem, Integer HighElem) const {
  MakeValidElemRange(LowElem, HighElem);
  const std::array<T, 2> bounds{static_cast<T>(LowElem), static_cast<T>(HighElem)};
  zor::detail::write_numbers(OutStream, std::span<const T>(bounds));
  zor::detail::write_numbers(OutStream, range(LowElem, HighElem));
}

template <class Self, Cell T>
void VectorCore<Self, T>::SaveToStream(TMemoryStream*& OutStream, Integer LowElem, Integer HighElem) const {
  if (!OutStream) OutStream = new TMemoryStream;
  SaveToStream(static_cast<TStream&>(*OutStream), LowElem, HighElem);
}

template <class Self, Cell T>
void VectorCore<Self, T>::SaveToStream(TFileStream* OutStream, Integer LowElem, Integer HighElem) const {
  if (OutStream) SaveToStream(static_cast<TStream&>(*OutStream), LowElem, HighElem);
}

template <class Self, Cell T>
Boolean VectorCore<Self, T>::LoadFromStream(TStream* InStream, Boolean AdjustVectorSize) {
  Integer lo = 0, hi = 0;
  if (!InStream || !zor::detail::read_bound<T>(*InStream, lo) || !zor::detail::read_bound<T>(*InStream, hi))
    return false;
  if (AdjustVectorSize) {
    const Int64 remaining = InStream->Size() - InStream->Position();
    constexpr Int64 kCell = sizeof(T);
    if (hi > 0 && !zor::detail::may_allocate(kCell * hi, remaining)) return false;
    Resize(hi);
  }
  Boolean result = hi <= NrOfElem();
  std::array<T, 1024> chunk;
  for (Int64 i = lo; result && i <= hi;) {
    const auto wanted = static_cast<std::size_t>(std::min<Int64>(hi - i + 1, static_cast<Int64>(chunk.size())));
    const std::size_t got = zor::detail::read_numbers(*InStream, std::span<T>(chunk).first(wanted));
    store_cells(std::span<const T>(chunk.data(), got), i);
    result = got == wanted;
    i += static_cast<Int64>(wanted);
  }
  Changed();
  return result;
}

#define ZOR_INSTANCES(V, T)                                                              \
  template void VectorCore<V, T>::SaveToStream(TStream&, Integer, Integer) const;        \
  template void VectorCore<V, T>::SaveToStream(TMemoryStream*&, Integer, Integer) const; \
  template void VectorCore<V, T>::SaveToStream(TFileStream*, Integer, Integer) const;    \
  template Boolean VectorCore<V, T>::LoadFromStream(TStream*, Boolean);

ZOR_INSTANCES(TVector, Double)
ZOR_INSTANCES(TIntVector, Integer)

}  // namespace ZOR_vector

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "zor/base/reader_limits.h"
#include "zor/base/stream_numbers.h"
#include "zor/runtime/numbers.h"
#include "zor/vectors/vector.h"

namespace ZOR_vector {
namespace {

/// An element number from a stream; false if it is none.
template <class T>
bool read_number(TStream& stream, Integer& number) {
  T x{};
  if (zor::detail::read_numbers(stream, std::span<T>(&x, 1)) != 1) return false;
  if constexpr (RealCell<T>) {
    const Double whole = std::nearbyint(x);
    if (!(whole >= std::numeric_limits<Integer>::min() && whole <= std::numeric_limits<Integer>::max())) return false;
    number = static_cast<Integer>(whole);
  } else {
    number = x;
  }
  return true;
}

}  // namespace

template <Cell T>
void BasicVector<T>::SaveToStream(TStream& OutStream, Integer LowElem, Integer HighElem) const {
  MakeValidElemRange(LowElem, HighElem);
  const std::array<T, 2> bounds{static_cast<T>(LowElem), static_cast<T>(HighElem)};
  zor::detail::write_numbers(OutStream, std::span<const T>(bounds));
  zor::detail::write_numbers(OutStream, range(LowElem, HighElem));
}

template <Cell T>
void BasicVector<T>::SaveToStream(TMemoryStream*& OutStream, Integer LowElem, Integer HighElem) const {
  if (!OutStream) OutStream = new TMemoryStream;
  SaveToStream(static_cast<TStream&>(*OutStream), LowElem, HighElem);
}

template <Cell T>
void BasicVector<T>::SaveToStream(TFileStream* OutStream, Integer LowElem, Integer HighElem) const {
  if (OutStream) SaveToStream(static_cast<TStream&>(*OutStream), LowElem, HighElem);
}

template <Cell T>
Boolean BasicVector<T>::LoadFromStream(TStream* InStream, Boolean AdjustVectorSize) {
  Integer lo = 0, hi = 0;
  if (!InStream || !read_number<T>(*InStream, lo) || !read_number<T>(*InStream, hi)) return false;
  if (AdjustVectorSize) {
    const Int64 remaining = InStream->Size() - InStream->Position();
    if (hi > 0 && !zor::detail::may_allocate(hi, remaining, sizeof(T))) return false;
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

#define ZOR_INSTANCES(T)                                                               \
  template void BasicVector<T>::SaveToStream(TStream&, Integer, Integer) const;        \
  template void BasicVector<T>::SaveToStream(TMemoryStream*&, Integer, Integer) const; \
  template void BasicVector<T>::SaveToStream(TFileStream*, Integer, Integer) const;    \
  template Boolean BasicVector<T>::LoadFromStream(TStream*, Boolean);

ZOR_INSTANCES(Double)
ZOR_INSTANCES(Integer)

}  // namespace ZOR_vector

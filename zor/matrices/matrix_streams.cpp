#include <algorithm>
#include <array>

#include "zor/base/reader_limits.h"
#include "zor/base/stream_numbers.h"
#include "zor/matrices/store_block_internal.h"
#include "zor/vectors/stream_bound_internal.h"

namespace ZOR_matrix {

template <class Self, Cell T>
void MatrixCore<Self, T>::SaveToStream(TStream& OutStream, Integer LoC, Integer LoR, Integer HiC, Integer HiR) const {
  const Bounds cols = columns(LoC, HiC), down = rows(LoR, HiR);
  const std::array<T, 4> bounds{static_cast<T>(cols.lo), static_cast<T>(down.lo), static_cast<T>(cols.hi),
                                static_cast<T>(down.hi)};
  zor::detail::write_numbers(OutStream, std::span<const T>(bounds));
  for_columns(cols, down, [&](std::span<const T> column) { zor::detail::write_numbers(OutStream, column); });
}

template <class Self, Cell T>
void MatrixCore<Self, T>::SaveToStream(TMemoryStream*& OutStream, Integer LoC, Integer LoR, Integer HiC,
                                       Integer HiR) const {
  if (!OutStream) OutStream = new TMemoryStream;
  SaveToStream(static_cast<TStream&>(*OutStream), LoC, LoR, HiC, HiR);
}

template <class Self, Cell T>
void MatrixCore<Self, T>::SaveToStream(TFileStream* OutStream, Integer LoC, Integer LoR, Integer HiC,
                                       Integer HiR) const {
  if (OutStream) SaveToStream(static_cast<TStream&>(*OutStream), LoC, LoR, HiC, HiR);
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::LoadFromStream(TStream* InStream, Boolean AdjustMatrixSize) {
  if (!InStream) return false;
  Bounds cols{}, down{};
  for (Integer* bound : {&cols.lo, &down.lo, &cols.hi, &down.hi}) {
    if (!zor::detail::read_bound<T>(*InStream, *bound)) return false;
  }
  if (AdjustMatrixSize) {
    const Int64 remaining = InStream->Size() - InStream->Position();
    const Int64 bytes = zor::detail::column_array_bytes<T>(std::max(cols.hi, 0), std::max(down.hi, 0));
    if (!zor::detail::may_allocate(bytes, remaining)) return false;
    Resize(cols.hi, down.hi);
  }
  Boolean result = cols.hi <= dense_columns() && down.hi <= dense_rows();
  std::array<T, 1024> chunk;
  for (Int64 c = cols.lo; result && c <= cols.hi && down.lo <= down.hi; ++c) {
    for (Int64 r = down.lo; result && r <= down.hi;) {
      const auto wanted = static_cast<std::size_t>(std::min<Int64>(down.hi - r + 1, static_cast<Int64>(chunk.size())));
      const std::size_t got = zor::detail::read_numbers(*InStream, std::span<T>(chunk).first(wanted));
      write_block(
          1, static_cast<Int64>(got), [&](Int64) { return chunk.data(); }, c, r);
      result = got == wanted;
      r += static_cast<Int64>(wanted);
    }
  }
  Changed();
  return result;
}

#define ZOR_INSTANCES(M, T)                                                                                \
  template void MatrixCore<M, T>::SaveToStream(TStream&, Integer, Integer, Integer, Integer) const;        \
  template void MatrixCore<M, T>::SaveToStream(TMemoryStream*&, Integer, Integer, Integer, Integer) const; \
  template void MatrixCore<M, T>::SaveToStream(TFileStream*, Integer, Integer, Integer, Integer) const;    \
  template Boolean MatrixCore<M, T>::LoadFromStream(TStream*, Boolean);

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix

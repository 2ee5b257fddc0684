#include <algorithm>
#include <utility>
#include <vector>

#include "zor/base/record_codec.h"
#include "zor/matrices/heap_guard_internal.h"
#include "zor/matrices/matrix.h"
#include "zor/matrices/transpose_block_internal.h"
#include "zor/runtime/text.h"

namespace ZOR_matrix {
namespace {

using zor::detail::RecordFileReader;
using zor::detail::RecordFileWriter;
using zor::detail::RecordHead;

template <class T>
constexpr Integer kFormat = RealCell<T> ? zor::detail::kDoubleCells : zor::detail::kIntegerCells;

/// Rows that are turned at a time: enough of each column to be worth going there, few enough to stay in the cache.
std::size_t rows_in_turn(std::size_t columns) {
  constexpr std::size_t kCells = std::size_t{1} << 18;
  return std::clamp<std::size_t>(kCells / columns, 8, 64);
}

}  // namespace

template <class Self, Cell T>
void MatrixCore<Self, T>::SaveBinary(const TString& FName) const {
  RecordHead head;
  head.NrColumns = dense_columns();
  head.NrRows = dense_rows();
  head.DataID = FDataID;
  head.Format = kFormat<T>;
  RecordFileWriter writer(FName, head);
  const std::size_t columns = zor::detail::to_size(dense_columns()), rows = zor::detail::to_size(dense_rows()),
                    step = rows_in_turn(columns);
  std::vector<T> block(columns * std::min(step, rows));
  for (std::size_t first = 0; first < rows; first += step) {
    const std::size_t n = std::min(step, rows - first);
    zor::detail::transpose_block(
        columns, n, [&](std::size_t c) { return std::as_const(Mat)[c].data() + first; },
        [&](std::size_t r) { return block.data() + r * columns; });
    writer.write(std::span<const T>(block.data(), n * columns));
  }
  writer.finish();
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::LoadBinary(const TString& FName) {
  if (!ZOR_runtime::FileExists(FName)) return kUnreadable;
  T2DArray made;
  RecordHead head;
  try {
    RecordFileReader reader(FName);
    head = reader.head();
    if (head.NrLayers != 0 || head.NrTimeSlots != 0 || head.Format != kFormat<T>) return kNotThisKind;
    if (!reader.is_complete()) return kFileTooShort;
    const std::size_t columns = zor::detail::to_size(head.NrColumns), rows = zor::detail::to_size(head.NrRows);
    const std::size_t step = rows_in_turn(columns);
    std::vector<T> block;
    zor::detail::heap_guard(self(), [&] {
      zor::detail::set_length_unset(made, columns, rows);
      block.resize(columns * std::min(step, rows));
    });
    for (std::size_t first = 0; first < rows; first += step) {
      const std::size_t n = std::min(step, rows - first);
      reader.read(std::span<T>(block.data(), n * columns));
      zor::detail::transpose_block(
          n, columns, [&](std::size_t r) { return std::as_const(block).data() + r * columns; },
          [&](std::size_t c) { return made[c].data() + first; });
    }
  } catch (const EInOutError&) {
    return kUnreadable;
  }
  FDataID = head.DataID;
  renew_as_read(made);
  return 0;
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::ReadBinaryHeader(const TString& FName, Integer& NrColumns, Integer& NrRows,
                                              TString& DataID, Integer& Format) const {
  RecordHead head;
  bool found = false;
  if (ZOR_runtime::FileExists(FName)) {
    RecordFileReader reader(FName);
    head = reader.head();
    found = reader.has_head();
  }
  NrColumns = head.NrColumns;
  NrRows = head.NrRows;
  DataID = head.DataID;
  Format = head.Format;
  return found && head.NrLayers == 0 && head.NrTimeSlots == 0 && head.Format == kFormat<T>;
}

#define ZOR_INSTANCES(M, T)                                         \
  template void MatrixCore<M, T>::SaveBinary(const TString&) const; \
  template Integer MatrixCore<M, T>::LoadBinary(const TString&);    \
  template Boolean MatrixCore<M, T>::ReadBinaryHeader(const TString&, Integer&, Integer&, TString&, Integer&) const;

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix

#include <algorithm>
#include <vector>

#include "zor/base/record_codec.h"
#include "zor/matrices/heap_guard_internal.h"
#include "zor/matrices/matrix.h"
#include "zor/runtime/text.h"

namespace ZOR_matrix {
namespace {

using zor::detail::RecordFileReader;
using zor::detail::RecordFileWriter;
using zor::detail::RecordHead;

template <class T>
constexpr Integer kFormat = RealCell<T> ? zor::detail::kDoubleCells : zor::detail::kIntegerCells;

/// Rows that are taken from the columns at a time: enough to fill whole cache lines, few enough to stay in the cache.
std::size_t rows_in_turn(std::size_t columns) {
  constexpr std::size_t kCells = std::size_t{1} << 15;
  return std::clamp<std::size_t>(kCells / columns, 1, 512);
}

/// Calls move(column, row, cells) for squares of the block of rows, whose cells lie row after row in `block`.
template <class Move>
void for_tiles(std::size_t columns, std::size_t rows, Move move) {
  constexpr std::size_t kSide = 8;
  for (std::size_t c = 0; c < columns; c += kSide) {
    for (std::size_t r = 0; r < rows; r += kSide) move(c, std::min(c + kSide, columns), r, std::min(r + kSide, rows));
  }
}

}  // namespace

template <Cell T>
void BasicMatrix<T>::SaveBinary(const TString& FName) const {
  RecordHead head;
  head.NrColumns = FNCol;
  head.NrRows = FNRow;
  head.DataID = FDataID;
  head.Format = kFormat<T>;
  RecordFileWriter writer(FName, head);
  const std::size_t columns = Mat.size(), rows = Mat[0].size(), step = rows_in_turn(columns);
  std::vector<T> block(columns * std::min(step, rows));
  for (std::size_t first = 0; first < rows; first += step) {
    const std::size_t n = std::min(step, rows - first);
    for_tiles(columns, n, [&](std::size_t c, std::size_t c_end, std::size_t top, std::size_t bottom) {
      for (; c < c_end; ++c) {
        const T* column = Mat[c].data() + first;
        for (std::size_t r = top; r < bottom; ++r) block[r * columns + c] = column[r];
      }
    });
    writer.write(std::span<const T>(block.data(), n * columns));
  }
  writer.finish();
}

template <Cell T>
Integer BasicMatrix<T>::LoadBinary(const TString& FName) {
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
    zor::detail::heap_guard(*this, [&] {
      zor::detail::set_length_unset(made, columns, rows);
      block.resize(columns * std::min(step, rows));
    });
    for (std::size_t first = 0; first < rows; first += step) {
      const std::size_t n = std::min(step, rows - first);
      reader.read(std::span<T>(block.data(), n * columns));
      for_tiles(columns, n, [&](std::size_t c, std::size_t c_end, std::size_t top, std::size_t bottom) {
        for (; c < c_end; ++c) {
          T* column = made[c].data() + first;
          for (std::size_t r = top; r < bottom; ++r) column[r] = block[r * columns + c];
        }
      });
    }
  } catch (const EInOutError&) {
    return kUnreadable;
  }
  FDataID = head.DataID;
  take_over(made);
  return 0;
}

template <Cell T>
Boolean BasicMatrix<T>::ReadBinaryHeader(const TString& FName, Integer& NrColumns, Integer& NrRows, TString& DataID,
                                         Integer& Format) const {
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

#define ZOR_INSTANCES(T)                                          \
  template void BasicMatrix<T>::SaveBinary(const TString&) const; \
  template Integer BasicMatrix<T>::LoadBinary(const TString&);    \
  template Boolean BasicMatrix<T>::ReadBinaryHeader(const TString&, Integer&, Integer&, TString&, Integer&) const;

ZOR_INSTANCES(Double)

}  // namespace ZOR_matrix

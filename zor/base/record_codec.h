#pragma once

#include <memory>
#include <span>

#include "zor/base/ZOR_zorbase.h"

/// \file  The binary file of 4096-byte records that all matrix classes and array files share.
/// Little endian. Record 0 is the head: NrColumns, NrRows, NrLayers, NrTimeSlots (32-bit signed each), DataID (a length
/// byte and 255 characters of 8 bits), Format at byte 272. The cells follow from byte 4096 on without gaps: time slot
/// outermost, then layer, row, column; the last record is filled up with zeros. A two-dimensional file has 0 layers,
/// one without time has 0 time slots.
///
///     RecordFileWriter writer("m.bin", {.NrColumns = 2, .NrRows = 1, .Format = kDoubleCells});
///     writer.write(std::array{1.5, 2.5});
///     writer.finish();

namespace zor::detail {

using ZOR_runtime::Double;
using ZOR_runtime::Int64;
using ZOR_runtime::Integer;
using ZOR_runtime::TString;

inline constexpr Int64 kRecordBytes = 4096;
/// Bytes of the head that carry something; a shorter file has no head.
inline constexpr Int64 kHeadBytes = 276;

/// Formats; 0 is none.
inline constexpr Integer kDoubleCells = 1;
inline constexpr Integer kIntegerCells = 2;

struct RecordHead {
  Integer NrColumns = 0, NrRows = 0, NrLayers = 0, NrTimeSlots = 0;
  /// Cut at 255 characters when written; those above U+00FF become "?".
  TString DataID = {};
  Integer Format = 0;

  /// Number of cells, 0 layers or time slots counting as 1; -1 if a size is below 1 or the product exceeds 64 bits.
  ZOR_API Int64 cells() const noexcept;
  /// Bytes of a cell: 4 with Format 2, else 8.
  Int64 cell_bytes() const noexcept { return Format == kIntegerCells ? 4 : 8; }
};

/// Reads a record file. What cannot be opened or read raises EInOutError.
class ZOR_API RecordFileReader {
 public:
  explicit RecordFileReader(const TString& FName);
  /// Reads a stream, which must outlive the reader, from its beginning.
  explicit RecordFileReader(ZOR_runtime::TStream& stream);

  /// False if the file is too short for a head; all fields are then 0.
  bool has_head() const noexcept { return byte_size_ >= kHeadBytes; }
  const RecordHead& head() const noexcept { return head_; }
  Int64 byte_size() const noexcept { return byte_size_; }
  /// Whole cells that the file holds, whatever its head announces.
  Int64 cells_in_file() const noexcept;
  /// True if the file holds all cells that its head announces, at least one. Test this before allocating for them.
  bool is_complete() const noexcept { return head_.cells() >= 1 && head_.cells() <= cells_in_file(); }

  /// Moves to cell e, counted from 0.
  void seek(Int64 e);
  /// Reads the next cells; raises EInOutError if the file ends before. Integer cells become floats; floats are rounded
  /// to the nearest integer, ties to even, and limited to the range, NaN giving 0.
  void read(std::span<Double> cells);
  void read(std::span<Integer> cells);

 private:
  void start();
  template <class T>
  void read_stored(std::span<T> cells);

  TString name_;
  std::unique_ptr<ZOR_runtime::TFileStream> file_;
  ZOR_runtime::TStream& stream_;
  Int64 byte_size_ = 0;
  RecordHead head_;
};

/// Writes a record file. What cannot be created or written raises EInOutError.
class ZOR_API RecordFileWriter {
 public:
  enum AppendTag { kAppend };

  /// Begins a file that takes the place of the old one in finish; without that the old one stays.
  RecordFileWriter(const TString& FName, const RecordHead& head);
  /// Opens a complete file with time slots, of which `head` is the head, to write further slots behind its cells. Bytes
  /// in use are never rewritten, and the head only in finish: a crash leaves the old file valid.
  RecordFileWriter(const TString& FName, const RecordHead& head, AppendTag);

  /// Writes the next cells, in the type of the format.
  void write(std::span<const Double> cells);
  void write(std::span<const Integer> cells);
  /// Fills up the last record, writes the number of time slots if they were appended, and closes the file.
  void finish();

 private:
  std::unique_ptr<ZOR_runtime::TFileStream> stream_;
  RecordHead head_;
  bool append_;
};

}  // namespace zor::detail

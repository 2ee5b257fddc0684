#pragma once

#include <memory>

#include "zor/runtime/streams.h"
#include "zor/runtime/tstring.h"
#include "zor/runtime/types.h"

/// \file  Files of records of one fixed size, counted from 0.
/// What cannot be opened, read or written raises EInOutError.
///
///     TRecordFile file("points.bin", sizeof(TPointDouble));
///     file.Reset();
///     file.Seek(3);
///     TPointDouble fourth;
///     file.Read(&fourth);

namespace ZOR_runtime {

class ZOR_API TRecordFile {
 public:
  /// A RecordSize below 1 counts as 1.
  explicit TRecordFile(Integer RecordSize) noexcept : record_size_(RecordSize < 1 ? 1 : RecordSize) {}
  TRecordFile(const TString& FName, Integer RecordSize) : TRecordFile(RecordSize) { Assign(FName); }
  TRecordFile(const TRecordFile&) = delete;
  TRecordFile& operator=(const TRecordFile&) = delete;

  /// Names the file that the other routines open. A file that is open is closed first.
  void Assign(const TString& FName);
  /// Opens the file at record 0, for reading and, if the file system allows it, for writing.
  void Reset();
  /// Creates the file, or empties it.
  void Rewrite();
  /// Opens the file, or creates it, behind its last record.
  void Append();
  void Close();
  bool IsOpen() const noexcept { return stream_ != nullptr; }
  const TString& FileName() const noexcept { return name_; }
  Integer RecordSize() const noexcept { return static_cast<Integer>(record_size_); }

  /// Reads the next record and returns the number of bytes got: RecordSize, less for a last record that was cut short
  /// (the rest of the buffer is set to 0), 0 at the end.
  Integer Read(void* Record);
  void Write(const void* Record);
  /// Moves to a record; below 0 counts as 0.
  void Seek(Int64 Record);
  /// Number of the next record.
  Int64 FilePos();
  /// Number of records, a last one that was cut short included.
  Int64 FileSize();
  /// Size of the file in bytes.
  Int64 ByteSize();
  Boolean Eof() { return FilePos() >= FileSize(); }

 private:
  TFileStream& open_stream();
  // Records that so many bytes make, a last one that is cut short included.
  Int64 records(Int64 bytes) const noexcept { return bytes / record_size_ + (bytes % record_size_ != 0); }

  TString name_;
  Int64 record_size_;
  std::unique_ptr<TFileStream> stream_;
};

}  // namespace ZOR_runtime

#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "zor/runtime/file_handle.h"
#include "zor/runtime/object.h"
#include "zor/runtime/tstring.h"
#include "zor/runtime/types.h"

/// \file  Streams of bytes: in memory and in files.
/// Positions and sizes are in bytes, count from 0 and have 64 bits. A failure of the operating system raises
/// EInOutError with the name of the file and the reason.
///
///     TMemoryStream stream;
///     stream.WriteBuffer("abc", 3);
///     stream.SetPosition(0);
///     char first = 0;
///     stream.ReadBuffer(&first, 1);    // 'a'

namespace ZOR_runtime {

enum TSeekOrigin : Byte { soBeginning, soCurrent, soEnd };

/// Sequence of bytes with a position at which the next byte is read or written.
class ZOR_API TStream : public TObject {
 public:
  /// Reads up to Count bytes and returns their number, which is smaller than Count only where the stream ends.
  virtual Int64 Read(void* Buffer, Int64 Count) = 0;
  /// Writes Count bytes, over those that stand at the position and beyond the end; returns Count.
  virtual Int64 Write(const void* Buffer, Int64 Count) = 0;
  /// Moves the position and returns it. A position before the beginning counts as 0. One beyond the end is allowed:
  /// reading gives nothing there, writing fills the gap with zeros.
  virtual Int64 Seek(Int64 Offset, TSeekOrigin Origin) = 0;
  virtual Int64 Size() = 0;
  /// Cuts the stream, or makes it longer with zeros.
  virtual void SetSize(Int64 Size) = 0;

  Int64 Position() { return Seek(0, soCurrent); }
  void SetPosition(Int64 Position) { Seek(Position, soBeginning); }

  /// Reads Count bytes; raises EInOutError if there are fewer.
  void ReadBuffer(void* Buffer, Int64 Count);
  /// Writes Count bytes.
  void WriteBuffer(const void* Buffer, Int64 Count) { Write(Buffer, Count); }
  /// Appends Count bytes of Source, from its position, to this stream; Count 0 takes the whole Source from its
  /// beginning. Returns the number of bytes copied; raises EInOutError if Source has fewer than Count.
  Int64 CopyFrom(TStream& Source, Int64 Count);

  const char* ClassName() const noexcept override;

 protected:
  /// How messages call this stream.
  virtual TString label() const;
};

/// Stream in memory. Memory grows with what is written.
class ZOR_API TMemoryStream : public TStream {
 public:
  Int64 Read(void* Buffer, Int64 Count) override;
  Int64 Write(const void* Buffer, Int64 Count) override;
  Int64 Seek(Int64 Offset, TSeekOrigin Origin) override;
  Int64 Size() override { return static_cast<Int64>(bytes_.size()); }
  /// Raises EOutOfMemory if there is no room.
  void SetSize(Int64 Size) override;

  void Clear() noexcept;
  /// The bytes of the stream; valid until the stream is changed.
  std::span<const std::byte> Bytes() const noexcept { return bytes_; }
  /// Replaces the stream by the contents of a file, position 0. The stream stays as it was if the file cannot be read.
  void LoadFromFile(const TString& FileName);
  /// Replaces the file as a whole: what fails, or is cut short, leaves the old one.
  void SaveToFile(const TString& FileName) const;
  const char* ClassName() const noexcept override;

 private:
  std::vector<std::byte> bytes_;
  std::size_t position_ = 0;
};

inline constexpr Word fmOpenRead = 0;
inline constexpr Word fmOpenWrite = 1;
inline constexpr Word fmOpenReadWrite = 2;
inline constexpr Word fmCreate = 0xFF00;
inline constexpr Word fmAppend = 0xFF01;

/// Stream on a file, with a buffer for small reads and writes; large blocks go straight to the caller's memory.
///
/// What was written is surely in the file after Flush or Close, which raise EInOutError if it cannot be stored. The
/// destructor closes too but cannot report a failure.
class ZOR_API TFileStream : public TStream {
 public:
  /// Opens a file with one of the modes fmOpenRead, fmOpenWrite, fmOpenReadWrite (position 0; the file must exist),
  /// fmCreate (empties a file that exists; allows reading and writing) or fmAppend (creates a file that does not exist;
  /// the position is its end). Raises EInOutError for another mode.
  TFileStream(const TString& FileName, Word Mode);
  ~TFileStream() override;

  Int64 Read(void* Buffer, Int64 Count) override;
  Int64 Write(const void* Buffer, Int64 Count) override;
  Int64 Seek(Int64 Offset, TSeekOrigin Origin) override;
  /// What is not a regular file (a pipe, a device) has size 0.
  Int64 Size() override;
  void SetSize(Int64 Size) override;

  const TString& FileName() const noexcept { return file_.name(); }
  void Flush();
  virtual void Close();
  const char* ClassName() const noexcept override;

 protected:
  /// A stream on a file that is open for reading and writing.
  explicit TFileStream(zor::detail::FileHandle file) noexcept : file_(std::move(file)) {}
  zor::detail::FileHandle& handle() noexcept { return file_; }
  TString label() const override;

 private:
  void need_open() const;
  void store_changes();

  // The buffer holds the bytes of the file from window_ on; those from changed_begin_ to changed_end_ are not in the
  // file yet. at_ is the position in it.
  zor::detail::FileHandle file_;
  std::unique_ptr<std::byte[]> buffer_;
  Int64 window_ = 0;
  std::size_t used_ = 0, at_ = 0, changed_begin_ = 0, changed_end_ = 0;
};

}  // namespace ZOR_runtime

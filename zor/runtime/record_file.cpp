#include "zor/runtime/record_file.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

#include "zor/runtime/exception.h"

namespace ZOR_runtime {

TFileStream& TRecordFile::open_stream() {
  if (!stream_) zor::detail::fail_io("cannot use", name_, "the file is closed");
  return *stream_;
}

void TRecordFile::Assign(const TString& FName) {
  Close();
  name_ = FName;
}

void TRecordFile::Reset() {
  Close();
  try {
    stream_ = std::make_unique<TFileStream>(name_, fmOpenReadWrite);
  } catch (const EInOutError&) {
    stream_ = std::make_unique<TFileStream>(name_, fmOpenRead);
  }
}

void TRecordFile::Rewrite() {
  Close();
  stream_ = std::make_unique<TFileStream>(name_, fmCreate);
}

void TRecordFile::Append() {
  Close();
  stream_ = std::make_unique<TFileStream>(name_, fmAppend);
  Seek(FileSize());
}

void TRecordFile::Close() {
  if (const auto closing = std::move(stream_)) closing->Close();
}

Integer TRecordFile::Read(void* Record) {
  const Int64 got = open_stream().Read(Record, record_size_);
  std::memset(static_cast<std::byte*>(Record) + got, 0, static_cast<std::size_t>(record_size_ - got));
  return static_cast<Integer>(got);
}

void TRecordFile::Write(const void* Record) { open_stream().WriteBuffer(Record, record_size_); }

void TRecordFile::Seek(Int64 Record) {
  const Int64 most = std::numeric_limits<Int64>::max() / record_size_;
  open_stream().SetPosition(std::clamp<Int64>(Record, 0, most) * record_size_);
}

Int64 TRecordFile::FilePos() { return records(open_stream().Position()); }

Int64 TRecordFile::FileSize() { return records(ByteSize()); }

Int64 TRecordFile::ByteSize() { return open_stream().Size(); }

}  // namespace ZOR_runtime

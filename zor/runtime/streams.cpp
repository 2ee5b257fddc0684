#include "zor/runtime/streams.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <new>
#include <string>

#include "zor/runtime/exception.h"
#include "zor/runtime/file_replacement.h"

namespace ZOR_runtime {
namespace {

using zor::detail::FileAccess;
using zor::detail::to_size;

constexpr std::size_t kBuffer = std::size_t{1} << 16;
// Blocks of this size gain nothing from a copy in between.
constexpr std::size_t kDirect = kBuffer / 2;

// Position after a move, kept between 0 and the largest Int64.
Int64 moved(Int64 offset, TSeekOrigin origin, Int64 current, Int64 size) {
  const Int64 from = origin == soBeginning ? 0 : origin == soCurrent ? current : size;
  if (offset > 0 && from > std::numeric_limits<Int64>::max() - offset) return std::numeric_limits<Int64>::max();
  return std::max<Int64>(0, from + offset);
}

FileAccess access_of(const TString& name, Word mode) {
  switch (mode) {
    case fmOpenRead:
      return FileAccess::kRead;
    case fmOpenWrite:
      return FileAccess::kWrite;
    case fmOpenReadWrite:
      return FileAccess::kReadWrite;
    case fmCreate:
      return FileAccess::kCreate;
    case fmAppend:
      return FileAccess::kAppend;
    default:
      zor::detail::fail_io("cannot open", name, "unknown mode " + std::to_string(mode));
  }
}

}  // namespace

const char* TStream::ClassName() const noexcept { return "TStream"; }

TString TStream::label() const { return ClassName(); }

void TStream::ReadBuffer(void* Buffer, Int64 Count) {
  if (Read(Buffer, Count) < Count) zor::detail::fail_io("cannot read", label(), "unexpected end");
}

Int64 TStream::CopyFrom(TStream& Source, Int64 Count) {
  const bool all = Count == 0;
  if (all) Source.SetPosition(0);
  std::array<std::byte, kBuffer> block;
  Int64 copied = 0;
  while (all || copied < Count) {
    const Int64 wanted = static_cast<Int64>(block.size());
    const Int64 got = Source.Read(block.data(), all ? wanted : std::min(wanted, Count - copied));
    if (got == 0) break;
    Write(block.data(), got);
    copied += got;
  }
  if (copied < Count) zor::detail::fail_io("cannot read", Source.label(), "unexpected end");
  return copied;
}

// ---- TMemoryStream

const char* TMemoryStream::ClassName() const noexcept { return "TMemoryStream"; }

Int64 TMemoryStream::Read(void* Buffer, Int64 Count) {
  const std::size_t left = position_ < bytes_.size() ? bytes_.size() - position_ : 0;
  const std::size_t n = std::min(to_size(Count), left);
  if (n) std::memcpy(Buffer, bytes_.data() + position_, n);
  position_ += n;
  return static_cast<Int64>(n);
}

Int64 TMemoryStream::Write(const void* Buffer, Int64 Count) {
  const std::size_t n = to_size(Count);
  if (n == 0) return 0;
  if (position_ > bytes_.size()) SetSize(static_cast<Int64>(position_));
  const auto* from = static_cast<const std::byte*>(Buffer);
  const std::size_t over = std::min(n, bytes_.size() - position_);
  if (n > over) {
    try {
      bytes_.insert(bytes_.end(), from + over, from + n);
    } catch (const std::exception&) {
      throw EOutOfMemory("not enough memory for a stream");
    }
  }
  if (over) std::memcpy(bytes_.data() + position_, from, over);
  position_ += n;
  return Count;
}

Int64 TMemoryStream::Seek(Int64 Offset, TSeekOrigin Origin) {
  const Int64 to = moved(Offset, Origin, static_cast<Int64>(position_), Size());
  position_ = to_size(to);
  return to;
}

void TMemoryStream::SetSize(Int64 Size) {
  constexpr Int64 kMost = Int64{1} << 47;  // no processor of today addresses more
  try {
    if (Size > kMost) throw std::bad_alloc();
    bytes_.resize(to_size(Size));
  } catch (const std::exception&) {
    throw EOutOfMemory("not enough memory for a stream");
  }
}

void TMemoryStream::Clear() noexcept {
  bytes_.clear();
  position_ = 0;
}

void TMemoryStream::LoadFromFile(const TString& FileName) {
  TFileStream file(FileName, fmOpenRead);
  TMemoryStream loaded;
  loaded.bytes_.reserve(to_size(file.Size()));
  loaded.CopyFrom(file, 0);
  bytes_.swap(loaded.bytes_);
  position_ = 0;
}

void TMemoryStream::SaveToFile(const TString& FileName) const {
  zor::detail::FileReplacement file(FileName);
  file.WriteBuffer(bytes_.data(), static_cast<Int64>(bytes_.size()));
  file.Close();
}

// ---- TFileStream

TFileStream::TFileStream(const TString& FileName, Word Mode) : file_(FileName, access_of(FileName, Mode)) {
  if (Mode == fmAppend) window_ = file_.size();
}

TFileStream::~TFileStream() {
  try {
    TFileStream::Close();
  } catch (...) {  // Flush and Close report to those who call them
  }
}

const char* TFileStream::ClassName() const noexcept { return "TFileStream"; }

TString TFileStream::label() const { return file_.name(); }

void TFileStream::need_open() const {
  if (!file_.is_open()) zor::detail::fail_io("cannot use", file_.name(), "the file is closed");
}

void TFileStream::store_changes() {
  if (changed_begin_ == changed_end_) return;
  const std::size_t begin = changed_begin_, end = changed_end_;
  changed_begin_ = changed_end_ = 0;  // a failed write is reported once
  file_.write_at(window_ + static_cast<Int64>(begin), buffer_.get() + begin, end - begin);
}

Int64 TFileStream::Read(void* Buffer, Int64 Count) {
  need_open();
  auto* to = static_cast<std::byte*>(Buffer);
  const std::size_t wanted = to_size(Count);
  std::size_t done = 0;
  for (;;) {
    const std::size_t n = at_ < used_ ? std::min(wanted - done, used_ - at_) : 0;
    if (n) std::memcpy(to + done, buffer_.get() + at_, n);
    at_ += n, done += n;
    if (done == wanted) break;
    store_changes();
    window_ += static_cast<Int64>(at_);
    at_ = used_ = 0;
    if (wanted - done >= kDirect) {
      const std::size_t got = file_.read_at(window_, to + done, wanted - done);
      window_ += static_cast<Int64>(got), done += got;
      if (got == 0 || file_.has_position()) break;
    } else {
      if (!buffer_) buffer_ = std::make_unique_for_overwrite<std::byte[]>(kBuffer);
      used_ = file_.read_at(window_, buffer_.get(), kBuffer);
      if (used_ == 0) break;
    }
  }
  return static_cast<Int64>(done);
}

Int64 TFileStream::Write(const void* Buffer, Int64 Count) {
  need_open();
  const auto* from = static_cast<const std::byte*>(Buffer);
  const std::size_t n = to_size(Count);
  if (n == 0) return 0;
  if (Count > std::numeric_limits<Int64>::max() - window_ - static_cast<Int64>(at_))
    zor::detail::fail_io("cannot write", file_.name(), "beyond the highest position");
  if (at_ > used_ || n > kBuffer - at_) {
    store_changes();
    window_ += static_cast<Int64>(at_);
    at_ = used_ = 0;
  }
  if (n >= kDirect) {
    store_changes();
    const Int64 position = window_ + static_cast<Int64>(at_);
    file_.write_at(position, from, n);
    window_ = position + Count;
    at_ = used_ = 0;
    return Count;
  }
  if (!buffer_) buffer_ = std::make_unique_for_overwrite<std::byte[]>(kBuffer);
  std::memcpy(buffer_.get() + at_, from, n);
  if (changed_begin_ == changed_end_) {
    changed_begin_ = at_, changed_end_ = at_ + n;
  } else {
    changed_begin_ = std::min(changed_begin_, at_), changed_end_ = std::max(changed_end_, at_ + n);
  }
  at_ += n;
  used_ = std::max(used_, at_);
  return Count;
}

Int64 TFileStream::Seek(Int64 Offset, TSeekOrigin Origin) {
  need_open();
  const Int64 current = window_ + static_cast<Int64>(at_);
  const Int64 to = moved(Offset, Origin, current, Origin == soEnd ? Size() : 0);
  if (to >= window_ && to - window_ <= static_cast<Int64>(used_)) {
    at_ = static_cast<std::size_t>(to - window_);
  } else {
    store_changes();
    window_ = to;
    at_ = used_ = 0;
  }
  return to;
}

Int64 TFileStream::Size() {
  need_open();
  const Int64 stored = file_.size();
  const bool pending = changed_begin_ != changed_end_;
  return pending ? std::max(stored, window_ + static_cast<Int64>(changed_end_)) : stored;
}

void TFileStream::SetSize(Int64 Size) {
  need_open();
  store_changes();
  window_ += static_cast<Int64>(at_);
  at_ = used_ = 0;
  file_.set_size(std::max<Int64>(0, Size));
}

void TFileStream::Flush() {
  need_open();
  store_changes();
}

void TFileStream::Close() {
  if (!file_.is_open()) return;
  try {
    store_changes();
  } catch (...) {
    file_.close();
    throw;
  }
  file_.close();
}

}  // namespace ZOR_runtime

#include "zor/runtime/text_file.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

#include "zor/runtime/exception.h"
#include "zor/runtime/file_replacement.h"
#include "zor/runtime/number_reader.h"
#include "zor/runtime/number_writer.h"
#include "zor/runtime/utf8.h"

namespace zor::detail {

std::string_view strip_blanks(std::string_view text) noexcept {
  constexpr std::string_view kNoBreak = "\xC2\xA0", kMark = "\xEF\xBB\xBF";
  const auto strip = [&](auto starts, auto drop) {
    for (;;) {
      if (text.empty()) return;
      if (starts(std::string_view(" \t\n\v\f\r"), true)) {
        drop(1);
      } else if (starts(kNoBreak, false)) {
        drop(kNoBreak.size());
      } else if (starts(kMark, false)) {
        drop(kMark.size());
      } else {
        return;
      }
    }
  };
  strip([&](std::string_view what,
            bool any) { return any ? what.find(text.front()) != what.npos : text.starts_with(what); },
        [&](std::size_t n) { text.remove_prefix(n); });
  strip(
      [&](std::string_view what, bool any) { return any ? what.find(text.back()) != what.npos : text.ends_with(what); },
      [&](std::size_t n) { text.remove_suffix(n); });
  return text;
}

}  // namespace zor::detail

namespace ZOR_runtime {
namespace {

using zor::detail::is_blank_byte;
using zor::detail::NumberStatus;
using zor::detail::parse_integer;
using zor::detail::parse_number;

constexpr std::size_t kBuffer = std::size_t{1} << 16;

// A number that is too small for a double is the 0 that it rounds to.
bool is_value(NumberStatus status) noexcept {
  return status == NumberStatus::kNumber || status == NumberStatus::kTooSmall;
}

// The place behind the blanks that stand at p, eight at a time: how many there are comes at random in aligned columns.
const char* behind_blanks(const char* p, const char* end) noexcept {
  if constexpr (std::endian::native == std::endian::little) {
    constexpr std::uint64_t kEach = 0x0101010101010101, kHigh = 0x80 * kEach;
    for (; end - p >= 8; p += 8) {
      std::uint64_t eight;
      std::memcpy(&eight, p, 8);
      const std::uint64_t low = eight & ~kHigh;  // each sum below stays in its byte
      const std::uint64_t control = (low + (0x80 - 9) * kEach) & ~(low + (0x80 - 14) * kEach);
      const std::uint64_t not_space = (low ^ 0x20 * kEach) + 0x7F * kEach;
      const std::uint64_t others = ((~control & not_space) | eight) & kHigh;
      if (others != 0) return p + std::countr_zero(others) / 8;
    }
  }
  while (p != end && is_blank_byte(*p)) ++p;
  return p;
}

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

// ---- open and close

TTextFile::~TTextFile() {
  if (replacing_) return;
  try {
    Close();
  } catch (...) {  // Flush and Close report to those who call them
  }
}

void TTextFile::fail(std::string_view action, std::string_view reason) const {
  zor::detail::fail_io(action, name_, reason);
}

void TTextFile::Assign(const TString& FName) {
  Close();
  name_ = FName, text_ = {}, borrowed_ = nullptr;
}

void TTextFile::AssignText(std::string_view utf8_text) {
  Assign("(text in memory)");
  text_ = utf8_text.data() ? utf8_text : std::string_view("");
}

void TTextFile::AssignStream(TStream* Stream) {
  Assign("(stream)");
  borrowed_ = Stream;
}

void TTextFile::Reset() {
  if (mode_ == Mode::kReading) {
    SetPosition(0);
  } else {
    Close();
    if (borrowed_) {
      start_ = borrowed_->Position();
      stream_ = borrowed_;
    } else if (!text_.data()) {
      start_ = 0;
      file_ = std::make_unique<TFileStream>(name_, fmOpenRead);
      stream_ = file_.get();
    }
    mode_ = Mode::kReading;
    window_ = 0, pending_ = 0;
    if (stream_) {
      begin_ = at_ = end_ = nullptr, more_ = true;
    } else {
      begin_ = at_ = text_.data(), end_ = at_ + text_.size(), more_ = false;
    }
  }
  start_reading();
}

// Passes over the byte order mark.
void TTextFile::start_reading() {
  while (static_cast<std::size_t>(end_ - at_) < kByteOrderMark.size() && fill()) {
  }
  const std::string_view first(at_, static_cast<std::size_t>(end_ - at_));
  if (first.starts_with(kByteOrderMark)) at_ += kByteOrderMark.size();
}

void TTextFile::open_for_writing(TStream* stream, Int64 start) {
  stream_ = stream, start_ = start;
  window_ = 0, used_ = 0, pending_ = 0;
  begin_ = at_ = end_ = nullptr, more_ = false;
  mode_ = Mode::kWriting;
}

void TTextFile::rewrite(bool replacing) {
  Close();
  if (text_.data()) fail("cannot write", "text in memory can only be read");
  if (borrowed_) return open_for_writing(borrowed_, borrowed_->Position());
  if (replacing) {
    file_ = std::make_unique<zor::detail::FileReplacement>(name_);
  } else {
    file_ = std::make_unique<TFileStream>(name_, fmCreate);
  }
  replacing_ = replacing;
  open_for_writing(file_.get(), 0);
}

void TTextFile::Rewrite() { rewrite(false); }

void TTextFile::Replace() { rewrite(true); }

void TTextFile::Append() {
  Close();
  if (text_.data()) fail("cannot write", "text in memory can only be read");
  if (borrowed_) {
    borrowed_->Seek(0, soEnd);
    return open_for_writing(borrowed_, 0);
  }
  file_ = std::make_unique<TFileStream>(name_, fmAppend);
  open_for_writing(file_.get(), 0);
  window_ = file_->Position();
}

void TTextFile::Flush() {
  if (mode_ != Mode::kWriting) return;
  store();
  if (file_) file_->Flush();
}

void TTextFile::Close() {
  const Mode was = std::exchange(mode_, Mode::kClosed);
  replacing_ = false;
  if (was == Mode::kClosed) return;
  const auto file = std::move(file_);
  TStream* const stream = std::exchange(stream_, nullptr);
  if (was == Mode::kWriting) {
    const std::size_t n = std::exchange(used_, 0);
    if (n) stream->WriteBuffer(buffer_.get(), static_cast<Int64>(n));
  } else if (stream && !file) {
    stream->SetPosition(start_ + Position());
  }
  begin_ = at_ = end_ = nullptr, more_ = false, pending_ = 0, window_ = 0;
  if (file) file->Close();
}

// ---- reading

bool TTextFile::fill() {
  if (mode_ != Mode::kReading) fail("cannot read", "the file is not open for reading");
  if (!more_) return false;
  const std::size_t kept = static_cast<std::size_t>(end_ - at_);
  window_ += at_ - begin_;
  if (kept > capacity_ / 2 || capacity_ == 0) {
    const std::size_t larger = std::max(kBuffer, 2 * capacity_);
    auto buffer = std::make_unique_for_overwrite<char[]>(larger);
    std::copy(at_, end_, buffer.get());
    buffer_ = std::move(buffer), capacity_ = larger;
  } else if (kept) {
    std::memmove(buffer_.get(), at_, kept);
  }
  begin_ = at_ = buffer_.get();
  end_ = at_ + kept;
  const Int64 got = stream_->Read(buffer_.get() + kept, static_cast<Int64>(capacity_ - kept));
  more_ = got > 0;
  end_ += got;
  return more_;
}

Int64 TTextFile::Position() const noexcept {
  return mode_ == Mode::kWriting ? window_ + static_cast<Int64>(used_) : window_ + (at_ - begin_);
}

void TTextFile::SetPosition(Int64 position) {
  if (mode_ != Mode::kReading) fail("cannot read", "the file is not open for reading");
  position = std::max<Int64>(0, position);
  pending_ = 0;
  if (position >= window_ && (!stream_ || position - window_ <= end_ - begin_)) {
    at_ = begin_ + std::min<Int64>(position - window_, end_ - begin_);
    return;
  }
  stream_->SetPosition(start_ + position);
  begin_ = at_ = end_ = nullptr;
  window_ = position, more_ = true;
}

Int64 TTextFile::Remaining() {
  if (mode_ != Mode::kReading) return 0;
  const Int64 size = stream_ ? stream_->Size() - start_ : end_ - begin_;
  return std::max<Int64>(size - Position(), end_ - at_);
}

Boolean TTextFile::Eoln() {
  if (Eof()) return true;
  while (end_ - at_ < 2 && fill()) {
  }
  return pending_ == 0 && (*at_ == '\n' || (*at_ == '\r' && end_ - at_ >= 2 && at_[1] == '\n'));
}

Boolean TTextFile::PeekChar(Char& unit) {
  const Int64 position = Position();
  const Char pending = pending_;
  if (!ReadChar(unit)) return false;
  at_ -= Position() - position;  // what ReadChar took is still in the buffer
  pending_ = pending;
  return true;
}

Boolean TTextFile::ReadChar(Char& unit) {
  if (pending_) {
    unit = std::exchange(pending_, Char{0});
    return true;
  }
  const int byte = peek_byte();
  if (byte < 0x80) {
    unit = byte < 0 ? Char{0} : static_cast<Char>(byte);
    if (byte >= 0) ++at_;
    return byte >= 0;
  }
  while (end_ - at_ < 4 && fill()) {
  }
  std::string_view rest(at_, static_cast<std::size_t>(std::min<std::ptrdiff_t>(4, end_ - at_)));
  const std::size_t before = rest.size();
  const char32_t code = zor::detail::take_utf8(rest);
  at_ += before - rest.size();
  if (code < 0x10000) {
    unit = static_cast<Char>(code);
  } else {
    unit = static_cast<Char>(0xD7C0 + (code >> 10));
    pending_ = static_cast<Char>(0xDC00 + (code & 0x3FF));
  }
  return true;
}

bool TTextFile::read_line(std::string_view& line) {
  pending_ = 0;
  std::size_t seen = 0;
  const char* stop = nullptr;
  for (;;) {
    const std::size_t n = static_cast<std::size_t>(end_ - at_);
    if (n > seen) stop = static_cast<const char*>(std::memchr(at_ + seen, '\n', n - seen));
    seen = n;
    if (stop || !fill()) break;
  }
  if (at_ == end_) {
    line = {};
    return false;
  }
  const char* const first = at_;
  const char* last = stop ? stop : end_;
  at_ = stop ? stop + 1 : end_;
  if (stop && last != first && last[-1] == '\r') --last;
  line = std::string_view(first, static_cast<std::size_t>(last - first));
  return true;
}

Boolean TTextFile::ReadLn(TString& line) {
  std::string_view bytes;
  const bool found = read_line(bytes);
  line = bytes;
  return found;
}

TString TTextFile::ReadLn() {
  TString line;
  ReadLn(line);
  return line;
}

void TTextFile::skip_blanks() {
  pending_ = 0;
  do {
    at_ = behind_blanks(at_, end_);
  } while (at_ == end_ && fill());
}

std::string_view TTextFile::read_word() {
  for (;;) {
    skip_blanks();
    std::size_t n = 0;
    do {
      while (n < static_cast<std::size_t>(end_ - at_) && !is_blank_byte(at_[n])) ++n;
    } while (n == static_cast<std::size_t>(end_ - at_) && fill());
    const std::string_view whole(at_, n);
    at_ += n;
    const std::string_view word = zor::detail::strip_blanks(whole);
    if (!word.empty() || whole.empty()) return word;
  }
}

TString TTextFile::ReadWord() { return read_word(); }

bool TTextFile::read_number(Double& x, std::string_view& word) {
  skip_blanks();
  // Converted where it stands if that finds a whole word, as it mostly does.
  const std::string_view ahead(at_, static_cast<std::size_t>(end_ - at_));
  const auto number = parse_number(ahead);
  if (is_value(number.status) && number.end < ahead.size() && is_blank_byte(ahead[number.end])) {
    at_ += number.end;
    x = number.value;
    return true;
  }
  word = read_word();
  const auto whole = parse_number(word);
  if (!is_value(whole.status) || whole.end != word.size()) return false;
  x = whole.value;
  return true;
}

Boolean TTextFile::ReadFloat(Double& x) {
  std::string_view word;
  return read_number(x, word);
}

Boolean TTextFile::ReadInteger(Integer& i) {
  const std::string_view word = read_word();
  const auto number = parse_integer(word, std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max());
  if (!number || number.end != word.size()) return false;
  i = static_cast<Integer>(number.value);
  return true;
}

// ---- writing

void TTextFile::store() {
  const std::size_t n = std::exchange(used_, 0);  // a failed write is reported once
  window_ += static_cast<Int64>(n);
  if (n) stream_->WriteBuffer(buffer_.get(), static_cast<Int64>(n));
}

char* TTextFile::make_room(std::size_t n) {
  if (mode_ != Mode::kWriting) fail("cannot write", "the file is not open for writing");
  store();
  if (capacity_ < n) {
    const std::size_t larger = std::max(kBuffer, n);
    buffer_ = std::make_unique_for_overwrite<char[]>(larger);
    capacity_ = larger;
  }
  return out();
}

void TTextFile::Write(std::string_view utf8_text) {
  while (!utf8_text.empty()) {
    const std::size_t n = std::min(utf8_text.size(), kBuffer);
    std::memcpy(room(n), utf8_text.data(), n);
    took(n);
    utf8_text.remove_prefix(n);
  }
}

void TTextFile::Write(const TString& text) { Write(std::string_view(text.utf8())); }

void TTextFile::WriteInteger(Int64 i) { took(zor::detail::format_integer(room(zor::detail::kNumberBuffer), i)); }

void TTextFile::WriteFloat(Double x, Integer w, Integer d) {
  char* const to = room(zor::detail::kNumberBuffer);
  took(d < 0 ? zor::detail::format_scientific(to, x, w) : zor::detail::format_fixed(to, x, w, d));
}

}  // namespace ZOR_runtime

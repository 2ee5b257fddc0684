#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "zor/runtime/streams.h"
#include "zor/runtime/tstring.h"
#include "zor/runtime/types.h"

/// \file  Text files: read and written from the beginning to the end.
/// Text is UTF-8; a byte order mark at the beginning is passed over, and what is no valid UTF-8 reads as U+FFFD. Lines
/// are written with LF and read with LF or CRLF; the last one may lack its end. Numbers have a point, whatever the
/// locale. Positions are in bytes and count from 0. Blanks, between words, are the characters 9 to 13 and 32. What
/// cannot be opened, read or written raises EInOutError.
///
///     TTextFile file("values.txt");
///     file.Rewrite();
///     file.WriteFloat(1.5, 1, 3);
///     file.WriteLn();                   // 1.500
///     file.Reset();
///     Double x = 0.0;
///     file.ReadFloat(x);                // true, x is 1.5

namespace ZOR_runtime {

class ZOR_API TTextFile {
 public:
  TTextFile() noexcept = default;
  explicit TTextFile(const TString& FName) { Assign(FName); }
  /// Closes the file. A write that fails here goes unnoticed: call Close before. A file opened by Replace is dropped.
  ~TTextFile();
  TTextFile(const TTextFile&) = delete;
  TTextFile& operator=(const TTextFile&) = delete;

  /// Names the file that Reset, Rewrite and Append open. A file that is open is closed first.
  void Assign(const TString& FName);
  /// Takes text in memory instead of a file, for reading only. It is not copied and must outlive its use.
  void AssignText(std::string_view utf8_text);
  /// Takes a stream instead of a file, from the position that it has at Reset or Rewrite. It must live until
  /// this file is closed. Close leaves a stream that was read at the first byte that was not taken.
  void AssignStream(TStream* Stream);

  /// Opens for reading, at the beginning; an open file starts again.
  void Reset();
  /// Creates the file, or empties it, and opens it for writing.
  void Rewrite();
  /// Opens for writing a file that takes the place of the one with this name when Close succeeds, and never if it is
  /// not called: what fails, or is cut short, leaves the old file. Streams are written as by Rewrite.
  void Replace();
  /// Opens for writing behind what the file holds; creates it if there is none.
  void Append();
  /// Hands what was written to the operating system.
  void Flush();
  /// Closes the file; nothing if it is closed.
  void Close();
  bool IsOpen() const noexcept { return mode_ != Mode::kClosed; }
  const TString& FileName() const noexcept { return name_; }

  /// True if nothing is left to read.
  Boolean Eof() { return pending_ == 0 && at_ == end_ && !fill(); }
  /// True at the end of a line (before LF or CRLF) and at the end of the file.
  Boolean Eoln();
  /// Position of the next byte to be read or written.
  Int64 Position() const noexcept;
  /// Moves the place of reading.
  void SetPosition(Int64 position);
  /// Bytes from the place of reading to the end; 0 if that is unknown, as for a pipe.
  Int64 Remaining();

  /// The next unit of the text, as it stands (line ends included), without taking it; false at the end.
  Boolean PeekChar(Char& unit);
  /// Takes the next unit; at the end false, and unit is 0.
  Boolean ReadChar(Char& unit);
  /// The rest of the line, without its end, which is taken too; "" at the end of the file.
  TString ReadLn();
  /// The same; false at the end of the file.
  Boolean ReadLn(TString& line);
  /// Passes over blanks and line ends, then reads a word and converts it. False, with x unchanged, if the word is no
  /// number (it is taken nevertheless) or the file ends.
  Boolean ReadFloat(Double& x);
  Boolean ReadInteger(Integer& i);
  /// Passes over blanks and line ends and takes the next word; "" at the end of the file.
  TString ReadWord();

  /// The bytes of the next word; of the next line, without its end. Valid until the next call. An empty word means the
  /// end of the file; read_line gives false there.
  std::string_view read_word();
  bool read_line(std::string_view& line);
  /// Reads the next word and converts it; if it is no number, gives false and the word, empty at the end of the file.
  bool read_number(Double& x, std::string_view& word);
  /// Passes over blanks and line ends.
  void skip_blanks();
  /// The next byte, or -1 at the end, without and with taking it.
  int peek_byte() { return at_ != end_ || fill() ? static_cast<unsigned char>(*at_) : -1; }
  int read_byte() { return at_ != end_ || fill() ? static_cast<unsigned char>(*at_++) : -1; }

  void Write(const TString& text);
  /// UTF-8 text; the bytes are written as they are.
  void Write(std::string_view utf8_text);
  void Write(const std::string& utf8_text) { Write(std::string_view(utf8_text)); }
  void Write(const char* utf8_text) { Write(std::string_view(utf8_text)); }
  /// The text, then the end of the line.
  template <class Text>
  void WriteLn(const Text& text) {
    Write(text);
    WriteLn();
  }
  void WriteLn() { *room(1) = '\n', took(1); }
  void WriteInteger(Int64 i);
  /// Fixed notation with d decimals, with blanks on the left up to w characters; scientific notation in a field of w
  /// characters if d is negative.
  void WriteFloat(Double x, Integer w, Integer d);

  /// Room for n bytes of output, of which took(k), k <= n, appends the first k: what formats numbers writes them here.
  char* room(std::size_t n) { return mode_ == Mode::kWriting && capacity_ - used_ >= n ? out() : make_room(n); }
  void took(std::size_t k) noexcept { used_ += k; }

 private:
  enum class Mode : Byte { kClosed, kReading, kWriting };

  char* out() noexcept { return buffer_.get() + used_; }
  bool fill();
  char* make_room(std::size_t n);
  void store();
  void open_for_writing(TStream* stream, Int64 start);
  void rewrite(bool replacing);
  void start_reading();
  [[noreturn]] void fail(std::string_view action, std::string_view reason) const;

  TString name_;
  std::string_view text_;
  TStream* borrowed_ = nullptr;
  std::unique_ptr<TFileStream> file_;
  TStream* stream_ = nullptr;  // file_ or borrowed_; null for text in memory
  Int64 start_ = 0;            // position in stream_ at which the text begins
  Mode mode_ = Mode::kClosed;
  bool replacing_ = false;
  bool more_ = false;  // the stream may have more to read
  Char pending_ = 0;   // second half of a character of which the first half was read

  // Reading: the bytes between at_ and end_ come next; window_ is the position of begin_ in the text.
  const char* begin_ = nullptr;
  const char* at_ = nullptr;
  const char* end_ = nullptr;
  Int64 window_ = 0;
  // Writing: the first used_ bytes of the buffer are not in the stream yet; window_ is the position of the first.
  std::unique_ptr<char[]> buffer_;
  std::size_t capacity_ = 0, used_ = 0;
};

}  // namespace ZOR_runtime

namespace zor::detail {

constexpr bool is_blank_byte(int c) noexcept { return c == 32 || (c >= 9 && c <= 13); }
/// The text without blanks, U+00A0 and U+FEFF at its ends.
ZOR_API std::string_view strip_blanks(std::string_view utf8_text) noexcept;

}  // namespace zor::detail

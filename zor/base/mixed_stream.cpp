#include "zor/base/mixed_stream.h"

#include <algorithm>
#include <string>

#include "zor/base/stream_numbers.h"

namespace ZOR_streams {
namespace {

Word checked_mode(const TString& name, Word mode) {
  if (mode != ZOR_runtime::fmOpenRead && mode != ZOR_runtime::fmCreate)
    zor::detail::fail_io("cannot open", name, "unknown mode " + std::to_string(mode));
  return mode;
}

}  // namespace

TMixedFStream::TMixedFStream(const TString& FName, Word Mode) : TFileStream(FName, checked_mode(FName, Mode)) {}

const char* TMixedFStream::ClassName() const noexcept { return "TMixedFStream"; }

void TMixedFStream::WriteInteger(Integer i) { WriteLongintToStream(*this, i); }

void TMixedFStream::WriteDouble(Double x) { WriteExtendedToStream(*this, x); }

void TMixedFStream::WriteLn(const TString& S) {
  std::string line = S.utf8();
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  line += '\n';
  WriteBuffer(line.data(), static_cast<Int64>(line.size()));
}

Integer TMixedFStream::ReadInteger(Boolean& Err) { return ReadLongintFromStream(*this, Err); }

Byte TMixedFStream::ReadByte(Boolean& Err) {
  Byte b = 0;
  Err = Read(&b, 1) == 0;
  return b;
}

Double TMixedFStream::ReadDouble(Boolean& Err) { return ReadExtendedFromStream(*this, Err); }

TString TMixedFStream::ReadLn(Integer) {
  std::string line;
  char c = 0;
  bool ended = false;
  while (!ended && Read(&c, 1) == 1) {
    ended = c == '\n';
    if (!ended) line += c;
  }
  if (ended && line.ends_with('\r')) line.pop_back();
  return line;
}

}  // namespace ZOR_streams

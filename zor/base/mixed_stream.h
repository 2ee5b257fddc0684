#pragma once

#include "zor/base/ZOR_zorbase.h"

namespace ZOR_streams {

using namespace ZOR_zorbase;

/// File that mixes binary numbers and lines of text.
/// Integers have 4 bytes, floats 8, lowest byte first; text is UTF-8. Reading sets Err to true, and gives 0, where the
/// file ends before the number does. What cannot be opened or written raises EInOutError.
///
///     TMixedFStream file("model.bin", 0xFF00);
///     file.WriteLn("a model");
///     file.WriteDouble(0.5);
class ZOR_API TMixedFStream : public TFileStream {
 public:
  /// Mode 0 opens for reading, 65280 (hexadecimal FF00) creates the file; another one raises EInOutError.
  TMixedFStream(const TString& FName, Word Mode);

  void WriteInteger(Integer i);
  void WriteByte(Byte b) { WriteBuffer(&b, 1); }
  void WriteDouble(Double x);
  /// Text and a line feed. Line breaks inside the text become blanks, since a reader takes the first for the end.
  void WriteLn(const TString& S);

  Integer ReadInteger(Boolean& Err);
  Byte ReadByte(Boolean& Err);
  Double ReadDouble(Boolean& Err);
  /// The next line, which ends with LF or CRLF; "" at the end of the file. The argument has no effect.
  TString ReadLn(Integer n);
  const char* ClassName() const noexcept override;
};

}  // namespace ZOR_streams

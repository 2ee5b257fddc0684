// Any bytes as a text: the first byte says how many of them are orders, each of which reads in one way. A text in
// memory and a stream that hands out a few bytes at a time must give the same.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/heap_bound.h"
#include "fuzz/slow_stream.h"
#include "zor/runtime/text_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const fuzz::HeapBound bound(size);
  using namespace ZOR_runtime;
  if (size == 0) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::size_t orders = 1 + data[0] % size;
  const std::string_view text = bytes.substr(orders);
  SlowStream stream(text);
  TTextFile whole, pieces;
  whole.AssignText(text);
  pieces.AssignStream(&stream);
  whole.Reset(), pieces.Reset();
  for (std::size_t i = 0; !whole.Eof(); ++i) {
    const Int64 before = whole.Position();
    require(pieces.Position() == before && pieces.Remaining() == whole.Remaining() && pieces.Eoln() == whole.Eoln());
    Char a = 0, b = 0;
    Double x = -1.0, y = -1.0;
    Integer n = -1, m = -1;
    switch (data[i % orders] % 7) {
      case 0:
        require(whole.ReadLn() == pieces.ReadLn());
        break;
      case 1:
        require(whole.ReadWord() == pieces.ReadWord());
        break;
      case 2:
        require(whole.PeekChar(a) == pieces.PeekChar(b) && a == b && whole.Position() == before);
        require(whole.ReadChar(a) == pieces.ReadChar(b) && a == b);
        break;
      case 3:
        require(whole.ReadFloat(x) == pieces.ReadFloat(y) && x == y);
        break;
      case 4:
        require(whole.ReadInteger(n) == pieces.ReadInteger(m) && n == m);
        break;
      case 5:
        require(whole.read_byte() == pieces.read_byte());
        break;
      default:
        if (i > 1000) break;
        whole.SetPosition(before / 2);
        pieces.SetPosition(before / 2);
    }
    if (i > 20000) break;
  }
  return 0;
}

// Both forms of the tag reader and the reader of whole documents find the same elements in any bytes, and each call
// moves on.
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "fuzz/heap_bound.h"
#include "fuzz/slow_stream.h"
#include "zor/base/tags.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const fuzz::HeapBound bound(size);
  using namespace ZOR_zorbase;
  static const std::vector<TString> tags = {"numcols", "numrows", "cell", "matrix", "/matrix", "x", "invalidtag"};
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (bytes.starts_with("\xEF\xBB\xBF")) return 0;  // a file passes over it, a text does not

  const TString text = bytes;
  SlowStream stream(bytes);
  TTextFile file;
  file.AssignStream(&stream);
  file.Reset();
  zor::detail::TagReader document(text, 1, tags);
  TString attr[3], content[3];
  Integer ix = 1;
  while (ix <= text.Length()) {
    const Integer before = ix;
    const Integer tag = ZOR_stringl::ReadNextTagInString(text, ix, tags, attr[0], content[0]);
    require(tag >= 0 && tag < static_cast<Integer>(tags.size()) && ix > before && ix <= text.Length() + 1);
    require(tag == ZOR_streams::ReadNextTagInTextFile(file, tags, attr[1], content[1]));
    require(attr[0] == attr[1] && content[0] == content[1]);
    require(tag == document.next(attr[2], content[2]) && document.place() == ix);
    require(attr[0] == attr[2] && content[0] == content[2]);
  }
  require(file.Eof());
  return 0;
}

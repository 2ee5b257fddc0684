// Any bytes read as an ASC file: no more cells than the file can hold, an end at the end of input, and the same result
// whether the file comes in one piece or in many.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "fuzz/heap_bound.h"
#include "fuzz/slow_stream.h"
#include "zor/base/asc_codec.h"

namespace {

struct AscContents {
  zor::detail::AscHeader header;
  ZOR_runtime::Integer code = 0;
  std::vector<ZOR_runtime::TString> names;
  std::vector<double> cells;
};

AscContents read_asc(ZOR_runtime::TTextFile& file, std::size_t size) {
  using namespace zor::detail;
  AscContents asc;
  file.Reset();
  asc.code = read_asc_header(file, asc.header);
  if (asc.code != 0) return asc;
  const Integer rows = asc_rows_to_read(asc.header, file);
  require(rows >= 0 && rows <= asc.header.NrRows && static_cast<std::size_t>(rows) <= size + 1);
  if (asc.header.ColNames) {
    asc.names.resize(std::min<std::size_t>(static_cast<std::size_t>(asc.header.NrCols), size));
    read_asc_column_names(file, static_cast<Integer>(asc.names.size()), asc.names.data());
  }
  for (Integer row = 0; row < rows; ++row) {
    double x = 0.0;
    TString name;
    if (read_asc_row_head(file, asc.header, &x, &name) != 0) return asc;
    for (Integer col = 0; col < asc.header.NrCols; ++col) {
      if (read_asc_cell(file, x) == AscCell::kBad) return asc;
      asc.cells.push_back(x);
    }
    require(asc.cells.size() <= size);
  }
  return asc;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const fuzz::HeapBound bound(size);
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  SlowStream stream(bytes);
  ZOR_runtime::TTextFile whole, pieces;
  whole.AssignText(bytes);
  pieces.AssignStream(&stream);
  const AscContents a = read_asc(whole, size), b = read_asc(pieces, size);
  require(a.code == b.code && a.names == b.names && a.cells.size() == b.cells.size());
  require(a.cells.empty() || std::memcmp(a.cells.data(), b.cells.data(), a.cells.size() * sizeof(double)) == 0);
  require(a.header.Comment == b.header.Comment && a.header.NrRows == b.header.NrRows);
  return 0;
}

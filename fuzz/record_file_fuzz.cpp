// Any bytes read as a file of 4096-byte records: complete means that every announced cell can be read.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "fuzz/heap_bound.h"
#include "fuzz/slow_stream.h"
#include "zor/base/record_codec.h"
#include "zor/runtime/exception.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const fuzz::HeapBound bound(size);
  using namespace zor::detail;
  ZOR_runtime::TMemoryStream stream;
  stream.WriteBuffer(data, static_cast<Int64>(size));
  RecordFileReader reader(stream);
  require(reader.has_head() == (size >= 276));
  const Int64 cells = reader.head().cells();
  require(reader.cells_in_file() <= static_cast<Int64>(size / 4));
  if (reader.is_complete()) {
    std::vector<Double> floats(static_cast<std::size_t>(cells));
    std::vector<Integer> integers(floats.size());
    reader.read(floats);
    reader.seek(0);
    reader.read(integers);
    Double last = 0.0;
    reader.seek(cells - 1);
    reader.read(std::span<Double>(&last, 1));
    require(last == floats.back() || (last != last && floats.back() != floats.back()));
  } else if (cells > 0) {
    try {
      Double beyond = 0.0;
      reader.seek(cells - 1);
      reader.read(std::span<Double>(&beyond, 1));
      require(false);
    } catch (const ZOR_runtime::EInOutError&) {
    }
  }
  return 0;
}

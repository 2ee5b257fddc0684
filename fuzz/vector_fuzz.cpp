// Any bytes read as each of the forms that vectors have: the vector is never empty, never larger than the input allows,
// and what it writes in the same form reads back. The first byte chooses the form.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/heap_bound.h"
#include "fuzz/memory_file.h"
#include "zor/vectors/ZOR_vector.h"

namespace vector_fuzz {

using namespace ZOR_vector;

using fuzz::MemoryFile;
using fuzz::require;

template <class V>
void check_size(const V& v, std::size_t size) {
  require(v.NrOfElem() >= 1);
  require(zor::detail::may_allocate(std::int64_t{4} * v.NrOfElem(), static_cast<std::int64_t>(size)));
}

template <class V>
void read_files(const std::uint8_t* data, std::size_t size, unsigned form) {
  const MemoryFile file(data, size);
  V v;
  TString comment;
  if (form == 0) {
    v.ImportASC(file.name(), comment);
  } else {
    v.LoadFromFile(file.name(), form == 1);
  }
  check_size(v, size);
}

template <class V>
void read_stream(const std::uint8_t* data, std::size_t size, bool adjust) {
  TMemoryStream stream, again;
  stream.WriteBuffer(data, static_cast<Int64>(size));
  stream.SetPosition(0);
  V v, w;
  v.Resize(3);
  const bool whole = v.LoadFromStream(&stream, adjust);
  check_size(v, size);
  if (!whole || v.NrOfElem() > 10000) return;
  v.SaveToStream(static_cast<TStream&>(again), 0, 0);
  again.SetPosition(0);
  require(w.LoadFromStream(&again, true));
  require(w.CRCofData() == v.CRCofData());
}

}  // namespace vector_fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vector_fuzz;
  if (size == 0) return 0;
  const unsigned form = data[0] % 11;
  ++data, --size;
  const fuzz::HeapBound bound(size);
  if (form < 3) {
    read_files<TVector>(data, size, form);
  } else if (form < 6) {
    read_files<TIntVector>(data, size, form - 3);
  } else if (form == 6) {
    const MemoryFile file(data, size);
    TVector v;
    v.LoadFromFile(file.name(), true, true);
    check_size(v, size);
  } else if (form < 9) {
    read_stream<TVector>(data, size, form == 7);
  } else {
    read_stream<TIntVector>(data, size, form == 9);
  }
  return 0;
}

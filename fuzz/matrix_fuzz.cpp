// Any bytes read as each of the forms that matrices have: the matrix is never empty, never larger than the input
// allows, is left alone by a form that says so, and what it writes in the same form reads back. The first byte chooses
// the form.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/heap_bound.h"
#include "fuzz/memory_file.h"
#include "zor/matrices/ZOR_matrix.h"

namespace matrix_fuzz {

using namespace ZOR_matrix;

using fuzz::MemoryFile;
using fuzz::require;

inline std::int64_t cells_of(const TMatrix& m) { return std::int64_t{m.NrOfColumns()} * m.NrOfRows(); }

inline void check_size(const TMatrix& m, std::size_t size) {
  require(m.NrOfColumns() >= 1 && m.NrOfRows() >= 1);
  require(zor::detail::may_allocate(8 * cells_of(m), static_cast<std::int64_t>(size)));
}

inline bool unchanged(const TMatrix& m) { return m.NrOfColumns() == 2 && m.NrOfRows() == 1 && m.GetVal(2, 1) == 7.0; }

constexpr std::int64_t kWrittenBack = 10000;  // cells of the largest matrix that is written again

inline void read_xml(const std::uint8_t* data, std::size_t size) {
  TMemoryStream stream, again;
  stream.WriteBuffer(data, static_cast<Int64>(size));
  stream.SetPosition(0);
  TMatrix m, back;
  m.Resize(2, 1);
  m.Fill(7.0);
  if (!m.ReadFromXMLStream(&stream, "")) return require(unchanged(m));
  check_size(m, size);
  if (cells_of(m) > kWrittenBack) return;
  m.WriteToXMLStream(&again, true, "");
  again.SetPosition(0);
  require(back.ReadFromXMLStream(&again, m.DataID()) && back.CRCofData() == m.CRCofData());
}

inline void read_stream(const std::uint8_t* data, std::size_t size, bool adjust) {
  TMemoryStream stream, again;
  stream.WriteBuffer(data, static_cast<Int64>(size));
  stream.SetPosition(0);
  TMatrix m, back;
  m.Resize(3, 2);
  const bool whole = m.LoadFromStream(&stream, adjust);
  check_size(m, size);
  if (!whole || cells_of(m) > kWrittenBack) return;
  m.SaveToStream(static_cast<TStream&>(again), 0, 0, 0, 0);
  again.SetPosition(0);
  require(back.LoadFromStream(&again, true) && back.CRCofData() == m.CRCofData());
}

inline void read_records(const std::uint8_t* data, std::size_t size) {
  const MemoryFile file(data, size);
  TMatrix m, back;
  m.Resize(2, 1);
  m.Fill(7.0);
  Integer columns = 0, rows = 0, format = 0;
  TString id;
  const bool ours = m.ReadBinaryHeader(file.name(), columns, rows, id, format);
  if (m.LoadBinary(file.name()) != 0) return require(unchanged(m));
  require(ours && m.NrOfColumns() == columns && m.NrOfRows() == rows && m.DataID() == id);
  check_size(m, size);
  const MemoryFile again(data, 0);
  m.SaveBinary(again.name());
  require(back.LoadBinary(again.name()) == 0 && back.CRCofData() == m.CRCofData());
}

}  // namespace matrix_fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace matrix_fuzz;
  if (size == 0) return 0;
  const unsigned form = data[0] % 8;
  ++data, --size;
  const fuzz::HeapBound bound(size);
  if (form == 0) {
    read_xml(data, size);
  } else if (form < 3) {
    read_stream(data, size, form == 1);
  } else if (form == 3) {
    read_records(data, size);
  } else {
    const MemoryFile file(data, size);
    TMatrix m;
    if (form == 4) {
      TString comment;
      TStr2DArray texts;
      m.ImportASC(file.name(), comment, texts);
    } else {
      m.LoadFromFile(file.name(), form < 7, form == 6);
    }
    check_size(m, size);
  }
  return 0;
}

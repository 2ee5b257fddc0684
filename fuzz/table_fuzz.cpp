// Any bytes read as each of the text forms of data tables: a form that is refused leaves the table alone, no table is
// larger than its input allows, and what is written in the same form reads back as the same. The first byte chooses the
// form.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/memory_file.h"
#include "zor/datatable/ZOR_datatable.h"

namespace table_fuzz {

using namespace ZOR_datatable;

using fuzz::require;

inline bool unchanged(const TDataTable& t) {
  return t.NrOfColumns() == 1 && t.NrOfRows() == 1 && t.GetElem(1, 1) == 7.0;
}

inline std::int64_t memory_of(const TDataTable& t) {
  const std::int64_t columns = t.NrOfColumns(), rows = t.NrOfRows();
  return 1750 * columns + 64 * rows + 9 * columns * rows;
}

inline std::string all_of(const TDataTable& t) {
  return (t.CRCofNamesAndAttributes() + t.CRCofCellStates() + t.NumericData->CRCofData()).utf8() +
         std::to_string(t.NrOfColumns()) + "x" + std::to_string(t.NrOfRows());
}

inline void fill(TMemoryStream& stream, std::string_view bytes) {
  stream.Clear();
  stream.WriteBuffer(bytes.data(), static_cast<Int64>(bytes.size()));
  stream.SetPosition(0);
}

constexpr std::int64_t kWrittenBack = 200000;  // bytes of the largest table that is written again

/// Reads, then writes and reads twice more: from the first writing on nothing may change.
template <class Read, class Write>
void round_trip(std::string_view bytes, Read read, Write write) {
  TMemoryStream stream;
  fill(stream, bytes);
  TDataTable table;
  table.SetElem(1, 1, 7.0);
  if (!read(table, stream)) return require(unchanged(table));
  require(memory_of(table) <= (std::int64_t{1} << 24) + 32 * static_cast<std::int64_t>(bytes.size()));
  if (memory_of(table) > kWrittenBack) return;
  std::string first;
  for (int turn = 0; turn < 2; ++turn) {
    stream.Clear();
    write(table, stream);
    stream.SetPosition(0);
    require(read(table, stream));
    require(turn == 0 || all_of(table) == first);
    first = all_of(table);
  }
}

inline void read_asc(std::string_view bytes) {
  round_trip(
      bytes, [](TDataTable& t, TMemoryStream& in) { return t.ImportASC(&in) == 0; },
      [](TDataTable& t, TMemoryStream& out) { require(t.ExportAsASC(&out, -1).empty()); });
}

inline void read_xml(std::string_view bytes) {
  round_trip(
      bytes, [](TDataTable& t, TMemoryStream& in) { return t.ReadFromXMLStream(&in, ""); },
      [](TDataTable& t, TMemoryStream& out) { t.WriteToXMLStream(&out, false, 0, "x"); });
}

/// Identifiers are cut and may then look like numbers, so that only sizes are claimed.
inline void read_csv(std::string_view bytes, const TCSVOptions& options) {
  TMemoryStream stream;
  fill(stream, bytes);
  TDataTable table, back;
  table.SetElem(1, 1, 7.0);
  const Integer code = table.ImportFromCSV(&stream, options);
  if (code < 0) return require(unchanged(table));
  require(code == table.CSVReport().BadFields && table.CSVReport().First.size() <= 10);
  require(memory_of(table) <= (std::int64_t{1} << 24) + 32 * static_cast<std::int64_t>(bytes.size()));
  if (memory_of(table) > kWrittenBack) return;
  stream.Clear();
  require(table.ExportAsCSV(&stream, -1, csvTab, true, true, false, false).empty());
  stream.SetPosition(0);
  TCSVOptions written;
  written.Delimiter = csvTab, written.ColHeaders = true, written.RowHeaders = true;
  require(back.ImportFromCSV(&stream, written) >= 0);
  require(back.NrOfRows() == table.NrOfRows() && back.NrOfColumns() == table.NrOfColumns());
}

}  // namespace table_fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace table_fuzz;
  if (size == 0) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  switch (data[0] % 8) {
    case 0:
      read_asc(bytes);
      break;
    case 1:
      read_xml(bytes);
      break;
    case 2: {
      TDataTable table;
      Integer at = 1;
      table.ReadFromXMLString(bytes, at, "a");
      require(at >= 1);
      break;
    }
    case 3:
      read_csv(bytes, {});
      break;
    default: {
      TCSVOptions options;
      options.Delimiter = static_cast<TCSVDelimiters>(data[0] % 8 - 4);
      options.ColHeaders = (data[0] & 8) != 0;
      options.RowHeaders = (data[0] & 16) != 0;
      options.CommentSign = (data[0] & 32) != 0 ? '#' : '\0';
      options.NLinesSkip = data[0] >> 6;
      read_csv(bytes, options);
    }
  }
  return 0;
}

#include <algorithm>
#include <string>
#include <vector>

#include "zor/arrays/walk_internal.h"
#include "zor/base/asc_codec.h"
#include "zor/base/reader_limits.h"
#include "zor/matrices/store_block_internal.h"
#include "zor/runtime/text.h"

namespace ZOR_matrix {
namespace {

constexpr std::string_view kCustomMark = ";custdata";

void write_custom_cells(TTextFile& file, const TStr2DArray& cells) {
  if (cells.empty() || cells[0].empty()) return;
  for (const TStrArray& column : cells) {
    if (column.size() != cells[0].size()) return;
  }
  file.WriteLn(kCustomMark);
  file.WriteInteger(static_cast<Int64>(cells.size()));
  file.WriteLn("\t;nr. of columns");
  file.WriteInteger(static_cast<Int64>(cells[0].size()));
  file.WriteLn("\t;nr. of rows");
  for (std::size_t r = 0; r < cells[0].size(); ++r) {
    for (std::size_t c = 0; c < cells.size(); ++c) {
      if (c > 0) file.Write("\t");
      zor::detail::write_asc_text(file, cells[c][r]);
    }
    file.WriteLn();
  }
}

// Reads the block behind the rows, if there is one. False if it is damaged.
bool read_custom_cells(TTextFile& file, TStr2DArray& cells) {
  std::string_view line;
  do {
    if (!file.read_line(line)) return true;
  } while (zor::detail::strip_blanks(line) != kCustomMark);
  Integer columns = 0, rows = 0;
  bool good = file.ReadInteger(columns) && file.read_line(line) && file.ReadInteger(rows) && file.read_line(line);
  constexpr Int64 kSmallestQuoted = 3;  // two quotes and a separator
  const Int64 count = zor::detail::checked_product(columns, rows);
  if (!good || count < 1 || count > (file.Remaining() + 1) / kSmallestQuoted) return false;
  TStr2DArray made;
  SetLength(made, columns, rows);
  for (Integer r = 0; r < rows; ++r) {
    for (Integer c = 0; c < columns; ++c) {
      if (!zor::detail::read_asc_text(file, made[c][r])) return false;
    }
  }
  cells.swap(made);
  return true;
}

}  // namespace

Integer TMatrix::ExportAsASC(const TString& FName, Integer Precision, const TString& Comment) const {
  return ExportAsASC(FName, Precision, Comment, nullptr);
}

Integer TMatrix::ExportAsASC(const TString& FName, Integer Precision, const TString& Comment,
                             const TStr2DArray& CustData) const {
  TTextFile file(FName);
  try {
    file.Replace();
  } catch (const Exception&) {
    return kCannotCreateFile;
  }
  zor::detail::AscHeader header;
  header.Comment = Comment.empty() ? "Exported by ZOR TMatrix component: " + FName : Comment;
  header.NrCols = FNCol;
  header.NrRows = FNRow;
  zor::detail::write_asc_header(file, header);
  const Integer decimals = std::clamp(Precision, 0, 25);
  for (Integer r = 0; r < FNRow; ++r) {
    for (Integer c = 0; c < FNCol; ++c) {
      if (c > 0) file.Write("\t");
      file.WriteFloat(Mat[c][r], 12, decimals);
    }
    file.WriteLn();
  }
  write_custom_cells(file, CustData);
  file.Close();
  return 0;
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::ImportASC(const TString& FName, TString& Comment) {
  return import_asc(FName, Comment, nullptr);
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::ImportASC(const TString& FName, TString& Comment, TStr2DArray& CustData) {
  CustData = nullptr;
  return import_asc(FName, Comment, &CustData);
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::import_asc(const TString& FName, TString& Comment, TStr2DArray* CustData) {
  using zor::detail::AscCell;
  if (!ZOR_runtime::FileExists(FName)) return kNoSuchFile;
  TTextFile file(FName);
  try {
    file.Reset();
  } catch (const EInOutError&) {
    return zor::detail::kAscUnreadable;
  }
  zor::detail::AscHeader header;
  Integer code = zor::detail::read_asc_header(file, header);
  Comment = header.Comment;
  if (code != 0) return code;
  const Int64 bytes = zor::detail::column_array_bytes<T>(header.NrCols, header.NrRows);
  if (header.NrCols == 0 || header.NrRows == 0 || !zor::detail::may_allocate(bytes, file.Remaining())) return kNoCells;

  if (header.ColNames) zor::detail::skip_asc_column_names(file, header.NrCols);
  Resize(header.NrCols, header.NrRows);
  std::vector<T> row(zor::detail::to_size(header.NrCols));
  Integer reached = 0;
  while (code == 0 && reached < header.NrRows) {
    ++reached;
    code = zor::detail::read_asc_row_head(file, header, nullptr, nullptr);
    std::size_t read = 0;
    for (; code == 0 && read < row.size(); ++read) {
      Double x = 0.0;
      if (zor::detail::read_asc_cell(file, x) == AscCell::kBad) {
        code = kBadValue;
        break;
      }
      row[read] = zor::detail::to_cell<T>(x);
    }
    write_block(
        static_cast<Int64>(read), 1, [&](Int64 i) { return row.data() + i; }, 1, reached);
  }
  // The row at which the read failed stays, with old values or 0 from the bad cell on.
  if (code != 0) Resize(header.NrCols, reached);
  if (code == 0 && CustData && !read_custom_cells(file, *CustData)) code = kBadValue;
  file.Close();
  return code;
}

#define ZOR_INSTANCES(M, T)                                                             \
  template Integer MatrixCore<M, T>::ImportASC(const TString&, TString&);               \
  template Integer MatrixCore<M, T>::ImportASC(const TString&, TString&, TStr2DArray&); \
  template Integer MatrixCore<M, T>::import_asc(const TString&, TString&, TStr2DArray*);

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix

#include <algorithm>

#include "zor/base/asc_codec.h"
#include "zor/runtime/number_writer.h"
#include "zor/runtime/text.h"
#include "zor/runtime/text_file.h"
#include "zor/vectors/run_writer_internal.h"
#include "zor/vectors/vector.h"

namespace ZOR_vector {
namespace {

using ZOR_runtime::TTextFile;

template <class WriteCell>
Integer export_asc(const TString& name, const TString& comment, Integer rows, WriteCell write_cell) {
  TTextFile file(name);
  try {
    file.Replace();
  } catch (const Exception&) {
    return kCannotCreateFile;
  }
  zor::detail::AscHeader header;
  header.Comment = comment;
  header.NrCols = 1;
  header.NrRows = rows;
  zor::detail::write_asc_header(file, header);
  for (Integer i = 1; i <= rows; ++i) {
    write_cell(file, i);
    file.WriteLn();
  }
  file.Close();
  return 0;
}

}  // namespace

Integer TVector::ExportAsASC(const TString& FName, Integer Precision, const TString& Comment) const {
  const TString comment = Comment.empty() ? "Exported by ZOR TVector component: " + FName : Comment;
  const Integer decimals = std::clamp(Precision, 0, 25);
  return export_asc(FName, comment, NrOfElem(),
                    [&](TTextFile& file, Integer i) { file.WriteFloat(FVec[i - 1], 12, decimals); });
}

Integer TIntVector::ExportAsASC(const TString& FName, const TString& Comment) const {
  const TString comment = Comment.empty() ? "Exported by ZOR TIntVector component: " + FName : Comment;
  return export_asc(FName, comment, NrOfElem(), [&](TTextFile& file, Integer i) { file.WriteInteger(FVec[i - 1]); });
}

template <class Self, Cell T>
Integer VectorCore<Self, T>::ImportASC(const TString& FName, TString& Comment) {
  if (!ZOR_runtime::FileExists(FName)) return kNoSuchFile;
  TTextFile file(FName);
  zor::detail::AscHeader header;
  Integer code = 0;
  try {
    file.Reset();
  } catch (const EInOutError&) {
    return zor::detail::kAscUnreadable;
  }
  code = zor::detail::read_asc_header(file, header);
  Comment = header.Comment;
  if (header.NrCols >= 2) return kMoreThanOneColumn;
  if (code != 0) return code;
  if (header.NrCols == 0 || header.NrRows == 0) return kNoCells;

  if (header.ColNames) zor::detail::skip_asc_column_names(file, header.NrCols);
  const Integer rows = zor::detail::asc_rows_to_read(header, file);
  Resize(rows);
  zor::detail::RunWriter<T> out([this](auto values, Int64 first) { store_cells(values, first); });
  Integer reached = 0;
  while (code == 0 && reached < rows) {
    ++reached;
    code = zor::detail::read_asc_row_head(file, header, nullptr, nullptr);
    if (code != 0) break;
    Double x = 0.0;
    if (zor::detail::read_asc_cell(file, x) == zor::detail::AscCell::kBad) {
      code = kBadValue;
    } else {
      out.put(reached, zor::detail::to_cell<T>(x));
    }
  }
  out.flush();
  // The element at which the read failed stays, with its old value or 0.
  if (code != 0) Resize(reached);
  file.Close();
  return code;
}

#define ZOR_INSTANCES(V, T) template Integer VectorCore<V, T>::ImportASC(const TString&, TString&);

ZOR_INSTANCES(TVector, Double)
ZOR_INSTANCES(TIntVector, Integer)

}  // namespace ZOR_vector

#include <algorithm>
#include <cmath>

#include "zor/base/asc_codec.h"
#include "zor/base/stringl_text.h"
#include "zor/datatable/data_table.h"
#include "zor/datatable/table_formats_internal.h"
#include "zor/runtime/number_writer.h"
#include "zor/runtime/numbers.h"
#include "zor/runtime/text.h"

// The form, | being a tab; the blocks behind the rows stand there only if they say something. Readers of plain numbers
// stop at the last row.
//
//     My comment
//     2|;nr. of columns
//     3|;nr. of rows
//     TRUE TRUE TRUE TRUE|;row attributes, column names, row names, nominal variables
//     "len"|"grp"
//     4|"b"|       1.500|       0.000             attribute, name, numbers; nominal cells as ordinals
//     3|"A"|       2.500|         NAN             not numeric, or not finite
//     0|"c"|       0.000|       1.000
//     ;vardefs|2
//     1|Interval|0|0                              column, scale, column attribute, number of identifiers
//     2|Nominal|300|2|0|"lo"|1|"hi"               the same, then slot and text of each
//     ;cellstates|1
//     1|2|64                                      column, row, state
//     ;custdata|2|1                               columns, rows
//     "made by"|"lab 3"

namespace ZOR_datatable {

namespace {

using zor::detail::AscCell;
using zor::detail::to_size;

constexpr std::string_view kVarDefs = ";vardefs", kCellStates = ";cellstates", kCustData = ";custdata";

/// The state of a cell as the file has to say it: a number that is not finite cannot be written.
Byte written_state(Double x, Byte state) noexcept {
  return std::isfinite(x) ? state : static_cast<Byte>(state | kCellEmpty);
}

bool says_something(const TColumnRecord& column) noexcept {
  return column.type.MScaleType != stInterval || column.attribute != 0 ||
         !std::ranges::all_of(column.type.IDs, &TNominalIDStr::empty);
}

void write_block_head(TTextFile& file, std::string_view mark, std::initializer_list<std::size_t> counts) {
  file.Write(mark);
  for (const std::size_t n : counts) {
    file.Write("\t");
    file.WriteInteger(static_cast<Int64>(n));
  }
  file.WriteLn();
}

void write_column_block(TTextFile& file, const TDynArray<TColumnRecord>& columns) {
  const auto count = static_cast<std::size_t>(std::ranges::count_if(columns, says_something));
  if (count > 0) write_block_head(file, kVarDefs, {count});
  for (Integer c = 0; c < Length(columns); ++c) {
    const TColumnRecord& column = columns[c];
    if (!says_something(column)) continue;
    file.WriteInteger(c + 1);
    file.Write("\t");
    file.Write(MScaleTypeNames[column.type.MScaleType]);
    file.Write("\t");
    file.WriteInteger(column.attribute);
    file.Write("\t");
    file.WriteInteger(kNominalIDs - std::ranges::count_if(column.type.IDs, &TNominalIDStr::empty));
    for (Integer slot = 0; slot < kNominalIDs; ++slot) {
      if (column.type.IDs[slot].empty()) continue;
      file.Write("\t");
      file.WriteInteger(slot);
      file.Write("\t");
      zor::detail::write_asc_text(file, column.type.IDs[slot]);
    }
    file.WriteLn();
  }
}

void write_custom_block(TTextFile& file, const TStr2DArray& cells) {
  if (cells.empty() || cells[0].empty()) return;
  for (const TStrArray& column : cells) {
    if (column.size() != cells[0].size()) return;
  }
  write_block_head(file, kCustData, {cells.size(), cells[0].size()});
  for (std::size_t r = 0; r < cells[0].size(); ++r) {
    for (std::size_t c = 0; c < cells.size(); ++c) {
      if (c > 0) file.Write("\t");
      zor::detail::write_asc_text(file, cells[c][r]);
    }
    file.WriteLn();
  }
}

TMScaleType scale_of_name(std::string_view name) noexcept {
  const auto* const found = std::ranges::find(MScaleTypeNames, name);
  return static_cast<TMScaleType>(found - MScaleTypeNames);  // behind the last one: unknown word
}

/// Reads an integer from lo to hi.
bool read_between(TTextFile& file, Integer lo, Integer hi, Integer& value) {
  return file.ReadInteger(value) && value >= lo && value <= hi;
}

bool read_column_block(TTextFile& file, TTableImage& image) {
  Integer count = 0;
  if (!read_between(file, 0, zor::detail::kMaxInteger, count)) return false;
  for (Integer i = 0; i < count; ++i) {
    Integer col = 0, identifiers = 0;
    if (!read_between(file, 1, image.ncols(), col)) return false;
    TColumnRecord& column = image.columns[col - 1];
    const TMScaleType scale = scale_of_name(file.read_word());
    if (scale > stRatio || !file.ReadInteger(column.attribute) || !read_between(file, 0, kNominalIDs, identifiers))
      return false;
    column.type = TVTypeSpec();
    column.type.MScaleType = scale;
    for (; identifiers > 0; --identifiers) {
      Integer slot = 0;
      TString text;
      if (!read_between(file, 0, kNominalIDs - 1, slot) || !zor::detail::read_asc_text(file, text)) return false;
      column.type.IDs[slot] = text;
    }
  }
  return true;
}

bool read_state_block(TTextFile& file, TTableImage& image) {
  Integer count = 0;
  if (!read_between(file, 0, zor::detail::kMaxInteger, count)) return false;
  for (Integer i = 0; i < count; ++i) {
    Integer col = 0, row = 0, state = 0;
    if (!read_between(file, 1, image.ncols(), col) || !read_between(file, 1, image.nrows(), row) ||
        !read_between(file, 0, 255, state))
      return false;
    image.states[col - 1][row - 1] = static_cast<Byte>(state);
  }
  return true;
}

bool read_custom_block(TTextFile& file, TStr2DArray* custom) {
  Integer columns = 0, rows = 0;
  if (!file.ReadInteger(columns) || !file.ReadInteger(rows)) return false;
  constexpr Int64 kSmallestQuoted = 3;  // two quotes and a separator
  const Int64 count = zor::detail::checked_product(columns, rows);
  if (count < 1 || count > (file.Remaining() + 1) / kSmallestQuoted) return false;
  TStr2DArray cells;
  if (custom) SetLength(cells, columns, rows);
  TString dropped;
  for (Integer r = 0; r < rows; ++r) {
    for (Integer c = 0; c < columns; ++c) {
      if (!zor::detail::read_asc_text(file, custom ? cells[c][r] : dropped)) return false;
    }
  }
  if (custom) custom->swap(cells);
  return true;
}

bool read_blocks(TTextFile& file, TTableImage& image, TStr2DArray* custom) {
  for (;;) {
    file.skip_blanks();
    if (file.peek_byte() != ';') return true;
    const std::string_view word = file.read_word();
    const bool vardefs = word == kVarDefs, states = word == kCellStates, texts = word == kCustData;
    if (!vardefs && !states && !texts) return true;  // of another program
    if (vardefs && !read_column_block(file, image)) return false;
    if (states && !read_state_block(file, image)) return false;
    if (texts && !read_custom_block(file, custom)) return false;
  }
}

Integer read_column_names(TTextFile& file, TTableImage& image) {
  if (image.ncols() == 0) {  // an empty line, which blanks in front of names must not swallow
    std::string_view line;
    file.read_line(line);
    return 0;
  }
  TDynArray<TString> names;
  SetLength(names, image.ncols());
  file.skip_blanks();
  if (file.peek_byte() == '"') {
    for (TString& name : names) {
      if (!zor::detail::read_asc_name(file, name)) return kUnfinishedName;
    }
  } else {
    zor::detail::read_asc_column_names(file, image.ncols(), names.data());
  }
  for (Integer c = 0; c < image.ncols(); ++c) image.columns[c].name = names[c];
  return 0;
}

/// A cell in quotes: an identifier, where the file may have them.
bool read_identifier(TTextFile& file, TVTypeSpec& type, Double& value) {
  TString text;
  if (!zor::detail::read_asc_name(file, text)) return false;
  const Integer slot = zor::detail::find_or_add_identifier(type, text);
  if (slot < 0) return false;
  if (!is_categorial(type.MScaleType)) type.MScaleType = stNominal;
  value = slot;
  return true;
}

Integer read_rows(TTextFile& file, const zor::detail::AscHeader& header, TTableImage& image) {
  for (Integer r = 0; r < image.nrows(); ++r) {
    file.skip_blanks();
    if (file.Eof() && (header.RowAttrib || header.RowNames || image.ncols() > 0)) return kBadValue;
    if (header.RowAttrib) {
      Double attribute = 0.0;
      if (!file.ReadFloat(attribute)) return kBadRowAttribute;
      image.rows[r].attribute = zor::detail::round_to_integer(attribute);
    }
    TString name;
    if (header.RowNames && !zor::detail::read_asc_name(file, name)) return kUnfinishedName;
    if (header.RowNames) image.rows[r].name = name;
    for (Integer c = 0; c < image.ncols(); ++c) {
      file.skip_blanks();
      Double& cell = image.cells[c][r];
      if (header.NomVars && file.peek_byte() == '"') {
        if (!read_identifier(file, image.columns[c].type, cell)) return kBadValue;
        continue;
      }
      const AscCell kind = zor::detail::read_asc_cell(file, cell);
      if (kind == AscCell::kBad) return kBadValue;
      if (kind == AscCell::kMissing) image.states[c][r] = kCellEmpty;
    }
  }
  return 0;
}

Integer read_asc(TTextFile& file, TTableImage& image, TStr2DArray* custom) {
  const Int64 bytes = file.Remaining();
  zor::detail::AscHeader header;
  if (const Integer code = zor::detail::read_asc_header(file, header); code != 0) return code;
  if (!zor::detail::may_hold_table(header.NrCols, header.NrRows, bytes)) return kTooLarge;
  image = TTableImage(header.NrCols, header.NrRows);
  image.comment = ZOR_stringl::RemoveControlChars(header.Comment);
  Integer code = header.ColNames ? read_column_names(file, image) : 0;
  if (code == 0) code = read_rows(file, header, image);
  if (code == 0 && !read_blocks(file, image, custom)) code = kBadBlock;
  return code;
}

/// Opens a file, a stream or the text of the clipboard and hands it to action. The codes of what cannot be opened.
template <class Action>
Integer with_file(const TString& name, Action action) {
  if (!ZOR_runtime::FileExists(name)) return kNoSuchFile;
  try {
    TTextFile file(name);
    file.Reset();
    return action(file);
  } catch (const EInOutError&) {
    return zor::detail::kAscUnreadable;
  }
}

template <class Action>
Integer with_stream(TStream* stream, Action action) {
  if (!stream) return kNoSuchFile;
  try {
    TTextFile file;
    file.AssignStream(stream);
    file.Reset();
    return action(file);
  } catch (const EInOutError&) {
    return zor::detail::kAscUnreadable;
  }
}

template <class Action>
Integer with_clipboard(TClipboard* clipboard, Action action) {
  if (!clipboard || !clipboard->HasText()) return kNoSuchFile;
  const std::string text = clipboard->AsText().utf8();
  TTextFile file;
  file.AssignText(text);
  file.Reset();
  return action(file);
}

}  // namespace

void TDataTable::write_asc(TTextFile& file, Integer precision, const TString& origin, const TStr2DArray& custom) const {
  zor::detail::AscHeader header{Comment(), NrOfColumns(), NrOfRows(), true, true, true, false};
  if (Comment().empty()) header.Comment = "Exported by ZOR TDataTable component: " + origin;
  header.NomVars = std::ranges::any_of(FFrame.columns, [](const TColumnRecord& column) {
    return is_categorial(column.type.MScaleType) || !std::ranges::all_of(column.type.IDs, &TNominalIDStr::empty);
  });
  zor::detail::write_asc_header(file, header);
  for (Integer c = 1; c <= NrOfColumns(); ++c) {
    if (c > 1) file.Write("\t");
    zor::detail::write_asc_name(file, ColName(c));
  }
  file.WriteLn();
  std::size_t states = 0;
  bool more_than_missing = false;
  for (Integer r = 1; r <= NrOfRows(); ++r) {
    file.WriteInteger(RowAttrib(r));
    file.Write("\t");
    zor::detail::write_asc_name(file, RowName(r));
    for (Integer c = 1; c <= NrOfColumns(); ++c) {
      file.Write("\t");
      const Double x = NumericData->GetVal(c, r);
      const Byte state = written_state(x, CellState(c, r));
      states += state != 0;
      more_than_missing = more_than_missing || (state != 0 && state != kCellEmpty);
      if (!is_numeric_state(state)) {
        file.Write("         NAN");
      } else if (precision < 0) {
        file.took(zor::detail::format_shortest(file.room(zor::detail::kNumberBuffer), x));
      } else {
        file.took(zor::detail::format_fixed(file.room(zor::detail::kNumberBuffer), x, 12, precision));
      }
    }
    file.WriteLn();
  }
  write_column_block(file, FFrame.columns);
  if (more_than_missing) write_block_head(file, kCellStates, {states});
  for (Integer c = 1; more_than_missing && c <= NrOfColumns(); ++c) {
    for (Integer r = 1; r <= NrOfRows(); ++r) {
      const Byte state = written_state(NumericData->GetVal(c, r), CellState(c, r));
      if (state == 0) continue;
      const char* between = "";
      for (const Integer n : {c, r, Integer{state}}) {
        file.Write(between);
        file.WriteInteger(n);
        between = "\t";
      }
      file.WriteLn();
    }
  }
  write_custom_block(file, custom);
}

TString TDataTable::ExportAsASC(const TString& FName, Integer Precision) const {
  return ExportAsASC(FName, Precision, nullptr);
}

TString TDataTable::ExportAsASC(const TString& FName, Integer Precision, const TStr2DArray& CustData) const {
  return zor::detail::failure_of([&] {
    TTextFile file(FName);
    file.Replace();
    write_asc(file, Precision, FName, CustData);
    file.Close();
  });
}

TString TDataTable::ExportAsASC(TStream* OutStream, Integer Precision) const {
  if (!OutStream) return "ExportAsASC: stream is undefined";
  return zor::detail::failure_of([&] {
    TTextFile file;
    file.AssignStream(OutStream);
    file.Rewrite();
    write_asc(file, Precision, Name(), nullptr);
    file.Close();
  });
}

TString TDataTable::ExportAsASC(TTextFile& F, Integer Precision) const {
  return zor::detail::failure_of([&] { write_asc(F, Precision, Name(), nullptr); });
}

Integer TDataTable::import_asc(TTextFile& file, TStr2DArray* custom) {
  TTableImage image;
  TStr2DArray texts;
  const Integer code = read_asc(file, image, custom ? &texts : nullptr);
  if (code != 0) return code;
  if (custom) custom->swap(texts);
  commit(image);
  return 0;
}

Integer TDataTable::ImportASC(const TString& FName) {
  return with_file(FName, [&](TTextFile& file) { return import_asc(file, nullptr); });
}

Integer TDataTable::ImportASC(const TString& FName, TStr2DArray& CustData) {
  CustData = nullptr;
  return with_file(FName, [&](TTextFile& file) { return import_asc(file, &CustData); });
}

Integer TDataTable::ImportASC(TStream* InStream) {
  return with_stream(InStream, [&](TTextFile& file) { return import_asc(file, nullptr); });
}

Integer TDataTable::ImportASC(TClipboard* ClipBd) {
  return with_clipboard(ClipBd, [&](TTextFile& file) { return import_asc(file, nullptr); });
}

Integer TDataTable::paste_asc(TTextFile& file, Integer col, Integer row, Boolean replace_ids) {
  TTableImage image;
  Integer code = read_asc(file, image, nullptr);
  if (!contains(col, row)) code = kPlaceOutside;
  return code != 0 ? code : paste(image, col, row, replace_ids);
}

Integer TDataTable::ReadFromASC(const TString& FName, Integer PosX, Integer PosY, Boolean ReplaceIDs) {
  return with_file(FName, [&](TTextFile& file) { return paste_asc(file, PosX, PosY, ReplaceIDs); });
}

Integer TDataTable::ReadFromASC(TStream* InStream, Integer PosX, Integer PosY, Boolean ReplaceIDs) {
  return with_stream(InStream, [&](TTextFile& file) { return paste_asc(file, PosX, PosY, ReplaceIDs); });
}

Integer TDataTable::ReadFromASC(TClipboard* ClipBd, Integer PosX, Integer PosY, Boolean ReplaceIDs) {
  return with_clipboard(ClipBd, [&](TTextFile& file) { return paste_asc(file, PosX, PosY, ReplaceIDs); });
}

}  // namespace ZOR_datatable

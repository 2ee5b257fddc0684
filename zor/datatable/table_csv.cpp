#include <algorithm>
#include <cmath>
#include <map>

#include "zor/datatable/csv_scanner_internal.h"
#include "zor/datatable/data_table.h"
#include "zor/datatable/table_formats_internal.h"
#include "zor/runtime/text.h"

namespace ZOR_datatable {

namespace {

using zor::detail::CsvFields;
using zor::detail::CsvRecords;
using zor::detail::to_size;

// Marks of cells while a file is read, when it is not yet known whether their column has numbers.
constexpr Byte kText = 4, kSurplusText = 8;
constexpr std::size_t kReported = 10;

/// What a column has shown so far.
struct CsvColumn {
  Int64 numbers = 0, texts = 0;
  std::map<std::string, Integer, std::less<>> slots;  // at most 151
  std::vector<std::string> order;
};

/// Reads the records of a text into an image.
class CsvReader {
 public:
  CsvReader(std::string_view bytes, const TCSVOptions& options, TCSVReport& report)
      : bytes_(bytes), options_(options), report_(report) {}
  /// 0 or a code; aborts(percent) is asked from time to time.
  template <class Aborts>
  Integer read(TTableImage& image, Aborts aborts);

 private:
  Integer find_form();
  void read_header(TTableImage& image);
  void read_record(TTableImage& image, Integer row);
  void store_text(TTableImage& image, CsvColumn& column, Integer col, Integer row, const std::string& text);
  void finish_column(TTableImage& image, Integer col);
  void report_bad(const std::vector<std::pair<Integer, Integer>>& places);
  std::size_t begin_of(Integer row) const { return records_.begins[first_ + to_size(row)]; }
  CsvFields fields(Integer row) const { return {bytes_, begin_of(row), delimiter_}; }

  std::string_view bytes_;
  const TCSVOptions& options_;
  TCSVReport& report_;
  CsvRecords records_;
  std::size_t first_ = 0;  // record of row 0
  char delimiter_ = ',';
  bool point_ = true, comma_ = false;
  Integer width_ = 0;
  std::vector<CsvColumn> columns_;
  std::vector<std::pair<Integer, Integer>> bad_;  // row, column of the first ones of each column
  std::vector<std::pair<Integer, Integer>> wide_;
};

Integer CsvReader::find_form() {
  report_ = {};
  if (options_.NLinesSkip < 0 || (options_.Delimiter && *options_.Delimiter > csvBlank)) return kCSVBadArgument;
  report_.Delimiter = options_.Delimiter ? *options_.Delimiter : zor::detail::guess_csv_delimiter(bytes_, options_);
  delimiter_ = zor::detail::kCsvDelimiters[report_.Delimiter];
  records_ = zor::detail::find_csv_records(bytes_, delimiter_, options_);
  if (records_.open_quote) return kCSVOpenQuote;
  report_.ColHeaders = options_.ColHeaders
                           ? *options_.ColHeaders
                           : zor::detail::guess_csv_header(bytes_, records_, delimiter_, options_.RowHeaders);
  comma_ = options_.DecimalComma.value_or(delimiter_ != ',');
  point_ = !options_.DecimalComma.value_or(false);
  first_ = report_.ColHeaders ? 1 : 0;
  if (records_.begins.size() <= first_) return kCSVNoRecord;
  for (CsvFields first(bytes_, records_.begins[0], delimiter_); first.more(); ++width_) first.next();
  width_ -= options_.RowHeaders;
  const auto rows = static_cast<Int64>(records_.begins.size() - first_);
  return zor::detail::may_hold_table(width_, rows, static_cast<Int64>(bytes_.size())) ? 0 : kCSVTooLarge;
}

void CsvReader::read_header(TTableImage& image) {
  CsvFields names(bytes_, records_.begins[0], delimiter_);
  if (options_.RowHeaders) names.next();
  for (Integer c = 0; c < width_ && names.more(); ++c) image.columns[c].name = names.next().text();
}

void CsvReader::store_text(TTableImage& image, CsvColumn& column, Integer col, Integer row, const std::string& text) {
  ++column.texts;
  Byte& state = image.states[col][row];
  auto found = column.slots.find(text);
  if (found == column.slots.end()) {
    if (column.order.size() == to_size(kNominalIDs)) {
      state = kSurplusText;
      return;
    }
    found = column.slots.emplace(text, zor::detail::to_integer(column.order.size())).first;
    column.order.push_back(text);
  }
  state = kText;
  image.cells[col][row] = found->second;
}

void CsvReader::read_record(TTableImage& image, Integer row) {
  CsvFields record = fields(row);
  if (options_.RowHeaders && record.more()) image.rows[row].name = record.next().text();
  for (Integer c = 0; c < width_; ++c) {
    CsvColumn& column = columns_[to_size(c)];
    if (!record.more()) {
      image.states[c][row] = kCellEmpty;
      continue;
    }
    Double& cell = image.cells[c][row];
    if (point_ && record.next_number(cell)) {
      ++column.numbers;
      continue;
    }
    const zor::detail::CsvField field = record.next();
    const std::string_view text = zor::detail::strip_blanks(field.raw);
    if (zor::detail::is_missing_word(text)) {
      image.states[c][row] = kCellEmpty;
    } else if (zor::detail::csv_number(text, point_, comma_, cell)) {
      ++column.numbers;
    } else {
      store_text(image, column, c, row, field.text());
    }
  }
  for (Integer c = width_; record.more(); ++c) {
    if (record.next().raw.empty()) continue;
    ++report_.BadFields;
    if (wide_.size() < kReported) wide_.emplace_back(row, c);
  }
}

// Only now it is known whether the texts of a column are its identifiers.
void CsvReader::finish_column(TTableImage& image, Integer col) {
  const CsvColumn& column = columns_[to_size(col)];
  if (column.texts == 0) return;
  const bool nominal = column.numbers == 0;
  TVTypeSpec& type = image.columns[col].type;
  if (nominal) type.MScaleType = stNominal;
  for (std::size_t slot = 0; nominal && slot < column.order.size(); ++slot) {
    TNominalIDStr id = column.order[slot];
    for (int copy = 2; zor::detail::find_identifier(type, id, false) >= 0; ++copy) {
      std::string end("~");
      end += std::to_string(copy);
      const TNominalIDStr whole = column.order[slot];
      std::size_t head = std::min<std::size_t>(whole.length, 10 - end.size());
      while (head > 0 && head < whole.length && (static_cast<unsigned char>(whole.text[head]) & 0xC0) == 0x80) --head;
      std::string changed(whole.text, head);
      changed += end;
      id = changed;
    }
    type.IDs[slot] = id;
  }
  std::size_t reported = 0;
  for (Integer r = 0; r < image.nrows(); ++r) {
    Byte& state = image.states[col][r];
    const bool bad = state == kSurplusText || (state == kText && !nominal);
    if (state == kText) state = 0;
    if (!bad) continue;
    state = kCellEmpty;
    image.cells[col][r] = 0.0;
    ++report_.BadFields;
    if (reported++ < kReported) bad_.emplace_back(r, col);
  }
}

// Lines and texts are looked up again for the few fields that are shown.
void CsvReader::report_bad(const std::vector<std::pair<Integer, Integer>>& places) {
  for (const auto& [row, col] : places) {
    TBadCSVField& bad = report_.First.emplace_back();
    const std::string_view before = bytes_.substr(0, begin_of(row));
    for (std::size_t i = 0; i < before.size(); ++i)
      bad.Line += before[i] == '\n' || (before[i] == '\r' && before.substr(i, 2) != "\r\n");
    ++bad.Line;
    bad.Column = col + 1;
    CsvFields record = fields(row);
    for (Integer i = options_.RowHeaders ? -1 : 0; i < col; ++i) record.next();
    bad.Text = record.next().text();
  }
}

template <class Aborts>
Integer CsvReader::read(TTableImage& image, Aborts aborts) {
  if (const Integer code = find_form(); code != 0) return code;
  const Integer rows = zor::detail::to_integer(records_.begins.size() - first_);
  image = TTableImage(width_, rows);
  columns_.resize(to_size(width_));
  if (report_.ColHeaders) read_header(image);
  constexpr Integer kRowsBetween = 1024;
  for (Integer r = 0; r < rows; ++r) {
    if (r % kRowsBetween == 0 && aborts(static_cast<Integer>(Int64{r} * 100 / rows))) return kCSVAborted;
    read_record(image, r);
  }
  for (Integer c = 0; c < width_; ++c) finish_column(image, c);
  bad_.insert(bad_.end(), wide_.begin(), wide_.end());
  std::sort(bad_.begin(), bad_.end());
  if (bad_.size() > kReported) bad_.resize(kReported);
  report_bad(bad_);
  return aborts(100) ? kCSVAborted : 0;
}

void write_csv_field(TTextFile& file, std::string_view text, char delimiter, bool only_field) {
  const bool blank_ends = !text.empty() && (zor::detail::is_blank_byte(static_cast<unsigned char>(text.front())) ||
                                            zor::detail::is_blank_byte(static_cast<unsigned char>(text.back())));
  const bool empty = text.empty() && (only_field || delimiter == ' ');
  if (!empty && !blank_ends && text.find_first_of("\"\r\n") == text.npos && text.find(delimiter) == text.npos) {
    file.Write(text);
    return;
  }
  std::string out = "\"";
  for (const char c : text) {
    out += c;
    if (c == '"') out += c;
  }
  file.Write(out + '"');
}

}  // namespace

Integer TDataTable::import_csv(std::string_view bytes, const TCSVOptions& options) {
  AbortMathProc = false;
  TTableImage image;
  TCSVReport report;
  Integer shown = -1;
  const auto aborts = [&](Integer percent) {
    if (percent != shown) PercDone(this, shown = percent);
    return static_cast<bool>(AbortMathProc.load());
  };
  const Integer code = CsvReader(bytes, options, report).read(image, aborts);
  FCSVReport = std::move(report);
  if (code != 0) return code;
  commit(image);
  return zor::detail::to_integer(to_size(FCSVReport.BadFields));
}

Integer TDataTable::ImportFromCSV(const TString& FName, const TCSVOptions& Options) {
  if (!ZOR_runtime::FileExists(FName)) return kCSVNoFile;
  TMemoryStream file;
  try {
    file.LoadFromFile(FName);
  } catch (const EInOutError&) {
    return kCSVUnreadable;
  }
  return import_csv({reinterpret_cast<const char*>(file.Bytes().data()), file.Bytes().size()}, Options);
}

Integer TDataTable::ImportFromCSV(TStream* InStream, const TCSVOptions& Options) {
  if (!InStream) return kCSVNoFile;
  std::string bytes;
  try {
    bytes = zor::detail::rest_of(*InStream);
  } catch (const EInOutError&) {
    return kCSVUnreadable;
  }
  return import_csv(bytes, Options);
}

Integer TDataTable::ImportFromCSV(const TString& FName, TCSVDelimiters Delimiter, Boolean IncludeColHeaders,
                                  Boolean IncludeRowHeaders) {
  return ImportFromCSV(FName, Delimiter, 0, 0, IncludeColHeaders, IncludeRowHeaders);
}

Integer TDataTable::ImportFromCSV(const TString& FName, TCSVDelimiters Delimiter, Integer NLinesSkip,
                                  Integer LastImportLine, Boolean IncludeColHeaders, Boolean IncludeRowHeaders) {
  TCSVOptions options;
  options.Delimiter = Delimiter;
  options.ColHeaders = IncludeColHeaders;
  options.RowHeaders = IncludeRowHeaders;
  options.NLinesSkip = NLinesSkip;
  options.LastImportLine = LastImportLine;
  return ImportFromCSV(FName, options);
}

void TDataTable::write_csv(TTextFile& file, Integer precision, TCSVDelimiters delimiter, Boolean col_headers,
                           Boolean row_headers, Boolean attributes, Boolean comment) const {
  const char between = zor::detail::kCsvDelimiters[delimiter];
  const bool only_field = NrOfColumns() + row_headers + attributes == 1;
  const auto field = [&](std::string_view text) { write_csv_field(file, text, between, only_field); };
  const auto delimit = [&](bool first) {
    if (!first) *file.room(1) = between, file.took(1);
  };
  if (comment) {
    field(Comment().utf8());
    file.WriteLn();
  }
  if (col_headers) {
    bool first = true;
    if (row_headers) field(""), first = false;
    if (attributes) delimit(first), field("(attribute)"), first = false;
    for (Integer c = 1; c <= NrOfColumns(); ++c) {
      delimit(first);
      field(ColName(c).view());
      first = false;
    }
    file.WriteLn();
  }
  std::vector<std::span<const Double>> cells;
  std::vector<std::span<const Byte>> states;
  std::vector<bool> texts;
  for (Integer c = 1; c <= NrOfColumns(); ++c) {
    cells.push_back(ColumnView(c));
    states.push_back(column_states(c));
    texts.push_back(column_is_categorial(c));
  }
  for (Integer r = 0; r < NrOfRows(); ++r) {
    bool first = true;
    if (row_headers) field(FFrame.rows[r].name.view()), first = false;
    if (attributes) delimit(first), file.WriteInteger(FFrame.rows[r].attribute), first = false;
    for (std::size_t c = 0; c < cells.size(); ++c) {
      delimit(first);
      first = false;
      const Double x = to_size(r) < cells[c].size() ? cells[c][to_size(r)] : 0.0;
      if (!is_numeric_state(states[c][to_size(r)]) || !std::isfinite(x)) {
        field("");
        continue;
      }
      if (texts[c]) {
        const TNominalIDStr id = ElemNominal(static_cast<Integer>(c + 1), r + 1);
        if (!id.empty()) {
          field(id.view());
          continue;
        }
      }
      char* const out = file.room(zor::detail::kNumberBuffer);
      file.took(precision < 0 ? zor::detail::format_shortest(out, x) : zor::detail::format_fixed(out, x, precision));
    }
    file.WriteLn();
  }
}

TString TDataTable::ExportAsCSV(const TString& FName, Integer Precision, TCSVDelimiters Delimiter,
                                Boolean IncludeColHeaders, Boolean IncludeRowHeaders) const {
  return ExportAsCSV(FName, Precision, Delimiter, IncludeColHeaders, IncludeRowHeaders, false, false);
}

TString TDataTable::ExportAsCSV(const TString& FName, Integer Precision, TCSVDelimiters Delimiter,
                                Boolean IncludeColHeaders, Boolean IncludeRowHeaders,
                                Boolean IncludeRowAttributes) const {
  return ExportAsCSV(FName, Precision, Delimiter, IncludeColHeaders, IncludeRowHeaders, IncludeRowAttributes, false);
}

TString TDataTable::ExportAsCSV(const TString& FName, Integer Precision, TCSVDelimiters Delimiter,
                                Boolean IncludeColHeaders, Boolean IncludeRowHeaders, Boolean IncludeRowAttributes,
                                Boolean IncludeComment) const {
  if (Delimiter > csvBlank) return "ExportAsCSV: unknown delimiter";
  return zor::detail::failure_of([&] {
    TTextFile file(FName);
    file.Replace();
    write_csv(file, Precision, Delimiter, IncludeColHeaders, IncludeRowHeaders, IncludeRowAttributes, IncludeComment);
    file.Close();
  });
}

TString TDataTable::ExportAsCSV(TStream* OutStream, Integer Precision, TCSVDelimiters Delimiter,
                                Boolean IncludeColHeaders, Boolean IncludeRowHeaders, Boolean IncludeRowAttributes,
                                Boolean IncludeComment) const {
  if (!OutStream) return "ExportAsCSV: stream is undefined";
  if (Delimiter > csvBlank) return "ExportAsCSV: unknown delimiter";
  return zor::detail::failure_of([&] {
    TTextFile file;
    file.AssignStream(OutStream);
    file.Rewrite();
    write_csv(file, Precision, Delimiter, IncludeColHeaders, IncludeRowHeaders, IncludeRowAttributes, IncludeComment);
    file.Close();
  });
}

}  // namespace ZOR_datatable

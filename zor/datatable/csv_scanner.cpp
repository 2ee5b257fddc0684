#include "zor/datatable/csv_scanner_internal.h"

#include <algorithm>
#include <cstring>
#include <set>

#include "zor/datatable/table_image.h"
#include "zor/runtime/number_reader.h"

namespace zor::detail {

using ZOR_datatable::TCSVOptions;
using ZOR_zorbase::Int64;
using ZOR_zorbase::TCSVDelimiters;

std::string CsvField::text() const {
  std::string out(raw);
  for (std::size_t at = 0; quoted && (at = out.find("\"\"", at)) != out.npos; ++at) out.erase(at, 1);
  return out;
}

bool CsvFields::close() noexcept {
  if (delimiter_ == ' ') {
    const bool blank = is_blank();
    skip_blanks();
    more_ = !at_end();
    return blank || !more_;
  }
  skip_blanks();
  more_ = !at_end();
  if (!more_) return true;
  if (*p_ != delimiter_) return false;
  ++p_;
  return true;
}

bool CsvFields::next_number(double& x) noexcept {
  const char* const begin = p_;
  skip_blanks();
  const auto number = parse_number(std::string_view(p_, static_cast<std::size_t>(end_ - p_)));
  if (number) {
    p_ += number.end;
    if (close()) {
      x = number.value;
      return true;
    }
  }
  p_ = begin;
  more_ = true;
  return false;
}

CsvField CsvFields::next() {
  skip_blanks();
  CsvField field;
  if (p_ != end_ && *p_ == '"') {
    const char* const begin = ++p_;
    while (p_ != end_) {
      p_ = static_cast<const char*>(std::memchr(p_, '"', static_cast<std::size_t>(end_ - p_)));
      if (!p_) p_ = end_;
      if (p_ + 1 >= end_ || p_[1] != '"') break;
      p_ += 2;
    }
    field = {std::string_view(begin, static_cast<std::size_t>(p_ - begin)), true};
    if (p_ != end_) ++p_;
    if (close()) return field;
    // What stands behind a closing quote belongs to no field.
  }
  const char* const begin = p_;
  while (!at_end() && *p_ != delimiter_) ++p_;
  if (!field.quoted) {
    const char* last = p_;
    while (last != begin && (last[-1] == ' ' || last[-1] == '\t')) --last;
    field.raw = {begin, static_cast<std::size_t>(last - begin)};
  }
  close();
  return field;
}

CsvRecords find_csv_records(std::string_view bytes, char delimiter, const TCSVOptions& options) {
  CsvRecords records;
  const bool plain = bytes.find('"') == bytes.npos && bytes.find('\r') == bytes.npos;
  Int64 line = 1;
  std::size_t at = bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0;
  const auto end_line = [&] {  // at a line end, or at the end
    if (at < bytes.size()) at += bytes.substr(at).starts_with("\r\n") ? 2 : 1;
    ++line;
  };
  while (at < bytes.size()) {
    if (options.LastImportLine >= 1 && line > options.LastImportLine) break;
    const bool skip = line <= options.NLinesSkip || (options.CommentSign != 0 && bytes[at] == options.CommentSign) ||
                      is_line_end(bytes[at]);
    if (!skip) records.begins.push_back(at);
    if (skip || plain) {
      at = plain ? std::min(bytes.find('\n', at), bytes.size())
                 : std::min(bytes.find_first_of("\r\n", at), bytes.size());
      end_line();
      continue;
    }
    for (bool field_begins = true; at < bytes.size() && !is_line_end(bytes[at]);) {
      const char c = bytes[at++];
      if (c == '"' && field_begins) {
        for (;;) {
          const std::size_t quote = std::min(bytes.find('"', at), bytes.size());
          for (; at < quote; ++at) line += bytes[at] == '\n' || (bytes[at] == '\r' && bytes.substr(at, 2) != "\r\n");
          if (at == bytes.size()) {
            records.open_quote = true;
            return records;
          }
          ++at;
          if (at == bytes.size() || bytes[at] != '"') break;
          ++at;
        }
      }
      field_begins = c == delimiter || (field_begins && (c == ' ' || c == '\t'));
    }
    end_line();
  }
  return records;
}

bool is_missing_word(std::string_view field) noexcept {
  if (field.size() > 4) return false;
  for (const std::string_view word : {"", "NA", "N/A", "NAN", "NULL", "###"}) {
    const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    if (std::ranges::equal(field, word, {}, upper)) return true;
  }
  return false;
}

bool csv_number(std::string_view field, bool point, bool comma, double& x) noexcept {
  const auto number = parse_number(field, NumberGrammar{true, point, comma});
  if (!number || number.end != field.size()) return false;
  x = number.value;
  return true;
}

namespace {

std::vector<std::string> fields_of(std::string_view bytes, std::size_t begin, char delimiter) {
  std::vector<std::string> texts;
  for (CsvFields fields(bytes, begin, delimiter); fields.more();) texts.push_back(fields.next().text());
  return texts;
}

}  // namespace

TCSVDelimiters guess_csv_delimiter(std::string_view bytes, const TCSVOptions& options) {
  constexpr std::size_t kLooked = 100, kLookedBytes = 1 << 16;
  TCSVDelimiters best = ZOR_zorbase::csvComma;
  double best_share = 0.0;
  for (const TCSVDelimiters candidate :
       {ZOR_zorbase::csvTab, ZOR_zorbase::csvSemicolon, ZOR_zorbase::csvComma, ZOR_zorbase::csvBlank}) {
    const char delimiter = kCsvDelimiters[candidate];
    const auto begins = find_csv_records(bytes.substr(0, kLookedBytes), delimiter, options).begins;
    const std::size_t n = std::min(begins.size(), kLooked);
    if (n == 0) continue;
    const std::size_t width = fields_of(bytes, begins[0], delimiter).size();
    std::size_t same = 0;
    for (std::size_t i = 0; i < n; ++i) same += fields_of(bytes, begins[i], delimiter).size() == width;
    const double share = static_cast<double>(same) / static_cast<double>(n);
    if (width > 1 && share > best_share) best = candidate, best_share = share;
  }
  return best;
}

bool guess_csv_header(std::string_view bytes, const CsvRecords& records, char delimiter, bool row_names) {
  if (records.begins.size() < 2) return false;
  std::vector<std::string> names = fields_of(bytes, records.begins[0], delimiter);
  if (row_names && !names.empty()) names.erase(names.begin());
  std::set<std::string> known;
  for (const std::string& name : names) {
    double x = 0.0;
    const bool number = csv_number(name, true, delimiter != ',', x);
    if (number || is_missing_word(name) || !known.insert(name).second) return false;
  }
  return !names.empty();
}

}  // namespace zor::detail

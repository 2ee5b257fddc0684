#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zor/datatable/csv_options.h"

/// \file  Records and fields of delimited text, as bytes in place.

namespace zor::detail {

inline constexpr char kCsvDelimiters[] = {',', ';', '\t', ' '};

constexpr bool is_line_end(char c) noexcept { return c == '\n' || c == '\r'; }

/// A field: its text without blanks around it, or, if it stands in quotes, between them with the quotes doubled.
struct CsvField {
  std::string_view raw;
  bool quoted = false;
  /// The text.
  std::string text() const;
};

/// Where the records of a text begin. Lines without a character, and comments, have none.
struct CsvRecords {
  std::vector<std::size_t> begins;
  bool open_quote = false;
};
CsvRecords find_csv_records(std::string_view bytes, char delimiter, const ZOR_datatable::TCSVOptions& options);

/// Takes the fields of a record one by one.
class CsvFields {
 public:
  CsvFields(std::string_view bytes, std::size_t at, char delimiter) noexcept
      : p_(bytes.data() + at), end_(bytes.data() + bytes.size()), delimiter_(delimiter) {
    if (delimiter_ == ' ') skip_blanks();
  }
  /// False behind the last field.
  bool more() const noexcept { return more_; }
  /// The next field; nothing else but its end is looked for.
  CsvField next();
  /// The next field if it is a plain number, with a point as decimal sign; else nothing is taken.
  bool next_number(double& x) noexcept;

 private:
  bool at_end() const noexcept { return p_ == end_ || is_line_end(*p_); }
  bool is_blank() const noexcept {
    return p_ != end_ && (*p_ == ' ' || *p_ == '\t') && (*p_ != delimiter_ || delimiter_ == ' ');
  }
  void skip_blanks() noexcept {
    while (is_blank()) ++p_;
  }
  /// Behind a field: takes the delimiter. False if something else stands there.
  bool close() noexcept;

  const char* p_;
  const char* end_;
  char delimiter_;
  bool more_ = true;
};

/// True for an empty field and the words for a missing value.
bool is_missing_word(std::string_view field) noexcept;
/// The number that a field is.
bool csv_number(std::string_view field, bool point, bool comma, double& x) noexcept;

/// The delimiter that splits the first lines most evenly.
ZOR_zorbase::TCSVDelimiters guess_csv_delimiter(std::string_view bytes, const ZOR_datatable::TCSVOptions& options);
/// True if the first record looks like names: no field is a number or missing, none comes twice.
bool guess_csv_header(std::string_view bytes, const CsvRecords& records, char delimiter, bool row_names);

}  // namespace zor::detail

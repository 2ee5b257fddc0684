#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// \file  Reader of comma-separated tables.
/// Fields may stand between double quotes, in which a comma is text and a doubled quote is one quote. Lines end with LF
/// or CRLF; empty lines are skipped. All errors are std::runtime_error and name the file and the line.

namespace tour {

/// A table as text, column by column.
struct CsvTable {
  std::string file;
  std::vector<std::string> names;
  std::vector<std::vector<std::string>> columns;

  std::size_t rows() const { return columns.empty() ? 0 : columns.front().size(); }
  /// The column of that name.
  const std::vector<std::string>& texts(std::string_view name) const;
  /// The column of that name as numbers; NaN for empty fields and "NA", any other text is an error.
  std::vector<double> numbers(std::string_view name) const;
};

/// Reads a file whose first line holds the names. A line with another number of fields is an error.
CsvTable read_csv(const std::filesystem::path& file);

/// The same for text at hand; `file` is used in messages.
CsvTable parse_csv(std::string_view text, std::string file);

/// Reads a file without names; its columns are called 1, 2, and so on.
CsvTable read_plain_csv(const std::filesystem::path& file);

/// The whole file as text.
std::string read_text(const std::filesystem::path& file);

/// The number that `text` consists of, blanks around it allowed; false if there is none.
bool to_number(std::string_view text, double& value);

}  // namespace tour

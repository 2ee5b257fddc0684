#include "examples/tour/csv.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <limits>
#include <stdexcept>

namespace tour {
namespace {

// Takes one field off the front of `rest` and tells whether a comma followed it.
bool next_field(std::string_view& rest, std::string& field) {
  field.clear();
  bool quoted = false;
  for (std::size_t i = 0; i < rest.size(); ++i) {
    const char c = rest[i];
    if (c == '"') {
      if (quoted && i + 1 < rest.size() && rest[i + 1] == '"')
        field += rest[++i];
      else
        quoted = !quoted;
    } else if (c == ',' && !quoted) {
      rest.remove_prefix(i + 1);
      return true;
    } else {
      field += c;
    }
  }
  rest = {};
  return false;
}

std::vector<std::string> fields_of(std::string_view line) {
  std::vector<std::string> fields(1);
  while (next_field(line, fields.back())) fields.emplace_back();
  return fields;
}

CsvTable parse(std::string_view text, std::string file, bool named) {
  CsvTable table;
  table.file = std::move(file);
  int line_number = 0;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    ++line_number;
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.empty()) continue;
    auto fields = fields_of(line);
    if (table.names.empty()) {
      for (std::size_t i = 0; i < fields.size(); ++i) table.names.push_back(named ? fields[i] : std::to_string(i + 1));
      table.columns.resize(fields.size());
      if (named) continue;
    }
    if (fields.size() != table.names.size())
      throw std::runtime_error(table.file + ", line " + std::to_string(line_number) + ": " +
                               std::to_string(fields.size()) + " fields, " + std::to_string(table.names.size()) +
                               " expected");
    for (std::size_t i = 0; i < fields.size(); ++i) table.columns[i].push_back(std::move(fields[i]));
  }
  return table;
}

}  // namespace

std::string read_text(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw std::runtime_error(file.string() + ": cannot be opened");
  return {std::istreambuf_iterator<char>(in), {}};
}

bool to_number(std::string_view text, double& value) {
  const auto first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return false;
  text = text.substr(first, text.find_last_not_of(" \t\r") + 1 - first);
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

CsvTable parse_csv(std::string_view text, std::string file) { return parse(text, std::move(file), true); }

CsvTable read_csv(const std::filesystem::path& file) { return parse_csv(read_text(file), file.filename().string()); }

CsvTable read_plain_csv(const std::filesystem::path& file) {
  return parse(read_text(file), file.filename().string(), false);
}

const std::vector<std::string>& CsvTable::texts(std::string_view name) const {
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) throw std::runtime_error(file + ": no column \"" + std::string(name) + "\"");
  return columns[static_cast<std::size_t>(found - names.begin())];
}

std::vector<double> CsvTable::numbers(std::string_view name) const {
  std::vector<double> values;
  for (const std::string& text : texts(name)) {
    double value = std::numeric_limits<double>::quiet_NaN();
    if (!text.empty() && text != "NA" && !to_number(text, value))
      throw std::runtime_error(file + ", column \"" + std::string(name) + "\": \"" + text + "\" is no number");
    values.push_back(value);
  }
  return values;
}

}  // namespace tour

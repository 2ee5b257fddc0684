#include "examples/tour/sources.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "examples/tour/csv.h"

namespace tour {
namespace {

std::string next_cell(std::istringstream& row) {
  std::string cell;
  std::getline(row, cell, '|');
  const auto first = cell.find_first_not_of(' ');
  return first == std::string::npos ? "" : cell.substr(first, cell.find_last_not_of(' ') + 1 - first);
}

bool matches(const std::string& pattern, const std::string& file) {
  const auto star = pattern.find('*');
  if (star == std::string::npos) return pattern == file;
  return file.size() + 1 >= pattern.size() && file.starts_with(pattern.substr(0, star)) &&
         file.ends_with(pattern.substr(star + 1));
}

}  // namespace

std::vector<DataSource> read_sources(const std::filesystem::path& folder) {
  std::vector<DataSource> sources;
  std::istringstream text(read_text(folder / "README.md"));
  for (std::string line; std::getline(text, line);) {
    if (!line.starts_with("| `") || std::count(line.begin(), line.end(), '|') != 6) continue;
    std::istringstream row(line.substr(1));
    std::string file = next_cell(row);
    next_cell(row);  // the size says nothing to a reader of the report
    DataSource source{file.substr(1, file.size() - 2), next_cell(row), next_cell(row), next_cell(row)};
    sources.push_back(std::move(source));
  }
  return sources;
}

const DataSource& source_of(const std::vector<DataSource>& sources, const std::string& file) {
  const auto found =
      std::find_if(sources.begin(), sources.end(), [&](const DataSource& s) { return matches(s.file, file); });
  if (found == sources.end()) throw std::runtime_error(file + ": the README of the data folder names no source");
  return *found;
}

}  // namespace tour

#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// \file  Where the data come from, as the README of the data folder says it.

namespace tour {

/// A row of the table of that README.
struct DataSource {
  std::string file, what, origin, terms;  // the file name may hold one *, which stands for any text
};

/// The rows of the table in `folder`/README.md.
std::vector<DataSource> read_sources(const std::filesystem::path& folder);

/// The row of a file; std::runtime_error if it has none, since nothing is shown without its source.
const DataSource& source_of(const std::vector<DataSource>& sources, const std::string& file);

}  // namespace tour

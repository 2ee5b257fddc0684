#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "examples/plot/chart.h"

/// \file  What a chapter writes on: prose, code, pictures and tables, in the order of the calls.

namespace tour {

class Page {
 public:
  /// `scratch` is a folder for files that the chapter writes; `code` are the parts of its source to show.
  Page(std::filesystem::path data, std::filesystem::path scratch, std::vector<std::string> code);

  /// Path of a file of the data folder; the report names its source.
  std::filesystem::path data(const std::string& file);
  /// Path of a file that the chapter may write. The folder is made at the first call.
  std::filesystem::path scratch(const std::string& file);
  /// The seed itself; the report names it.
  std::uint64_t seed(std::uint64_t value);

  /// Heading of a section.
  void section(std::string_view title);
  /// Paragraphs, a blank line between two; `code` between back quotes.
  void prose(std::string_view text);
  /// The next part of the source that stands between the lines `// [show]` and `// [/show]`. Pictures and tables that
  /// follow stand beside it, until the next section, prose or code.
  void code();
  /// A picture, with a sentence below it.
  void figure(const plot::Chart& chart, std::string_view caption = {});
  /// A table with a head line; the first column is text, the others are numbers and stand to the right.
  void table(const std::vector<std::string>& head, const std::vector<std::vector<std::string>>& rows);

  /// The body of the chapter as HTML.
  std::string html() const;
  const std::vector<std::string>& files() const { return files_; }
  const std::vector<std::uint64_t>& seeds() const { return seeds_; }

 private:
  void close_step();

  std::filesystem::path data_, scratch_;
  std::vector<std::string> code_, files_;
  std::vector<std::uint64_t> seeds_;
  std::size_t next_code_ = 0;
  std::string html_, beside_;
  bool in_step_ = false;
};

}  // namespace tour

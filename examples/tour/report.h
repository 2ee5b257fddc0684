#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "examples/tour/chapter.h"
#include "examples/tour/sources.h"

/// \file  The report: one HTML file with its pictures and styles in it; it needs no network and no script.

namespace tour {

/// What running a chapter gave. `error` is empty if all went well.
struct ChapterResult {
  Chapter chapter;
  Page page;
  double milliseconds;
  std::string error;
};

/// Runs a chapter; an exception ends it and becomes its error.
ChapterResult run_chapter(const Chapter& chapter, const std::filesystem::path& data,
                          const std::filesystem::path& scratch);

/// The report as text. std::runtime_error if a file that was read has no source.
std::string report(const std::vector<ChapterResult>& results, const std::vector<DataSource>& sources);

}  // namespace tour

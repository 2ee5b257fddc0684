#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "examples/tour/chapter.h"
#include "examples/tour/report.h"

/// \file  Runs the chapters of the tour and writes what they show into one HTML file.

namespace {

constexpr const char* kUsage =
    "usage: tour [--chapter NAME]... [--output FILE] [--data DIR] [--list]\n"
    "  --chapter NAME  run this chapter only (may be given several times); all of them by default\n"
    "  --output FILE   where the report goes; tour.html by default\n"
    "  --data DIR      folder with the data files\n"
    "  --list          names and titles of the chapters\n";

struct Options {
  std::vector<std::string> chapters;
  std::filesystem::path output = "tour.html", data = ZOR_EXAMPLES_DATA;
  bool list = false, help = false;
};

bool parse(int count, char** words, Options& options) {
  for (int i = 1; i < count; ++i) {
    const std::string word = words[i];
    if (word == "--list" || word == "--help") {
      (word == "--list" ? options.list : options.help) = true;
      continue;
    }
    if (i + 1 == count) return false;
    const std::string value = words[++i];
    if (word == "--chapter")
      options.chapters.push_back(value);
    else if (word == "--output")
      options.output = value;
    else if (word == "--data")
      options.data = value;
    else
      return false;
  }
  return true;
}

std::vector<tour::Chapter> chosen(const Options& options) {
  const auto all = tour::chapters();
  if (options.chapters.empty()) return all;
  std::vector<tour::Chapter> some;
  for (const auto& name : options.chapters) {
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& chapter) { return chapter.name == name; });
    if (found == all.end()) throw std::runtime_error("no chapter \"" + name + "\"; --list names them");
    some.push_back(*found);
  }
  return some;
}

int run(const Options& options) {
  const auto chapters = chosen(options);
  if (options.list) {
    for (const auto& chapter : chapters) std::printf("%-14s %s\n", chapter.name.c_str(), chapter.title.c_str());
    return 0;
  }
  const auto output = std::filesystem::absolute(options.output);
  const auto sources = tour::read_sources(options.data);
  std::vector<tour::ChapterResult> results;
  bool failed = false;
  for (const auto& chapter : chapters) {
    results.push_back(tour::run_chapter(chapter, options.data, output.parent_path() / "tour-files" / chapter.name));
    const auto& result = results.back();
    std::printf("%-14s %9.1f ms  %s\n", chapter.name.c_str(), result.milliseconds,
                result.error.empty() ? chapter.title.c_str() : ("FAILED: " + result.error).c_str());
    failed = failed || !result.error.empty();
  }
  std::ofstream file(output, std::ios::binary);
  file << tour::report(results, sources) << std::flush;
  if (!file) throw std::runtime_error(output.string() + ": cannot be written");
  std::printf("report: %s\n", output.string().c_str());
  return failed ? 1 : 0;
}

}  // namespace

int main(int count, char** words) {
  Options options;
  if (!parse(count, words, options)) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  if (options.help) {
    std::fputs(kUsage, stdout);
    return 0;
  }
  try {
    return run(options);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tour: %s\n", error.what());
    return 1;
  }
}

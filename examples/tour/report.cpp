#include "examples/tour/report.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <exception>

#include "examples/plot/markup.h"
#include "examples/tour/code.h"
#include "examples/tour/report_style.h"
#include "zor/version.h"

namespace tour {
namespace {

using plot::escaped;

std::vector<Chapter>& registry() {
  static std::vector<Chapter> all;
  return all;
}

std::string compiler() {
#if defined(__clang__)
  return "Clang " + std::to_string(__clang_major__) + "." + std::to_string(__clang_minor__);
#elif defined(__GNUC__)
  return "GCC " + std::to_string(__GNUC__) + "." + std::to_string(__GNUC_MINOR__);
#else
  return "an unnamed compiler";
#endif
}

std::string today() {
  const std::time_t now = std::time(nullptr);
  char text[16] = "";
  std::strftime(text, sizeof text, "%Y-%m-%d", std::gmtime(&now));
  return text;
}

std::string duration(double milliseconds) {
  return milliseconds < 1000.0 ? plot::short_text(milliseconds, 3) + " ms"
                               : plot::short_text(milliseconds / 1000.0, 3) + " s";
}

template <class T, class ToText>
std::string joined(const std::vector<T>& items, ToText to_text) {
  std::string out;
  for (const T& item : items) out += (out.empty() ? "" : ", ") + to_text(item);
  return out;
}

std::string facts(const ChapterResult& result) {
  std::string out = "<p class=\"facts\">ran in " + duration(result.milliseconds);
  out += result.page.seeds().empty()
             ? " · no random numbers"
             : " · seed " + joined(result.page.seeds(), [](std::uint64_t seed) { return std::to_string(seed); });
  if (!result.page.files().empty()) out += " · data: " + joined(result.page.files(), escaped);
  return out + "</p>\n";
}

std::string contents(const std::vector<ChapterResult>& results) {
  std::string out = "<nav aria-label=\"Contents\"><p>Contents</p><ol>\n";
  for (const auto& result : results)
    out += "<li><a href=\"#" + escaped(result.chapter.name) + "\">" + escaped(result.chapter.title) + "</a></li>\n";
  return out + "<li><a href=\"#sources\">Data and sources</a></li>\n</ol></nav>\n";
}

std::string section(const ChapterResult& result) {
  std::string out = "<section id=\"" + escaped(result.chapter.name) + "\">\n<h2>" + escaped(result.chapter.title) +
                    "</h2>\n" + facts(result) + result.page.html();
  if (!result.error.empty()) out += "<p class=\"error\">The chapter ended early: " + escaped(result.error) + "</p>\n";
  return out + "</section>\n";
}

std::string sources_section(const std::vector<ChapterResult>& results, const std::vector<DataSource>& sources) {
  std::vector<const DataSource*> used;
  for (const auto& result : results)
    for (const auto& file : result.page.files()) {
      const DataSource& source = source_of(sources, file);
      if (std::find(used.begin(), used.end(), &source) == used.end()) used.push_back(&source);
    }
  std::string out = "<section id=\"sources\">\n<h2>Data and sources</h2>\n";
  out += used.empty() ? "<p>No data files were read.</p>\n" : "<dl>\n";
  for (const DataSource* source : used)
    out += "<dt><code>" + escaped(source->file) + "</code></dt>\n<dd>" + escaped(source->what) +
           ".<br>Source: " + escaped(source->origin) + ".<br>Terms: " + escaped(source->terms) + ".</dd>\n";
  if (!used.empty())
    out +=
        "</dl>\n<p>Pictures and figures of this report are computed from these data; they are not part of them, and "
        "none of the sources answers for them.</p>\n";
  return out + "</section>\n";
}

}  // namespace

Register::Register(Chapter chapter) { registry().push_back(std::move(chapter)); }

std::vector<Chapter> chapters() {
  auto all = registry();
  std::sort(all.begin(), all.end(), [](const Chapter& a, const Chapter& b) { return a.order < b.order; });
  return all;
}

ChapterResult run_chapter(const Chapter& chapter, const std::filesystem::path& data,
                          const std::filesystem::path& scratch) {
  ChapterResult result{chapter, Page(data, scratch, shown_parts(chapter_source(chapter.name))), 0.0, {}};
  const auto start = std::chrono::steady_clock::now();
  try {
    chapter.run(result.page);
  } catch (const std::exception& error) {
    result.error = error.what();
  }
  result.milliseconds = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
  return result;
}

std::string report(const std::vector<ChapterResult>& results, const std::vector<DataSource>& sources) {
  double total = 0.0;
  for (const auto& result : results) total += result.milliseconds;
  std::string out =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>A tour of ZOR</title>\n"
      "<style>\n";
  out += plot::style_sheet();
  out += report_style();
  out +=
      "</style>\n</head>\n<body>\n<header>\n<h1>A tour of ZOR</h1>\n"
      "<p class=\"lead\">What the library does with real data: every number and picture below was computed by the "
      "code beside it.</p>\n<p class=\"facts\">ZOR " +
      std::string(zor::version()) + " · " + compiler() + " · " + std::to_string(results.size()) +
      (results.size() == 1 ? " chapter in " : " chapters in ") + duration(total) + " · " + today() +
      "</p>\n</header>\n";
  out += contents(results) + "<main>\n";
  for (const auto& result : results) out += section(result);
  return out + sources_section(results, sources) + "</main>\n</body>\n</html>\n";
}

}  // namespace tour

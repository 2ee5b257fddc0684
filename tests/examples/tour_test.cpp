#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <stdexcept>

#include "examples/tour/certified.h"
#include "examples/tour/chapter.h"
#include "examples/tour/code.h"
#include "examples/tour/csv.h"
#include "examples/tour/report.h"
#include "tests/source_dir.h"

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

const std::filesystem::path kData = zor::test::source_dir() / "examples/data";

double mean(const std::vector<double>& values) {
  double sum = 0.0;
  for (const double value : values) sum += value;
  return sum / static_cast<double>(values.size());
}

std::string error_of(const std::function<void()>& action) {
  try {
    action();
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "no error";
}

// Counts and means as the README of the data folder gives them.
TEST(Csv, ReadsTheSeriesAsTheirReadmeDescribesThem) {
  const auto spots = tour::read_csv(kData / "sunspots.csv").numbers("SUNACTIVITY");
  EXPECT_EQ(spots.size(), 309u);
  EXPECT_NEAR(mean(spots), 49.752104, 5e-7);
  const auto nile = tour::read_csv(kData / "nile.csv").numbers("volume");
  EXPECT_EQ(nile.size(), 100u);
  EXPECT_NEAR(mean(nile), 919.35, 1e-9);
  const auto air = tour::read_csv(kData / "co2.csv").numbers("co2_ppm");
  EXPECT_EQ(air.size(), 820u);
  EXPECT_NEAR(mean(air), 361.197061, 5e-7);
}

TEST(Csv, ReadsThePhotographWithoutLosingItsFirstRow) {
  const auto photo = tour::read_plain_csv(kData / "ascent.csv");
  ASSERT_EQ(photo.names.size(), 256u);
  EXPECT_EQ(photo.rows(), 256u);
  double sum = 0.0;
  for (const auto& name : photo.names) sum += 256.0 * mean(photo.numbers(name));
  EXPECT_EQ(sum, 5732801.0);
}

TEST(Csv, TakesQuotesCarriageReturnsAndMissingCells) {
  const auto table = tour::parse_csv("name,size\r\n\"Smith, \"\"J\"\"\",NA\r\n\n,2.5", "t.csv");
  EXPECT_THAT(table.texts("name"), ElementsAre("Smith, \"J\"", ""));
  EXPECT_TRUE(std::isnan(table.numbers("size")[0]));
  EXPECT_EQ(table.numbers("size")[1], 2.5);
}

TEST(Csv, NamesFileAndPlaceOfWhatIsWrong) {
  EXPECT_EQ(error_of([] { tour::parse_csv("a,b\n1,2\n3\n", "t.csv"); }), "t.csv, line 3: 1 fields, 2 expected");
  EXPECT_EQ(error_of([] { tour::parse_csv("a\n1x\n", "t.csv").numbers("a"); }),
            "t.csv, column \"a\": \"1x\" is no number");
  EXPECT_EQ(error_of([] { tour::parse_csv("a\n1\n", "t.csv").texts("b"); }), "t.csv: no column \"b\"");
  EXPECT_EQ(tour::parse_csv("", "t.csv").rows(), 0u);
}

TEST(Certified, ReadsValuesAndAllObservations) {
  const auto lew = tour::read_certified(kData / "nist/Lew.dat");
  EXPECT_EQ(lew.y.size(), 200u);
  EXPECT_EQ(lew.mean, -177.435);
  EXPECT_EQ(lew.stddev, 277.332168044316);
  EXPECT_EQ(lew.autocorrelation, -0.307304800605679);
  const auto hard = tour::read_certified(kData / "nist/NumAcc4.dat");
  EXPECT_EQ(hard.y.size(), 1001u);
  EXPECT_EQ(hard.y.front(), 10000000.2);
}

TEST(DigitsReached, CountsFromNoneToFifteen) {
  EXPECT_NEAR(tour::digits_reached(1.001, 1.0), 3.0, 1e-9);
  EXPECT_EQ(tour::digits_reached(-0.5, -0.5), 15.0);
  EXPECT_EQ(tour::digits_reached(7.0, 1.0), 0.0);
  EXPECT_EQ(tour::digits_reached(std::numeric_limits<double>::quiet_NaN(), 1.0), 0.0);
}

TEST(ShownParts, AreCutOutWithoutTheirIndentation) {
  EXPECT_THAT(tour::shown_parts("a\n  // [show]\n  if (x)\n    y;\n\n  // [/show]\nb\n// [show]\nc\n// [/show]\n"),
              ElementsAre("if (x)\n  y;\n\n", "c\n"));
  EXPECT_THAT(tour::shown_parts("// [show]\nnever closed\n"), ElementsAre());
}

TEST(Highlighted, KeepsTheTextAndEscapesIt) {
  EXPECT_EQ(tour::highlighted("if (a<1.5) // x\n"),
            "<span class=\"k-keyword\">if</span> (a&lt;<span class=\"k-number\">1.5</span>) "
            "<span class=\"k-comment\">// x</span>\n");
  EXPECT_EQ(tour::highlighted("\"a\\\"b"), "<span class=\"k-text\">&quot;a\\&quot;b</span>");
}

void small_chapter(tour::Page& page) {
  page.seed(42);
  const auto nile = tour::read_csv(page.data("nile.csv"));
  page.prose("One & `two`.\n\nThree.");
  plot::Chart chart("Flow");
  page.figure(chart.line(nile.numbers("year"), nile.numbers("volume")), "caption");
  page.table({"", "n"}, {{"flow", "100"}});
}

TEST(Report, IsOneFileThatNeedsNothingElse) {
  const tour::Chapter chapter{1, "small", "A small chapter", small_chapter};
  const auto result = tour::run_chapter(chapter, kData, "unused");
  const std::string html = tour::report({result}, tour::read_sources(kData));
  for (const auto* text : {"<h2>A small chapter</h2>", "href=\"#small\"", "seed 42", "One &amp; <code>two</code>.",
                           "Cobb (1978), Biometrika 65", "public domain", "prefers-color-scheme: dark"})
    EXPECT_THAT(html, HasSubstr(text));
  for (const auto* text : {"<script", "<link", "src=", "@import", "url(", "href=\"http"})
    EXPECT_THAT(html, Not(HasSubstr(text)));
}

TEST(Report, NamesTheSourceOfEveryFileOrRefuses) {
  const auto sources = tour::read_sources(kData);
  EXPECT_THAT(tour::source_of(sources, "nist/Lew.dat").origin, HasSubstr("National Institute of Standards"));
  EXPECT_THAT(tour::source_of(sources, "co2.csv").terms, HasSubstr("NOAA asks not to present altered data"));
  const tour::Chapter chapter{1, "odd", "", [](tour::Page& page) { page.data("secret.csv"); }};
  EXPECT_THAT(error_of([&] { tour::report({tour::run_chapter(chapter, kData, "unused")}, sources); }),
              HasSubstr("secret.csv: the README of the data folder names no source"));
}

TEST(RunChapter, TurnsAnExceptionIntoAnErrorAndKeepsThePage) {
  const tour::Chapter chapter{1, "bad", "", [](tour::Page& page) {
                                page.prose("before");
                                page.code();
                              }};
  const auto result = tour::run_chapter(chapter, kData, "unused");
  EXPECT_EQ(result.error, "no further part of the source is marked to be shown");
  EXPECT_THAT(result.page.html(), HasSubstr("before"));
}

TEST(Chapters, ComeInTheirOrder) {
  const tour::Register late({20, "late", "", small_chapter}), early({10, "early", "", small_chapter});
  std::vector<std::string> names;
  for (const auto& chapter : tour::chapters()) names.push_back(chapter.name);
  EXPECT_THAT(names, ElementsAre("early", "late"));
}

}  // namespace

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "examples/plot/chart.h"
#include "examples/plot/markup.h"

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

// Elements that are open at the end of the text, or -1 if they don't nest.
int open_elements(const std::string& xml) {
  std::vector<std::string> open;
  for (std::size_t at = xml.find('<'); at != std::string::npos; at = xml.find('<', at + 1)) {
    const auto end = xml.find('>', at);
    if (end == std::string::npos) return -1;
    const std::string tag = xml.substr(at + 1, end - at - 1);
    if (tag.back() == '/') continue;
    if (tag.front() != '/') {
      open.push_back(tag.substr(0, tag.find(' ')));
    } else {
      if (open.empty() || open.back() != tag.substr(1)) return -1;
      open.pop_back();
    }
  }
  return static_cast<int>(open.size());
}

TEST(Ticks, AreMultiplesOfOneTwoOrFive) {
  const auto ticks = plot::ticks_125(0.0, 190.2, 6);
  EXPECT_DOUBLE_EQ(ticks.first, 0.0);
  EXPECT_DOUBLE_EQ(ticks.step, 50.0);
  EXPECT_EQ(ticks.count, 4);
  EXPECT_DOUBLE_EQ(plot::ticks_125(-0.31, 0.42, 7).step, 0.1);
  EXPECT_DOUBLE_EQ(plot::ticks_125(1871, 1970, 5).first, 1880.0);
}

TEST(Ticks, IncludeABoundThatIsAMultipleButForRounding) {
  const auto ticks = plot::ticks_125(0.1 + 0.2, 0.9, 6);  // 0.30000000000000004
  EXPECT_NEAR(ticks.first, 0.3, 1e-12);
  EXPECT_NEAR(ticks.at(ticks.count - 1), 0.9, 1e-12);
}

// Labels must find room: never more than a quarter above what was asked for, but for the marks at both ends.
TEST(Ticks, AreAboutAsManyAsWanted) {
  for (int wanted = 1; wanted < 12; ++wanted) {
    for (double high = 1.0; high < 1000.0; high *= 1.07) {
      const auto ticks = plot::ticks_125(-0.3 * high, high, wanted);
      EXPECT_LE(ticks.count - 1, 1.25 * (wanted + 1)) << high;
      EXPECT_GE(ticks.count + 1, wanted / 2) << high;
      EXPECT_LE(ticks.at(ticks.count - 1), high + 0.002 * ticks.step);
      EXPECT_GT(ticks.at(ticks.count), high);
    }
  }
}

TEST(Ticks, OfNoRangeAreNone) {
  for (const auto& range : {plot::Range{1.0, 1.0}, plot::Range{2.0, 1.0}, plot::Range{kNan, 1.0}, plot::Range{0, kInf}})
    EXPECT_EQ(plot::ticks_125(range.low, range.high, 5).count, 0);
}

TEST(NumberText, HasTheDecimalsOfTheStep) {
  EXPECT_EQ(plot::number_text(0.30000000000000004, 0.1), "0.3");
  EXPECT_EQ(plot::number_text(-2.0, 0.5), "\u22122.0");
  EXPECT_EQ(plot::number_text(-1e-17, 0.1), "0.0");
  EXPECT_EQ(plot::number_text(1700, 100), "1700");
  EXPECT_EQ(plot::number_text(-123456, 1), "\u2212123\u202F456");
  EXPECT_EQ(plot::number_text(100000, 50000), "100\u202F000");
}

TEST(CommonExponent, LeavesEverydayNumbersAlone) {
  EXPECT_EQ(plot::common_exponent(999999.0), 0);
  EXPECT_EQ(plot::common_exponent(0.001), 0);
  EXPECT_EQ(plot::common_exponent(3e9), 9);
  EXPECT_EQ(plot::common_exponent(2e-5), -6);
  EXPECT_EQ(plot::common_exponent(kInf), 0);
  EXPECT_EQ(plot::exponent_text(-12), "\u00D710\u207B\u00B9\u00B2");
}

// The examples of RFC 4648, section 10.
TEST(Base64, MatchesThePublishedExamples) {
  const auto of = [](std::string_view text) { return plot::base64(std::as_bytes(std::span(text))); };
  EXPECT_EQ(of(""), "");
  EXPECT_EQ(of("f"), "Zg==");
  EXPECT_EQ(of("fo"), "Zm8=");
  EXPECT_EQ(of("foo"), "Zm9v");
  EXPECT_EQ(of("foobar"), "Zm9vYmFy");
}

TEST(Shade, RunsBetweenItsEndsAndClampsBeyond) {
  EXPECT_EQ(plot::shade(plot::Colours::kDiverging, 0.5), "#f5f5f2");
  EXPECT_EQ(plot::shade(plot::Colours::kSequential, -3.0), plot::shade(plot::Colours::kSequential, 0.0));
  EXPECT_EQ(plot::shade(plot::Colours::kSequential, 9.0), "#fae25a");
}

TEST(Chart, OfEveryKindOfMarkIsWellFormedAndHoldsNoBadNumber) {
  const std::vector<double> x = {1, 2, kNan, 4, 5}, y = {3, kInf, 2, -1, 0};
  const std::vector<std::string> names = {"a<b", "\"c\"", "d", "e", "f"};
  const std::vector<std::byte> png(7, std::byte{0x41});
  std::vector<plot::Chart> charts(7, plot::Chart("R&D <1>"));
  charts[0].line(x, y, "one").line(x, x, "two", true).scatter(x, y, "three").stem(x, y, "four").mark_x(2, "<m>");
  charts[1].histogram(y, 0.0, 2.0).mark_y(1.0, "m");
  charts[2].bars(names, y, "p").bars(names, x, "q");
  charts[3].bars_across(names, y, "p").bars_across(names, x, "q");
  charts[4].boxes(names, std::vector<plot::Quartiles>(5, {0, 1, 2, 3, 4}));
  charts[5].heat_map(y, 5, 1).cell_names(names, std::vector<std::string>{"row"});
  charts[6].image(png, 3, 2);
  for (const auto& chart : charts) {
    const std::string svg = chart.svg();
    EXPECT_EQ(open_elements(svg), 0) << svg;
    EXPECT_THAT(svg, Not(HasSubstr("nan")));
    EXPECT_THAT(svg, Not(HasSubstr("inf")));
    EXPECT_THAT(svg, HasSubstr("R&amp;D &lt;1&gt;"));
  }
  EXPECT_THAT(charts[6].svg(), HasSubstr("data:image/png;base64,QUFBQUFBQQ=="));
}

TEST(Chart, WithoutDataStillHasAxes) {
  const std::string svg = plot::Chart("empty").line({}, {}).svg();
  EXPECT_EQ(open_elements(svg), 0);
  EXPECT_THAT(svg, HasSubstr(">1.0<"));
}

TEST(Chart, LineBreaksAtAMissingValue) {
  const std::vector<double> x = {0, 1, 2, 3, 4}, y = {0, 1, kNan, 1, 0};
  const std::string svg = plot::Chart("").line(x, y).svg();
  const auto at = svg.find("class=\"line");
  const std::string element = svg.substr(at, svg.find("/>", at) - at);
  EXPECT_EQ(std::count(element.begin(), element.end(), 'M'), 2);
  EXPECT_EQ(std::count(element.begin(), element.end(), 'L'), 2);
}

TEST(Chart, BarsStandOnZeroAndTheirHeightsAreInProportion) {
  const std::vector<std::string> names = {"a", "b"};
  const std::string svg = plot::Chart("").bars(names, std::vector<double>{100.0, 200.0}).svg();
  std::vector<double> heights;
  for (auto at = svg.find("height=\""); at != std::string::npos; at = svg.find("height=\"", at + 1))
    heights.push_back(std::stod(svg.substr(at + 8)));
  ASSERT_EQ(heights.size(), 2u);
  EXPECT_NEAR(heights[1], 2.0 * heights[0], 0.2);
}

TEST(Chart, AsksTheGivenRuleForItsTicks) {
  const auto thirds = [](double, double, int) { return plot::Ticks{0.0, 7.0, 2}; };
  const std::vector<double> x = {0, 7};
  EXPECT_THAT(plot::Chart("").tick_rule(thirds).line(x, x).svg(), HasSubstr(">7<"));
}

}  // namespace

#include <algorithm>
#include <cmath>
#include <utility>

#include "examples/tour/chapter.h"
#include "examples/tour/csv.h"
#include "zor/scalar/ZOR_math1.h"

using namespace ZOR_math1;
using plot::short_text;

namespace {

void scales(tour::Page& page) {
  page.section("A scale");
  page.prose(
      "People count in steps of 1, 2 and 5. `CalcScalePars` finds the step, the first tick and the number of minor "
      "intervals for an axis that shall have at least so many intervals. All axes of this report are laid out by it.");
  // [show]
  std::vector<double> lengths, steps;
  Double first, step;
  Word minor;
  for (Double length = 1.0; length < 100.0; length *= 1.01) {
    CalcScalePars(5, 0.0, length, first, step, minor);
    lengths.push_back(length);
    steps.push_back(step);
  }
  // [/show]
  page.code();
  plot::Chart stairs("Step of an axis with five intervals or more");
  page.figure(stairs.axes("length of the axis", "step").line(lengths, steps));
  std::vector<std::vector<std::string>> rows;
  for (const auto& [low, high] : {std::pair{315.7, 432.1}, {-0.31, 0.42}, {1871.0, 1970.0}, {2e-9, 3.1e-9}}) {
    CalcScalePars(5, low, high, first, step, minor);
    rows.push_back(
        {short_text(low) + " to " + short_text(high), short_text(first), short_text(step), std::to_string(minor)});
  }
  page.table({"axis", "first tick", "step", "minor intervals"}, rows);
}

void angles(tour::Page& page) {
  page.section("An angle");
  page.prose(
      "The carbon dioxide of this tour was measured on Mauna Loa. The angle is rounded once, as a whole, so 60 seconds "
      "never appear, and what was written is read back.");
  std::vector<std::vector<std::string>> rows;
  // [show]
  for (const Double angle : {19.5362, -155.5763}) {
    const TString degrees = DegreeToStr(angle, dfDecimal, 4);
    const TString minutes = DegreeToStr(angle, dfDegMin, 2);
    const TString seconds = DegreeToStr(angle, dfDegMinSec, 1);
    Integer at = 1, kind;
    const Double back = ScanDegrees(seconds, at, false, kind);
    // [/show]
    rows.push_back({degrees.utf8(), minutes.utf8(), seconds.utf8(), short_text(back, 9)});
  }
  page.code();
  page.table({"degrees", "and minutes", "and seconds", "read back"}, rows);
}

void years(tour::Page& page) {
  page.section("A year");
  page.prose("The years with the most sunspots of their century, as a stonemason would write them.");
  const auto file = tour::read_csv(page.data("sunspots.csv"));
  const auto year = file.numbers("YEAR"), spots = file.numbers("SUNACTIVITY");
  std::vector<std::vector<std::string>> rows;
  for (std::size_t first = 0; first + 100 <= year.size(); first += 100) {
    const auto from = spots.begin() + static_cast<std::ptrdiff_t>(first);
    const auto record = static_cast<std::size_t>(std::max_element(from, from + 100) - spots.begin());
    // [show]
    const auto top = static_cast<Integer>(year[record]);
    const TString carved = Roman(top);
    // [/show]
    rows.push_back({carved.utf8(), std::to_string(top), short_text(spots[record])});
  }
  page.code();
  page.table({"year", "in figures", "sunspot number"}, rows);
}

void engineering(tour::Page& page) {
  page.section("A quantity with its unit");
  page.prose("Letters for powers of a thousand keep numbers short. The Nile at Aswan, a tonne a cubic metre:");
  const auto flow = tour::read_csv(page.data("nile.csv")).numbers("volume");  // in 10⁸ m³ a year
  const auto [driest, wettest] = std::minmax_element(flow.begin(), flow.end());
  std::vector<std::vector<std::string>> rows;
  for (const Double tonnes : {*driest * 1e8, *wettest * 1e8}) {
    // [show]
    const Double seconds = 365.25 * 86400.0;
    const TString yearly = EEngStr(tonnes, 3) + "t";
    const TString rate = EEngStr(tonnes / seconds, 3) + "t/s";
    // [/show]
    rows.push_back({rows.empty() ? "driest year" : "wettest year", yearly.utf8(), rate.utf8()});
  }
  page.code();
  page.table({"", "in a year", "on average"}, rows);
}

void dates(tour::Page& page) {
  page.section("A date");
  page.prose("A date becomes the number of a day, in which one can reckon. A format tells how it is written.");
  const auto month = tour::read_csv(page.data("co2.csv")).texts("month");
  Integer at = 1;
  const Double start = ScanDateTime(month.front(), "yyyy-mm", lgEnglish, at);
  // [show]
  const TString said = "lundi 21 juillet 1969, 2:56";
  const TString format = "dddd d mmmm yyyy, h:n";
  at = 1;
  const Double moon = ScanDateTime(said, format, lgFrench, at);
  // [/show]
  page.code();
  page.table({"", "day"}, {{"first month of the series", short_text(start, 9)},
                           {"first step on the Moon, UTC", short_text(moon, 10)},
                           {"days between", short_text(std::floor(moon - start))}});
}

void run(tour::Page& page) { scales(page), angles(page), years(page), engineering(page), dates(page); }

const tour::Register chapter({130, "readable", "Numbers that people read", run});

}  // namespace

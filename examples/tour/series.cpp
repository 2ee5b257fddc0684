#include <algorithm>
#include <cmath>

#include "examples/tour/chapter.h"
#include "examples/tour/csv.h"
#include "examples/tour/vectors.h"

using namespace ZOR_vector;
using namespace ZOR_zorbase;
using plot::short_text;

namespace {

void sunspots(tour::Page& page) {
  page.section("Sunspots, 1700 to 2008");
  page.prose("A file becomes a `TVector`; its elements count from 1, and the range 0, 0 means all of them.");
  // [show]
  const auto file = tour::read_csv(page.data("sunspots.csv"));
  const auto year = file.numbers("YEAR");
  TVector spots;
  tour::fill(spots, file.numbers("SUNACTIVITY"));
  double mean, variance, low, high, q1, median, q3;
  Integer low_at = 0, high_at = 0;
  spots.MeanVar(0, 0, mean, variance);
  spots.MinMax(0, 0, low, high, low_at, high_at);
  spots.Quartiles(0, 0, q1, median, q3);
  // [/show]
  page.code();
  plot::Chart course("Yearly sunspot number");
  page.figure(course.axes("year", "sunspot number").line(year, tour::values(spots)).mark_y(mean, "mean"));
  page.table({"mean", "std. dev.", "median", "largest"},
             {{short_text(mean), short_text(std::sqrt(variance)), short_text(median), short_text(high)}});

  page.prose("Quiet years are common and very active ones rare. The record is " + short_text(high) + ", set in " +
             short_text(year[static_cast<std::size_t>(high_at) - 1]) + ".");
  // [show]
  TIntArray counts;
  Integer below, above, most;
  const Integer n = spots.NrOfElem();
  spots.Histogram(1, n, 0, 190, 10, counts, below, above, most);
  // [/show]
  page.code();
  plot::Chart spread("How many years had how many sunspots");
  spread.axes("sunspot number", "years").histogram(std::vector<double>(counts.begin(), counts.end()), 0.0, 10.0);
  page.figure(spread.mark_x(q1, "Q1").mark_x(median, "median").mark_x(q3, "Q3"));

  page.prose("Does the past repeat itself? Multiply the series by itself, shifted by some years, and sum up.");
  // [show]
  spots.MeanCenter();
  const double unshifted = spots.Correlate(&spots, 0);
  std::vector<double> lags, products;
  for (Integer lag = 0; lag <= 48; ++lag) {
    lags.push_back(lag);
    products.push_back(spots.Correlate(&spots, lag) / unshifted);
  }
  // [/show]
  page.code();
  plot::Chart lagged("Lag products of the sunspot number");
  page.figure(lagged.axes("shift in years", "share of the unshifted product").stem(lags, products),
              "The first peak lies at 10 to 11 years: the solar cycle.");
}

void nile(tour::Page& page) {
  page.section("The Nile at Aswan, 1871 to 1970");
  page.prose("Summed up year by year, what flowed beyond the mean of all years grows, then shrinks from one year on.");
  // [show]
  const auto file = tour::read_csv(page.data("nile.csv"));
  const auto year = file.numbers("year");
  TVector flow, excess;
  tour::fill(flow, file.numbers("volume"));
  excess.Assign(&flow);
  excess.MeanCenter();
  std::vector<double> surplus;
  for (Integer i = 1; i <= excess.NrOfElem(); ++i) {
    surplus.push_back(excess.Integrate(1, i, imTrapezoidal));
  }

  plot::Quartiles early, late;  // up to 1898, from 1899 on
  flow.MinMax(1, 28, early.low, early.high);
  flow.Quartiles(1, 28, early.q1, early.median, early.q3);
  flow.MinMax(29, 100, late.low, late.high);
  flow.Quartiles(29, 100, late.q1, late.median, late.q3);
  // [/show]
  page.code();
  const double turn = *(year.begin() + (std::max_element(surplus.begin(), surplus.end()) - surplus.begin()));
  plot::Chart course("What flowed beyond the mean, summed up since 1871");
  page.figure(course.axes("year", "surplus in 10⁸ m³").line(year, surplus).mark_x(turn, short_text(turn)));
  plot::Chart boxes("Yearly flow before and after");
  page.figure(boxes.axes("flow in 10⁸ m³ a year", "")
                  .boxes(std::vector<std::string>{"1871–1898", "1899–1970"}, std::vector{early, late}));
}

void carbon_dioxide(tour::Page& page) {
  page.section("Carbon dioxide at Mauna Loa, since 1958");
  page.prose("The vector less itself twelve months before: what a year has added, with the seasons gone.");
  // [show]
  const auto file = tour::read_csv(page.data("co2.csv"));
  const auto time = file.numbers("decimal_year");
  TVector air, growth, year_before;
  tour::fill(air, file.numbers("co2_ppm"));
  const Integer months = air.NrOfElem();
  growth.SetNrOfElem(months - 12);
  year_before.SetNrOfElem(months - 12);
  growth.CopyFrom(&air, 13, months, 1);
  year_before.CopyFrom(&air, 1, months - 12, 1);
  growth.Subtract(&year_before);
  // [/show]
  page.code();
  plot::Chart course("Carbon dioxide in the air");
  page.figure(course.axes("year", "parts per million").line(time, tour::values(air)));
  plot::Chart yearly("Increase over the same month a year before");
  page.figure(yearly.axes("year", "parts per million").line(std::span(time).subspan(12), tour::values(growth)));
}

void run(tour::Page& page) { sunspots(page), nile(page), carbon_dioxide(page); }

const tour::Register chapter({100, "series", "What is in a series?", run});

}  // namespace

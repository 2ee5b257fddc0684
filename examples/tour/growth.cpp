#include <cmath>
#include <sstream>

#include "examples/tour/chapter.h"
#include "examples/tour/csv.h"
#include "examples/tour/vectors.h"
#include "zor/analysis/ZOR_math2.h"

using namespace ZOR_math2;
using plot::short_text;

namespace {

void run(tour::Page& page) {
  const auto file = tour::read_csv(page.data("co2.csv"));
  const auto year = file.numbers("decimal_year"), air = file.numbers("co2_ppm");

  page.section("A curve, and how far it may be trusted");
  page.prose(
      "`TCurveFit` collects pairs and fits fifteen kinds of curves to them. A parabola of the years since 2000 "
      "describes "
      "how carbon dioxide grows; printed, it shows how sure each number is.");
  // [show]
  TCurveFit fit;
  for (std::size_t i = 0; i < year.size(); ++i) fit.EnterStatValue(year[i] - 2000, air[i]);
  fit.CalcRegModel(rmParabolic, 0);
  std::ostringstream summary;
  summary << fit;

  std::vector<double> ahead, value, low, high;
  for (double t = -40; t <= 50; t += 2) {
    double predicted, band, unused;
    fit.Predict(rmParabolic, t, 0.95, 0, predicted, band, unused);
    ahead.push_back(2000 + t);
    value.push_back(predicted);
    low.push_back(predicted - band);
    high.push_back(predicted + band);
  }
  // [/show]
  page.code();
  plot::Chart growth("Carbon dioxide at Mauna Loa and its parabola");
  growth.axes("year", "parts per million").line(year, air, "measured").line(ahead, value, "parabola");
  growth.line(ahead, low, "95 per cent of new values", true).line(ahead, high, {}, true);
  page.figure(growth, "If nothing changes: " + short_text(fit.Evaluate(50.0), 4) + " ppm in the year 2050.");
  std::vector<std::vector<std::string>> rows;
  std::istringstream lines(summary.str());
  std::string line, kind;
  std::getline(lines, kind), std::getline(lines, line);
  for (std::string name, estimate, error, t, p; rows.size() < 3 && lines >> name >> estimate >> error >> t >> p;)
    rows.push_back({name, estimate, error, t, p});
  page.table({"", "estimate", "std. error", "t", "significance"}, rows);

  page.section("What the parabola leaves");
  page.prose(
      "A smoothing spline bends as much as one allows. What remains beside it is the breath of the northern forests: "
      "the "
      "same curve every year, highest in May.");
  // [show]
  fit.SetSplineSmoothingFactor(3.0);
  double quality;
  Boolean valid;
  std::vector<double> trend, season(12), months;
  for (std::size_t i = 0; i < year.size(); ++i) {
    trend.push_back(fit.SmoothedSpline(year[i] - 2000, quality, valid) - fit.Evaluate(year[i] - 2000));
    season[(i + 2) % 12] += air[i] - trend.back() - fit.Evaluate(year[i] - 2000);
  }
  const TDoubleArray residuals = fit.Residuals();
  // [/show]
  page.code();
  plot::Chart rest("Measured less parabola");
  rest.axes("year", "parts per million").line(year, residuals, "residuals");
  page.figure(rest.line(year, trend, "smoothing spline"));
  for (std::size_t m = 0; m < 12; ++m) {
    months.push_back(static_cast<double>(m + 1));
    season[m] /= static_cast<double>(year.size()) / 12.0;
  }
  plot::Chart breath("Mean of each month beside the spline");
  page.figure(breath.axes("month", "parts per million").stem(months, season));
}

const tour::Register chapter({102, "growth", "Where does CO₂ go?", run});

}  // namespace

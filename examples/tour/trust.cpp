#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "examples/tour/certified.h"
#include "examples/tour/chapter.h"
#include "examples/tour/vectors.h"
#include "zor/analysis/ZOR_math2.h"

using namespace ZOR_vector;
using plot::short_text;
using tour::digits_reached;

namespace {

// What the textbook formula gives when its two sums are kept in one double each.
// [show]
double plain_deviation(const TVector& y) {
  double sum = 0.0, squares = 0.0;
  const double n = y.NrOfElem();
  for (int i = 1; i <= y.NrOfElem(); ++i) {
    sum += y.GetVal(i);
    squares += y.GetVal(i) * y.GetVal(i);
  }
  const double variance = (squares - sum * sum / n) / (n - 1);
  return std::sqrt(std::fmax(variance, 0.0));
}
// [/show]

/// A certified regression on powers of x: the estimates B0, B1, ... and the pairs.
struct Regression {
  std::vector<double> estimates, x, y;
};
Regression read_regression(const std::filesystem::path& file) {
  Regression r;
  std::ifstream in(file);
  for (std::string line; std::getline(in, line);) {
    std::istringstream words(line);
    std::string name;
    double first = 0.0, second = 0.0;
    if (words >> name >> first && name == "B" + std::to_string(r.estimates.size())) r.estimates.push_back(first);
    if (line.rfind("Data:", 0) == 0) r.x.clear(), r.y.clear();
    std::istringstream cells(line);
    if (cells >> first >> second) r.y.push_back(first), r.x.push_back(second);
  }
  return r;
}

void regressions(tour::Page& page) {
  page.section("Certified regressions");
  page.prose(
      "The same institute certifies regressions. Powers of x up to the fifth make them hard: seen from 0, five powers "
      "of 0 "
      "to 20 nearly lie in one plane. About the mean of x, in units of its deviation, they do not.");
  std::vector<std::string> names;
  std::vector<double> digits;
  for (const auto name : {"Norris", "Pontius", "Wampler1", "Wampler2", "Wampler5"}) {
    const auto set = read_regression(page.data("nist/" + std::string(name) + ".dat"));
    const auto order = static_cast<int>(set.estimates.size()) - 1;
    // [show]
    ZOR_math2::TCurveFit fit;
    fit.EnterStatValues(set.x, set.y);
    TDoubleArray k;
    double shift = 0.0, quality;
    bool near_singular;
    fit.CalcCenteredPolyFit(order, k, shift, quality, near_singular);
    // [/show]
    std::vector<long double> certified(set.estimates.begin(), set.estimates.end());
    double worst = 15.0;
    for (std::size_t i = 0; i < certified.size(); ++i) {
      for (std::size_t j = certified.size() - 1; j-- > i;) certified[j] += shift * certified[j + 1];
      worst = std::fmin(worst, digits_reached(k[static_cast<int>(i)], static_cast<double>(certified[i])));
    }
    names.push_back(name);
    digits.push_back(worst);
  }
  page.code();
  plot::Chart bars("Correct digits of the worst coefficient");
  page.figure(bars.axes("decimal digits, out of 15", "").x_range(0.0, 15.0).bars_across(names, digits));
}

void run(tour::Page& page) {
  page.prose(
      "The US National Institute of Standards and Technology publishes samples with results certified to 15 "
      "digits. Three of the five below were made to break programs: large numbers that differ in their last "
      "digit only. The textbook formula subtracts two sums that agree in nearly all their digits, and what is "
      "left is noise:");
  page.code();
  std::vector<std::string> names;
  std::vector<double> mean_digits, deviation_digits, lag_digits, plain_digits;
  std::vector<std::vector<std::string>> rows;
  for (const auto name : {"Lew", "Michelso", "NumAcc1", "NumAcc3", "NumAcc4"}) {
    const auto certified = tour::read_certified(page.data("nist/" + std::string(name) + ".dat"));
    TVector y;
    tour::fill(y, certified.y);
    const double plain = plain_deviation(y);
    // [show]
    double mean, variance;
    y.MeanVar(0, 0, mean, variance);
    const double deviation = std::sqrt(variance);

    y.MeanCenter();
    const double lag = y.Correlate(&y, 1) / y.Correlate(&y, 0);
    // [/show]
    names.push_back(certified.name);
    mean_digits.push_back(digits_reached(mean, certified.mean));
    deviation_digits.push_back(digits_reached(deviation, certified.stddev));
    lag_digits.push_back(digits_reached(lag, certified.autocorrelation));
    plain_digits.push_back(digits_reached(plain, certified.stddev));
    rows.push_back(
        {certified.name, short_text(certified.stddev, 15), short_text(deviation, 15), short_text(plain, 15)});
  }
  plot::Chart contrast("Correct digits of the standard deviation");
  contrast.axes("decimal digits, out of 15", "").x_range(0.0, 15.0).bars_across(names, deviation_digits, "MeanVar");
  page.figure(contrast.bars_across(names, plain_digits, "plain double sums"));

  page.prose(
      "`MeanVar` uses the same formula in one pass over the data, but carries its sums in twice the precision "
      "and rounds once, at the end.");
  page.code();
  plot::Chart reached("Correct digits of the library");
  reached.axes("decimal digits, out of 15", "").x_range(0.0, 15.0).bars_across(names, mean_digits, "mean");
  reached.bars_across(names, deviation_digits, "standard deviation").bars_across(names, lag_digits, "autocorrelation");
  page.figure(reached, "Bars end at 15 digits, the precision of the certified values.");

  page.prose(
      "Where digits are missing still, the file has lost them already: a number such as 10000000.2 has no exact "
      "binary form, and its neighbours are 2·10⁻⁹ apart. Against a spread of 0.1 that leaves eight to nine "
      "digits, whoever computes.");
  page.table({"standard deviation", "certified", "MeanVar", "plain sums"}, rows);
  regressions(page);
}

const tour::Register chapter({110, "trust", "Can I trust the numbers?", run});

}  // namespace

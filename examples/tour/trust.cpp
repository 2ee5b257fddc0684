#include <cmath>

#include "examples/tour/certified.h"
#include "examples/tour/chapter.h"
#include "examples/tour/vectors.h"

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
}

const tour::Register chapter({110, "trust", "Can I trust the numbers?", run});

}  // namespace

#include "zor/analysis/smoothing.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "zor/base/feedback_scope.h"

namespace ZOR_math2 {
namespace {

using Smoother = void (*)(const TVector*, Integer, Integer, TVector*, Integer);

void set(TVector& to, const std::vector<double>& cells) {
  to.SetNrOfElem(static_cast<Integer>(cells.size()));
  std::ranges::copy(cells, to.Edit().begin());
}
std::vector<double> cells(const TVector& v) { return {v.begin(), v.end()}; }
/// Noise with ties.
std::vector<double> noise(std::size_t n) {
  std::vector<double> x(n);
  for (std::size_t i = 0; i < n; ++i) x[i] = std::floor(1000.0 * std::sin(static_cast<double>(i * i))) / 8.0;
  return x;
}

struct Rule {
  Smoother smooth;
  const char* name;
  bool polynomial;
  double (*value)(const double* centre, Integer half);
};

double mean(const double* x, Integer h) {
  double s = x[0];
  for (Integer j = 1; j <= h; ++j) s += x[j] + x[-j];
  return s / (2 * h + 1);
}
double triangle(const double* x, Integer h) {
  double s = (h + 1) * x[0];
  for (Integer j = 1; j <= h; ++j) s += (h - j + 1) * (x[j] + x[-j]);
  return 4.0 * s / ((2.0 * h + 2.0) * (2.0 * h + 2.0));
}
double median(const double* x, Integer h) {
  std::vector<double> window(x - h, x + h + 1);
  std::ranges::sort(window);
  return window[static_cast<std::size_t>(h)];
}
double slope(const double* x, Integer h) {
  double s = 0.0, norm = 0.0;
  for (Integer j = -h; j <= h; ++j) s += j * x[j], norm += j * j;
  return s / norm;
}

const Rule kRules[] = {{MovingAverageSmooth, "MovingAverageSmooth", false, mean},
                       {WeightedAverageSmooth, "WeightedAverageSmooth", false, triangle},
                       {MovingMedianSmooth, "MovingMedianSmooth", false, median},
                       {PolynomialSmooth, "PolynomialSmooth", true, nullptr},
                       {SecondDeriv, "SecondDeriv", true, nullptr},
                       {FirstDeriv, "FirstDeriv", true, slope}};

TEST(Smoothing, EveryWindowGivesTheBitsOfThePlainLoop) {
  const std::vector<double> x = noise(150);
  TVector source, dest;
  set(source, x);
  dest.SetNrOfElem(150);
  for (const Rule& rule : kRules) {
    for (Integer length = rule.polynomial ? 5 : 3; rule.value && length <= (rule.polynomial ? 25 : 61); length += 2) {
      const Integer half = length / 2;
      dest.Fill(-1.0);
      rule.smooth(&source, 3, 149, &dest, length);
      std::vector<double> wanted(150, -1.0);
      for (Integer i = half; i < 147 - half; ++i) wanted[static_cast<std::size_t>(i)] = rule.value(&x[2] + i, half);
      std::fill_n(wanted.begin(), half, wanted[static_cast<std::size_t>(half)]);
      std::fill_n(wanted.begin() + 147 - half, half, wanted[static_cast<std::size_t>(146 - half)]);
      ASSERT_EQ(cells(dest), wanted) << rule.name << " " << length;
    }
  }
}

TEST(Smoothing, PolynomialsOfTheTablesKeepAParabolaAndItsSecondDerivative) {
  TVector parabola, dest;
  parabola.SetNrOfElem(40);
  for (Integer i = 1; i <= 40; ++i) parabola.SetVal(i, 3.0 - i + 0.25 * i * i);
  for (Integer length = 5; length <= 25; length += 2) {
    dest.Clone(&parabola);
    PolynomialSmooth(&parabola, 1, 40, &dest, length);
    for (Integer i = 14; i <= 27; ++i) EXPECT_NEAR(dest.GetVal(i), parabola.GetVal(i), 1e-11);
    SecondDeriv(&parabola, 1, 40, &dest, length);
    for (Integer i = 14; i <= 27; ++i) EXPECT_NEAR(dest.GetVal(i), 0.5, 1e-12);
  }
}

TEST(Smoothing, RangeIsRepairedAndResultFitsTheDestination) {
  TVector source, dest, whole;
  set(source, noise(20));
  set(whole, noise(20));
  MovingAverageSmooth(&source, 10, 5, &whole, 3);  // as 5 to 10
  const std::vector<double> all = cells(whole);
  EXPECT_EQ(all[6], source.GetVal(7));              // behind the six results nothing changes
  MovingAverageSmooth(&source, 5, 10, &source, 3);  // in place
  EXPECT_EQ(std::vector<double>(all.begin(), all.begin() + 6), std::vector<double>(source.begin(), source.begin() + 6));
  set(source, noise(20));
  for (const Integer room : {1, 2, 5}) {  // no value fits, one, some of the end
    dest.SetNrOfElem(room);
    Integer changes = 0;
    dest.OnChange = [&](TObject*) { ++changes; };
    MovingAverageSmooth(&source, 5, 10, &dest, 3);
    dest.OnChange = nullptr;
    EXPECT_EQ(changes, 1);
    for (Integer i = 1; i <= room; ++i)
      EXPECT_EQ(dest.GetVal(i), room == 1 ? 0.0 : all[static_cast<std::size_t>(i - 1)]);
  }
}

TEST(Smoothing, MedianOfNaNZerosAndWithListenerIsThatOfTheSortedWindow) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  TVector source, dest;
  set(source, {-0.0, 0.0, 0.0, -0.0, 1.0, nan, 2.0, 3.0});
  dest.SetNrOfElem(8);
  MovingMedianSmooth(&source, 1, 8, &dest, 3);
  // Sorted from centre, right, left: (0 0 -0) (0 -0 0) (-0 1 0) (1 nan -0) (nan 2 1): the comb sort moves no NaN.
  EXPECT_EQ(std::signbit(dest.GetVal(2)), false);
  EXPECT_TRUE(std::isnan(dest.GetVal(5)));
  set(source, noise(30));
  dest.SetNrOfElem(30);
  MovingMedianSmooth(&source, 1, 30, &dest, 9);
  const std::vector<double> silent = cells(dest);
  Integer steps = 0;
  TFeedbackScope scope([&](double) { ++steps; });
  MovingMedianSmooth(&source, 1, 30, &dest, 9);
  EXPECT_EQ(cells(dest), silent);
  EXPECT_GT(steps, 22);  // each of 22 windows takes more than one pass
}

TEST(Smoothing, BadArgumentsAreReportedInOrder) {
  TVector v;
  v.SetNrOfElem(10);
  for (const Rule& rule : kRules) {
    const auto message = [&](const TVector* source, Integer first, Integer last, Integer length) {
      try {
        rule.smooth(source, first, last, &v, length);
      } catch (const EZORMath2Error& e) {
        return std::string(e.what());
      }
      return std::string("none");
    };
    const std::string head = std::string(rule.name) + ": ", what = rule.polynomial ? "polynomial" : "smoothing window";
    const std::string range = head + "specified range for " +
                              (rule.smooth == FirstDeriv ? "calculation" : "smoothing") +
                              " is smaller than the length of the " + what + (rule.polynomial ? "" : "s");
    EXPECT_EQ(message(nullptr, 1, 10, 99), head + "either SourceVec or DestVec is undefined");
    EXPECT_EQ(message(&v, 1, 10, 11), range);
    EXPECT_EQ(message(&v, 1, 10, 10), range);
    EXPECT_EQ(message(&v, -3, 99, 9), "none");
    EXPECT_EQ(message(&v, 1, 10, rule.polynomial ? 3 : 1), head + "length of " + what + " is out of range");
    EXPECT_EQ(message(&v, 1, 10, -2147483647), head + "length of " + what + " is out of range");
    EXPECT_EQ(message(&v, 1, 10, 6), head + "length of " + what + " must be odd");
    v.SetNrOfElem(60);
    EXPECT_EQ(message(&v, 1, 60, 27), rule.polynomial ? head + "length of polynomial is out of range" : "none");
    v.SetNrOfElem(10);
  }
}

}  // namespace
}  // namespace ZOR_math2

#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <sstream>

#include "tests/analysis/multivariate_util.h"
#include "tests/message_of.h"
#include "zor/analysis/curve_fit.h"
#include "zor/analysis/penalized_spline.h"
#include "zor/base/ZOR_univconst.h"

namespace ZOR_math2 {
namespace {

using zor::test::message_of;

// Expected values of this data set: NumPy 1.24, SciPy 1.10.
constexpr double kX[] = {1, 2, 2, 4, 5, 7, 8, 8, 9, 11};
constexpr double kY[] = {2.5, 2, 3.5, 5, 4, 6, 8.5, 7, 7, 12};

struct Model {
  TRegModel model;
  double k0, k1, k2;
  std::function<void(TCurveFit&, double&, double&, double&, double&)> fit;
  const char* name;
};

using Fit = TCurveFit;
const Model kModels[] = {
    {rmLinear, 3, -2, 0, [](Fit& f, auto& a, auto& b, auto&, auto& q) { f.CalcLinFit(b, a, q); }, "CalcLinFit"},
    {rmLinearOrigin, 0, -2, 0, [](Fit& f, auto&, auto& b, auto&, auto& q) { f.CalcLinFitThroughOrigin(b, q); },
     "CalcLinFitThroughOrigin"},
    {rmParabolic, 3, -2, 0.5, &Fit::CalcParabolFit, "CalcParabolFit"},
    {rmGaussian, 3, 4.5, 20, &Fit::CalcGaussFit, "CalcGaussFit"},
    {rmHoerl, 3, 1.25, -0.5, &Fit::CalcHoerlFit, "CalcHoerlFit"},
    {rmReciLin, 3, 0.5, 0, [](Fit& f, auto& a, auto& b, auto&, auto& q) { f.CalcReciLinFit(a, b, q); },
     "CalcReciLinFit"},
    {rmHyperbolic, 3, -2, 0, [](Fit& f, auto& a, auto& b, auto&, auto& q) { f.CalcHyperbolFit(a, b, q); },
     "CalcHyperbolFit"},
    {rmReciHyperbolic, 3, 2, 0, [](Fit& f, auto& a, auto& b, auto&, auto& q) { f.CalcReciHyperbolFit(a, b, q); },
     "CalcReciHyperbolFit"},
    {rmLog, 3, -2, 0, [](Fit& f, auto& a, auto& b, auto&, auto& q) { f.CalcLogFit(a, b, q); }, "CalcLogFit"},
    {rmReciLog, 3, 2, 0, [](Fit& f, auto& a, auto& b, auto&, auto& q) { f.CalcReciLogFit(a, b, q); }, "CalcReciLogFit"},
    {rmPower, 3, -2, 0, [](Fit& f, auto& a, auto& b, auto&, auto& q) { f.CalcPowerFit(a, b, q); }, "CalcPowerFit"},
    {rmExpo, 3, -0.25, 0, [](Fit& f, auto& a, auto& b, auto&, auto& q) { f.CalcExponentialFit(a, b, q); },
     "CalcExponentialFit"}};

double equation(const Model& m, double x) {
  switch (m.model) {
    case rmLinear:
      return m.k0 + m.k1 * x;
    case rmLinearOrigin:
      return m.k1 * x;
    case rmParabolic:
      return m.k0 + m.k1 * x + m.k2 * x * x;
    case rmGaussian:
      return m.k0 * std::exp(-std::pow(x - m.k1, 2) / m.k2);
    case rmReciLin:
      return 1 / (m.k0 + m.k1 * x);
    case rmHyperbolic:
      return m.k0 + m.k1 / x;
    case rmReciHyperbolic:
      return x / (m.k0 * x + m.k1);
    case rmLog:
      return m.k0 + m.k1 * std::log(x);
    case rmReciLog:
      return 1 / (m.k0 + m.k1 * std::log(x));
    case rmPower:
      return m.k0 * std::pow(x, m.k1);
    case rmExpo:
      return m.k0 * std::exp(m.k1 * x);
    default:
      return m.k0 * std::pow(m.k1, x) * std::pow(x, m.k2);
  }
}

TEST(Fits, FindTheParametersOfTheirModel) {
  for (const Model& m : kModels) {
    SCOPED_TRACE(m.name);
    TCurveFit f;
    for (int i = 0; i < 12; ++i) f.EnterStatValue(1.5 + 0.7 * i, equation(m, 1.5 + 0.7 * i));
    double a = 0, b = 0, c = 0, q = 0;
    m.fit(f, a, b, c, q);
    const double found[] = {a, b, c}, expected[] = {m.k0, m.k1, m.k2};
    for (int i = 0; i < 3; ++i) {
      EXPECT_NEAR(found[i], expected[i], 1e-11) << i;
      EXPECT_NEAR(f.ModelPar(1, i), expected[i], 1e-11) << i;
    }
    EXPECT_NEAR(q, 1.0, 1e-12);
    EXPECT_EQ(f.FitQual(), q);
    EXPECT_EQ(f.RegModel(), m.model);
    EXPECT_EQ(f.ModelPar(2, 1), -1.0);
    EXPECT_NEAR(f.Evaluate(2.75), equation(m, 2.75), 1e-11);
    EXPECT_EQ(f.CalcRegModel(m.model, 0), 0);
    EXPECT_LT(f.StdDevResid(), 1e-11);

    // The third pair alone cannot be transformed; then the last one makes it impossible to go on.
    const auto failure = [&](double x, double y) {
      TCurveFit bad;
      bad.EnterStatValues(kX, kY);
      bad.CalcRegModel(rmLinear, 0);
      bad.EnterStatValue(x, y);
      q = 1.0;
      const std::string message = message_of<EZORMath2Error>([&] { m.fit(bad, a, b, c, q); });
      if (!message.empty()) {
        EXPECT_EQ(q, 0.0);
        EXPECT_EQ(bad.RegModel(), rmNone);
      }
      return message;
    };
    const bool log_x = m.model == rmHoerl || m.model == rmLog || m.model == rmReciLog || m.model == rmPower,
               log_y = m.model == rmHoerl || m.model == rmGaussian || m.model == rmPower || m.model == rmExpo,
               one_by_x = m.model == rmHyperbolic || m.model == rmReciHyperbolic,
               one_by_y = m.model == rmReciLin || m.model == rmReciHyperbolic || m.model == rmReciLog;
    const std::string name = m.name;
    EXPECT_EQ(failure(-1, 1), log_x ? name + ": x values must be greater than 0" : "");
    EXPECT_EQ(failure(0, 1), log_x      ? name + ": x values must be greater than 0"
                             : one_by_x ? name + ": x values must not be 0"
                                        : "");
    EXPECT_EQ(failure(1, -1), log_y ? name + ": y values must be greater than 0" : "");
    EXPECT_EQ(failure(1, 0), log_y      ? name + ": y values must be greater than 0"
                             : one_by_y ? name + ": y values must not be 0"
                                        : "");
    TCurveFit few;
    few.EnterStatValue(2, 3);
    EXPECT_EQ(message_of<EZORMath2Error>([&] { m.fit(few, a, b, c, q); }), name + ": not enough data points");
    for (int i = 0; i < 4; ++i) few.EnterStatValue(2, 3 + i);
    if (m.model == rmLinearOrigin || m.model == rmParabolic) continue;
    EXPECT_EQ(message_of<EZORMath2Error>([&] { m.fit(few, a, b, c, q); }),
              name + (m.model == rmGaussian ? ": width is infinite" : ": slope is infinite"));
  }
}

TEST(Fits, AgreeWithLeastSquaresOfTheTransformedPairs) {
  const struct {
    TRegModel model;
    double k0, k1, k2, quality;
  } cases[] = {{rmLinear, 1.0, 0.8333333333333333, 0, 0.869674185463659},
               {rmLinearOrigin, 0, 0.9662004662004662, 0, 0.9679518869851196},
               {rmParabolic, 2.55539252, 0.03153659, 0.0702762, 0.9144818668093565},
               {rmExpo, 2.0850287090120156, 0.15471332439374613, 0, 0.8885775283876995},
               {rmPower, 1.9317423941973797, 0.6353467796008154, 0, -1},
               {rmHoerl, 2.065377695594676, 1.1562934698930833, 0.04215884340420535, 0.8888690878354585}};
  for (const auto& [model, k0, k1, k2, quality] : cases) {
    TCurveFit f;
    f.EnterStatValues(kX, kY);
    double slope, quality_found;
    if (model == rmLinearOrigin) f.CalcLinFitThroughOrigin(slope, quality_found);
    ASSERT_EQ(f.CalcRegModel(model, 0), 0);
    EXPECT_NEAR(f.ModelPar(1, 0), k0, 1e-8) << model;
    EXPECT_NEAR(f.ModelPar(1, 1), k1, 1e-8) << model;
    EXPECT_NEAR(f.ModelPar(1, 2), k2, 1e-8) << model;
    if (quality > 0) {
      EXPECT_NEAR(f.FitQual(), quality, 1e-12) << model;
    }
  }
}

TEST(Fits, StayExactFarFromTheOrigin) {
  TCurveFit peak, line;
  for (int i = -10; i <= 10; ++i) {
    peak.EnterStatValue(1e4 + 0.5 * i, 7.0 * std::exp(-(0.5 * i - 0.25) * (0.5 * i - 0.25) / 3.0));
    line.EnterStatValue(1e10 + i, 2.0 * i + (i % 2 ? 1.0 : -1.0));
  }
  double a, b, c, q;
  peak.CalcGaussFit(a, b, c, q);
  EXPECT_NEAR(a, 7.0, 1e-9);
  EXPECT_NEAR(b, 10000.25, 1e-9);
  EXPECT_NEAR(c, 3.0, 1e-9);
  line.CalcLinFit(a, b, q);
  EXPECT_NEAR(a, 2.0, 1e-15);
  EXPECT_NEAR(q, 3080.0 / (3080.0 + 21.0 - 1.0 / 21.0), 1e-12);  // Sxx = 770; the signs are orthogonal to x
}

TEST(PolynomialFit, ReachesTheCertifiedDigits) {
  for (const Certified& set : certified_sets()) {
    if (set.variables > 1 || set.first_power == 1) continue;
    const Columns data = nist_data(set.file, 2);
    TCurveFit f;
    f.EnterStatValues(data[1], data[0]);
    TDoubleArray k, p;
    double shift = 0.0, quality;
    Boolean singular;
    ASSERT_TRUE(f.CalcCenteredPolyFit(set.last_power, k, p, shift, quality, singular));
    EXPECT_FALSE(singular);
    // The certified coefficients of powers of x become those of x - shift.
    std::vector<long double> centred(set.estimates.begin(), set.estimates.end());
    for (std::size_t i = 0; i + 1 < centred.size(); ++i)
      for (std::size_t j = centred.size() - 1; j-- > i;) centred[j] += static_cast<long double>(shift) * centred[j + 1];
    for (std::size_t i = 0; i < centred.size(); ++i)
      EXPECT_NEAR(k[static_cast<Integer>(i)] / static_cast<double>(centred[i]), 1.0, 1e-11) << set.file << ' ' << i;
    f.CalcRegModel(rmCenteredPoly, set.last_power);
    const double df = f.NumData() - set.last_power - 1.0, s = f.StdDevResid() * std::sqrt((f.NumData() - 1) / df);
    EXPECT_NEAR(s, set.sd, 1e-12 * set.sd + 1e-15 * f.MaxY()) << set.file;
  }
}

TEST(PolynomialFit, GivesSignificancesAndRefusesBadOrders) {
  TCurveFit f;
  f.EnterStatValues(kX, kY);
  TDoubleArray k, p;
  double quality, shift = 5.0;
  Boolean singular;
  EXPECT_TRUE(f.CalcPolyFit(2, k, p, quality, singular));
  const double expected[] = {0.0433967, 0.94360737, 0.09702387};
  for (int i = 0; i < 3; ++i) {
    EXPECT_NEAR(p[i], expected[i], 1e-7);
    EXPECT_EQ(f.ModelPar(2, i), p[i]);
  }
  EXPECT_NEAR(quality, 0.9144818668093565, 1e-12);
  EXPECT_TRUE(f.CalcCenteredPolyFit(2, k, shift, quality, singular));
  EXPECT_EQ(f.CPXShift(), 5.0);
  EXPECT_NEAR(k[1], 0.03153659 + 10 * 0.0702762, 1e-7);
  EXPECT_TRUE(f.CalcPolyFit(0, k, quality, singular));
  EXPECT_NEAR(k[0], 5.75, 1e-14);
  for (const int order : {-1, 11})
    EXPECT_EQ(message_of<EZORMath2Error>([&] { f.CalcPolyFit(order, k, quality, singular); }),
              "CalcPolyFit: invalid order of polynomial");
  EXPECT_EQ(message_of<EZORMath2Error>([&] { f.CalcCenteredPolyFit(10, k, shift, quality, singular); }),
            "CalcCenteredPolyFit: not enough data points");
  EXPECT_EQ(f.RegModel(), rmNone);
}

TEST(ParabolFit, FallsBackWithFewDistinctX) {
  TCurveFit f;
  for (const double x : {0.1, 0.1, 0.4, 0.4}) f.EnterStatValue(x, 2 * x + 1);
  double a, b, c, q;
  f.CalcParabolFit(a, b, c, q);
  EXPECT_NEAR(a, 1.0, 1e-14);
  EXPECT_NEAR(b, 2.0, 1e-14);
  EXPECT_EQ(c, 0.0);
  TCurveFit one;
  for (const double y : {1, 2, 6}) one.EnterStatValue(4, y);
  one.CalcParabolFit(a, b, c, q);
  EXPECT_EQ((std::vector{a, b, c}), (std::vector<double>{3, 0, 0}));
}

TEST(CircleFit, FindsCirclesAndRefusesLines) {
  TCurveFit f;
  for (int i = 0; i < 7; ++i) f.EnterStatValue(2 + 5 * std::cos(i), -1 + 5 * std::sin(i));
  double r, x, y;
  f.CalcCircleFit(r, x, y);
  EXPECT_NEAR(r, 5, 1e-12);
  EXPECT_NEAR(x, 2, 1e-12);
  EXPECT_NEAR(y, -1, 1e-12);
  EXPECT_EQ(f.ModelPar(1, 2), r);
  EXPECT_EQ(f.Evaluate(2), 0.0);
  for (const double slope : {0.1, 0.3, 7.0}) {
    TCurveFit line;
    for (int i = 0; i < 5; ++i) line.EnterStatValue(0.1 * i, slope * 0.1 * i + 1.7);
    EXPECT_EQ(message_of<EZORMath2Error>([&] { line.CalcCircleFit(r, x, y); }), "CalcCircleFit: radius is infinite");
  }
}

TEST(Evaluate, IsTotal) {
  const double most = ZOR_univconst::uc_MaxDouble;
  TCurveFit f;
  f.EnterStatValues(kX, kY);
  ASSERT_EQ(f.CalcRegModel(rmLinear, 0), 0);  // k0 = 1, k1 = 5/6, k2 = 0
  const struct {
    TRegModel model;
    double x, value;
  } cases[] = {{rmNone, 1, 0},         {rmGaussian, 1, most},    {rmHyperbolic, 0, most}, {rmLog, 0, -most},
               {rmReciLog, -1, -most}, {rmPower, -1, most},      {rmPower, 0, 0},         {rmExpo, 1e5, most},
               {rmHoerl, -1, most},    {rmReciHyperbolic, 0, 0}, {rmCircle, 1, 0},        {rmLinear, HUGE_VAL, most}};
  for (const auto& [model, x, value] : cases) EXPECT_EQ(f.EvaluateIntern(model, x), value) << model << ' ' << x;
}

TEST(Predict, GivesTheIntervalsOfTheLine) {
  TCurveFit f;
  f.EnterStatValues(kX, kY);
  double value, prediction, confidence;
  EXPECT_EQ(f.Predict(rmLinear, 6.0, 0.95, 0, value, prediction, confidence), 0);
  EXPECT_NEAR(value, 6.0, 1e-14);
  EXPECT_NEAR(prediction, 2.8155489707530803, 1e-7);
  EXPECT_NEAR(confidence, 0.8522468920521682, 1e-7);
  EXPECT_EQ(f.Predict(rmLinear, 20.0, 0.9, 0, value, prediction, confidence), 0);
  EXPECT_NEAR(prediction, 3.788030248706124, 1e-7);
  EXPECT_NEAR(confidence, 3.1091115530767834, 1e-7);
  EXPECT_EQ(f.Predict(rmLinear, 6.0, 0.4, 0, value, prediction, confidence), kBadProbability);
  EXPECT_EQ(f.Predict(rmNone, 6.0, 0.4, 0, value, prediction, confidence), kNoModelToPredict);
  EXPECT_EQ(value + prediction + confidence, 0.0);
  f.Init();
  EXPECT_EQ(f.Predict(rmLinear, 6.0, 0.95, 0, value, prediction, confidence), kTooFewPairsToPredict);
  EXPECT_EQ(f.CalcRegModel(rmLinear, 0), kTooFewPairs);
  f.EnterStatValue(1, 1);
  f.EnterStatValue(2, 3);
  EXPECT_EQ(f.Predict(rmLinear, 3.0, 0.95, 0, value, prediction, confidence), 0);
  EXPECT_NEAR(value, 5.0, 1e-14);
  EXPECT_EQ(prediction, ZOR_univconst::uc_MaxDouble);
}

TEST(Anova, DividesTheSquaresOfObservedAndEstimatedValues) {
  TCurveFit line, f;
  line.EnterStatValues(kX, kY);
  line.CalcRegModel(rmLinear, 0);
  for (std::size_t i = 0; i < 10; ++i) f.EnterStatValue(kY[i], line.Evaluate(kX[i]));
  Integer reg, res, total;
  double sse, ssr, sst, mse, msr, F;
  f.CalcAnovaReg(1, true, reg, res, total, sse, ssr, sst, mse, msr, F);
  EXPECT_EQ((std::vector{reg, res, total}), (std::vector{1, 8, 9}));
  EXPECT_NEAR(sse, 8 * 1.1636866703140785 * 1.1636866703140785, 1e-12);
  EXPECT_NEAR(sst, 9 * 3.0390970881350783 * 3.0390970881350783, 1e-12);
  EXPECT_NEAR(F, std::pow(0.8333333333333333 / 0.11405404564595707, 2), 1e-10);  // the squared t of the slope
  f.CalcAnovaReg(9, true, reg, res, total, sse, ssr, sst, mse, msr, F);
  EXPECT_EQ(F, 0.0);
}

TEST(Splines, AgreeWithScipy) {
  const double x[] = {4, 0, 1, 7, 2.5, 8, 4}, y[] = {-2, 1, 3, 0.5, 2, 4, 0};  // 4 twice, with mean -1
  const double at[] = {0.3, 1.7, 3, 5.5, 7.9};
  const double natural[] = {1.7332279511533244, 3.07644806271672, 0.9903010201517665, -1.9446234735413845,
                            3.62042537313433};
  const double clamped[] = {1.652848708487085, 3.095705890392237, 1.0363536968703022, -2.7553044280442807,
                            4.025680811808118};
  TCurveFit f;
  f.EnterStatValues(x, y);
  for (int i = 0; i < 5; ++i) EXPECT_NEAR(f.CubicSpline(at[i]), natural[i], 1e-12);
  EXPECT_NEAR(f.CubicSpline(-2.0), 1 - 2 * 2.4880144730891, 1e-12) << "goes on straight";
  EXPECT_NEAR(f.CubicSpline(9.0), 4 + 3.798733604703753, 1e-12);
  f.SetSplineNatural1(false);
  f.SetSplineNaturalN(false);
  f.SetSplineDerivY1(2.0);
  f.SetSplineDerivYN(-1.0);
  for (int i = 0; i < 5; ++i) EXPECT_NEAR(f.CubicSpline(at[i]), clamped[i], 1e-12);
  f.FlipXY();
  EXPECT_EQ(f.CubicSpline(2), 2.5) << "after a change of the data";

  // The weights of the merged pair keep SciPy's unweighted values from being these: one pair of 4 less.
  TCurveFit g;
  for (int i = 1; i < 6; ++i) g.EnterStatValue(x[i], y[i]);
  g.EnterStatValue(4, -1);
  const double places[] = {0, 1.7, 3, 5.5, 8};
  const double smooth[2][5] = {
      {1.5890842833498742, 2.21197664638715, 0.8874080949869622, -0.842813598547656, 3.4639993631938184},
      {1.898709008170718, 1.5077836012399333, 0.8137708574439895, 0.4675346392513241, 2.7999372682252837}};
  const double quality[] = {0.8771445000069568, 0.5283973365492329};
  double q;
  Boolean valid;
  for (int k = 0; k < 2; ++k) {
    g.SetSplineSmoothingFactor(k == 0 ? 0.5 : 3.0);
    for (int i = 0; i < 5; ++i) EXPECT_NEAR(g.SmoothedSpline(places[i], q, valid), smooth[k][i], 1e-10);
    EXPECT_TRUE(valid);
    EXPECT_NEAR(q, quality[k], 1e-10);
  }
  g.SetSplineSmoothingFactor(0.0);
  EXPECT_NEAR(g.SmoothedSpline(1.7, q, valid), natural[1], 1e-11);
  g.SetSplineSmoothingFactor(HUGE_VAL);
  double slope, offset;
  g.CalcLinFit(slope, offset, q);
  EXPECT_NEAR(g.SmoothedSpline(3.0, q, valid), offset + 3 * slope, 1e-11);
  g.SetSplineSmoothingFactor(-1.0);
  EXPECT_NEAR(g.SmoothedSpline(3.0, q, valid), g.MeanY(), 1e-14);
  EXPECT_FALSE(valid);
}

TEST(FitPrinting, ShowsParametersWithTheirErrors) {
  TCurveFit f;
  std::ostringstream none, out;
  none << f;
  EXPECT_EQ(none.str(), "no model; 0 pairs\n");
  f.EnterStatValues(kX, kY);
  f.CalcRegModel(rmParabolic, 0);
  out << f;
  EXPECT_EQ(out.str(),
            "parabola: y = k0 + k1 x + k2 x^2; 10 pairs\n"
            "     estimate  std. error          t  significance\n"
            "k0    2.55539     1.03832    2.46108     0.0433967\n"
            "k1  0.0315366    0.430159  0.0733138      0.943607\n"
            "k2  0.0702762   0.0366954    1.91512     0.0970239\n"
            "R squared 0.914482, standard error 1.00773 with 7 degrees of freedom\n");
}

}  // namespace
}  // namespace ZOR_math2

#include <gmock/gmock.h>

#include <cmath>
#include <complex>
#include <numbers>

#include "zor/analysis/chebyshev_filter.h"
#include "zor/analysis/gauss_kernel.h"
#include "zor/analysis/kernel_filter.h"
#include "zor/analysis/ranks.h"

namespace ZOR_math2 {
namespace {

constexpr double kPi = std::numbers::pi;

TVector& set(TVector& to, std::initializer_list<double> cells) {
  to.SetNrOfElem(static_cast<Integer>(cells.size()));
  std::copy(cells.begin(), cells.end(), to.Edit().begin());
  return to;
}
double gain(const TDoubleArray& kernel, double frequency) {
  std::complex<double> sum = 0.0;
  for (std::size_t k = 0; k < kernel.size(); ++k) {
    sum += kernel[k] * std::polar(1.0, 2.0 * kPi * frequency * static_cast<double>(k));
  }
  return std::abs(sum);
}
template <class F>
std::string message(F f) {
  try {
    f();
  } catch (const EZORMath2Error& e) {
    return e.what();
  }
  return "none";
}

TEST(SincKernels, PassAndStopTheirBands) {
  for (const Integer kind : {1, 2}) {
    TDoubleArray low, high, stop, pass, swapped;
    CalcSincLPKernel(101, 0.2, kind, low);
    CalcSincHPKernel(101, 0.2, kind, high);
    CalcSincBSKernel(101, 0.1, 0.3, kind, stop);
    CalcSincBSKernel(101, 0.3, 0.1, kind, swapped);
    CalcSincBPKernel(101, 0.1, 0.3, kind, pass);
    EXPECT_TRUE(stop == swapped);
    for (const double f : {0.0, 0.05, 0.15, 0.25, 0.35, 0.45}) {
      const bool below = f<0.2, within = f> 0.1 && f < 0.3;
      EXPECT_NEAR(gain(low, f), below, 4e-3) << f;
      EXPECT_NEAR(gain(high, f), !below, 4e-3) << f;
      EXPECT_NEAR(gain(stop, f), !within, 8e-3) << f;
      EXPECT_NEAR(gain(pass, f), within, 8e-3) << f;
    }
  }
}

TEST(SincKernels, EdgesOfTheirArguments) {
  TVector kernel;
  CalcSincLPKernel(5, 0.7, 0, &kernel);  // as 0.5: a unit impulse up to rounding
  for (Integer i = 1; i <= 5; ++i) EXPECT_NEAR(kernel.GetVal(i), i == 3, 1e-15);
  CalcSincLPKernel(4, -1.0, 1, &kernel);
  EXPECT_THAT(kernel.Cells(), testing::ElementsAre(0.0, 0.0, 0.0, 0.0));
  CalcSincHPKernel(4, 0.0, 1, &kernel);
  EXPECT_THAT(kernel.Cells(), testing::ElementsAre(0.0, 0.0, 1.0, 0.0));
  EXPECT_EQ(message([&] { CalcSincBPKernel(0, 0.1, 0.2, 1, &kernel); }), "CalcSincBPKernel: invalid kernel size");
  EXPECT_EQ(message([&] { CalcSincLPKernel(3, 0.1, 1, nullptr); }), "CalcSincLPKernel: argument is undefined");
}

TEST(MovingKernelFilter, RepeatsTheEndsOfTheRangeAndMayOverwriteAnArgument) {
  TVector x, kernel, out;
  set(x, {9, 1, 2, 4, 8, 16, 9});
  set(kernel, {100, 10, 1});
  MovingKernelFilter(&x, 6, 2, &out, &kernel);
  EXPECT_THAT(out.Cells(), testing::ElementsAre(112, 124, 248, 496, 976, 0, 0));
  MovingKernelFilter(&x, 2, 6, &kernel, &kernel);
  EXPECT_EQ(kernel.GetVal(5), 976);
  set(kernel, {10, 1});  // the window of two begins one element to the left
  MovingKernelFilter(&x, 2, 6, &x, &kernel);
  EXPECT_THAT(x.Cells().first(5), testing::ElementsAre(11, 12, 24, 48, 96));
  EXPECT_EQ(message([&] { MovingKernelFilter(&x, 1, 2, &out, &kernel); }),
            "MovingKernelfilter: specified range for smoothing is smaller than the length of the kernel");
  EXPECT_EQ(message([&] { MovingKernelFilter(&x, 1, 2, &out, nullptr); }),
            "MovingKernelfilter: SourceVec, DestVec and/or FilterKernel is undefined");
}

double response(double A0, const TMatrix& coeffs, double frequency) {
  const std::complex<double> z = std::polar(1.0, -2.0 * kPi * frequency);
  std::complex<double> top = A0, bottom = 1.0, power = z;
  for (Integer k = 1; k <= coeffs.NrOfRows(); ++k, power *= z) {
    top += coeffs.GetVal(1, k) * power;
    bottom -= coeffs.GetVal(2, k) * power;
  }
  return std::abs(top / bottom);
}

TEST(ChebyshevFilter, WithoutRippleItIsButterworths) {
  TMatrix coeffs;
  double A0;
  for (const bool high : {false, true}) {
    for (const Integer poles : {2, 4, 6}) {
      CalcChebFilterCoeffs(poles, high, 0.1, 0.0, A0, &coeffs);
      for (const double f : {0.01, 0.05, 0.1, 0.2, 0.4}) {
        // Bilinear transform: |H|^2 = 1 / (1 + (tan(pi f) / tan(pi fc))^(2 n)).
        const double ratio = std::tan(kPi * f) / std::tan(kPi * 0.1);
        const double exact = 1.0 / std::sqrt(1.0 + std::pow(high ? 1.0 / ratio : ratio, 2.0 * poles));
        EXPECT_NEAR(response(A0, coeffs, f), exact, 1e-9) << poles << " " << f;
      }
    }
  }
  CalcChebFilterCoeffs(4, false, 0.1, 20.0, A0, &coeffs);
  EXPECT_NEAR(response(A0, coeffs, 0.0), 1.0, 1e-12);  // the valley; peaks reach 1 / (1 - 0.2)
  double peak = 0.0;
  for (double f = 0.0; f < 0.1; f += 1e-4) peak = std::max(peak, response(A0, coeffs, f));
  EXPECT_NEAR(peak, 1.25, 1e-5);
  EXPECT_NEAR(response(A0, coeffs, 0.1), 1.25 * std::sqrt(0.5), 1e-9);
}

TEST(ChebyshevFilter, EdgesOfItsArguments) {
  TMatrix coeffs;
  coeffs.Resize(3, 5);
  coeffs.Fill(7.0);
  double A0 = 7.0;
  CalcChebFilterCoeffs(0, false, 0.1, 0.0, A0, &coeffs);
  EXPECT_EQ(A0, 1.0);
  EXPECT_EQ(coeffs.NrOfRows(), 5);
  EXPECT_EQ(coeffs.GetVal(2, 5), 0.0);
  CalcChebFilterCoeffs(4, true, 0.5, 29.0, A0, &coeffs);
  EXPECT_EQ(A0, 0.0);
  EXPECT_EQ(coeffs.GetVal(2, 4), 0.0);
  struct Case {
    Integer poles;
    double cut_off, ripple;
    const char* text;
  };
  const double nan = std::nan("");
  for (const Case& c : {Case{3, 9, 99, "NPoles must be even"}, Case{22, 9, 99, "NPoles must not be greater than 20"},
                        Case{4, 9, 29.01, "invalid Ripple value"}, Case{4, 9, nan, "invalid Ripple value"},
                        Case{4, -0.1, 0, "invalid cutoff frequency"}, Case{4, nan, 0, "invalid cutoff frequency"}}) {
    EXPECT_EQ(message([&] { CalcChebFilterCoeffs(c.poles, false, c.cut_off, c.ripple, A0, &coeffs); }),
              std::string("CalcChebFilterCoeffs: ") + c.text);
  }
}

TEST(ChebyshevFilter, RunsBothWaysInPlaceOnARangeWithContext) {
  TVector x, y;
  TMatrix coeffs;
  double A0;
  CalcChebFilterCoeffs(2, false, 0.1, 5.0, A0, &coeffs);
  x.SetNrOfElem(200);
  x.SetVal(100, 1.0);
  y.SetNrOfElem(200);
  ChebychevFilter(&x, 1, 200, &y, A0, &coeffs);
  for (Integer i = 1; i < 40; ++i) EXPECT_NEAR(y.GetVal(100 - i), y.GetVal(100 + i), 1e-12);  // no phase shift
  double dc = 0.0;
  for (const double v : y) dc += v;
  EXPECT_NEAR(dc, 1.0, 1e-9);
  const double at_95 = y.GetVal(95);
  x.Fill(1.0);  // a range in the middle of a constant sees its neighbours
  y.Fill(-5.0);
  ChebychevFilter(&x, 120, 80, &y, A0, &coeffs);
  EXPECT_EQ(y.GetVal(79), -5.0);
  EXPECT_EQ(y.GetVal(121), -5.0);
  EXPECT_NEAR(y.GetVal(80), 1.0, 1e-5);
  x.Fill(0.0);
  x.SetVal(100, 1.0);
  ChebychevFilter(&x, 1, 200, &x, A0, &coeffs);
  EXPECT_EQ(x.GetVal(95), at_95);
  EXPECT_EQ(message([&] { ChebychevFilter(&x, 1, 2, &y, A0, nullptr); }),
            "ChebychevFilter: SourceVec, DestVec and/or Coeffs is undefined");
}

TEST(CalcRanks, SharesRanksOfEqualElements) {
  TVector x, ranks;
  EXPECT_EQ(CalcRanks(&set(x, {1, 2, 2, 3}), &ranks), 6.0);
  EXPECT_THAT(ranks.Cells(), testing::ElementsAre(1, 2.5, 2.5, 4));
  EXPECT_EQ(CalcRanks(&set(x, {5, 5, 1, 5, 0}), &x), 24.0);
  EXPECT_THAT(x.Cells(), testing::ElementsAre(4, 4, 2, 4, 1));
  EXPECT_EQ(CalcRanks(&x, nullptr), 0.0);
}

TEST(GaussKernel, IsCappedAndTakesMissingElementsAsZero) {
  TVector a, b;
  TMatrix m;
  set(a, {1, 2});
  set(b, {1, 2, 1});
  EXPECT_EQ(CalcGaussKernel(&a, &b, 2.0), std::exp(-0.25));
  EXPECT_EQ(CalcGaussKernel(&b, &a, 2.0), 1.0);
  EXPECT_EQ(CalcGaussKernel(&a, &a, 0.0), 1.0);
  EXPECT_EQ(CalcGaussKernel(&a, &b, 0.0), std::exp(-20.0));
  EXPECT_EQ(CalcGaussKernel(&a, &set(b, {1e200, 0}), 1.0), std::exp(-20.0));
  EXPECT_EQ(CalcGaussKernel(&a, &set(b, {std::nan(""), 0}), 1.0), std::exp(-20.0));
  m.Resize(3, 2);
  m.SetVal(3, 2, 2.0);
  EXPECT_EQ(CalcGaussKernelMat(&a, &m, 2, 3.0), std::exp(-1.0));
  EXPECT_EQ(CalcGaussKernelMat(nullptr, &m, 2, 3.0), 0.0);
}

}  // namespace
}  // namespace ZOR_math2

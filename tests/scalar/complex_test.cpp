#include "zor/scalar/ZOR_complex.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <random>
#include <sstream>
#include <type_traits>

#include "tests/message_of.h"

namespace ZOR_complex {
namespace {

using std::numbers::pi;
constexpr Double kInf = std::numeric_limits<Double>::infinity();
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

static_assert(std::is_trivially_copyable_v<TComplex> && sizeof(TComplex) == 2 * sizeof(Double));
static_assert(COMPLEX_1 == Cpx(1.0, 0.0) && COMPLEX_0 == TComplex{});

class NearZero : public ::testing::Test {
 protected:
  ~NearZero() override { CpxNearZero = 1e-15; }
};

TEST(Complex, ExampleOfTheChiefHeaderRuns) {
  const TComplex z = CpxDiv(Cpx(1, 7), Cpx(3, 1));
  EXPECT_EQ(z, Cpx(1, 2));
  const TComplexPolar p = ConvertRectToPolar(Cpx(0, 2));
  EXPECT_EQ(p, (TComplexPolar{2.0, pi / 2}));
  const std::complex<double> w = std::exp(std::complex<double>(z));
  EXPECT_EQ(w, std::exp(std::complex<double>(1, 2)));
}

TEST(Complex, WholeNumbersObeyTheFieldExactly) {
  std::mt19937_64 bits(3);
  const auto whole = [&] {
    const auto part = [&] { return static_cast<Double>(bits() % 2001) - 1000.0; };
    const Double re = part();
    return Cpx(re, part());
  };
  for (int i = 0; i < 1000; ++i) {
    const TComplex a = whole(), b = whole(), c = whole();
    ASSERT_EQ(CpxMult(a, CpxAdd(b, c)), CpxAdd(CpxMult(a, b), CpxMult(a, c)));
    ASSERT_EQ(CpxSub(a, b), CpxAdd(a, CpxNeg(b)));
    ASSERT_EQ(CpxMult(a, CpxConj(a)), Cpx(CpxAbsSqr(a), 0.0));
    ASSERT_EQ(CpxAbsSqr(CpxMult(a, b)), CpxAbsSqr(a) * CpxAbsSqr(b));
    if (b == COMPLEX_0) continue;
    ASSERT_EQ(CpxDiv(CpxMult(a, b), b), a);
  }
  EXPECT_EQ(CpxMult(Cpx(0, 1), Cpx(0, 1)), Cpx(-1, 0));
  EXPECT_EQ(CpxAbs(Cpx(-3, 4)), 5.0);
}

TEST(Complex, DivisionRaisesForEveryFailureOfItsArithmetic) {
  const std::pair<TComplex, TComplex> bad[] = {
      {COMPLEX_1, COMPLEX_0},         {COMPLEX_0, COMPLEX_0},    {COMPLEX_1, Cpx(-0.0, -0.0)},
      {COMPLEX_1, Cpx(1e200, 0)},     {COMPLEX_1, Cpx(kInf, 0)}, {COMPLEX_1, Cpx(1e-170, 0)},
      {Cpx(1e300, 0), Cpx(1e-20, 0)}, {Cpx(kNaN, 0), COMPLEX_1}, {Cpx(0, kInf), COMPLEX_1},
      {COMPLEX_1, Cpx(1, kNaN)},
  };
  for (const auto& p : bad) {
    const auto divide = [&] { CpxDiv(p.first, p.second); };
    EXPECT_EQ(zor::test::message_of<EZORComplexError>(divide), "CpxDiv: division by zero") << p.first << p.second;
  }
  EXPECT_THROW(CpxDiv(COMPLEX_1, COMPLEX_0), EZORError);
  EXPECT_EQ(CpxDiv(COMPLEX_0, COMPLEX_1), COMPLEX_0);
}

TEST_F(NearZero, IsAStrictBound) {
  EXPECT_EQ(CpxNearZero, 1e-15);
  EXPECT_TRUE(CpxIsZero(Cpx(1e-16, -1e-16)));
  EXPECT_FALSE(CpxIsEqual(Cpx(1e-16, -1e-16), COMPLEX_0));
  CpxNearZero = 0.25;
  EXPECT_FALSE(CpxIsNearEqual(Cpx(1.25, 0), COMPLEX_1));
  EXPECT_FALSE(CpxIsNearEqual(Cpx(1, -0.25), COMPLEX_1));
  EXPECT_TRUE(CpxIsNearEqual(Cpx(0.875, 0.125), COMPLEX_1));
  EXPECT_FALSE(CpxIsZero(Cpx(0, -0.25)));
  EXPECT_TRUE(CpxIsZero(Cpx(0.2, -0.2)));
  EXPECT_FALSE(CpxIsZero(Cpx(0, kNaN)));
  EXPECT_FALSE(CpxIsNearEqual(Cpx(kInf, 0), Cpx(kInf, 0)));
}

TEST_F(NearZero, WithoutAWidthLeavesOnlyExactZeros) {
  for (const Double width : {0.0, -1.0, kNaN}) {
    CpxNearZero = width;
    EXPECT_FALSE(CpxIsNearEqual(COMPLEX_1, COMPLEX_1));
    EXPECT_TRUE(CpxIsZero(Cpx(0.0, -0.0)));
    EXPECT_FALSE(CpxIsZero(Cpx(0.0, 5e-324)));
  }
}

TEST(ComplexPolar, KnowsTheAxes) {
  EXPECT_EQ(ConvertRectToPolar(COMPLEX_0), (TComplexPolar{0.0, 0.0}));
  EXPECT_EQ(ConvertRectToPolar(Cpx(-1, 0)), (TComplexPolar{1.0, pi}));
  EXPECT_EQ(ConvertRectToPolar(Cpx(-1, -0.0)), (TComplexPolar{1.0, -pi}));
  EXPECT_EQ(ConvertRectToPolar(Cpx(0, -2)), (TComplexPolar{2.0, -pi / 2}));
}

TEST(ComplexPolar, ComesBack) {
  for (int degrees = -179; degrees < 180; ++degrees) {
    const TComplex z = Cpx(3.0 * std::cos(degrees / 57.0), 3.0 * std::sin(degrees / 57.0));
    const TComplex back = ConvertPolarToRect(ConvertRectToPolar(z));
    EXPECT_LE(CpxAbs(CpxSub(back, z)), 2e-15) << z;
  }
}

TEST(Complex, ConvertsFromAndToTheStandardType) {
  const std::complex<double> standard = Cpx(1, -2);
  EXPECT_EQ(standard, std::complex<double>(1, -2));
  EXPECT_EQ(CpxConj(standard), Cpx(1, 2));
  EXPECT_EQ(CpxMult(standard, standard), standard * standard);
}

TEST(Complex, PrintsBothParts) {
  std::ostringstream out;
  out << Cpx(1.5, -2) << ", " << Cpx(-1.0 / 3, 0) << ", " << Cpx(kNaN, -kInf);
  EXPECT_EQ(out.str(), "1.5 - 2i, -0.333333 + 0i, NaN - infi");
}

}  // namespace
}  // namespace ZOR_complex

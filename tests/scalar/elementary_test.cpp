#include "zor/scalar/elementary.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/message_of.h"
#include "zor/runtime/pow10.h"

namespace ZOR_math1 {
namespace {

using zor::test::message_of;

constexpr Double kInf = std::numeric_limits<Double>::infinity();
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

// Values of Python's decimal module with 40 digits, rounded; accepted: an ulp.
TEST(Logarithms, OfKnownNumbers) {
  EXPECT_DOUBLE_EQ(lg(2.0), 0.3010299956639812);
  EXPECT_DOUBLE_EQ(lg(7e-310), -309.15490195998575);
  EXPECT_DOUBLE_EQ(ld(0.001), -9.965784284662087);
  EXPECT_DOUBLE_EQ(ld(1.7e308), 1023.9193879716706);
  EXPECT_EQ(lg(kInf), kInf);
}

TEST(Logarithms, OfPowersAreWhole) {
  for (int e = 0; e <= 22; ++e) EXPECT_EQ(lg(zor::detail::pow10(e)), e);
  for (int e = -1074; e < 1024; ++e) ASSERT_EQ(ld(std::ldexp(1.0, e)), e);
}

TEST(Logarithms, RefuseWhatIsNotPositive) {
  for (const Double x : {0.0, -0.0, -1.0, -kInf, kNaN}) {
    EXPECT_EQ(message_of<EMathError>([=] { lg(x); }), "logarithm: invalid argument");
    EXPECT_EQ(message_of<EMathError>([=] { ld(x); }), "logarithm: invalid argument");
  }
}

TEST(HyperbolicFunctions, KeepTheirDigitsNearZero) {
  EXPECT_EQ(ZOR_math1::sinh(1e-17), 1e-17);
  EXPECT_EQ(tgh(1e-17), 1e-17);
  EXPECT_DOUBLE_EQ(ZOR_math1::sinh(1.0), 1.1752011936438014);
  EXPECT_DOUBLE_EQ(ZOR_math1::cosh(1.0), 1.5430806348152437);
  EXPECT_DOUBLE_EQ(tgh(0.5), 0.46211715726000974);
  EXPECT_EQ(ZOR_math1::cosh(1e4), kInf);
  EXPECT_EQ(tgh(-1e4), -1.0);
}

TEST(Tangent, RaisesWhereItsDenominatorIsZero) {
  EXPECT_DOUBLE_EQ(tg(1.0), 1.5574077246549023);
  EXPECT_DOUBLE_EQ(cot(1.0), 0.6420926159343306);
  EXPECT_GT(tg(std::acos(0.0)), 1e16);  // the double next to pi / 2 has a cosine
  EXPECT_EQ(message_of<EMathError>([] { cot(0.0); }), "cotangens overflow");
  EXPECT_EQ(message_of<EMathError>([] { cot(-0.0); }), "cotangens overflow");
  EXPECT_TRUE(std::isnan(tg(kInf)));
}

}  // namespace
}  // namespace ZOR_math1

// As a program writes it: both directives, plain names.
namespace {

using namespace std;
using namespace ZOR_math1;

TEST(HyperbolicFunctions, AreNotAmbiguousBesideThoseOfTheStandardLibrary) {
  EXPECT_DOUBLE_EQ(sinh(1.0), ZOR_math1::sinh(1));
  EXPECT_DOUBLE_EQ(cosh(1), ZOR_math1::cosh(1.0));
  double (*const f)(double) = ZOR_math1::sinh;
  EXPECT_DOUBLE_EQ(f(2.0), sinh(2.0));
}

}  // namespace

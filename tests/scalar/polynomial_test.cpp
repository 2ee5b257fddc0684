#include "zor/scalar/polynomial.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "tests/message_of.h"
#include "zor/scalar/math1_errors.h"

namespace ZOR_math1 {
namespace {

using zor::test::message_of;

TEST(Polynomials, UseThePowersUpToTheOrder) {
  const TDoubleArray coef = {1.0, -2.0, 3.0, 4.0};
  EXPECT_EQ(Polynomial(coef, 0, 7.0), 1.0);
  EXPECT_EQ(Polynomial(coef, 2, 2.0), 9.0);
  EXPECT_EQ(Polynomial(coef, 3, -1.0), 2.0);
  EXPECT_EQ(Polynomial({5.0, 1.0}, 1, 3.0), 8.0);
  EXPECT_EQ(CenteredPolynomial(coef, 2, 10.0, 12.0), 9.0);
  EXPECT_EQ(CenteredPolynomial({5.0, 1.0}, 1, 1.0, 3.0), 7.0);
  EXPECT_EQ(Polynomial(std::vector<Double>{1.0, 2.0}, 1, 3.0), 7.0);
}

TEST(Polynomials, AreAddedUpFromTheLowOrder) {
  const Double c[] = {1e16, 1.0, 1.0};
  EXPECT_EQ(Polynomial(c, 2, 1.0), (1e16 + 1.0) + 1.0);
  EXPECT_NE(Polynomial(c, 2, 1.0), (1.0 + 1.0) + 1e16);
}

TEST(Polynomials, RefuseAnOrderWithoutCoefficient) {
  const TDoubleArray coef = {1.0, 2.0};
  for (const Integer order : {-1, 2, 2147483647}) {
    EXPECT_EQ(message_of<EZORMath1Error>([&] { Polynomial(coef, order, 1.0); }),
              "Polynomial: invalid order of polynomial");
    EXPECT_EQ(message_of<EZORMath1Error>([&] { CenteredPolynomial(coef, order, 1.0, 1.0); }),
              "Polynomial: invalid order of polynomial");
  }
  EXPECT_NE(message_of<EZORError>([] { Polynomial({}, 0, 1.0); }), "");
}

// Python's decimal module, 40 digits. Accepted: some ulps of Amplitude, since the limits are taken off from 1.
TEST(Squash, IsASigmoidThroughItsCenter) {
  EXPECT_NEAR(Squash(2.0, 1.0, 0.5, 3.0), 0.49542123877388805, 1e-15);
  EXPECT_NEAR(Squash(-1.0, 1.0, 0.5, 3.0), -0.964538212594903, 1e-15);
  EXPECT_EQ(Squash(4.0, 4.0, 7.0, 2.0), 0.0);
  EXPECT_NEAR((Squash(4.0 + 1e-6, 4.0, 7.0, 2.0) - Squash(4.0 - 1e-6, 4.0, 7.0, 2.0)) / 2e-6, 7.0, 1e-6);
}

TEST(Squash, ReachesItsLimitsWithoutOverflow) {
  EXPECT_EQ(Squash(1e300, 0.0, 1.0, 2.0), 2.0);
  EXPECT_EQ(Squash(-1e300, 0.0, 1.0, 2.0), -2.0);
  EXPECT_EQ(Squash(1e300, 0.0, -1.0, 2.0), -2.0);
  for (const Double x : {-1.0, 0.0, 1.0}) EXPECT_EQ(Squash(x, 0.0, 1.0, 0.0), 0.0);
  EXPECT_TRUE(std::isnan(Squash(std::numeric_limits<Double>::quiet_NaN(), 0.0, 1.0, 2.0)));
}

}  // namespace
}  // namespace ZOR_math1

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "zor/base/ZOR_univconst.h"

namespace ZOR_univconst {
namespace {

TEST(Constants, AreTheNearestDoubles) {
  EXPECT_EQ(uc_MaxDouble, std::numeric_limits<double>::max());
  EXPECT_EQ(uc_MaxReal, uc_MaxDouble);
  EXPECT_EQ(uc_MaxSingle, static_cast<double>(std::numeric_limits<float>::max()));
  EXPECT_EQ(uc_MaxInt64, std::numeric_limits<ZOR_runtime::Int64>::max());
  EXPECT_EQ(uc_sqrt2, std::sqrt(2.0));
  EXPECT_NEAR(uc_sqrt2pitom1 * uc_sqrt2pitom1 * 2.0 * std::acos(-1.0), 1.0, 4e-16);
}

TEST(LnFactorial, AgreesWithTheGammaFunction) {
  EXPECT_EQ(uc_LnFactorial[0], 0.0);
  EXPECT_EQ(uc_LnFactorial[1], 0.0);
  EXPECT_EQ(uc_LnFactorial[2], std::log(2.0));
  EXPECT_EQ(uc_LnFactorial[1000], 5912.128178488163);  // to 50 digits with mpmath: 5912.12817848816334887812...
  for (std::size_t n = 2; n < uc_LnFactorial.size(); ++n)
    ASSERT_NEAR(uc_LnFactorial[n] / std::lgamma(static_cast<double>(n) + 1.0), 1.0, 1e-15) << n;
}

}  // namespace
}  // namespace ZOR_univconst

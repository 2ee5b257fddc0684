#include "zor/scalar/histogram_bin.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace ZOR_math1 {
namespace {

TEST(HistoBinRef, CountsBinsFromTheOrigin) {
  Double ref = 0.0;
  EXPECT_EQ(HistoBinRef(2.5, 0.0, 1.0, ref), 2);
  EXPECT_EQ(ref, 0.5);
  EXPECT_EQ(HistoBinRef(-0.5, 0.0, 1.0, ref), -1);
  EXPECT_EQ(ref, 0.5);
  EXPECT_EQ(HistoBinRef(11.0, 1.0, 2.5, ref), 4);
  EXPECT_EQ(ref, 0.0);
}

TEST(HistoBinRef, StaysInTheRangeOfAnInteger) {
  Double ref = 0.0;
  EXPECT_EQ(HistoBinRef(1e300, 0.0, 1.0, ref), 2147483647);
  EXPECT_EQ(HistoBinRef(-1e300, 0.0, 1.0, ref), -2147483647 - 1);
  for (const Double width : {0.0, std::numeric_limits<Double>::quiet_NaN()}) {
    EXPECT_EQ(HistoBinRef(5.0, 0.0, width, ref), 0);
    EXPECT_TRUE(std::isnan(ref));
  }
}

}  // namespace
}  // namespace ZOR_math1

#include "zor/scalar/kahan_sum.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace ZOR_math1 {
namespace {

TEST(KahanSum, KeepsWhatAPlainSumLoses) {
  TKahanSum sum;
  sum.Add(1.0);
  Double plain = 1.0;
  for (int i = 0; i < 1'000'000; ++i) {
    sum.Add(1e-16);
    plain += 1e-16;
  }
  EXPECT_EQ(plain, 1.0);
  EXPECT_EQ(sum.Sum, 1.0000000001);
}

TEST(KahanSum, CarriesTheExcessOfTheLastAddition) {
  TKahanSum sum;
  sum.Add(1.0);
  sum.Add(0x1p-53);  // rounded away, to the even neighbour
  EXPECT_EQ(sum.Sum, 1.0);
  EXPECT_EQ(sum.cps, -0x1p-53);
  sum.Reset();
  EXPECT_EQ(sum.Sum, 0.0);
  EXPECT_EQ(sum.cps, 0.0);
}

TEST(KahanSum, IsAComponent) {
  TComponent owner;
  const TKahanSum* const sum = ZOR_runtime::Make<TKahanSum>(&owner);
  EXPECT_EQ(sum->Owner(), &owner);
  EXPECT_STREQ(sum->ClassName(), "TKahanSum");
}

TEST(KahanSum, BecomesNaNBehindAnInfinity) {
  TKahanSum sum;
  sum.Add(std::numeric_limits<Double>::infinity());
  EXPECT_TRUE(std::isinf(sum.Sum));
  sum.Add(1.0);
  EXPECT_TRUE(std::isnan(sum.Sum));
}

}  // namespace
}  // namespace ZOR_math1

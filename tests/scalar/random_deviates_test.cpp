#include "zor/scalar/random_deviates.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace ZOR_math1 {
namespace {

// Taken before any test seeds the generator. Expected here and below: the three congruential generators and their sum
// in Python's exact fractions, the start words 874478, 427213 and 26169.
const Double first_of_the_program = LongRand(0);

TEST(LongRand, StartsFromThreeDrawsOfTheRuntime) { EXPECT_NEAR(first_of_the_program, 0.7372713306752563, 1e-15); }

TEST(LongRand, RestartsFromASeed) {
  EXPECT_NEAR(LongRand(1), 0.2979690208513005, 1e-15);
  EXPECT_NEAR(LongRand(0), 0.6968748289645016, 1e-15);
  EXPECT_NEAR(LongRand(12345), 0.9918772283555496, 1e-15);
  EXPECT_NEAR(LongRand(-12345), 0.2590017025087364, 1e-15);
  EXPECT_NEAR(LongRand(-2147483647 - 1), 0.3835177780677951, 1e-15);
  EXPECT_NEAR(LongRand(0), 0.3710590321710131, 1e-15);
  EXPECT_EQ(LongRand(77), LongRand(77));
}

TEST(LongRand, NoSeedStopsIt) {
  for (const Integer seed : {990923, -990923, 990923 * 2}) {
    EXPECT_NEAR(LongRand(seed), 0.0030939668188116583, 1e-15);
    EXPECT_NEAR(LongRand(0), 0.5581202806220608, 1e-15);
  }
}

TEST(LongRand, FillsTheUnitIntervalEvenly) {
  LongRand(5);
  constexpr int kCount = 100'000;
  int hits[10] = {};
  for (int i = 0; i < kCount; ++i) {
    const Double u = LongRand(0);
    ASSERT_GE(u, 0.0);
    ASSERT_LT(u, 1.0);
    ++hits[static_cast<int>(u * 10.0)];
  }
  for (const int h : hits) EXPECT_NEAR(h, kCount / 10, 500);  // five standard deviations
}

/// The next GRandom draws.
void forget_waiting_deviate() {
  const Int64 before = RandSeed;
  GRandom();
  if (RandSeed != before) GRandom();
}

// The polar method on the generator from state 42, in Python.
TEST(GRandom, DeliversTwoDeviatesOfARound) {
  forget_waiting_deviate();
  RandSeed = 42;
  EXPECT_NEAR(GRandom(), -0.6940056672160174, 1e-15);
  const Int64 after_round = RandSeed;
  RandSeed = 7;  // does not reach the waiting one
  EXPECT_NEAR(GRandom(), 0.49295065581737485, 1e-15);
  EXPECT_EQ(RandSeed, 7);
  RandSeed = after_round;
  EXPECT_NEAR(GRandom(), -0.901557193497174, 1e-15);
  EXPECT_NEAR(GRandom(), -1.2810773478777024, 1e-15);
}

TEST(GRandom, BulkFillGivesTheNumbersOfSingleCalls) {
  for (const std::size_t n : {0U, 1U, 2U, 7U, 1001U}) {
    for (const bool waiting : {false, true}) {
      const auto start = [=] {
        forget_waiting_deviate();
        RandSeed = 3;
        if (waiting) GRandom();
      };
      std::vector<double> cells(n);
      start();
      zor::detail::fill_gauss(cells, -1.5, 2.0);
      const Double next = GRandom();
      start();
      for (const double cell : cells) ASSERT_EQ(cell, -1.5 + 2.0 * GRandom());
      EXPECT_EQ(next, GRandom());
    }
  }
}

TEST(GRandom, HasTheMomentsOfTheNormalDistribution) {
  RandSeed = 8;
  constexpr int kCount = 100'000;
  Double sum = 0.0, squares = 0.0, fourths = 0.0;
  for (int i = 0; i < kCount; ++i) {
    const Double z = GRandom();
    sum += z, squares += z * z, fourths += z * z * z * z;
  }
  EXPECT_NEAR(sum / kCount, 0.0, 0.016);  // five standard deviations each
  EXPECT_NEAR(squares / kCount, 1.0, 0.023);
  EXPECT_NEAR(fourths / kCount, 3.0, 0.16);
}

TEST(CRandom, IsTheTangentOfOneDraw) {
  RandSeed = 42;
  EXPECT_NEAR(CRandom(1.0, 2.0), 2.8967140115741934, 1e-14);
  const Int64 after = RandSeed;
  RandSeed = 42;
  Random();
  EXPECT_EQ(RandSeed, after);
}

TEST(BRandom, DrawsOnlyWhereChanceDecides) {
  RandSeed = 42;  // the first draw is 0.7415648787718233
  EXPECT_TRUE(BRandom(1.0));
  EXPECT_TRUE(BRandom(2.0));
  EXPECT_EQ(RandSeed, 42);
  EXPECT_TRUE(BRandom(0.75));
  RandSeed = 42;
  EXPECT_FALSE(BRandom(0.74));
  RandSeed = 42;
  EXPECT_FALSE(BRandom(std::numeric_limits<Double>::quiet_NaN()));
  EXPECT_NE(RandSeed, 42);
}

}  // namespace
}  // namespace ZOR_math1

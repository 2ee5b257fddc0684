#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

#include "tests/vectors/vector_util.h"
#include "zor/runtime/random.h"

namespace ZOR_vector {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TYPED_TEST_SUITE(Twins, TwinTypes);

TYPED_TEST(Twins, FindGivesTheFirstOfTheNearest) {
  TypeParam v;
  set(v, {9, 5, 1, 5, 3});
  EXPECT_EQ(v.Find(0, 0, 4), 2);
  EXPECT_EQ(v.Find(3, 5, 4), 4);
  EXPECT_EQ(v.FindExact(0, 0, 5), 2);
  EXPECT_EQ(v.FindExact(5, 3, 5), 4);
  EXPECT_EQ(v.FindExact(0, 0, 7), 0);
}

TEST(Find, NaNIsNeitherFoundNorNear) {
  TVector v;
  set(v, {kNaN, kNaN});
  EXPECT_EQ(v.Find(0, 0, 1.0), 0);
  v.SetVal(2, 7.0);
  EXPECT_EQ(v.Find(0, 0, kNaN), 0);
  EXPECT_EQ(v.Find(0, 0, 1.0), 2);
  EXPECT_EQ(v.FindExact(0, 0, kNaN), 0);
}

TEST(Find, IntegerDifferencesDoNotWrap) {
  constexpr Integer kMin = std::numeric_limits<Integer>::min(), kMax = std::numeric_limits<Integer>::max();
  TIntVector v;
  set(v, {kMax, 5});
  EXPECT_EQ(v.Find(0, 0, kMin), 2);
  set(v, {kMin, kMax});
  EXPECT_EQ(v.FindInSortedVector(true, 5), 2);
}

TYPED_TEST(Twins, BisectionReturnsTheNearerCandidateAndTheLaterOnATie) {
  TypeParam v;
  set(v, {10, 20, 30, 40});
  EXPECT_EQ(v.FindInSortedVector(true, 25), 3);
  EXPECT_EQ(v.FindInSortedVector(true, 24), 2);
  EXPECT_EQ(v.FindInSortedVector(true, -9), 1);
  EXPECT_EQ(v.FindInSortedVector(true, 99), 4);
  v.Mirror();
  EXPECT_EQ(v.FindInSortedVector(false, 31), 2);
  EXPECT_EQ(v.FindInSortedVector(false, 11), 4);
}

TYPED_TEST(Twins, SortingTellsEachExchangeSoThatAnObserverCanFollow) {
  TypeParam v;
  set(v, {5, 3, 9, 1, 7, 2, 8});
  auto mirror = values_of(v);
  Integer changes = 0;
  v.OnSortExchange = [&](TObject*, Byte what, Integer a, Integer b, Integer first, Integer last) {
    EXPECT_EQ(what, 0);
    EXPECT_EQ(first + last, 0);
    EXPECT_LT(a, b);
    std::swap(mirror[static_cast<std::size_t>(a) - 1], mirror[static_cast<std::size_t>(b) - 1]);
    EXPECT_EQ(v.GetVal(a), mirror[static_cast<std::size_t>(a) - 1]) << "told after the exchange";
  };
  v.OnChange = [&](TObject*) { ++changes; };
  v.SortElems(true, 0, 0);
  EXPECT_TRUE(std::ranges::is_sorted(values_of(v)));
  EXPECT_EQ(values_of(v), mirror);
  EXPECT_EQ(changes, 1);
}

TYPED_TEST(Twins, SortingARangeLeavesTheRestAndSaysSoOnce) {
  TypeParam v;
  set(v, {5, 4, 3, 2, 1});
  Listener told(v);
  v.SortElems(true, 4, 2);
  EXPECT_EQ(values_of(v), (std::vector<typename TypeParam::value_type>{5, 2, 3, 4, 1}));
  told.take();
  v.SortElems(true, 2, 4);
  EXPECT_EQ(told.take(), "C") << "sorted already";
  v.SortElems(true, 3, 3);
  EXPECT_EQ(told.take(), "");
  v.SortElems(false, 0, 0);
  EXPECT_EQ(values_of(v), (std::vector<typename TypeParam::value_type>{5, 4, 3, 2, 1}));
}

TEST(Sorting, WithAndWithoutAnObserverGivesTheSameCells) {
  TVector v, w;
  for (const Integer n : {2, 3, 17, 100, 1001}) {
    v.Resize(n);
    v.FillRandomUniform(-1, 1);
    v.SetVal(n / 2, kNaN);
    w.Clone(&v);
    w.OnSortExchange = [](TObject*, Byte, Integer, Integer, Integer, Integer) {};
    v.SortElems(true, 0, 0);
    w.SortElems(true, 0, 0);
    EXPECT_EQ(v.CRCofData(), w.CRCofData());
  }
}

TYPED_TEST(Twins, AnObserverMayShrinkTheVectorWhileItIsSorted) {
  TypeParam v;
  v.Resize(50);
  v.FillSerial(50, -1);
  v.OnSortExchange = [&](TObject*, Byte, Integer, Integer, Integer, Integer) {
    if (v.NrOfElem() > 10) v.Resize(10);
  };
  v.SortElems(true, 0, 0);
  EXPECT_EQ(v.NrOfElem(), 10);
  EXPECT_TRUE(std::ranges::is_sorted(v.Cells()));
}

TYPED_TEST(Twins, ShufflingKeepsTheValuesAndIsSilent) {
  TypeParam v;
  v.Resize(200);
  v.FillSerial(1, 1);
  Listener told(v);
  v.ShuffleElems();
  EXPECT_EQ(told.take(), "");
  EXPECT_FALSE(std::ranges::is_sorted(v.Cells()));
  v.SortElems(true, 0, 0);
  for (Integer i = 1; i <= 200; ++i) EXPECT_EQ(v.GetVal(i), i);
}

TEST(RandomFills, FollowTheSeedAndTellOnce) {
  TVector v, w;
  v.Resize(1000), w.Resize(1000);
  Listener told(v);
  ZOR_runtime::RandSeed = 5;
  v.FillRandomUniform(2.0, 3.0);
  EXPECT_EQ(told.take(), "C");
  EXPECT_FALSE(v.IsEmpty());
  ZOR_runtime::RandSeed = 5;
  for (Integer i = 1; i <= 1000; ++i) w.SetVal(i, 2.0 + (3.0 - 2.0) * ZOR_runtime::Random());
  EXPECT_EQ(v.CRCofData(), w.CRCofData());
  double mean = 0, variance = 0;
  v.Resize(100000);
  v.FillRandomGauss(5.0, 2.0);
  v.MeanVar(0, 0, mean, variance);
  EXPECT_NEAR(mean, 5.0, 0.05);
  EXPECT_NEAR(variance, 4.0, 0.1);
}

// Integral of the cubic through the samples: every rule from three samples on is exact for it.
TEST(Integration, SimpsonsRulesAreExactForCubics) {
  const auto f = [](double x) { return 1.0 - 2.0 * x + 0.5 * x * x - 0.125 * x * x * x; };
  const auto integral = [](double x) { return x - x * x + 0.5 / 3.0 * x * x * x - 0.125 / 4.0 * x * x * x * x; };
  TVector v;
  v.Resize(20);
  for (Integer i = 1; i <= 20; ++i) v.SetVal(i, f(i));
  for (Integer hi = 3; hi <= 20; ++hi) {
    EXPECT_NEAR(v.Integrate(1, hi, imSimpson), integral(hi) - integral(1), 1e-11) << hi;
  }
}

TEST(Integration, BoundsAreInterpolatedClampedAndExchanged) {
  TVector v;
  set(v, {1, 1, 1, 1});
  for (const TIntegMethod method : {imSimple, imTrapezoidal, imSimpson}) {
    EXPECT_DOUBLE_EQ(v.Integrate(1, 4, method), 3.0);
    EXPECT_DOUBLE_EQ(v.Integrate(0, 99, method), 3.0);
    EXPECT_EQ(v.Integrate(2.5, 2.5, method), 0.0);
    EXPECT_TRUE(std::isnan(v.Integrate(kNaN, 3, method)));
  }
  v.FillSerial(0, 1);  // the line x - 1
  for (const TIntegMethod method : {imTrapezoidal, imSimpson}) {
    EXPECT_DOUBLE_EQ(v.Integrate(3.75, 1.25, method), (2.75 * 2.75 - 0.25 * 0.25) / 2);
    EXPECT_DOUBLE_EQ(v.Integrate(2.25, 2.75, method), 1.5 * 0.5);
  }
  EXPECT_DOUBLE_EQ(v.Integrate(2.25, 2.75, imSimple), 1.5 * 0.5);
  EXPECT_DOUBLE_EQ(v.Integrate(1.5, 3.5, imSimple), 1.5 * 2.0);
  EXPECT_EQ(v.Integrate(1, 4, static_cast<TIntegMethod>(3)), 0.0);
}

TEST(Integration, AStripOfNoWidthDoesNotReadItsNeighbour) {
  TVector v;
  set(v, {kNaN, 1, 1, kNaN});
  EXPECT_EQ(v.Integrate(2, 3, imTrapezoidal), 1.0);
  EXPECT_EQ(v.Integrate(2, 3, imSimpson), 1.0);
  set(v, {2});
  EXPECT_EQ(v.Integrate(1, 1, imSimpson), 0.0);
}

}  // namespace
}  // namespace ZOR_vector

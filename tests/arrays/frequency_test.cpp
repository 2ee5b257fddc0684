#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

using testing::ElementsAre;

struct Distribution {
  TIntArray histogram = {7};
  Integer underflow = 7, overflow = 7, largest = 7;

  Integer of(const TDoubleArray& a, Integer low, Integer high, double first, double last, double width) {
    return FrequDistOfArray(a, low, high, first, last, width, histogram, underflow, overflow, largest);
  }
  Integer masked(const TBool2DArray& mask, Integer high = 0, double last = 3, double width = 1) {
    const TDouble2DArray plane = {{0, 1, 1}, {2, 3, 1}};
    return FrequDistOfArray(plane, mask, 0, 0, high, 0, 0, last, width, histogram, underflow, overflow, largest);
  }
};

TEST(Frequencies, AccountForEveryCell) {
  Distribution d;
  EXPECT_EQ(d.of({2.5, 3, -0.1, 0, 1, 1.5, 2, kNaN, kInf, -kInf}, 0, 0, 0, 2, 1), 0) << "all bounds 0: everything";
  EXPECT_THAT(cells(d.histogram), ElementsAre(1, 2, 2));
  EXPECT_EQ(d.underflow, 2);
  EXPECT_EQ(d.overflow, 3);
  EXPECT_EQ(d.largest, 2);
  // Three bins by rounding: what is beyond the last one but below LastBin + BinWidth must not overrun it.
  EXPECT_EQ(d.of({3.2, 3.3, 2.9}, 0, 0, 0, 2.4, 1), 0);
  EXPECT_THAT(cells(d.histogram), ElementsAre(0, 0, 1));
  EXPECT_EQ(d.overflow, 2);
  EXPECT_EQ(d.of({5.1}, 0, 0, 0.1, 4.9, 0.2), 0);
  EXPECT_EQ(d.overflow + cells(d.histogram).back(), 1);
}

TEST(Frequencies, OfARangeAndUnderAMask) {
  Distribution d;
  EXPECT_EQ(d.of({0, 1, 2, 3}, 1, 2, 0, 3, 1), 0);
  EXPECT_THAT(cells(d.histogram), ElementsAre(0, 1, 1, 0));
  const TDouble2DArray plane = {{0, 1, 1}, {2, 3, 1}};
  EXPECT_EQ(FrequDistOfArray(plane, 0, 1, 1, 2, 0, 3, 1, d.histogram, d.underflow, d.overflow, d.largest), 0);
  EXPECT_THAT(cells(d.histogram), ElementsAre(0, 3, 0, 1));
  EXPECT_EQ(d.largest, 3);
  EXPECT_EQ(d.masked({{false, true, false}, {false, false, true}}), 0);
  EXPECT_THAT(cells(d.histogram), ElementsAre(1, 1, 1, 1)) << "true leaves a cell out";
  EXPECT_EQ(d.masked({{false, true, false}, {false, false, true}}, 1), 0);
  EXPECT_THAT(cells(d.histogram), ElementsAre(1, 0, 1, 0)) << "the first cells of both columns";
}

TEST(Frequencies, TellTheLastFaultAndTouchNothing) {
  Distribution d;
  const TDoubleArray a = {1, 2, 3};
  EXPECT_EQ(d.of(nullptr, 0, 0, 2, 1, 0), kBoundOutside);
  EXPECT_EQ(d.of(a, 0, 3, 0, 2, 1), kBoundOutside);
  EXPECT_EQ(d.of(a, -1, 1, 0, 2, 1), kBoundOutside);
  EXPECT_EQ(d.of(a, 2, 1, 0, 2, 1), kBoundsReversed);
  EXPECT_EQ(d.of(a, 2, 1, 2, 2, 1), kBadBinLimits);
  EXPECT_EQ(d.of(a, 0, 0, kNaN, 2, 1), kBadBinLimits);
  for (const double width : {0.0, -1.0, kNaN, kInf}) EXPECT_EQ(d.of(a, 0, 0, 2, 1, width), kBadBinWidth);
  EXPECT_EQ(d.of(a, 0, 0, 0, 999.5, 1), kTooManyBins) << "rounds to 1000, and one more";
  EXPECT_EQ(d.of(a, 0, 0, -kInf, 0, 1), kTooManyBins);
  EXPECT_EQ(d.masked(nullptr), kMaskNotFitting);
  EXPECT_EQ(d.masked({{true}, {true}}, 9, -1), kMaskNotFitting);
  EXPECT_EQ(d.masked(nullptr, 0, 1e9), kTooManyBins);
  EXPECT_THAT(cells(d.histogram), ElementsAre(7));
  EXPECT_EQ(d.underflow + d.overflow + d.largest, 21);
  EXPECT_EQ(d.of(a, 0, 0, 0, 999.4, 1), 0);
  EXPECT_EQ(Length(d.histogram), 1000);
}

}  // namespace
}  // namespace ZOR_openarrays

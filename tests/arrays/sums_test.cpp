#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

TEST(MaskedSum, MaskExcludes) {
  Double sum = 9;
  const TDouble2DArray a = {{1, kNaN}, {4, 8}};
  EXPECT_EQ(SumArrayMasked(a, {{false, true}, {false, false}}, sum), 3);
  EXPECT_EQ(sum, 13.0);
  EXPECT_EQ(SumArrayMasked(a, {{true, true}, {true, true}}, sum), 0);
  EXPECT_EQ(sum, 0.0);
  const TInt2DArray large = {{2147483647, 2147483647}};
  EXPECT_EQ(SumArrayMasked(large, nullptr, sum), 2) << "no mask: all cells";
  EXPECT_EQ(sum, 4294967294.0);
  EXPECT_EQ(SumArrayMasked(large, {{false}}, sum), kMaskMismatch);
  EXPECT_EQ(SumArrayMasked(a, {{false, true}, {false}}, sum), kMaskMismatch) << "ragged";
  EXPECT_EQ(SumArrayMasked(TDouble2DArray{}, {{false}}, sum), kNothingToSum);
  EXPECT_EQ(sum, 4294967294.0);
}

TEST(SquaredDifferences, HaveCodesBelowZero) {
  EXPECT_EQ(SumOfSquaredDiffs({1, 2}, {4, -2}), 25.0);
  EXPECT_EQ(SumOfSquaredDiffs({1, 2}, TDoubleArray{}), kEmptyOperand);
  EXPECT_EQ(SumOfSquaredDiffs({1, 2}, {1}), kOtherLength);
  const TDouble2DArray m = {{0, 0}, {4, -2}};
  EXPECT_EQ(SumOfSquaredDiffs({1, 2}, m, 1), 25.0);
  EXPECT_EQ(SumOfSquaredDiffs({1}, m, 1), kOtherLength);
  EXPECT_EQ(SumOfSquaredDiffs({1}, m, 2), kNoSuchColumn) << "the test made last wins";
  EXPECT_EQ(SumOfSquaredDiffs({1, 2}, m, -1), kNoSuchColumn);
  EXPECT_EQ(SumOfSquaredDiffs({1, 2}, nullptr, 1), kEmptyOperand);
}

TEST(Trace, OfSquaresOnly) {
  Double trace = 9;
  Integer whole = 9;
  EXPECT_EQ(TraceOfArray(TDouble2DArray{{1, 2}, {3, 4.5}}, trace), 0);
  EXPECT_EQ(trace, 5.5);
  EXPECT_EQ(TraceOfArray(TDouble2DArray{{1, 2}}, trace), kSizeMismatch);
  EXPECT_EQ(trace, 0.0);
  EXPECT_EQ(TraceOfArray(TInt2DArray{{2147483647, 0}, {0, 1}}, whole), 0);
  EXPECT_EQ(whole, kMinInteger);
  EXPECT_EQ(TraceOfArray(TInt2DArray{}, whole), kEmptyArray);
  EXPECT_EQ(whole, 0);
}

}  // namespace
}  // namespace ZOR_openarrays

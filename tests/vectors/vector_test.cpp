#include <cmath>
#include <limits>

#include "tests/vectors/vector_util.h"
#include "zor/runtime/cell_memory.h"

namespace ZOR_vector {
namespace {

template <class V>
concept FillsFromFraction = requires(V& v) { v.Fill(2.7); };
static_assert(FillsFromFraction<TVector> && !FillsFromFraction<TIntVector>, "no silent narrowing");

TYPED_TEST_SUITE(Twins, TwinTypes);

TYPED_TEST(Twins, ANewVectorHoldsOneZeroAndIsEmpty) {
  const TypeParam v;
  EXPECT_EQ(v.NrOfElem(), 1);
  EXPECT_TRUE(v.IsEmpty());
  EXPECT_EQ(v.GetVal(1), 0);
}

TYPED_TEST(Twins, BadElementNumbersReadZeroAndWriteNothing) {
  TypeParam v;
  set(v, {1, 2, 3});
  v.SetIsEmpty(true);
  Listener told(v);
  for (const Integer bad : {0, 4, -1, std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max()}) {
    EXPECT_EQ(v.GetVal(bad), 0);
    v.SetVal(bad, 9);
  }
  EXPECT_EQ(told.take(), "");
  EXPECT_TRUE(v.IsEmpty());
  EXPECT_EQ(values_of(v), (std::vector<typename TypeParam::value_type>{1, 2, 3}));
}

TYPED_TEST(Twins, ResizeKeepsWhatStaysAndTellsChangeBeforeResize) {
  TypeParam v;
  set(v, {1, 2, 3});
  std::string told;
  v.OnChange = [&](TObject*) { told += 'C' + std::to_string(v.NrOfElem()); };
  v.OnResize = [&](TObject*) { told += 'R' + std::to_string(v.NrOfElem()); };
  EXPECT_TRUE(v.Resize(5));
  EXPECT_EQ(told, "C5R5");
  EXPECT_EQ(values_of(v), (std::vector<typename TypeParam::value_type>{1, 2, 3, 0, 0}));
  told.clear();
  EXPECT_TRUE(v.Resize(5));
  EXPECT_FALSE(v.Resize(0));
  EXPECT_FALSE(v.Resize(-5));
  v.SetNrOfElem(0);
  EXPECT_EQ(told, "");
  v.SetNrOfElem(2);
  v.SetNrOfElem(3);
  EXPECT_EQ(v.GetVal(3), 0) << "a cell that went away must not come back";
}

TYPED_TEST(Twins, MemoryThatRunsOutLeavesTheVectorAndSaysSo) {
  TypeParam v;
  v.SetName("Vector1");
  set(v, {1, 2});
  const auto before = values_of(v);
  zor::detail::AllocationLimitScope limit({.largest = 1000, .failing_call = zor::detail::AllocationLimits::kNone});
  EXPECT_EQ(message_of<EZORVectorError>([&] { v.Resize(1000000); }), "Component \"Vector1\": not enough memory");
  EXPECT_EQ(message_of<EZORVectorError>([&] { v.SetNrOfElem(2147483647); }),
            "Component \"Vector1\": not enough memory");
  EXPECT_EQ(values_of(v), before);
}

TYPED_TEST(Twins, AnExceptionOfAHandlerLeavesResizeAsMemoryErrorWithItsCause) {
  TypeParam v;
  v.OnResize = [](TObject*) { throw std::runtime_error("cause"); };
  try {
    v.Resize(7);
    FAIL();
  } catch (const EZORVectorError& e) {
    EXPECT_STREQ(e.what(), "Component \"\": not enough memory");
    EXPECT_THROW(std::rethrow_if_nested(e), std::runtime_error);
  }
  EXPECT_EQ(v.NrOfElem(), 7);
}

TYPED_TEST(Twins, RangesAreRepairedByOneRule) {
  TypeParam v;
  v.Resize(10);
  struct Case {
    Integer lo, hi, repaired_lo, repaired_hi, result;
  };
  for (const Case& c : {Case{0, 0, 1, 10, 0}, Case{5, 2, 2, 5, 0}, Case{-3, 20, 1, 10, -1}, Case{0, 5, 1, 5, -1},
                        Case{20, -3, 1, 10, -1}, Case{11, 12, 10, 10, -1}, Case{3, 3, 3, 3, 0}}) {
    Integer lo = c.lo, hi = c.hi;
    EXPECT_EQ(v.MakeValidElemRange(lo, hi), c.result);
    EXPECT_EQ(lo, c.repaired_lo);
    EXPECT_EQ(hi, c.repaired_hi);
  }
}

TYPED_TEST(Twins, FillsAndArithmeticTellOnceAndMindTheEmptyMark) {
  TypeParam v, w;
  set(v, {1, -2, 3});
  set(w, {10, 20, 30});
  Listener told(v);
  v.Clear();
  EXPECT_TRUE(v.IsEmpty());
  v.Add(&w);
  EXPECT_TRUE(v.IsEmpty()) << "arithmetic is no fill";
  v.FillSerial(1, 2);
  EXPECT_FALSE(v.IsEmpty());
  v.Subtract(&w);
  EXPECT_EQ(values_of(v), (std::vector<typename TypeParam::value_type>{-9, -17, -25}));
  v.AbsVal();
  v.SMult(2);
  EXPECT_EQ(values_of(v), (std::vector<typename TypeParam::value_type>{18, 34, 50}));
  v.Fill(0);
  EXPECT_EQ(told.take(), "CCCCCCC");
  v.Add(nullptr);
  v.Subtract(nullptr);
  EXPECT_EQ(told.take(), "");
  EXPECT_EQ(v.DotProduct(nullptr), 0);
  w.Resize(4);
  EXPECT_EQ(message_of<EZORVectorError>([&] { v.Add(&w); }), "Component \"\": vectors have different dimensions");
  EXPECT_THROW(v.Subtract(&w), EZORVectorError);
  EXPECT_THROW(v.DotProduct(&w), EZORVectorError);
}

TYPED_TEST(Twins, AVectorMayBeItsOwnOperand) {
  TypeParam v;
  set(v, {1, 2, 3});
  v.Add(&v);
  EXPECT_EQ(values_of(v), (std::vector<typename TypeParam::value_type>{2, 4, 6}));
  EXPECT_EQ(v.DotProduct(&v), 56);
  v.Subtract(&v);
  EXPECT_EQ(values_of(v), (std::vector<typename TypeParam::value_type>{0, 0, 0}));
}

TYPED_TEST(Twins, AnElementOnTheLeftWritesThroughSetVal) {
  TypeParam v;
  set(v, {1, 2, 3});
  Listener told(v);
  v.Elem(1) = v.Elem(3);
  v.Elem(2) += 5;
  v.Elem(9) = 4;
  EXPECT_EQ(told.take(), "CC");
  EXPECT_EQ(values_of(v), (std::vector<typename TypeParam::value_type>{3, 7, 3}));
}

TYPED_TEST(Twins, AnEditScopeWritesRawCellsAndTellsOnce) {
  TypeParam v;
  v.Resize(3);
  Listener told(v);
  {
    auto edit = v.Edit();
    edit[2] = 8;
    EXPECT_EQ(told.take(), "");
  }
  EXPECT_EQ(told.take(), "C");
  EXPECT_FALSE(v.IsEmpty());
  EXPECT_EQ(v.GetVal(3), 8);
}

TEST(TVectorCore, RepeatedAdditionFillsASeries) {
  TVector v;
  v.Resize(11);
  v.FillSerial(0.0, 0.1);
  double expected = 0.0;
  for (Integer i = 1; i <= 11; ++i, expected += 0.1) EXPECT_EQ(v.GetVal(i), expected);
  EXPECT_NE(v.GetVal(11), 1.0);
}

TEST(TVectorCore, ScalingToALengthLeavesWhatHasNone) {
  TVector v;
  set(v, {3.0, 4.0});
  EXPECT_EQ(v.Leng(), 5.0);
  v.SetLeng(10.0);
  EXPECT_EQ(values_of(v), (std::vector<double>{6.0, 8.0}));
  set(v, {1e300, 1e300});
  Listener told(v);
  v.SetVecLeng(1.0);  // the squares overflow
  EXPECT_EQ(v.GetVal(1), 1e300);
  v.Fill(0.0);
  told.take();
  v.SetVecLeng(2.0);
  EXPECT_EQ(told.take(), "");
  EXPECT_EQ(v.Leng(), 0.0);
}

TEST(TIntVectorCore, IntegersWrapAndNeverOverflow) {
  constexpr Integer kMin = std::numeric_limits<Integer>::min(), kMax = std::numeric_limits<Integer>::max();
  TIntVector v, w;
  set(v, {kMax, kMin, 46341});
  set(w, {1, -1, 0});
  v.Add(&w);
  EXPECT_EQ(values_of(v), (std::vector<Integer>{kMin, kMax, 46341}));
  v.AbsVal();
  EXPECT_EQ(v.GetVal(1), kMin);
  set(v, {46341});
  EXPECT_EQ(v.Leng(), 0.0) << "the square wraps to a negative number";
  set(v, {kMax, kMax, 3});
  EXPECT_EQ(v.Sum(0, 0), 1);
  v.FillSerial(kMax, 1);
  EXPECT_EQ(v.GetVal(2), kMin);
}

TEST(Fingerprint, IsACrcForEachBytePosition) {
  TVector v;
  set(v, {1.0, 2.0});
  const TString text = v.CRCofData();
  EXPECT_EQ(text.Length(), 64);
  // zlib.crc32 of b"\x00\x00", and of the bytes F0 00 and 3F 40 that end the images of 1.0 and 2.0.
  EXPECT_EQ(text,
            "41D912FF41D912FF41D912FF41D912FF41D912FF41D912FF"
            "5565F3426FDB7953");
  v.SortElems(false, 0, 0);
  EXPECT_NE(v.CRCofData(), text);
  set(v, {0.0});
  const TString zero = v.CRCofData();
  v.SetVal(1, -0.0);
  EXPECT_NE(v.CRCofData(), zero);
  TIntVector n;
  set(n, {1, 256});
  EXPECT_EQ(n.CRCofData().Length(), 32);
}

}  // namespace
}  // namespace ZOR_vector

#include <limits>

#include "tests/vectors/vector_util.h"

namespace ZOR_vector {
namespace {

TYPED_TEST_SUITE(Twins, TwinTypes);

template <class V>
using Values = std::vector<typename V::value_type>;

TYPED_TEST(Twins, CloneTellsEachElementAndOnceMore) {
  TypeParam v, w;
  set(w, {4, 5, 6});
  Listener told(v);
  v.Clone(&w);
  EXPECT_EQ(told.take(), "CRCCCC");
  EXPECT_EQ(values_of(v), values_of(w));
  v.Clone(nullptr);
  EXPECT_EQ(told.take(), "");
  v.Clone(&v);
  EXPECT_EQ(told.take(), "CCCC");
}

TYPED_TEST(Twins, CopyFromReportsTheLastFaultAndDropsWhatLandsOutside) {
  TypeParam v, w;
  set(w, {1, 2, 3, 4});
  v.Resize(10);
  Listener told(v);
  const TypeParam* none = nullptr;
  EXPECT_EQ(v.CopyFrom(none, 0, 0, 1), -1);
  EXPECT_EQ(v.CopyFrom(&w, 0, 2, 1), -2);
  EXPECT_EQ(v.CopyFrom(&w, 1, 5, 1), -2);
  EXPECT_EQ(v.CopyFrom(&w, 1, 2, 11), -3);
  EXPECT_EQ(v.CopyFrom(&w, 9, 2, 0), -3);
  EXPECT_EQ(told.take(), "");
  EXPECT_EQ(v.CopyFrom(&w, 2, 4, 9), 0);
  EXPECT_EQ(told.take(), "CCC");
  EXPECT_EQ(v.GetVal(9), 2);
  EXPECT_EQ(v.GetVal(10), 3);
  EXPECT_EQ(v.CopyFrom(&w, 4, 3, 1), 0);
  EXPECT_EQ(v.GetVal(1), 3);
}

TYPED_TEST(Twins, ACopyThatLandsNowhereStillTellsChangeButKeepsTheEmptyMark) {
  TypeParam v, w;
  set(w, {1, 2});
  v.Resize(3);
  Listener told(v);
  EXPECT_EQ(v.CopyFrom(&w, 0, 0, 99), 0);
  EXPECT_EQ(told.take(), "C");
  EXPECT_TRUE(v.IsEmpty());
  v.OnChange = nullptr;
  EXPECT_EQ(v.CopyFrom(&w, 0, 0, 99), 0);
  EXPECT_TRUE(v.IsEmpty());
  EXPECT_EQ(v.CopyFrom(&w, 0, 0, 0), 0);  // element 2 of the source lands on element 1
  EXPECT_FALSE(v.IsEmpty());
  EXPECT_EQ(v.GetVal(1), 2);
}

TYPED_TEST(Twins, ACopyOntoItselfGivesWhatAPrivateCopyWouldGive) {
  for (const bool heard : {false, true}) {
    TypeParam v;
    set(v, {1, 2, 3, 4, 5});
    Listener told(v);
    if (!heard) v.OnChange = nullptr;
    EXPECT_EQ(v.CopyFrom(&v, 1, 4, 2), 0);
    EXPECT_EQ(values_of(v), (Values<TypeParam>{1, 1, 2, 3, 4}));
  }
}

TYPED_TEST(Twins, ArraysAreCopiedFromPositionsCountedFromZero) {
  using TArray = typename TypeParam::TArray;
  TypeParam v;
  v.Resize(3);
  const TArray a = {5, 6, 7};
  EXPECT_EQ(v.CopyFrom(TArray{}, 0, 0, 1), -1);
  EXPECT_EQ(v.CopyFrom(a, 1, 3, 1), -2);
  EXPECT_EQ(v.CopyFrom(a, -1, 1, 1), -2);
  EXPECT_EQ(v.CopyFrom(a, 1, 3, 0), -3);
  EXPECT_EQ(v.CopyFrom(a, 2, 1, 2), 0);
  EXPECT_EQ(values_of(v), (Values<TypeParam>{0, 6, 7}));
  EXPECT_EQ(v.CopyFrom(a, 0, 0, 0), 0);
  EXPECT_EQ(values_of(v), (Values<TypeParam>{6, 7, 7})) << "the first cell is dropped";
}

TYPED_TEST(Twins, RowsAndColumnsOfAnArrayMayStartInFrontOfTheVector) {
  using T2DArray = typename TypeParam::T2DArray;
  const T2DArray a = {{1, 2}, {3, 4}, {5, 6}, {7, 8}};
  TypeParam v;
  v.Resize(3);
  Listener told(v);
  v.CopyFrom2DArrayRow(a, 1, 3, 0, -2);  // four values, the last one lands on element 1
  EXPECT_EQ(told.take(), "CC");
  EXPECT_EQ(v.GetVal(1), 8);
  v.CopyFrom2DArrayRow(a, 1, 0, 3, -3);
  v.CopyFrom2DArrayRow(a, 1, 0, 3, 4);
  v.CopyFrom2DArrayRow({{1, 2}, {3}}, 0, 0, 1, 1);
  v.CopyFrom2DArrayRow(nullptr, 0, 0, 0, 1);
  EXPECT_EQ(told.take(), "");
  v.CopyFrom2DArrayColumn(a, 99, -5, 99, 2);
  EXPECT_EQ(told.take(), "CCC");
  EXPECT_EQ(values_of(v), (Values<TypeParam>{8, 7, 8}));
  v.CopyFrom2DArrayRow(a, 0, 1, 2, 1);
  EXPECT_EQ(values_of(v), (Values<TypeParam>{3, 5, 8}));
}

TYPED_TEST(Twins, CopyToArrayEndsTheArrayBehindTheLastElement) {
  typename TypeParam::TArray a = {9, 9, 9, 9, 9, 9, 9, 9};
  TypeParam v;
  set(v, {1, 2, 3});
  v.CopyToArray(a, 2, 3, 4);
  EXPECT_EQ(a, (typename TypeParam::TArray{9, 9, 9, 9, 2, 3}));
  v.CopyToArray(a, 0, 0, -7);
  EXPECT_EQ(a, (typename TypeParam::TArray{1, 2, 3}));
  EXPECT_EQ(message_of<EZORVectorError>([&] { v.CopyToArray(a, 0, 0, 2147483645); }),
            "Component \"\": not enough memory");
  EXPECT_EQ(a.size(), 3U);
}

TYPED_TEST(Twins, CopyToATwoDimensionalArrayKeepsItsShape) {
  using T2DArray = typename TypeParam::T2DArray;
  TypeParam v;
  set(v, {1, 2, 3});
  T2DArray a;
  SetLength(a, 2, 3);
  v.CopyToArray(a, 0, 0, 1, 1, true);
  EXPECT_EQ(a, (T2DArray{{0, 0, 0}, {0, 1, 2}}));
  v.CopyToArray(a, 2, 3, 0, 99, false);
  EXPECT_EQ(a, (T2DArray{{0, 0, 2}, {0, 1, 3}}));
  T2DArray ragged = {{1, 2}, {3}};
  v.CopyToArray(ragged, 0, 0, 0, 0, false);
  EXPECT_EQ(ragged, (T2DArray{{1, 2}, {3}}));
}

TYPED_TEST(Twins, AssignTakesEverythingSilently) {
  TypeParam v, w;
  set(v, {1, 2});
  v.SetIsEmpty(true);
  int calls = 0;
  v.OnChange = [&](TObject*) { ++calls; };
  w.Assign(&v);
  EXPECT_EQ(calls, 0);
  EXPECT_TRUE(w.IsEmpty());
  EXPECT_EQ(w.OnChange, v.OnChange);
  w.SetVal(1, 9);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(v.GetVal(1), 1) << "the cells are not shared";
  v.AssignTo(&w);
  EXPECT_EQ(w.GetVal(1), 1);
  EXPECT_THROW(v.Assign(nullptr), EConvertError);
  EXPECT_THROW(v.AssignTo(nullptr), EConvertError);
}

TEST(Assignment, TheTwinsDoNotConvertIntoEachOther) {
  TVector v;
  TIntVector n;
  EXPECT_EQ(message_of<EConvertError>([&] { v.Assign(&n); }), "TIntVector cannot be assigned to TVector");
  EXPECT_THROW(v.AssignTo(&n), EConvertError);
}

TYPED_TEST(Twins, AHandlerMayShrinkTheVectorDuringACopy) {
  TypeParam v, w;
  w.Resize(1000);
  w.Fill(3);
  v.Resize(1000);
  v.OnChange = [&](TObject* sender) {
    auto* vec = static_cast<TypeParam*>(sender);
    vec->OnChange = nullptr;
    vec->Resize(2);
    w.Resize(1);
  };
  EXPECT_EQ(v.CopyFrom(&w, 0, 0, 1), 0);
  EXPECT_EQ(values_of(v), (Values<TypeParam>{3, 3}));
}

}  // namespace
}  // namespace ZOR_vector

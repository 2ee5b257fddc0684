#include "zor/base/bit_field.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "zor/runtime/cell_memory.h"

namespace ZOR_dstruct {
namespace {

using namespace ZOR_zorbase;

void set(TBitFld& field, const std::string& bits) {
  field.SetSize(static_cast<Integer>(bits.size()) - 1);
  for (std::size_t i = 0; i < bits.size(); ++i) field.SetBit(static_cast<Integer>(i), bits[i] == '1');
}

std::string text(const TBitFld& field) {
  std::string bits;
  for (Integer i = 0; i <= field.Size(); ++i) bits += field.GetBit(i) ? '1' : '0';
  return bits;
}

TEST(TBitFld, HasNoBitsAtFirst) {
  TBitFld field;
  EXPECT_EQ(field.Size(), -1);
  EXPECT_FALSE(field.GetBit(0));
  EXPECT_EQ(field.CountTrueBits(), 0);
  EXPECT_EQ(field.FirstTrueBit(), -1);
  field.Invert();
  EXPECT_EQ(field.CountTrueBits(), 0);
}

TEST(TBitFld, SizeIsTheHighestIndex) {
  TBitFld field;
  field.SetSize(9);
  EXPECT_EQ(field.Size(), 9);
  field.SetBit(9, true);
  field.SetBit(10, true);
  field.SetBit(-1, true);
  EXPECT_TRUE(field.GetBit(9));
  EXPECT_FALSE(field.GetBit(10));
  EXPECT_FALSE(field.GetBit(2147483647));
  EXPECT_EQ(field.CountTrueBits(), 1);
}

TEST(TBitFld, NewBitsAreFalseAlsoWhereBitsWereCutOff) {
  TBitFld field;
  for (const Integer small : {0, 5, 62, 63, 64, 100}) {
    field.SetSize(200);
    field.Clear();
    field.Invert();
    field.SetSize(small);
    EXPECT_EQ(field.CountTrueBits(), small + 1);
    field.SetSize(200);
    EXPECT_EQ(field.CountTrueBits(), small + 1) << small;
  }
  field.SetSize(-7);
  EXPECT_EQ(field.Size(), -1);
}

TEST(TBitFld, CountsAndInvertsAroundTheWordSize) {
  for (const Integer high : {0, 1, 62, 63, 64, 65, 127, 128}) {
    TBitFld field;
    field.SetSize(high);
    field.SetBit(high, true);
    EXPECT_EQ(field.FirstTrueBit(), high);
    field.Invert();
    EXPECT_EQ(field.CountTrueBits(), high);
    EXPECT_FALSE(field.GetBit(high));
  }
}

TEST(TBitFld, CombinesByEachOperation) {
  const std::pair<TLogicOp, const char*> cases[] = {{loAnd, "0001"},    {loOr, "0111"},    {loXor, "0110"},
                                                    {loAndNot, "0010"}, {loOrNot, "1011"}, {loXorNot, "1001"}};
  for (const auto& [op, expected] : cases) {
    TBitFld a, b;
    set(a, "0011");
    set(b, "0101");
    a.CombineWith(&b, op);
    EXPECT_EQ(text(a), expected) << int{op};
    EXPECT_EQ(a.CountTrueBits(), std::count(expected, expected + 4, '1'));
  }
}

TEST(TBitFld, BitsThatTheOtherLacksCountAsFalse) {
  TBitFld a, shorter, longer;
  a.SetSize(129);
  set(shorter, "1");
  longer.SetSize(500);
  longer.Invert();
  a.CombineWith(&shorter, loOrNot);
  EXPECT_EQ(a.CountTrueBits(), 129);
  EXPECT_FALSE(a.GetBit(0));
  a.CombineWith(&longer, loXor);
  EXPECT_EQ(a.Size(), 129);
  EXPECT_EQ(a.CountTrueBits(), 1);
  a.CombineWith(nullptr, loAnd);
  EXPECT_EQ(a.CountTrueBits(), 1);
  a.CombineWith(&a, loXorNot);
  EXPECT_EQ(a.CountTrueBits(), 130);
}

TEST(TBitFld, CloneIsACopyOfItsOwn) {
  TBitFld a, b;
  set(a, "0110");
  b.Clone(&a);
  b.SetBit(0, true);
  EXPECT_EQ(text(a), "0110");
  EXPECT_EQ(text(b), "1110");
  b.Clone(nullptr);
  b.Clone(&b);
  EXPECT_EQ(text(b), "1110");
}

TEST(TBitFld, WithoutMemoryStaysAsItWas) {
  TBitFld field;
  set(field, "101");
  const zor::detail::AllocationLimitScope limit({.failing_call = 1});
  EXPECT_THROW(field.SetSize(100000), ZOR_runtime::EOutOfMemory);
  EXPECT_EQ(text(field), "101");
}

}  // namespace
}  // namespace ZOR_dstruct

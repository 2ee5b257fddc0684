#include "zor/scalar/exchange.h"

#include <gtest/gtest.h>

#include <string>

namespace ZOR_math1 {
namespace {

template <class T>
void expect_swapped(T a, T b) {
  const T first = a, second = b;
  ExChange(a, b);
  EXPECT_EQ(a, second);
  EXPECT_EQ(b, first);
}

TEST(ExChange, SwapsEveryType) {
  expect_swapped(true, false);
  expect_swapped(Byte{1}, Byte{255});
  expect_swapped(ShortInt{-1}, ShortInt{7});
  expect_swapped(Word{1}, Word{65535});
  expect_swapped(u'a', u'b');
  expect_swapped(-1, 2);
  expect_swapped(1U, 4000000000U);
  expect_swapped(Int64{1} << 40, Int64{-2});
  expect_swapped(1.5F, -2.5F);
  expect_swapped(1.5, -2.5);
  expect_swapped(TString("left"), TString("right"));
}

TEST(ExChange, SwapsBytesOfBuffersThatLieApart) {
  std::string s = "abcdefgh";
  ExChange(s.data(), s.data() + 4, 4);
  EXPECT_EQ(s, "efghabcd");
  ExChange(s.data() + 7, s.data(), 1);
  EXPECT_EQ(s, "dfghabce");
  ExChange(s.data(), s.data() + 3, 4);
  ExChange(s.data() + 3, s.data(), 4);
  ExChange(s.data(), s.data(), 8);
  ExChange(nullptr, s.data(), 2);
  ExChange(s.data(), nullptr, 2);
  EXPECT_EQ(s, "dfghabce");
}

}  // namespace
}  // namespace ZOR_math1

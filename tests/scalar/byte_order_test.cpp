#include "zor/scalar/byte_order.h"

#include <gtest/gtest.h>

namespace ZOR_math1 {
namespace {

template <class T>
concept Convertible = requires(T x) { ConvertEndian(x); };

TEST(ConvertEndian, ReversesTheBytes) {
  EXPECT_EQ(ConvertEndian(0x01020304), 0x04030201);
  EXPECT_EQ(ConvertEndian(Word{0x0102}), 0x0201);
  EXPECT_EQ(ConvertEndian(1.0F), 0x1.007ep-134F);          // 0000803F
  EXPECT_EQ(ConvertEndian(1.5), 0x0.000000000f83fp-1022);  // 000000000000F83F
  EXPECT_EQ(ConvertEndian(ConvertEndian(-1.25e-300)), -1.25e-300);
  static_assert(ConvertEndian(ConvertEndian(-2)) == -2);
}

TEST(ConvertEndian, TakesItsFourTypesOnly) {
  static_assert(Convertible<Double> && Convertible<Single> && Convertible<Word> && Convertible<Integer>);
  static_assert(!Convertible<Int64> && !Convertible<Byte> && !Convertible<Cardinal>);
}

}  // namespace
}  // namespace ZOR_math1

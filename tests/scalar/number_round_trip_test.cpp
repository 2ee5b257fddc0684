#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

#include "zor/base/ZOR_stringl.h"
#include "zor/runtime/number_writer.h"
#include "zor/scalar/number_scan.h"

// Numbers written and read again, and those that stand exactly between two others.

using namespace ZOR_math1;

namespace {

// How many random numbers; the environment variable ZOR_ROUND_TRIPS asks for more.
int round_trips() {
  const char* told = std::getenv("ZOR_ROUND_TRIPS");
  return told ? std::max(std::atoi(told), 1) : 200'000;
}

// All patterns of bits are equally likely, so all exponents are; each 16th number is subnormal.
Double any_double(std::mt19937_64& bits) {
  for (;;) {
    const std::uint64_t pattern = bits();
    const auto x = std::bit_cast<Double>(pattern % 16 == 0 ? pattern & 0x800FFFFFFFFFFFFF : pattern);
    if (std::isfinite(x)) return x;
  }
}

// True if all of the text is read as x, bit by bit.
bool reads_as(std::string_view text, Double x) {
  Integer at = 1;
  const TString units = text;
  const Double back = ScanFPNum(units, true, 1, at);
  return std::bit_cast<std::uint64_t>(back) == std::bit_cast<std::uint64_t>(x) && at == units.Length() + 1;
}

TEST(RoundTrip, ShortestAndScientificTextIsExact) {
  std::mt19937_64 bits(1);
  char text[zor::detail::kNumberBuffer];
  for (int i = 0; i < round_trips(); ++i) {
    const Double x = any_double(bits);
    ASSERT_TRUE(reads_as({text, zor::detail::format_shortest(text, x)}, x)) << std::hexfloat << x;
    ASSERT_TRUE(reads_as({text, zor::detail::format_scientific(text, x, 26)}, x)) << std::hexfloat << x;
  }
}

// (2k + 1) / 2^(d + 1) has d + 1 decimals of which the last is 5, and an even digit must come out in front of it.
TEST(RoundTrip, HalvesOfTheLastDecimalGoToTheEvenDigit) {
  std::mt19937_64 bits(2);
  for (int i = 0; i < round_trips(); ++i) {
    const auto decimals = static_cast<int>(bits() % 10);
    const std::uint64_t odd = (bits() >> 40) | 1;
    std::uint64_t units = odd;  // the number times 10^d, twice
    for (int d = 0; d < decimals; ++d) units *= 5;
    units = units / 2 + (units / 2) % 2;
    std::string expected = std::to_string(units);
    const auto places = static_cast<std::size_t>(decimals);
    if (expected.size() <= places) expected.insert(0, places + 1 - expected.size(), '0');
    if (decimals > 0) expected.insert(expected.size() - places, 1, '.');
    const Double x = std::ldexp(static_cast<Double>(odd), -decimals - 1);
    ASSERT_EQ(ZOR_stringl::strff(x, 1, decimals), expected);
    ASSERT_EQ(ZOR_stringl::strff(-x, 1, decimals), std::string(units != 0, '-').append(expected));
  }
}

// The exact decimal of the middle between two neighbours, up to 767 digits, goes to the even one, and the least change
// to the nearer one.
TEST(RoundTrip, TextBetweenTwoNumbersGoesToTheNearerOne) {
  if constexpr (std::numeric_limits<long double>::digits >= 64) {
    std::mt19937_64 bits(3);
    char text[900];
    for (int i = 0; i < round_trips() / 20; ++i) {
      const Double x = std::fabs(any_double(bits));
      const Double next = std::nextafter(x, std::numeric_limits<Double>::infinity());
      if (std::isinf(next)) continue;
      const long double middle = (static_cast<long double>(x) + next) / 2;
      const int size = std::snprintf(text, sizeof text, "%.800Le", middle);
      const std::string exact(text, static_cast<std::size_t>(size));
      const std::size_t mark = exact.find('e'), last = exact.find_last_not_of('0', mark - 1);
      std::string below = exact, above = exact;
      --below[last], below.replace(last + 1, mark - last - 1, mark - last - 1, '9');
      above.insert(mark, 1, '1');
      ASSERT_TRUE(reads_as(exact, std::bit_cast<std::uint64_t>(x) % 2 == 0 ? x : next)) << exact;
      ASSERT_TRUE(reads_as(below, x)) << below;
      ASSERT_TRUE(reads_as(above, next)) << above;
    }
  }
}

}  // namespace

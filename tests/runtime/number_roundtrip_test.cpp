#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <random>
#include <string>

#include "zor/runtime/number_reader.h"
#include "zor/runtime/number_writer.h"

// The writer and the reader against those of the standard library, on random numbers of all kinds.

namespace zor::detail {
namespace {

using Bits = std::mt19937_64;

// Random bit patterns: all exponents, subnormals, both signs; no infinities.
double any_double(Bits& bits) {
  const double x = std::bit_cast<double>(std::uint64_t{bits()});
  return std::isfinite(x) ? x : std::ldexp(x == x ? 1.0 : 1.5, static_cast<int>(bits() % 2000) - 1000);
}

// All bits of the mantissa at random, magnitudes from 1e-35 to 1e35.
double full_double(Bits& bits) {
  return std::ldexp(static_cast<double>(static_cast<std::int64_t>(bits())), static_cast<int>(bits() % 240) - 180);
}

// Numbers as they stand in data: a few digits, or whole quarters of the last decimal.
double everyday_double(Bits& bits) {
  const auto n = static_cast<double>(static_cast<std::int64_t>(bits() % 2'000'001) - 1'000'000);
  const auto digits = static_cast<int>(bits() % 12);
  return bits() % 2 ? n / std::pow(10.0, digits) : std::ldexp(n, -digits);
}

std::string standard_fixed(double x, int decimals) {
  char text[1600];
  const std::string s(text, std::to_chars(text, text + sizeof text, x, std::chars_format::fixed, decimals).ptr);
  const bool only_zeros = s.find_first_of("123456789") == std::string::npos;
  return s[0] == '-' && only_zeros ? s.substr(1) : s;
}

std::string ours_fixed(double x, int decimals) {
  char text[kNumberBuffer];
  return std::string(text, format_fixed(text, x, decimals));
}

TEST(WriterOfNumbers, RoundsAsTheStandardLibraryDoes) {
  Bits bits(1);
  for (int i = 0; i < 200'000; ++i) {
    const auto decimals = static_cast<int>(bits() % 24);
    for (const double x : {any_double(bits), full_double(bits), everyday_double(bits)})
      ASSERT_EQ(ours_fixed(x, decimals), standard_fixed(x, decimals)) << std::hexfloat << x << ' ' << decimals;
  }
  for (const double x : {0.5, 1.5, 2.5, 0x1p-60, 0x1p62, 0x1p63, 0x1.fffffffffffffp62, 1e22, 0.999999999, 99999999.96})
    for (int decimals = 0; decimals < 70; ++decimals) {
      ASSERT_EQ(ours_fixed(x, decimals), standard_fixed(x, decimals));
      ASSERT_EQ(ours_fixed(-x, decimals), standard_fixed(-x, decimals));
    }
}

TEST(WriterOfNumbers, ScientificHasTheDigitsOfTheStandardLibrary) {
  Bits bits(2);
  char text[kNumberBuffer], standard[64];
  for (int i = 0; i < 300'000; ++i) {
    const double x = i % 3 == 0 ? any_double(bits) : i % 3 == 1 ? full_double(bits) : everyday_double(bits);
    const auto decimals = static_cast<int>(bits() % 17) + 1;
    std::string expected(
        standard,
        std::to_chars(standard, standard + sizeof standard, std::abs(x), std::chars_format::scientific, decimals).ptr);
    const std::size_t mark = expected.find('e');
    const std::string exponent = expected.substr(mark + 2);
    const std::string sign(1, x < 0.0 ? '-' : ' '), down(1, expected[mark + 1]), zeros(4 - exponent.size(), '0');
    expected = sign + expected.substr(0, mark) + "E" + down + zeros + exponent;
    ASSERT_EQ(std::string(text, format_scientific(text, x, decimals + 9)), expected);
  }
}

// Both unit widths of the reader against from_chars.
void expect_as_standard(const std::string& text) {
  double standard = 0.0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), standard);
  const bool in_range = failure == std::errc{} && !std::isinf(standard);
  const ParsedNumber narrow = parse_number(std::string_view(text));
  const ParsedNumber wide = parse_number(std::u16string_view(std::u16string(text.begin(), text.end())));
  ASSERT_EQ(narrow.end, static_cast<std::size_t>(end - text.data())) << text;
  ASSERT_EQ(std::bit_cast<std::uint64_t>(narrow.value), std::bit_cast<std::uint64_t>(in_range ? standard : 0.0))
      << text;
  ASSERT_EQ(std::bit_cast<std::uint64_t>(narrow.value), std::bit_cast<std::uint64_t>(wide.value)) << text;
  ASSERT_EQ(narrow.end, wide.end) << text;
  ASSERT_EQ(narrow.status, wide.status) << text;
}

TEST(ReaderOfNumbers, RoundsAsTheStandardLibraryDoes) {
  Bits bits(3);
  char text[kNumberBuffer];
  for (int i = 0; i < 100'000; ++i) {
    const double x = any_double(bits);
    // digits without and with a point, exponents around the limits of the fast roads
    const std::string digits = std::to_string(bits() >> bits() % 64);
    expect_as_standard(digits + "e" + std::to_string(static_cast<int>(bits() % 80) - 40));
    const std::size_t point = bits() % (digits.size() + 1);
    expect_as_standard(digits.substr(0, point) + "." + digits.substr(point) + "e" +
                       std::to_string(static_cast<int>(bits() % 700) - 350));
    expect_as_standard(std::string(text, format_fixed(text, everyday_double(bits), static_cast<int>(bits() % 20))));
    // texts exactly between two doubles
    const double between = std::nextafter(std::abs(x), 0.0);
    expect_as_standard(std::string(text, std::to_chars(text, text + sizeof text, between, std::chars_format::scientific,
                                                       static_cast<int>(bits() % 40))
                                             .ptr));
  }
  // Halfway points with at most 19 digits: odd multiples of 2^-1 to 2^-8 with 54 bits.
  for (int i = 0; i < 50'000; ++i) {
    const std::uint64_t odd = std::uint64_t{1} << 53 | bits() >> 11 | 1;
    const auto down = static_cast<int>(bits() % 9);
    expect_as_standard(std::string(text, format_fixed(text, std::ldexp(static_cast<double>(odd >> 1), 1 - down), 9)));
    std::string halfway = std::to_string(odd);
    if (halfway.size() <= 19) expect_as_standard(halfway), expect_as_standard(halfway + "e1");
  }
}

TEST(ReaderOfNumbers, GetsBackWhatTheWriterWrote) {
  Bits bits(4);
  char text[kNumberBuffer];
  for (int i = 0; i < 200'000; ++i) {
    const double x = any_double(bits);
    const ParsedNumber shortest = parse_number(std::string_view(text, format_shortest(text, x)));
    ASSERT_EQ(std::bit_cast<std::uint64_t>(shortest.value), std::bit_cast<std::uint64_t>(x));
    const std::size_t size = format_scientific(text, x, 26);
    const std::size_t blank = *text == ' ';
    const ParsedNumber long_form = parse_number(std::string_view(text + blank, size - blank));
    ASSERT_EQ(std::bit_cast<std::uint64_t>(long_form.value), std::bit_cast<std::uint64_t>(x));
  }
}

}  // namespace
}  // namespace zor::detail

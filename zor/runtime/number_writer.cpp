#include "zor/runtime/number_writer.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace zor::detail {
namespace {

__extension__ typedef unsigned __int128 Wide;

constexpr int kFastDecimals = 19;  // 10^19 is the highest power of ten below 2^64

constexpr auto kTens = [] {
  std::array<std::uint64_t, kFastDecimals + 1> tens{};
  tens[0] = 1;
  for (std::size_t i = 1; i < tens.size(); ++i) tens[i] = tens[i - 1] * 10;
  return tens;
}();

// The eight decimal digits of n < 10^8 as bytes 0 to 9, the first digit in the lowest byte.
std::uint64_t eight_digits(std::uint64_t n) {
  std::uint64_t v = n / 10000 | (n % 10000) << 32;  // two groups of four digits
  const std::uint64_t hundreds = (v * 10486 >> 20) & 0x0000007F0000007F;
  v = hundreds | (v - 100 * hundreds) << 16;  // four pairs
  const std::uint64_t tens = (v * 103 >> 10) & 0x000F000F000F000F;
  return tens | (v - 10 * tens) << 8;
}

// Writes eight bytes, the lowest first, as digits.
void put_eight(char* out, std::uint64_t digits) {
  digits += 0x3030303030303030;
  if constexpr (std::endian::native == std::endian::big) digits = __builtin_bswap64(digits);
  std::memcpy(out, &digits, 8);
}

constexpr std::uint64_t kEight = 100'000'000;

// Writes n < 10^count in `count` digits; up to seven characters behind them are overwritten.
char* put_digits(char* out, std::uint64_t n, std::size_t count) {
  while (count > 8) {
    const std::size_t group = (count - 1) % 8 + 1;
    const std::uint64_t unit = kTens[count - group];
    out = put_digits(out, n / unit, group);
    n %= unit;
    count -= group;
  }
  put_eight(out, eight_digits(n * kTens[8 - count]));
  return out + count;
}

// Writes n without leading zeros, in the same way.
char* put_integer(char* out, std::uint64_t n) {
  std::size_t rest = 0;  // digits behind the first group
  while (n / kTens[rest] >= kEight) rest += 8;
  const std::uint64_t digits = eight_digits(n / kTens[rest]);
  const int zeros = std::countr_zero(digits | std::uint64_t{1} << 56) / 8;
  put_eight(out, digits >> 8 * zeros);
  out += 8 - zeros;
  return rest ? put_digits(out, n % kTens[rest], rest) : out;
}

// The two sides of the decimal point: whole + fraction / 10^decimals.
struct Decimal {
  std::uint64_t whole, fraction;
};

// Splits a number below 2^63, given as mantissa / 2^shift with shift > 0, rounded to `decimals` (at most 19) decimals.
// All of it is exact: the fraction is below 2^53, its product with 10^19 below 2^117.
Decimal split(std::uint64_t mantissa, unsigned shift, std::size_t decimals) {
  const std::uint64_t whole = shift < 64 ? mantissa >> shift : 0;
  const std::uint64_t fraction = mantissa - (shift < 64 ? whole << shift : 0);
  if (shift > 118) return {whole, 0};  // less than half a digit
  const Wide scaled = Wide{fraction} * kTens[decimals];
  const Wide half = Wide{1} << (shift - 1);
  const Wide rest = scaled & (2 * half - 1);
  Decimal result{whole, static_cast<std::uint64_t>(scaled >> shift)};
  const std::uint64_t last = decimals ? result.fraction : result.whole;
  result.fraction += rest > half || (rest == half && (last & 1) != 0);
  if (result.fraction == kTens[decimals]) result = {whole + 1, 0};
  return result;
}

// A finite number without its sign: mantissa * 2^exponent.
struct Binary {
  std::uint64_t mantissa;
  int exponent;
};

Binary take_apart(double x) {
  const auto bits = std::bit_cast<std::uint64_t>(x);
  const auto exponent = static_cast<int>((bits >> 52) & 0x7FF);
  const std::uint64_t fraction = bits & ((std::uint64_t{1} << 52) - 1);
  return exponent == 0 ? Binary{fraction, -1074} : Binary{fraction | std::uint64_t{1} << 52, exponent - 1075};
}

constexpr int kHighestFive = 27;  // 5^27 is the highest power of five below 2^63
constexpr auto kFives = [] {
  std::array<std::uint64_t, kHighestFive + 1> fives{};
  fives[0] = 1;
  for (std::size_t i = 1; i < fives.size(); ++i) fives[i] = fives[i - 1] * 5;
  return fives;
}();

// x * 10^power for |power| <= 27 and a result from 1 to 2^64: the whole part, and whether the rounded number is one
// more.
struct Scaled {
  std::uint64_t whole;
  bool up;
};

Scaled scale(Binary x, int power) {
  const int shift = x.exponent + power;  // 10^power = 5^power 2^power
  Wide numerator = x.mantissa, divisor = 1;
  (power < 0 ? divisor : numerator) *= kFives[static_cast<std::size_t>(std::abs(power))];
  (shift < 0 ? divisor : numerator) <<= std::abs(shift);
  const Wide whole = power < 0 ? numerator / divisor : numerator >> std::max(0, -shift);
  const Wide twice = (numerator - whole * divisor) * 2;
  return {static_cast<std::uint64_t>(whole), twice > divisor || (twice == divisor && (whole & 1) != 0)};
}

// The digits of a number, the first of them not zero, and the exponent of the first.
struct Scientific {
  std::uint64_t digits;
  int exponent;
};

// `decimals` digits behind the first, rounded; no digits where that takes more than 128 bits.
Scientific split_scientific(Binary x, int decimals) {
  if (x.mantissa == 0) return {};
  // log10 of the highest power of two in x: right for x or one too low
  const std::int64_t log2 = x.exponent + 63 - std::countl_zero(x.mantissa);
  int exponent = static_cast<int>((log2 * 1292913986) >> 32);
  if (std::abs(decimals - exponent) >= kHighestFive) return {};
  const std::uint64_t limit = kTens[static_cast<std::size_t>(decimals) + 1];
  Scaled scaled = scale(x, decimals - exponent);
  if (scaled.whole >= limit) scaled = scale(x, decimals - ++exponent);
  const std::uint64_t digits = scaled.whole + scaled.up;
  return digits == limit ? Scientific{limit / 10, exponent + 1} : Scientific{digits, exponent};
}

std::size_t write_non_finite(char* out, double x) {
  const char* text = std::isnan(x) ? "Nan" : x > 0.0 ? "+Inf" : "-Inf";
  const std::size_t size = std::strlen(text);
  std::memcpy(out, text, size);
  return size;
}

std::size_t align_right(char* out, std::size_t size, int width) {
  const std::size_t field = static_cast<std::size_t>(std::clamp(width, 0, kMaxField));
  if (size >= field) return size;
  if (char text[16]; field <= sizeof text) {  // the usual case: three moves of a known size
    std::memcpy(text, out, sizeof text);
    std::memset(out, ' ', sizeof text);
    std::memcpy(out + (field - size), text, sizeof text);
    return field;
  }
  std::memmove(out + (field - size), out, size);
  std::memset(out, ' ', field - size);
  return field;
}

std::size_t format_fixed_slow(char* out, double x, int decimals) {
  const char* end = std::to_chars(out, out + kNumberBuffer, x, std::chars_format::fixed, decimals).ptr;
  const auto size = static_cast<std::size_t>(end - out);
  if (*out != '-' || std::any_of(out, out + size, [](char c) { return c >= '1'; })) return size;
  std::memmove(out, out + 1, size - 1);
  return size - 1;
}

}  // namespace

std::size_t format_fixed(char* out, double x, int decimals) noexcept {
  if (!std::isfinite(x)) return write_non_finite(out, x);
  decimals = std::clamp(decimals, 0, kMaxField);
  const auto [mantissa, exponent] = take_apart(x);
  if (decimals > kFastDecimals || exponent > 10) return format_fixed_slow(out, x, decimals);  // from 2^63 on

  const auto count = static_cast<std::size_t>(decimals);
  const Decimal text =
      exponent >= 0 ? Decimal{mantissa << exponent, 0} : split(mantissa, static_cast<unsigned>(-exponent), count);
  *out = '-';
  char* at = put_integer(out + (std::signbit(x) & ((text.whole | text.fraction) != 0)), text.whole);
  if (count) {
    *at++ = '.';
    at = put_digits(at, text.fraction, count);
  }
  return static_cast<std::size_t>(at - out);
}

std::size_t format_fixed(char* out, double x, int width, int decimals) noexcept {
  return align_right(out, format_fixed(out, x, decimals), width);
}

std::size_t format_scientific(char* out, double x, int width) noexcept {
  if (!std::isfinite(x)) return align_right(out, write_non_finite(out, x), width);
  const int decimals = std::clamp(std::clamp(width, 0, kMaxField) - 9, 1, 17);
  *out = x < 0.0 ? '-' : ' ';
  char* at = out + 1;
  auto [digits, exponent] = split_scientific(take_apart(x), decimals);
  if (digits != 0) {
    const std::uint64_t unit = kTens[static_cast<std::size_t>(decimals)];
    *at++ = static_cast<char>('0' + digits / unit);
    *at++ = '.';
    at = put_digits(at, digits % unit, static_cast<std::size_t>(decimals));
  } else {
    char* const end = std::to_chars(at, out + kNumberBuffer, std::fabs(x), std::chars_format::scientific, decimals).ptr;
    at += decimals + 2;  // at the "e"
    std::from_chars(at + 2, end, exponent);
    if (at[1] == '-') exponent = -exponent;
  }
  *at++ = 'E';
  *at++ = exponent < 0 ? '-' : '+';
  at = put_digits(at, static_cast<std::uint64_t>(std::abs(exponent)), 4);
  return align_right(out, static_cast<std::size_t>(at - out), width);
}

std::size_t format_shortest(char* out, double x) noexcept {
  if (!std::isfinite(x)) return write_non_finite(out, x);
  return static_cast<std::size_t>(std::to_chars(out, out + kNumberBuffer, x).ptr - out);
}

std::size_t format_integer(char* out, std::int64_t n) noexcept {
  return static_cast<std::size_t>(std::to_chars(out, out + kNumberBuffer, n).ptr - out);
}

}  // namespace zor::detail

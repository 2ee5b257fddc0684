#include "zor/runtime/number_writer.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
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

constexpr auto kPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

// Writes the last `count` digits of n, with leading zeros.
void write_digits(char* out, std::uint64_t n, std::size_t count) {
  while (count >= 2) {
    count -= 2;
    std::memcpy(out + count, &kPairs[2 * (n % 100)], 2);
    n /= 100;
  }
  if (count) *out = static_cast<char>('0' + n % 10);
}

std::size_t count_digits(std::uint64_t n) {
  // 1233 / 4096 is log10(2) from below, close enough for 64 bits: the guess is right or one too low.
  const auto guess = static_cast<std::size_t>(std::bit_width(n | 1) * 1233) >> 12;
  return guess + (n >= kTens[guess] || guess == 0);
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

std::size_t write_non_finite(char* out, double x) {
  const char* text = std::isnan(x) ? "Nan" : x > 0.0 ? "+Inf" : "-Inf";
  const std::size_t size = std::strlen(text);
  std::memcpy(out, text, size);
  return size;
}

std::size_t align_right(char* out, std::size_t size, int width) {
  const std::size_t field = static_cast<std::size_t>(std::clamp(width, 0, kMaxField));
  if (size >= field) return size;
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
  const auto bits = std::bit_cast<std::uint64_t>(x);
  const unsigned exponent = (bits >> 52) & 0x7FF;
  if (exponent == 0x7FF) return write_non_finite(out, x);
  decimals = std::clamp(decimals, 0, kMaxField);
  constexpr unsigned kBias = 1075;  // x = mantissa * 2^(exponent - kBias)
  if (decimals > kFastDecimals || exponent >= kBias + 11) return format_fixed_slow(out, x, decimals);

  const std::uint64_t mantissa = (bits & ((std::uint64_t{1} << 52) - 1)) | (std::uint64_t{exponent != 0} << 52);
  const auto count = static_cast<std::size_t>(decimals);
  const Decimal text = exponent >= kBias ? Decimal{mantissa << (exponent - kBias), 0}
                                         : split(mantissa, kBias - exponent - (exponent == 0), count);
  char* at = out;
  if ((bits >> 63) != 0 && (text.whole | text.fraction) != 0) *at++ = '-';
  const std::size_t whole = count_digits(text.whole);
  write_digits(at, text.whole, whole);
  at += whole;
  if (count) {
    *at++ = '.';
    write_digits(at, text.fraction, count);
    at += count;
  }
  return static_cast<std::size_t>(at - out);
}

std::size_t format_fixed(char* out, double x, int width, int decimals) noexcept {
  return align_right(out, format_fixed(out, x, decimals), width);
}

std::size_t format_scientific(char* out, double x, int width) noexcept {
  if (!std::isfinite(x)) return align_right(out, write_non_finite(out, x), width);
  const int decimals = std::clamp(std::clamp(width, 0, kMaxField) - 9, 1, 17);
  if (x == 0.0) x = 0.0;  // no minus
  *out = ' ';
  char* const digits = out + (std::signbit(x) ? 0 : 1);
  const char* const end = std::to_chars(digits, out + kNumberBuffer, x, std::chars_format::scientific, decimals).ptr;
  // "e+05" becomes "E+0005"
  char* const mark = out + decimals + 3;
  const std::size_t given = static_cast<std::size_t>(end - mark) - 2;
  std::memmove(mark + 6 - given, mark + 2, given);
  std::memset(mark + 2, '0', 4 - given);
  *mark = 'E';
  return align_right(out, static_cast<std::size_t>(decimals) + 9, width);
}

std::size_t format_shortest(char* out, double x) noexcept {
  if (!std::isfinite(x)) return write_non_finite(out, x);
  return static_cast<std::size_t>(std::to_chars(out, out + kNumberBuffer, x).ptr - out);
}

std::size_t format_integer(char* out, std::int64_t n) noexcept {
  return static_cast<std::size_t>(std::to_chars(out, out + kNumberBuffer, n).ptr - out);
}

}  // namespace zor::detail

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
  *out = '-';
  char* at = put_integer(out + ((bits >> 63) & ((text.whole | text.fraction) != 0)), text.whole);
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

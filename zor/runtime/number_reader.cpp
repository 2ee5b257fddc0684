#include "zor/runtime/number_reader.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>

#include "zor/runtime/pow10.h"

namespace zor::detail {
namespace {

__extension__ typedef unsigned __int128 Wide;

template <class Unit>
constexpr bool is_digit(Unit c) {
  return c >= '0' && c <= '9';
}

// Appends the digits from p on to n (modulo 2^64) and gives the place behind them.
template <class Unit>
const Unit* take_digits(const Unit* p, const Unit* last, std::uint64_t& n) {
  for (; p != last && is_digit(*p); ++p) n = n * 10 + static_cast<std::uint64_t>(*p - '0');
  return p;
}

// Exponents and counts beyond any double's are cut off here, far from overflow in 64 bits.
constexpr std::int64_t kHugeExponent = std::int64_t{1} << 40;

constexpr int kHighestFive = 27;  // 5^27 is the highest power of five below 2^63
constexpr auto kFives = [] {
  std::array<std::uint64_t, kHighestFive + 1> fives{};
  fives[0] = 1;
  for (std::size_t i = 1; i < fives.size(); ++i) fives[i] = fives[i - 1] * 5;
  return fives;
}();

// n * 2^binary for n > 0 with a normal result; the lowest bit of n stands for all that was cut off below it.
double round_wide(Wide n, int binary) {
  const auto high = static_cast<std::uint64_t>(n >> 64);
  const int width = 128 - (high ? std::countl_zero(high) : 64 + std::countl_zero(static_cast<std::uint64_t>(n)));
  const int excess = std::max(0, width - 63);
  auto top = static_cast<std::int64_t>(n >> excess);
  top |= (n & ((Wide{1} << excess) - 1)) != 0;
  const double scale = std::bit_cast<double>(static_cast<std::uint64_t>(1023 + binary + excess) << 52);
  return static_cast<double>(top) * scale;  // rounds once, in the conversion
}

// n * 10^exponent, for n > 0 and |exponent| <= 27, in exact integer arithmetic.
double scale_exactly(std::uint64_t n, int exponent) {
  if (exponent >= 0) return round_wide(Wide{n} * kFives[static_cast<std::size_t>(exponent)], exponent);
  const int shift = std::countl_zero(n) + 64;
  const Wide numerator = Wide{n} << shift, divisor = kFives[static_cast<std::size_t>(-exponent)];
  const Wide quotient = numerator / divisor;  // at least 65 bits
  return round_wide(quotient | (quotient * divisor != numerator), exponent - shift);
}

// The digits of a number as they stand in the text, and the exponent of the last of them.
template <class Unit>
struct Digits {
  const Unit* first;
  const Unit* last;
  std::int64_t exponent;
};

// Long numbers and large exponents. 770 digits decide the rounding of any double; of more it only matters whether one
// of them is not zero.
template <class Unit>
ParsedNumber read_long(Digits<Unit> digits) {
  constexpr std::size_t kDeciding = 770;
  std::array<char, kDeciding + 32> text;
  std::size_t size = 0;
  std::int64_t exponent = digits.exponent;
  bool rest = false;
  for (const Unit* p = digits.first; p != digits.last; ++p) {
    if (!is_digit(*p) || (size == 0 && *p == '0')) continue;
    if (size < kDeciding) {
      text[size++] = static_cast<char>(*p);
    } else {
      rest = rest || *p != '0';
      ++exponent;
    }
  }
  ParsedNumber number{.status = NumberStatus::kNumber};
  if (size == 0) return number;
  const bool large = exponent + static_cast<std::int64_t>(size) > 0;
  if (rest) text[size++] = '1', --exponent;
  text[size++] = 'e';
  exponent = std::clamp<std::int64_t>(exponent, -9999, 9999);
  char* const end = std::to_chars(text.data() + size, text.data() + text.size(), exponent).ptr;
  double value = 0.0;
  const auto failure = std::from_chars(text.data(), end, value).ec;
  if (failure == std::errc{} && value > 0.0 && !std::isinf(value)) {
    number.value = value;
  } else {
    number.status = large ? NumberStatus::kTooLarge : NumberStatus::kTooSmall;
  }
  return number;
}

template <class Unit>
ParsedNumber read_number(const Unit* first, const Unit* last, NumberGrammar grammar) {
  const Unit* p = first;
  const bool negative = p != last && *p == '-';
  if (negative || (p != last && *p == '+')) ++p;
  Digits<Unit> digits{p, p, 0};
  std::uint64_t n = 0;
  p = take_digits(p, last, n);
  std::ptrdiff_t count = p - digits.first;
  if (p != last && ((*p == '.' && grammar.point) || (*p == ',' && grammar.comma))) {
    const Unit* const decimals = ++p;
    p = take_digits(p, last, n);
    digits.exponent = decimals - p;
    count += p - decimals;
  }
  if (count == 0) return {};
  digits.last = p;
  if (grammar.exponent && p != last && (*p == 'e' || *p == 'E')) {
    const Unit* e = p + 1;
    const bool down = e != last && *e == '-';
    if (down || (e != last && *e == '+')) ++e;
    if (e != last && is_digit(*e)) {
      std::int64_t exponent = 0;
      for (; e != last && is_digit(*e); ++e) exponent = std::min(exponent * 10 + (*e - '0'), kHugeExponent);
      digits.exponent += down ? -exponent : exponent;
      p = e;
    }
  }

  constexpr std::ptrdiff_t kFit = 19;  // digits of which any number fits into 64 bits
  if (count > kFit) {
    for (const Unit* zero = digits.first; count > kFit && (*zero == '0' || !is_digit(*zero)); ++zero)
      count -= is_digit(*zero);
  }
  ParsedNumber number{.status = NumberStatus::kNumber};
  if (count <= kFit && n < (std::uint64_t{1} << 53) && digits.exponent >= -22 && digits.exponent <= 22) {
    // n and the power are exact, so one operation rounds once (Clinger 1990).
    const double whole = static_cast<double>(static_cast<std::int64_t>(n));
    const auto exponent = static_cast<int>(digits.exponent);
    number.value = exponent < 0 ? whole / pow10(-exponent) : whole * pow10(exponent);
  } else if (count <= kFit && n != 0 && digits.exponent >= -kHighestFive && digits.exponent <= kHighestFive) {
    number.value = scale_exactly(n, static_cast<int>(digits.exponent));
  } else {
    number = read_long(digits);
  }
  number.end = static_cast<std::size_t>(p - first);
  if (negative) number.value = -number.value;
  return number;
}

template <class Unit>
ParsedInteger read_integer(const Unit* first, const Unit* last, std::int64_t lowest, std::int64_t highest) {
  const Unit* p = first;
  const bool negative = p != last && *p == '-';
  if (negative || (p != last && *p == '+')) ++p;
  if (p == last || !is_digit(*p)) return {};
  constexpr std::uint64_t kHuge = std::uint64_t{1} << 63;  // magnitude of the lowest integer
  std::uint64_t n = 0;
  bool fits = true;
  for (; p != last && is_digit(*p); ++p) {
    const auto digit = static_cast<std::uint64_t>(*p - '0');
    fits = fits && n <= (kHuge - digit) / 10;
    n = fits ? n * 10 + digit : n;
  }
  ParsedInteger number{.end = static_cast<std::size_t>(p - first), .status = NumberStatus::kTooLarge};
  if (!fits || (n == kHuge && !negative)) return number;
  const auto value = static_cast<std::int64_t>(negative ? 0 - n : n);
  if (value < lowest || value > highest) return number;
  number.value = value;
  number.status = NumberStatus::kNumber;
  return number;
}

}  // namespace

ParsedNumber parse_number(std::string_view text, NumberGrammar grammar) noexcept {
  return read_number(text.data(), text.data() + text.size(), grammar);
}

ParsedNumber parse_number(std::u16string_view text, NumberGrammar grammar) noexcept {
  return read_number(text.data(), text.data() + text.size(), grammar);
}

ParsedInteger parse_integer(std::string_view text, std::int64_t lowest, std::int64_t highest) noexcept {
  return read_integer(text.data(), text.data() + text.size(), lowest, highest);
}

ParsedInteger parse_integer(std::u16string_view text, std::int64_t lowest, std::int64_t highest) noexcept {
  return read_integer(text.data(), text.data() + text.size(), lowest, highest);
}

}  // namespace zor::detail

#include "zor/runtime/number_reader.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>

#ifdef __x86_64__
#include <emmintrin.h>
#endif

#include "zor/runtime/pow10.h"

namespace zor::detail {
namespace {

__extension__ typedef unsigned __int128 Wide;

template <class Unit>
constexpr bool is_digit(Unit c) {
  return c >= '0' && c <= '9';
}

constexpr std::uint64_t kTens[] = {1, 10, 100, 1000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000};

// Of eight bytes, the lowest being the first: the high bit of the first byte that is no digit is set, none before it.
constexpr std::uint64_t find_other(std::uint64_t eight) {
  return ((eight + 0x4646464646464646) | (eight - 0x3030303030303030)) & 0x8080808080808080;
}

// The number that eight digits, or zero bytes in front of them, make.
constexpr std::uint64_t join_digits(std::uint64_t digits) {
  digits = (digits * 10 + (digits >> 8)) & 0x00FF00FF00FF00FF;
  digits = (digits * 100 + (digits >> 16)) & 0x0000FFFF0000FFFF;
  return (digits * 10000 + (digits >> 32)) & 0x00000000FFFFFFFF;
}

// Eight units as bytes, the first in the lowest byte. Units that do not fit become 0 or 255, which are no digits.
inline std::uint64_t load_eight(const char* p) {
  std::uint64_t eight;
  std::memcpy(&eight, p, 8);
  return eight;
}
#ifdef __x86_64__
inline std::uint64_t load_eight(const char16_t* p) {
  const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
  return static_cast<std::uint64_t>(_mm_cvtsi128_si64(_mm_packus_epi16(units, units)));
}
#endif

// Appends the digits from p on to n (modulo 2^64) and gives the place behind them.
template <class Unit>
[[gnu::always_inline]] inline const Unit* take_digits(const Unit* p, const Unit* last, std::uint64_t& n) {
  if constexpr (std::endian::native == std::endian::little && requires { load_eight(p); }) {
    for (; last - p >= 8; p += 8) {
      std::uint64_t eight = load_eight(p);
      const std::uint64_t other = find_other(eight);
      eight -= 0x3030303030303030;
      if (other != 0) {
        const int count = std::countr_zero(other) / 8;
        if (count == 0) return p;
        n = n * kTens[count] + join_digits(eight << (64 - 8 * count));
        return p + count;
      }
      n = n * kTens[8] + join_digits(eight);
    }
  }
  for (; p != last && is_digit(*p); ++p) n = n * 10 + static_cast<std::uint64_t>(*p - '0');
  return p;
}

// Exponents and counts beyond any double's are cut off here, far from overflow in 64 bits.
constexpr std::int64_t kHugeExponent = std::int64_t{1} << 40;

// 5^k shifted up to its highest bit, and floor((2^128 - 1) / it) - 2^64, for division by multiplication.
struct Five {
  std::uint64_t factor, inverse;
  int shift;
};
constexpr int kHighestFive = 27;  // 5^27 is the highest power of five below 2^64
constexpr auto kFives = [] {
  std::array<Five, kHighestFive + 1> fives{};
  std::uint64_t five = 1;
  for (Five& f : fives) {
    f.shift = std::countl_zero(five);
    f.factor = five << f.shift;
    f.inverse = static_cast<std::uint64_t>(~Wide{0} / f.factor);
    five *= 5;
  }
  return fives;
}();

// (n + sticky) * 2^binary for n >= 2^56 and a normal result, rounded once; sticky is a fraction that was cut off.
double round_scaled(std::uint64_t n, bool sticky, int binary) {
  const auto top = static_cast<std::int64_t>(n >> 1 | (n & 1) | sticky);  // far more bits than a double has
  return static_cast<double>(top) * std::bit_cast<double>(static_cast<std::uint64_t>(1023 + binary + 1) << 52);
}

// n * 10^exponent for n > 0 and |exponent| <= 27, from exact integers.
double scale_exactly(std::uint64_t n, int exponent) {
  const Five& five = kFives[static_cast<std::size_t>(std::abs(exponent))];
  const int shift = std::countl_zero(n);
  n <<= shift;
  if (exponent >= 0) {
    const Wide product = Wide{n} * five.factor;  // from 2^126 on
    return round_scaled(static_cast<std::uint64_t>(product >> 64), static_cast<std::uint64_t>(product) != 0,
                        exponent + 64 - shift - five.shift);
  }
  // n * 2^63 / factor, from 2^62 on (Moeller, Granlund 2011: Improved division by invariant integers, algorithm 4).
  const Wide numerator = Wide{n} << 63;
  const auto high = static_cast<std::uint64_t>(numerator >> 64), low = static_cast<std::uint64_t>(numerator);
  const Wide estimate = Wide{five.inverse} * high + numerator;
  std::uint64_t quotient = static_cast<std::uint64_t>(estimate >> 64) + 1;
  std::uint64_t rest = low - quotient * five.factor;
  if (rest > static_cast<std::uint64_t>(estimate)) --quotient, rest += five.factor;
  if (rest >= five.factor) ++quotient, rest -= five.factor;
  return round_scaled(quotient, rest != 0, exponent - 63 - shift + five.shift);
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

constexpr std::size_t kMostUnits = (std::size_t{1} << 56) - 1;

template <class Unit>
inline ParsedNumber read_number(const Unit* first, const Unit* last, NumberGrammar grammar) {
  const Unit* p = first;
  if (p == last) return {};
  const bool negative = *p == '-';
  p += negative | (*p == '+');  // no branch: signs come at random
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
  number.end = static_cast<std::size_t>(p - first) & kMostUnits;
  number.value = std::bit_cast<double>(std::bit_cast<std::uint64_t>(number.value) | std::uint64_t{negative} << 63);
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

// The usual grammar as a constant: nothing is asked for each number.
ParsedNumber parse_number(std::string_view text) noexcept {
  return read_number(text.data(), text.data() + text.size(), NumberGrammar{});
}

ParsedNumber parse_number(std::u16string_view text) noexcept {
  return read_number(text.data(), text.data() + text.size(), NumberGrammar{});
}

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

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>

#include "zor/runtime/pow10.h"
#include "zor/scalar/decades_internal.h"

namespace zor::detail {

int decade_of(double a) noexcept {
  const double* const above = std::upper_bound(std::begin(kPow10), std::end(kPow10), a);
  return kMinPow10 - 1 + static_cast<int>(above - std::begin(kPow10));
}

double short_decimal(int digits, int exponent) noexcept {
  // Where the power is exact, one operation rounds once; elsewhere the decimal is read like a text.
  constexpr int kExact = 22;
  if (exponent >= 0 && exponent <= kExact) return digits * pow10(exponent);
  if (exponent < 0 && exponent >= -kExact) return digits / pow10(-exponent);
  std::array<char, 16> text{static_cast<char>('0' + digits / 10), static_cast<char>('0' + digits % 10), 'e'};
  const char* const end = std::to_chars(text.data() + 3, text.data() + text.size(), exponent).ptr;
  double value = exponent < 0 ? 0.0 : pow10(kMaxPow10 + 1);  // stays if the decimal is out of range
  std::from_chars(text.data(), end, value);
  return value;
}

}  // namespace zor::detail

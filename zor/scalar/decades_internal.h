#pragma once

/// \file  Decades and their short decimals.

namespace zor::detail {

/// The exponent e for which pow10(e) <= a < pow10(e + 1); -324 below the least power of ten that a double holds.
/// a is positive and finite.
int decade_of(double a) noexcept;

/// The double nearest to digits * 10^exponent; digits from 1 to 99.
double short_decimal(int digits, int exponent) noexcept;

}  // namespace zor::detail

#pragma once

#include <cstddef>
#include <cstdint>

#include "zor/export.h"

/// \file  The one writer of numbers, into buffers of the caller.
/// Rounding is correct, an exact tie goes to the even digit; the decimal point is "." whatever the locale. A number
/// that shows only zeros carries no minus. NaN is written "Nan", the infinities "+Inf" and "-Inf". Every routine
/// returns the number of characters; no terminating zero is written.
///
///     char text[kNumberBuffer];
///     std::fwrite(text, 1, format_fixed(text, 2.0 / 3.0, 12, 6), file);   // "    0.666667"

namespace zor::detail {

/// Width and decimals are limited to this; a double has at most 1074 decimals.
inline constexpr int kMaxField = 1100;
/// Characters that a buffer must have, for short numbers too: some behind the number may be overwritten.
inline constexpr std::size_t kNumberBuffer = 1440;

/// x with `decimals` decimals (limited to 0 to kMaxField).
ZOR_API std::size_t format_fixed(char* out, double x, int decimals) noexcept;
/// The same right-aligned in at least `width` characters.
ZOR_API std::size_t format_fixed(char* out, double x, int width, int decimals) noexcept;
/// x as Str(x, width) writes it.
ZOR_API std::size_t format_scientific(char* out, double x, int width) noexcept;
/// x in the fewest characters that are read back as x.
ZOR_API std::size_t format_shortest(char* out, double x) noexcept;
ZOR_API std::size_t format_integer(char* out, std::int64_t n) noexcept;

}  // namespace zor::detail

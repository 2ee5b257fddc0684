#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "zor/export.h"

/// \file  The one reader of numbers.
/// A number is an optional sign, digits with at most one point among them or at their ends, and an optional exponent
/// ("E" or "e", optional sign, digits); the result is the double nearest to it. "inf", "nan", hexadecimal digits and
/// separators are no numbers. The locale never matters.

namespace zor::detail {

/// What a text begins with.
enum class NumberStatus : std::uint8_t {
  kNumber,    ///< A number that a double can hold.
  kNone,      ///< No number.
  kTooLarge,  ///< A number that rounds to infinity; the value is 0.
  kTooSmall   ///< A number other than 0 that rounds to 0.
};

/// A number at the start of a text.
struct ParsedNumber {
  double value = 0.0;
  std::size_t end : 56 = 0;                       ///< Number of characters that belong to it; 0 with kNone.
  NumberStatus status : 8 = NumberStatus::kNone;  // packed, so that all of it comes back in registers
  explicit operator bool() const noexcept { return status == NumberStatus::kNumber; }
};

/// What counts as a number.
struct NumberGrammar {
  bool exponent = true;
  bool point = true;   ///< "." is a decimal point.
  bool comma = false;  ///< "," is one.
};

/// The longest number that stands at the start of the text. Blanks in front are not skipped; an "E" without digits
/// behind it is not part of the number.
ZOR_API ParsedNumber parse_number(std::string_view text) noexcept;
ZOR_API ParsedNumber parse_number(std::u16string_view text) noexcept;
ZOR_API ParsedNumber parse_number(std::string_view text, NumberGrammar grammar) noexcept;
ZOR_API ParsedNumber parse_number(std::u16string_view text, NumberGrammar grammar) noexcept;

/// An integer at the start of a text: optional sign, digits.
struct ParsedInteger {
  std::int64_t value = 0;
  std::size_t end = 0;
  NumberStatus status = NumberStatus::kNone;  ///< kTooLarge outside of lowest to highest; the value is 0.
  explicit operator bool() const noexcept { return status == NumberStatus::kNumber; }
};
ZOR_API ParsedInteger parse_integer(std::string_view text, std::int64_t lowest, std::int64_t highest) noexcept;
ZOR_API ParsedInteger parse_integer(std::u16string_view text, std::int64_t lowest, std::int64_t highest) noexcept;

}  // namespace zor::detail

#include "zor/scalar/angle_text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "zor/runtime/number_reader.h"
#include "zor/runtime/pow10.h"
#include "zor/scalar/scan_internal.h"
#include "zor/scalar/text_buffer_internal.h"

namespace ZOR_math1 {
namespace {

using zor::detail::TextBuffer;

constexpr std::string_view kDegreeSign = "\u00B0";

// A part of an angle, given in units of its last decimal, as Str writes it.
void add_last_part(TextBuffer& line, std::uint64_t units, int decimals) {
  // Below 60 * 10^8 units: the quotient is the double nearest to the decimal, and is written as that decimal.
  line.add_fixed(static_cast<double>(units) / zor::detail::pow10(decimals), decimals + 3, decimals);
}

// Place behind the first of the marks that stands at i, or i.
std::size_t pass_mark(std::u16string_view text, std::size_t i, std::initializer_list<std::u16string_view> marks) {
  for (const auto mark : marks)
    if (text.substr(i).starts_with(mark)) return i + mark.size();
  return i;
}

// Reads "number mark" behind blanks, the number from 0 to 60; `end` moves behind it.
bool read_part(std::u16string_view text, std::size_t& end, std::initializer_list<std::u16string_view> marks,
               Double& part) {
  const std::size_t start = end + zor::detail::skip_blanks(text, end);
  const auto number = zor::detail::parse_number(text.substr(start), {.exponent = false});
  if (number.end == 0 || text[start] == u'-' || text[start] == u'+' || !(number.value <= 60.0)) return false;
  const std::size_t mark = start + number.end, behind = pass_mark(text, mark, marks);
  if (behind == mark) return false;
  part = number.value;
  end = behind;
  return true;
}

bool is_whole(Double x) { return std::trunc(x) == x; }

}  // namespace

TString DegreeToStr(Double Angle, TDegreeFormat Format, Integer Decimals) {
  const int decimals = std::clamp(Decimals, 0, 8);
  TextBuffer line;
  if (Format > dfPlain) return line;
  const int per_degree = Format == dfDegMin ? 60 : Format == dfDegMinSec ? 3600 : 1;
  constexpr Double kMostUnits = 0x1p53;
  const Double size = std::floor(std::fabs(Angle) * per_degree * zor::detail::pow10(decimals) + 0.5);
  if (per_degree == 1 || !(size <= kMostUnits)) {
    line.add_fixed(Angle, 1, decimals);
    return Format == dfDecimal ? line.add(kDegreeSign) : line;
  }
  auto units = static_cast<std::uint64_t>(size);
  const auto minute = static_cast<std::uint64_t>(zor::detail::pow10(decimals)) * (per_degree == 3600 ? 60 : 1);
  if (Angle < 0.0 && units != 0) line.add("-");
  line.add_fixed(static_cast<Double>(units / (60 * minute)), 1, 0).add(kDegreeSign).add(" ");
  units %= 60 * minute;
  if (Format == dfDegMin) {
    add_last_part(line, units, decimals);
    return line.add("'");
  }
  line.add_fixed(static_cast<Double>(units / minute), 2, 0).add("' ");
  add_last_part(line, units % minute, decimals);
  return line.add("\"");
}

Double ScanDegrees(const TString& Instring, Integer& CurPos, Boolean AllowPlain, Integer& Kind) {
  Kind = -1;
  return zor::detail::scan_from(
      Instring.units(), CurPos, [&](std::u16string_view text) -> zor::detail::Scanned<Double> {
        const auto number = zor::detail::parse_number(text, {.exponent = false});
        if (number.end == 0 || number.status == zor::detail::NumberStatus::kTooLarge) return {};
        std::size_t end = pass_mark(text, number.end, {u"\u00B0"});
        const bool plain = end == number.end;
        if (plain && !AllowPlain) return {};
        Kind = plain ? dfPlain : dfDecimal;
        const Double degrees = std::fabs(number.value);
        Double minutes = 0.0, seconds = 0.0;
        std::size_t behind = end;
        // What two apostrophes follow are seconds, not minutes.
        if (!plain && is_whole(degrees) && read_part(text, behind, {u"'", u"\u2032"}, minutes) &&
            pass_mark(text, behind, {u"'", u"\u2032"}) == behind) {
          end = behind;
          Kind = dfDegMin;
          if (is_whole(minutes) && read_part(text, end, {u"\"", u"\u2033", u"''", u"\u2032\u2032"}, seconds))
            Kind = dfDegMinSec;
        } else {
          minutes = 0.0;
        }
        return {std::copysign(degrees + (minutes * 60.0 + seconds) / 3600.0, number.value), end};
      });
}

}  // namespace ZOR_math1

// Any bytes as text with numbers: a byte of options, a line with a format of dates, then the text. Scanners never move
// back or beyond the end and agree with the validators and with what is written again; ScanFPNum agrees with its table
// of states, walked character by character.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>

#include "fuzz/slow_stream.h"
#include "zor/runtime/text.h"
#include "zor/scalar/ZOR_math1.h"

namespace {

using namespace ZOR_math1;

struct Scan {
  Double value = 0.0;
  Integer at = 1;
  friend bool operator==(const Scan&, const Scan&) = default;
};

// The states: 1 start, 2 behind the sign, 3 whole digits, 4 behind the separator, 5 decimals, 6 behind "E", 7 behind
// the sign of the exponent, 8 its digits; 0 the end, -1 a failure.
int next_state(int state, char16_t c, Boolean exponent, Integer mode) {
  const bool blank = zor::detail::is_blank(c), sign = c == u'+' || c == u'-', mark = c == u'E' || c == u'e';
  if ((c == u'.' && (mode == 1 || mode == 3)) || (c == u',' && (mode == 2 || mode == 3)))
    return state <= 3 ? 4 : state == 8 ? 0 : -1;
  if (c >= u'0' && c <= u'9') return state <= 3 ? 3 : state <= 5 ? 5 : 8;
  if (state == 1) return blank ? 1 : sign ? 2 : -1;
  if (state == 2 || state == 7) return state == 7 && !blank && !sign && !mark ? 0 : -1;
  if (state == 6) return sign ? 7 : blank || mark ? -1 : 0;
  return mark && exponent && state != 8 ? 6 : 0;
}

Scan scan_by_table(std::u16string_view text, Integer from, Boolean exponent, Integer mode, int& last_state) {
  std::string number;
  std::size_t i = static_cast<std::size_t>(from) - 1;
  int state = 1;
  for (;; ++i) {
    const char16_t c = i < text.size() ? text[i] : u'Z';
    last_state = state;
    state = next_state(state, c, exponent, mode);
    if (state <= 0) break;
    if (state > 1) number += c == u',' ? '.' : static_cast<char>(c);
  }
  Scan scan{0.0, static_cast<Integer>(i) + 1};
  constexpr Double kMost = std::numeric_limits<Double>::max();
  const bool complete = last_state != 6 && last_state != 7;  // else the exponent lacks digits
  if (state == 0 && complete) scan.value = std::clamp(std::strtod(number.c_str(), nullptr), -kMost, kMost);
  return scan;
}

// Scans all of the text, one item or character after the other.
template <class Item>
void scan_all(const TString& text, Item item) {
  for (Integer at = 1; at <= text.Length();) {
    const Integer before = at;
    item(at);
    require(at >= before && at <= text.Length() + 1);
    if (at == before) ++at;
  }
}

void check_floats(const TString& text, Boolean exponent, Integer mode) {
  int state = 0;
  scan_all(text, [&](Integer& at) {
    const Scan expected = scan_by_table(text.units(), at, exponent, mode, state);
    Scan found{0.0, at};
    found.value = ScanFPNum(text, exponent, mode, found.at);
    require(found == expected);
    at = found.at;
  });
  if (mode < 1 || mode > 3) return;
  const Scan whole = scan_by_table(text.units(), 1, exponent, mode, state);
  const bool fits = whole.at == text.Length() + 1 && (state == 3 || state == 4 || state == 5 || state == 8);
  if (!fits) require(!IsValidDouble(text, exponent, static_cast<TDecPSep>(mode - 1)));
  if (fits && IsValidDouble(text, exponent, static_cast<TDecPSep>(mode - 1))) {
    Integer at = 1;
    require(std::isfinite(ScanFPNum(text, exponent, mode, at)) && at == whole.at);
  }
}

void check_integers(const TString& text) {
  Integer at = 1;
  const Integer value = ScanDecimal(text, at);
  if (IsValidDecInt(text)) require(at == text.Length() + 1 && StrToIntDefault(text, value ^ 1) == value);
  const auto check = [&](auto scan, auto valid, auto write, Integer digits) {
    scan_all(text, [&](Integer& place) {
      const Integer before = place, word = scan(text, place);
      require(place != before || word == 0);
      Integer start = 1;
      require(scan(write(word, digits), start) == word && start == digits + 1);
    });
    Integer end = 1;
    scan(text, end);
    if (valid(text)) require(end == text.Length() + 1);
  };
  check(ScanHex, IsValidHex, Hex, 16);
  check(ScanOctal, IsValidOct, Octal, 11);
  check(ScanBin, IsValidBin, Bin, 32);
  scan_all(text, [&](Integer& place) { ScanDecimal(text, place); });
}

void check_angles(const TString& text, Boolean allow_plain) {
  scan_all(text, [&](Integer& at) {
    const Integer before = at;
    Integer kind = 99, start = 1, kind_again = 99;
    const Double angle = ScanDegrees(text, at, allow_plain, kind);
    require(kind >= -1 && kind <= (allow_plain ? dfPlain : dfDegMinSec) && std::isfinite(angle));
    require((kind == -1) == (at == before) && (kind != -1 || angle == 0.0));
    if (kind == -1 || std::fabs(angle) > 1e4) return;
    const TString written = DegreeToStr(angle, static_cast<TDegreeFormat>(kind), 8);
    require(std::fabs(ScanDegrees(written, start, allow_plain, kind_again) - angle) < 1e-8);
    require(kind_again == kind && start == written.Length() + 1);
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  const std::size_t line = std::min(bytes.find('\n'), bytes.size());
  const TString format = bytes.substr(0, line), text = bytes.substr(std::min(line + 1, bytes.size()));
  const Boolean flag = (data[0] & 1) != 0;
  check_floats(text, flag, data[0] >> 1 & 3);
  check_integers(text);
  check_angles(text, flag);
  const auto language = static_cast<TLanguage>(data[0] >> 3 & 7);
  scan_all(text, [&](Integer& at) {
    const Integer before = at;
    const Double days = ScanDateTime(text, format, language, at);
    require(at != before || days == 0.0);
    require(days >= -693594.0 && days < 2958466.0);  // the years 1 to 9999
  });
  return 0;
}

#include "zor/scalar/date_text.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <iterator>
#include <span>
#include <string_view>

#include "zor/scalar/digits_internal.h"
#include "zor/scalar/scan_internal.h"

namespace ZOR_math1 {
namespace {

struct Names {
  std::u16string_view months[12], days[7];
};

// In the order of TLanguage.
constexpr Names kNames[] = {
    {{u"january", u"february", u"march", u"april", u"may", u"june", u"july", u"august", u"september", u"october",
      u"november", u"december"},
     {u"sunday", u"monday", u"tuesday", u"wednesday", u"thursday", u"friday", u"saturday"}},
    {{u"januar", u"februar", u"m\u00E4rz", u"april", u"mai", u"juni", u"juli", u"august", u"september", u"oktober",
      u"november", u"dezember"},
     {u"sonntag", u"montag", u"dienstag", u"mittwoch", u"donnerstag", u"freitag", u"samstag"}},
    {{u"janvier", u"f\u00E9vrier", u"mars", u"avril", u"mai", u"juin", u"juillet", u"ao\u00FBt", u"septembre",
      u"octobre", u"novembre", u"d\u00E9cembre"},
     {u"dimanche", u"lundi", u"mardi", u"mercredi", u"jeudi", u"vendredi", u"samedi"}},
    {{u"gennaio", u"febbraio", u"marzo", u"aprile", u"maggio", u"giugno", u"luglio", u"agosto", u"settembre",
      u"ottobre", u"novembre", u"dicembre"},
     {u"domenica", u"luned\u00EC", u"marted\u00EC", u"mercoled\u00EC", u"gioved\u00EC", u"venerd\u00EC", u"sabato"}},
    {{u"enero", u"febrero", u"marzo", u"abril", u"mayo", u"junio", u"julio", u"agosto", u"septiembre", u"octubre",
      u"noviembre", u"diciembre"},
     {u"domingo", u"lunes", u"martes", u"mi\u00E9rcoles", u"jueves", u"viernes", u"s\u00E1bado"}},
};

char16_t lower(char16_t c) { return static_cast<char16_t>(zor::detail::to_lower(c)); }

// What has been read so far.
struct Parts {
  int day = 1, month = 1, year = 0, hour = 0, minute = 0, second = 0, thousandth = 0;
  bool date = false, half_day = false, afternoon = false;
};

// Takes items from the front of a text; each routine is false if its item does not stand there.
class Reader {
 public:
  explicit Reader(std::u16string_view text) : text_(text), rest_(text) {}
  std::size_t read() const { return text_.size() - rest_.size(); }

  bool number(std::size_t least, std::size_t most, int& value) {
    std::size_t count = 0;
    int n = 0;
    for (; count < std::min(most, rest_.size()) && zor::detail::digit_value(rest_[count]) < 10; ++count)
      n = n * 10 + zor::detail::digit_value(rest_[count]);
    if (count < least) return false;
    rest_.remove_prefix(count);
    value = n;
    return true;
  }

  // The name of which most letters stand here; three at least, and of one name only.
  bool name(std::span<const std::u16string_view> names, int& index) {
    std::size_t longest = 2;
    bool unique = false;
    for (const auto& candidate : names) {
      const std::size_t most = std::min(candidate.size(), rest_.size());
      std::size_t n = 0;
      while (n < most && lower(rest_[n]) == candidate[n]) ++n;
      if (n < longest || n < 3) continue;
      unique = n > longest;
      longest = n;
      index = static_cast<int>(&candidate - names.data());
    }
    if (unique) rest_.remove_prefix(longest);
    return unique;
  }

  bool half_of_day(bool& afternoon) {
    if (rest_.size() < 2 || lower(rest_[1]) != u'm') return false;
    const char16_t first = lower(rest_[0]);
    afternoon = first == u'p';
    rest_.remove_prefix(2);
    return afternoon || first == u'a';
  }

  bool literal(char16_t c) {
    if (zor::detail::is_blank(c)) {
      rest_.remove_prefix(zor::detail::skip_blanks(rest_));
      return true;
    }
    if (rest_.empty() || rest_[0] != c) return false;
    rest_.remove_prefix(1);
    return true;
  }

 private:
  std::u16string_view text_, rest_;
};

bool read_year(Reader& in, std::size_t digits, int& year) {
  if (!in.number(digits, digits, year)) return false;
  if (digits == 2) year += year < 50 ? 2000 : 1900;
  return true;
}

// Reads what a run of one letter of the format stands for.
bool read_item(Reader& in, char16_t letter, std::size_t run, const Names& names, Parts& parts) {
  int weekday = 0;
  const bool name = run >= 3;
  parts.date = parts.date || letter == u'y' || letter == u'm' || (letter == u'd' && !name);
  switch (letter) {
    case u'd':
      return name ? in.name(names.days, weekday) : in.number(1, 2, parts.day);
    case u'm':
      if (!name) return in.number(1, 2, parts.month);
      if (!in.name(names.months, parts.month)) return false;
      ++parts.month;
      return true;
    case u'y':
      return read_year(in, run > 2 ? 4 : 2, parts.year);
    case u'h':
      return in.number(1, 2, parts.hour);
    case u'n':
      return in.number(1, 2, parts.minute);
    case u's':
      return in.number(1, 2, parts.second);
    default:
      return in.number(run >= 3 ? 3 : 1, 3, parts.thousandth);
  }
}

constexpr std::u16string_view kLetters = u"dmyhnsz", kHalfOfDay = u"am/pm";

bool read_all(Reader& in, std::u16string_view format, const Names& names, Parts& parts) {
  const auto is_letter = [](char16_t c, char16_t letter) { return lower(c) == letter; };
  for (std::size_t i = 0; i < format.size();) {
    const std::u16string_view rest = format.substr(i);
    const char16_t c = lower(rest[0]);
    std::size_t run = 1;
    bool fits;
    if (rest.size() >= kHalfOfDay.size() &&
        std::equal(kHalfOfDay.begin(), kHalfOfDay.end(), rest.begin(),
                   [&](char16_t letter, char16_t unit) { return is_letter(unit, letter); })) {
      run = kHalfOfDay.size();
      fits = parts.half_day = in.half_of_day(parts.afternoon);
    } else if (kLetters.find(c) != kLetters.npos) {
      while (run < rest.size() && is_letter(rest[run], c)) ++run;
      fits = read_item(in, c, run, names, parts);
    } else {
      fits = in.literal(rest[0]);
    }
    if (!fits) return false;
    i += run;
  }
  return true;
}

// False if there is no such time.
bool put_together(const Parts& parts, Double& value) {
  using namespace std::chrono;
  int hour = parts.hour;
  if (parts.half_day) {
    if (hour < 1 || hour > 12) return false;
    hour = hour % 12 + 12 * parts.afternoon;
  }
  if (hour > 23 || parts.minute > 59 || parts.second > 59) return false;
  Integer days = 0;
  if (parts.date) {
    const year_month_day date = year(parts.year) / parts.month / parts.day;
    if (parts.year < 1 || !date.ok()) return false;
    constexpr sys_days kFirst = 1899y / December / 30;
    days = static_cast<Integer>((sys_days(date) - kFirst).count());
  }
  const Integer time = ((hour * 60 + parts.minute) * 60 + parts.second) * 1000 + parts.thousandth;
  value = days + time / 86'400'000.0;
  return true;
}

}  // namespace

Double ScanDateTime(const TString& Instring, const TString& Format, TLanguage Language, Integer& CurPos) {
  const Names& names = kNames[Language < std::size(kNames) ? Language : lgEnglish];
  return zor::detail::scan_from(
      Instring.units(), CurPos, [&](std::u16string_view text) -> zor::detail::Scanned<Double> {
        Reader in(text);
        Parts parts;
        Double value = 0.0;
        if (!read_all(in, Format.units(), names, parts) || in.read() == 0 || !put_together(parts, value)) return {};
        return {value, in.read()};
      });
}

}  // namespace ZOR_math1

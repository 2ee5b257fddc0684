#include "zor/runtime/number_text.h"

#include <algorithm>
#include <limits>

#include "zor/runtime/exception.h"
#include "zor/runtime/text.h"

namespace ZOR_runtime {
namespace {

using zor::detail::NumberStatus;

// A writer of zor::detail with its result as a TString.
template <class Write>
TString written(Write write) {
  char text[zor::detail::kNumberBuffer];
  return TString(std::string_view(text, write(text)));
}

std::size_t skip_blanks(std::u16string_view text) {
  std::size_t i = 0;
  while (i < text.size() && zor::detail::is_blank(text[i])) ++i;
  return i;
}

// Place (from 0) behind one of the two units, if it stands at i.
std::size_t skip_one(std::u16string_view text, std::size_t i, Char a, Char b) {
  return i + (i < text.size() && (text[i] == a || text[i] == b));
}

// The number that stands behind the blanks of S, or the code that says why there is none.
template <class Value, class Parse>
void read_value(const TString& S, Value& value, Integer& code, Parse parse) {
  const std::u16string_view text = S.units();
  const std::size_t start = skip_blanks(text);
  const auto number = parse(text.substr(start));
  const std::size_t end = start + number.end;
  constexpr bool kFloat = std::floating_point<Value>;
  value = 0;
  std::size_t fault = 0;  // from 1
  if (number.status == NumberStatus::kNone) {
    fault = skip_one(text, start, u'+', u'-');
    if (kFloat) fault = skip_one(text, fault, u'.', u'.');
    ++fault;
  } else if (end < text.size()) {
    fault = end;
    if (kFloat && skip_one(text, end, u'e', u'E') != end) fault = skip_one(text, end + 1, u'+', u'-');
    ++fault;
  } else if (number.status == NumberStatus::kTooLarge) {
    fault = text.back() == u'.' ? end - 1 : end;
  } else {
    value = static_cast<Value>(number.value);
  }
  code = zor::detail::to_integer(fault);
}

template <class I>
void read_integer(const TString& S, I& value, Integer& code) {
  read_value(S, value, code, [](std::u16string_view text) {
    return zor::detail::parse_integer(text, (std::numeric_limits<I>::min)(), (std::numeric_limits<I>::max)());
  });
}

}  // namespace

TString Str(Double x, Integer Width, Integer Decimals) {
  if (Decimals < 0) return Str(x, Width);
  return written([&](char* text) { return zor::detail::format_fixed(text, x, Width, Decimals); });
}

TString Str(Double x, Integer Width) {
  return written([&](char* text) { return zor::detail::format_scientific(text, x, Width); });
}

TString Str(Int64 n, Integer Width) {
  const std::string digits = IntToStr(n).utf8();
  const std::size_t field = static_cast<std::size_t>(std::clamp(Width, 0, zor::detail::kMaxField));
  return TString(std::string(field - std::min(field, digits.size()), ' ') + digits);
}

TString IntToStr(Int64 n) {
  return written([&](char* text) { return zor::detail::format_integer(text, n); });
}

void Val(const TString& S, Double& Value, Integer& Code) {
  read_value(S, Value, Code, [](std::u16string_view text) { return zor::detail::parse_number(text); });
}
void Val(const TString& S, Integer& Value, Integer& Code) { read_integer(S, Value, Code); }
void Val(const TString& S, Int64& Value, Integer& Code) { read_integer(S, Value, Code); }

Integer StrToInt(const TString& S) {
  Integer value, code;
  Val(S, value, code);
  if (code != 0) throw EConvertError("\"" + S + "\" is not an integer");
  return value;
}

}  // namespace ZOR_runtime

#include "zor/base/stringl_text.h"

#include <algorithm>
#include <string>
#include <vector>

#include "zor/runtime/number_text.h"
#include "zor/runtime/text.h"

namespace ZOR_stringl {
namespace {

template <class Equal>
Integer index_of(std::span<const TString> table, Equal equal) {
  const auto found = std::find_if(table.begin(), table.end(), equal);
  return found == table.end() ? 0 : zor::detail::to_integer(static_cast<std::size_t>(found - table.begin()) + 1);
}

constexpr bool is_control(Char unit) { return unit < 32 || (unit >= 127 && unit <= 159); }

}  // namespace

TString strff(Double x, Integer w, Integer d) { return ZOR_runtime::Str(x, w, std::max(d, 0)); }

Integer StringIx(const TString& S, Boolean Flag, std::span<const TString> Table) noexcept {
  if (Flag) return StringIx(S, Table);
  return index_of(Table,
                  [&](const TString& entry) { return zor::detail::equal_ignoring_case(entry.units(), S.units()); });
}
Integer StringIx(const TString& S, Boolean Flag, std::initializer_list<TString> Table) noexcept {
  return StringIx(S, Flag, std::span(Table.begin(), Table.size()));
}
Integer StringIx(const TString& S, std::span<const TString> Table) noexcept {
  return index_of(Table, [&](const TString& entry) { return entry == S; });
}
Integer StringIx(const TString& S, std::initializer_list<TString> Table) noexcept {
  return StringIx(S, std::span(Table.begin(), Table.size()));
}

Boolean StringContains(const TString& S, const TString& Sub) noexcept {
  return S.units().find(Sub.units()) != std::u16string_view::npos;
}

TString StripLTBlanks(const TString& S) { return TString(zor::detail::trim_blanks(S.units())); }

TString StripTrailingChars(Char C, const TString& S) {
  return TString(S.units().substr(0, S.units().find_last_not_of(C) + 1));
}

TString ReplaceCharInString(const TString& S, Char Old, Char New) {
  std::u16string text(S.units());
  std::replace(text.begin(), text.end(), Old, New);
  return TString(text);
}

TString RemoveControlChars(const TString& S) {
  std::u16string text(S.units());
  std::erase_if(text, is_control);
  return TString(text);
}

Integer Tokenize(const TString& S, const TString& Delimiters, TStrArray& Tokens) {
  const std::u16string_view text = S.units(), marks = Delimiters.units();
  std::vector<TString> found;
  for (std::size_t from = text.find_first_not_of(marks); from < text.size();) {
    const std::size_t end = std::min(text.find_first_of(marks, from), text.size());
    found.emplace_back(text.substr(from, end - from));
    from = text.find_first_not_of(marks, end);
  }
  Tokens = TStrArray(found.begin(), found.end());
  return Length(Tokens);
}

}  // namespace ZOR_stringl

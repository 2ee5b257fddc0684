#include "zor/runtime/text.h"

#include <algorithm>
#include <filesystem>
#include <span>
#include <string>
#include <system_error>

#include "zor/runtime/case_ranges_internal.h"

namespace zor::detail {
namespace {

char32_t map_case(char32_t code, std::span<const CaseRange> ranges) {
  const auto range =
      std::lower_bound(ranges.begin(), ranges.end(), code, [](const CaseRange& r, char32_t c) { return r.last < c; });
  if (range == ranges.end() || code < range->first || (code - range->first) % range->step != 0) return code;
  return static_cast<char32_t>(static_cast<std::int32_t>(code) + range->delta);
}

// Takes one code point from the front of text; a lone surrogate is taken as it is.
char32_t take_code(std::u16string_view& text) {
  const char32_t lead = text[0];
  const bool pair = (lead & 0xFC00) == 0xD800 && text.size() > 1 && (text[1] & 0xFC00) == 0xDC00;
  const char32_t code = pair ? 0x10000 + ((lead & 0x3FF) << 10) + (text[1] & 0x3FFU) : lead;
  text.remove_prefix(pair ? 2 : 1);
  return code;
}

ZOR_runtime::TString map_text(std::u16string_view text, char32_t (*map)(char32_t) noexcept) {
  std::u16string mapped;
  mapped.reserve(text.size());
  while (!text.empty()) {
    const char32_t code = map(take_code(text));
    if (code >= 0x10000) mapped += static_cast<char16_t>(0xD7C0 + (code >> 10));
    mapped += static_cast<char16_t>(code >= 0x10000 ? 0xDC00 + (code & 0x3FF) : code);
  }
  return ZOR_runtime::TString(mapped);
}

}  // namespace

char32_t to_lower(char32_t code) noexcept {
  if (code < 0x80) return code >= 'A' && code <= 'Z' ? code + 32 : code;
  return map_case(code, kToLower);
}

char32_t to_upper(char32_t code) noexcept {
  if (code < 0x80) return code >= 'a' && code <= 'z' ? code - 32 : code;
  return map_case(code, kToUpper);
}

bool equal_ignoring_case(std::u16string_view a, std::u16string_view b) noexcept {
  while (!a.empty() && !b.empty()) {
    if (to_lower(take_code(a)) != to_lower(take_code(b))) return false;
  }
  return a.empty() && b.empty();
}

}  // namespace zor::detail

namespace ZOR_runtime {

Integer Pos(const TString& Sub, const TString& S) noexcept {
  if (Sub.empty()) return 0;
  const std::size_t at = S.units().find(Sub.units());
  return at == std::u16string_view::npos ? 0 : zor::detail::to_integer(at + 1);
}

TString Copy(const TString& S, Integer Index, Integer Count) {
  const std::size_t from = zor::detail::to_size(Int64{Index} - 1);
  if (from >= S.units().size()) return {};
  return TString(S.units().substr(from, zor::detail::to_size(Count)));
}

void Delete(TString& S, Integer Index, Integer Count) {
  if (Index < 1 || Index > S.Length() || Count < 1) return;
  std::u16string rest(S.units());
  rest.erase(zor::detail::to_size(Int64{Index} - 1), zor::detail::to_size(Count));
  S = TString(rest);
}

Char UpCase(Char C) noexcept { return static_cast<Char>(zor::detail::to_upper(C)); }
TString LowerCase(const TString& S) { return zor::detail::map_text(S.units(), zor::detail::to_lower); }
TString UpperCase(const TString& S) { return zor::detail::map_text(S.units(), zor::detail::to_upper); }

TString ExtractFileExt(const TString& FileName) {
  const std::u16string_view name = FileName.units();
  const std::size_t at = name.find_last_of(u"./\\:");
  if (at == std::u16string_view::npos || name[at] != u'.') return {};
  return TString(name.substr(at));
}

Boolean FileExists(const TString& FileName) {
  if (FileName.units().find(u'\0') != std::u16string_view::npos) return false;
  std::error_code failure;
  const auto status = std::filesystem::status(FileName.utf8(), failure);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

}  // namespace ZOR_runtime

#include <algorithm>

#include "zor/base/xml_text.h"
#include "zor/runtime/number_reader.h"
#include "zor/runtime/text_file.h"

namespace zor::detail {
namespace {

struct Entity {
  char byte;
  std::string_view name;
};
constexpr Entity kEntities[] = {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&apos;"}};

bool is_blank(char c) noexcept { return is_blank_byte(static_cast<unsigned char>(c)); }

std::string_view skip_blanks(std::string_view text) noexcept {
  while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
  return text;
}

bool is_name_end(char c) noexcept { return is_blank(c) || c == '=' || c == '/' || c == '>'; }

/// "&#n;" at the beginning of a text: its character in UTF-8, and its length; 0 if there is none.
std::size_t take_reference(std::string_view text, std::string& out) {
  constexpr std::size_t kLongest = 12;
  const std::size_t close = text.substr(0, kLongest).find(';');
  if (!text.starts_with("&#") || close == text.npos || close == 2) return 0;
  char32_t code = 0;
  for (const char c : text.substr(2, close - 2)) {
    if (c < '0' || c > '9') return 0;
    code = code * 10 + static_cast<char32_t>(c - '0');
  }
  if (code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return 0;
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else {
    const int more = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    constexpr unsigned kLead[] = {0, 0xC0, 0xE0, 0xF0};
    out += static_cast<char>(kLead[more] | code >> (6 * more));
    for (int i = more - 1; i >= 0; --i) out += static_cast<char>(0x80 | (code >> (6 * i) & 0x3F));
  }
  return close + 1;
}

}  // namespace

std::string xml_escaped(std::string_view utf8_text) {
  std::string out;
  for (const char c : utf8_text) {
    const auto* const entity = std::ranges::find(kEntities, c, &Entity::byte);
    if (entity != std::end(kEntities) && c != '\'') {
      out += entity->name;
    } else if (static_cast<unsigned char>(c) < 32 || c == 127) {
      out += "&#" + std::to_string(static_cast<int>(c)) + ";";
    } else {
      out += c;
    }
  }
  return out;
}

std::string xml_unescaped(std::string_view escaped) {
  std::string out;
  while (!escaped.empty()) {
    std::size_t taken = 0;
    if (escaped[0] == '&') {
      for (const Entity& entity : kEntities) {
        if (!escaped.starts_with(entity.name)) continue;
        out += entity.byte;
        taken = entity.name.size();
      }
      if (taken == 0) taken = take_reference(escaped, out);
    }
    if (taken == 0) {
      out += escaped[0];
      taken = 1;
    }
    escaped.remove_prefix(taken);
  }
  return out;
}

std::optional<XmlTag> next_xml_tag(std::string_view text, std::size_t at) {
  for (;;) {
    at = text.find('<', at);
    if (at == text.npos) return {};
    const std::string_view rest = text.substr(at);
    const std::string_view close = rest.starts_with("<!--") ? "-->" : rest.starts_with("<?") ? "?>" : ">";
    if (close == ">" && !rest.starts_with("<!")) break;
    const std::size_t end = text.find(close, at + 2);
    if (end == text.npos) return {};
    at = end + close.size();
  }
  XmlTag tag;
  tag.begin = at;
  std::size_t i = at + 1;
  while (i < text.size() && (!is_name_end(text[i]) || i == at + 1) && text[i] != '>') ++i;
  tag.name = text.substr(at + 1, i - at - 1);
  const std::size_t attributes = i;
  for (char quote = 0; i < text.size() && (text[i] != '>' || quote != 0); ++i) {
    if (quote == 0 && (text[i] == '"' || text[i] == '\'')) {
      quote = text[i];
    } else if (text[i] == quote) {
      quote = 0;
    }
  }
  if (i == text.size()) return {};
  tag.end = i + 1;
  tag.empty = text[i - 1] == '/' && i > attributes;
  tag.attributes = text.substr(attributes, i - attributes - tag.empty);
  return tag;
}

std::optional<XmlElement> next_xml_element(std::string_view text, std::size_t at) {
  const auto tag = next_xml_tag(text, at);
  if (!tag || tag->name.starts_with('/')) return {};
  XmlElement element{tag->name, tag->attributes, {}, tag->end};
  if (tag->empty) return element;
  const std::string close = "</" + std::string(tag->name) + ">";
  const std::size_t end = text.find(close, tag->end);
  if (end == text.npos) return {};
  element.content = text.substr(tag->end, end - tag->end);
  element.end = end + close.size();
  return element;
}

std::optional<std::string_view> xml_attribute(std::string_view attributes, std::string_view name) {
  for (std::string_view rest = skip_blanks(attributes); !rest.empty();) {
    const auto end = static_cast<std::size_t>(std::find_if(rest.begin(), rest.end(), is_name_end) - rest.begin());
    const std::string_view found = rest.substr(0, end);
    rest = skip_blanks(rest.substr(end));
    if (rest.empty()) return {};
    if (rest[0] != '=') {
      if (end == 0) rest.remove_prefix(1);
      continue;
    }
    rest = skip_blanks(rest.substr(1));
    if (rest.empty() || (rest[0] != '"' && rest[0] != '\'')) return {};
    const std::size_t close = rest.find(rest[0], 1);
    if (close == rest.npos) return {};
    if (found == name) return rest.substr(1, close - 1);
    rest = skip_blanks(rest.substr(close + 1));
  }
  return {};
}

std::optional<std::int32_t> whole_integer(std::string_view text, std::int32_t lo, std::int32_t hi) {
  const auto number = parse_integer(text, lo, hi);
  if (!number || number.end != text.size()) return {};
  return static_cast<std::int32_t>(number.value);
}

std::optional<std::int32_t> xml_integer(std::string_view attributes, std::string_view name, std::int32_t lo,
                                        std::int32_t hi) {
  const auto text = xml_attribute(attributes, name);
  return text ? whole_integer(*text, lo, hi) : std::nullopt;
}

}  // namespace zor::detail

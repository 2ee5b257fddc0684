#include <cstring>
#include <limits>

#include "zor/matrices/xml_reader_internal.h"
#include "zor/runtime/number_reader.h"
#include "zor/runtime/text.h"
#include "zor/scalar/number_scan.h"

namespace zor::detail {
namespace {

using ZOR_matrix::kMatXmlTags;
using ZOR_runtime::Integer;
using ZOR_runtime::TString;
using ZOR_runtime::TTextFile;

struct Entity {
  char16_t unit;
  std::string_view name;
};
constexpr Entity kEntities[] = {{u'&', "&amp;"}, {u'<', "&lt;"}, {u'>', "&gt;"}, {u'"', "&quot;"}, {u'\'', "&apos;"}};

TString escaped(const TString& text) {
  TString out;
  for (const char16_t unit : text.units()) {
    const Entity* found = nullptr;
    for (const Entity& entity : kEntities) {
      if (entity.unit == unit && unit != u'\'') found = &entity;
    }
    if (found) {
      out += TString(found->name);
    } else {
      out.append_unit(unit);
    }
  }
  return out;
}

TString unescaped(std::u16string_view text) {
  TString out;
  while (!text.empty()) {
    std::size_t taken = 1;
    char16_t unit = text[0];
    for (const Entity& entity : kEntities) {
      if (unit == u'&' && text.size() >= entity.name.size() &&
          std::equal(entity.name.begin(), entity.name.end(), text.begin(),
                     [](char a, char16_t b) { return static_cast<unsigned char>(a) == b; })) {
        unit = entity.unit;
        taken = entity.name.size();
        break;
      }
    }
    out.append_unit(unit);
    text.remove_prefix(taken);
  }
  return out;
}

std::u16string_view without_leading_blanks(std::u16string_view text) {
  while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
  return text;
}

bool take(std::string_view& text, std::string_view start) {
  if (text.size() < start.size() || std::memcmp(text.data(), start.data(), start.size()) != 0) return false;
  text.remove_prefix(start.size());
  return true;
}

}  // namespace

std::optional<std::u16string_view> xml_attribute(std::u16string_view attributes, std::u16string_view name) {
  for (std::u16string_view rest = without_leading_blanks(attributes); !rest.empty();) {
    const std::size_t end = std::min(rest.find_first_of(u"= \t\n\v\f\r"), rest.size());
    const std::u16string_view found = rest.substr(0, end);
    rest = without_leading_blanks(rest.substr(end));
    if (rest.empty() || rest[0] != u'=') continue;
    rest = without_leading_blanks(rest.substr(1));
    if (rest.empty() || (rest[0] != u'"' && rest[0] != u'\'')) return {};
    const std::size_t close = std::min(rest.find(rest[0], 1), rest.size());
    const std::u16string_view value = rest.substr(1, close - 1);
    if (found == name) return value;
    rest = without_leading_blanks(rest.substr(std::min(close + 1, rest.size())));
  }
  return {};
}

Integer xml_index(const TString& attributes, std::u16string_view name) {
  const auto value = xml_attribute(attributes.units(), name);
  return value ? xml_number(TString(*value)) : 0;
}

Integer xml_number(const TString& content) {
  Integer at = 1;
  return ZOR_math1::ScanDecimal(content, at);
}

void write_xml_begin(TTextFile& file, bool header, const TString& id) {
  if (header) file.Write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
  file.Write("<matrix id=\"");
  file.Write(escaped(id));
  file.Write("\">\n");
}

void write_xml_size(TTextFile& file, TMatXmlTag tag, Integer value) {
  const std::string name = kMatXmlTags[tag];
  file.Write("<" + name + ">");
  file.WriteInteger(value);
  file.Write("</" + name + ">\n");
}

void write_xml_end(TTextFile& file) { file.Write("</matrix>\n"); }

XmlMatrixReader::XmlMatrixReader(TTextFile& file, std::span<const std::string_view> index_names)
    : file_(file), tags_(std::begin(kMatXmlTags), std::end(kMatXmlTags)), reader_(file, tags_) {
  for (const std::string_view name : index_names) {
    prefixes_.push_back((prefixes_.empty() ? "<cell " : "\" ") + std::string(name) + "=\"");
  }
}

bool XmlMatrixReader::find(const TString& wanted, TString& id) {
  TString attributes, content;
  while (!file_.Eof()) {
    if (next(attributes, content) != ZOR_matrix::xmlMatBegin) continue;
    const auto found = xml_attribute(attributes.units(), u"id");
    id = found ? unescaped(*found) : TString();
    if (wanted.empty() || id == wanted) return true;
  }
  return false;
}

TMatXmlTag XmlMatrixReader::next(TString& attributes, TString& content) {
  return static_cast<TMatXmlTag>(reader_.next(attributes, content));
}

bool XmlMatrixReader::next_plain_cell(std::span<Integer> indices, std::string_view& text) {
  file_.skip_blanks();
  const auto start = file_.Position();
  std::size_t size = 0;
  for (int ends = 0; ends < 2 && size < kLongestPlainCell;) {
    const int c = file_.read_byte();
    if (c < 0) break;
    buffer_[size++] = static_cast<char>(c);
    ends += c == '>';
  }
  text = std::string_view(buffer_.data(), size);
  bool plain = true;
  for (std::size_t i = 0; plain && i < indices.size(); ++i) {
    plain = take(text, prefixes_[i]);
    const auto number = parse_integer(text, 0, std::numeric_limits<Integer>::max());
    plain = plain && number;
    text.remove_prefix(number.end);
    indices[i] = static_cast<Integer>(number.value);
  }
  constexpr std::string_view kEnd = "</cell>";
  plain = plain && take(text, "\">") && text.ends_with(kEnd);
  if (plain) {
    text.remove_suffix(kEnd.size());
    plain = text.find('<') == text.npos;
  }
  if (!plain) file_.SetPosition(start);
  return plain;
}

}  // namespace zor::detail

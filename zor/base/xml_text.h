#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "zor/export.h"

/// \file  Elements of an XML document as bytes in place: nothing is copied.
/// For documents of which the larger part is one block of small elements, such as the cells of a table; the tag reader
/// of tags.h copes with more (nesting, entities left alone, missing ends) and copies what it hands out.
///
///     const auto cell = next_xml_element("<a/><cell ix=\"2\">1.5</cell>", 4);    // content "1.5"
///     xml_integer(cell->attributes, "ix", 1, 10);                                // 2

namespace zor::detail {

/// Text with & < > " as entities and control characters as decimal references.
ZOR_API std::string xml_escaped(std::string_view utf8_text);
/// The text that such an escaped one stands for; what is no entity stays as it is.
ZOR_API std::string xml_unescaped(std::string_view escaped);

/// One element: `<name attributes>content</name>`, or `<name attributes/>`.
struct XmlElement {
  std::string_view name, attributes, content;
  std::size_t end = 0;  ///< place behind it
};

/// An opening or closing tag at or behind a place; declarations and comments are passed over.
struct XmlTag {
  std::string_view name, attributes;
  bool empty = false;  ///< `<name/>`
  std::size_t begin = 0, end = 0;
};
ZOR_API std::optional<XmlTag> next_xml_tag(std::string_view text, std::size_t at);

/// The element at or behind a place, up to the first end tag of its name. None if no tag is left, the next one is an
/// end tag, or its end is missing.
ZOR_API std::optional<XmlElement> next_xml_element(std::string_view text, std::size_t at);

/// Text between the quotes of an attribute, as it stands; none if it is missing. Names match as a whole.
ZOR_API std::optional<std::string_view> xml_attribute(std::string_view attributes, std::string_view name);
/// The integer that an attribute is; none if it is missing, another text, or outside of lo to hi.
ZOR_API std::optional<std::int32_t> xml_integer(std::string_view attributes, std::string_view name, std::int32_t lo,
                                                std::int32_t hi);
/// The same of a whole text.
ZOR_API std::optional<std::int32_t> whole_integer(std::string_view text, std::int32_t lo, std::int32_t hi);

}  // namespace zor::detail

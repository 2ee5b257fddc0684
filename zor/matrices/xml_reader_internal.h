#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "zor/base/tags.h"
#include "zor/matrices/xml_vocabulary.h"
#include "zor/runtime/text_file.h"

/// \file  What the readers and writers of the matrices' XML documents share.

namespace zor::detail {

using ZOR_matrix::TMatXmlTag;

/// Text between the quotes of an attribute, as it stands; none if it is missing. Names match as a whole; blanks around
/// "=" and single quotes pass.
std::optional<std::u16string_view> xml_attribute(std::u16string_view attributes, std::u16string_view name);
/// The decimal number that an attribute begins with; 0 if it is missing.
ZOR_runtime::Integer xml_index(const ZOR_runtime::TString& attributes, std::u16string_view name);
/// The decimal number that the content of a tag begins with.
ZOR_runtime::Integer xml_number(const ZOR_runtime::TString& content);

/// Writes the head of a document, if asked for, and the opening tag.
void write_xml_begin(ZOR_runtime::TTextFile& file, bool header, const ZOR_runtime::TString& id);
/// Writes `<name>value</name>` on a line.
void write_xml_size(ZOR_runtime::TTextFile& file, TMatXmlTag tag, ZOR_runtime::Integer value);
void write_xml_end(ZOR_runtime::TTextFile& file);

/// Reads one matrix out of a document.
class XmlMatrixReader {
 public:
  /// `index_names` are the attributes of a cell, in the order in which the writer puts them.
  XmlMatrixReader(ZOR_runtime::TTextFile& file, std::span<const std::string_view> index_names);

  /// Goes behind the opening tag of the matrix with this id, of the first one if `wanted` is empty, and says its id.
  /// Foreign elements and other matrices are passed over. False if there is none.
  bool find(const ZOR_runtime::TString& wanted, ZOR_runtime::TString& id);
  /// The next tag, xmlInvalid for one that is not in the vocabulary and at the end of the file.
  TMatXmlTag next(ZOR_runtime::TString& attributes, ZOR_runtime::TString& content);
  /// Takes the next element if it is a cell written the way the library writes cells, and gives its indices and its
  /// text, which is valid until the next call. Else takes nothing but blanks.
  bool next_plain_cell(std::span<ZOR_runtime::Integer> indices, std::string_view& text);

 private:
  ZOR_runtime::TTextFile& file_;
  std::vector<std::string> prefixes_;
  std::vector<ZOR_runtime::TString> tags_;
  TagReader reader_;
  /// Longest cell element that is looked at as a whole; longer ones go through the tag reader.
  static constexpr std::size_t kLongestPlainCell = 160;
  std::array<char, kLongestPlainCell> buffer_;
};

}  // namespace zor::detail

#pragma once

#include <limits>
#include <string>
#include <vector>

#include "zor/base/xml_text.h"
#include "zor/datatable/table_formats_internal.h"
#include "zor/datatable/table_vocabulary.h"
#include "zor/matrices/matrix.h"

/// \file  What the elements of a table's document mean, whoever takes it: an image or a table.

namespace ZOR_datatable {

/// The tag with this name; xmlInvalid if there is none.
TDTxmlTags tag_of_name(std::string_view name) noexcept;
/// The number that a cell is: finite, NAN, INF or -INF.
bool read_xml_number(std::string_view text, Double& x) noexcept;

/// Takes one element and gives what it means to a target with the members
///   bool size(cols, rows), comment(text), name(dim, place, text), attribute(dim, place, n), scale(col, s),
///   identifier(col, slot, text), cell(col, row, x, state), begin_list(tag, name), end_list(tag, count)
/// of which each says whether it is possible. `extra` and `count` as in TDataTable::ProcessXmlTag.
template <class Target>
Integer process_xml(Target& target, TDTxmlTags tag, std::string_view attr, std::string_view content,
                    std::string_view extra, Integer count) {
  using namespace zor::detail;
  constexpr Integer kMost = zor::detail::kMaxInteger;
  const auto result = [](bool good) { return good ? kXmlGoOn : kXmlBadTag; };
  const auto walk = [&](TDTxmlTags inner, Integer column) {
    Integer running = 0;
    std::size_t at = 0;
    while (next_xml_tag(content, at)) {
      const auto element = next_xml_element(content, at);
      if (!element || element->name != kTableXmlTags[inner]) return false;
      at = element->end;
      ++running;
      if (process_xml(target, inner, element->attributes, element->content, kTableXmlTags[tag],
                      column > 0 ? column : running) != kXmlGoOn)
        return false;
    }
    return true;
  };
  const auto list = [&](TDTxmlTags inner) {
    return result(target.begin_list(tag) && walk(inner, 0) && target.end_list(tag));
  };
  switch (tag) {
    case xmlDataTableId:
      return kXmlGoOn;
    case xmlDataTableEndId:
      return kXmlComplete;
    case xmlComment:
      return result(target.comment(xml_unescaped(content)));
    case xmlSize: {
      const auto cols = xml_integer(attr, "cols", 0, kMost), rows = xml_integer(attr, "rows", 0, kMost);
      return result(cols && rows && target.size(*cols, *rows));
    }
    case xmlColNames:
    case xmlColAttrib:
      return list(xmlColId);
    case xmlRowNames:
    case xmlRowAttrib:
      return list(xmlRowId);
    case xmlDataCells:
      return list(xmlCellID);
    case xmlColId:
    case xmlRowId: {
      const TDims dim = tag == xmlColId ? dimCols : dimRows;
      const auto place = xml_integer(attr, "ix", 1, kMost);
      if (!place) return kXmlBadTag;
      if (extra == kTableXmlTags[dim == dimCols ? xmlColNames : xmlRowNames])
        return result(target.name(dim, *place, xml_unescaped(content)));
      const auto number = whole_integer(content, std::numeric_limits<Integer>::min(), kMost);
      const bool here = extra == kTableXmlTags[dim == dimCols ? xmlColAttrib : xmlRowAttrib];
      return result(here && number && target.attribute(dim, *place, *number));
    }
    case xmlCellID: {
      const auto col = xml_integer(attr, "ix", 1, kMost), row = xml_integer(attr, "iy", 1, kMost);
      const bool plain = !xml_attribute(attr, "st");
      const auto state = plain ? std::optional<Integer>(0) : xml_integer(attr, "st", 0, 255);
      Double x = 0.0;
      return result(extra == kTableXmlTags[xmlDataCells] && col && row && state && read_xml_number(content, x) &&
                    target.cell(*col, *row, x, static_cast<Byte>(*state)));
    }
    case xmlVarType: {
      const auto col = xml_integer(attr, "ix", 1, kMost);
      const auto scale = xml_attribute(attr, "scale");
      if (!col || !scale) return kXmlBadTag;
      const auto* const found = std::ranges::find(MScaleTypeNames, *scale);
      return result(found != std::end(MScaleTypeNames) &&
                    target.scale(*col, static_cast<TMScaleType>(found - MScaleTypeNames)) &&
                    walk(xmlVarIdentifier, *col));
    }
    case xmlVarIdentifier: {
      const auto slot = xml_integer(attr, "ord", 0, kNominalIDs - 1);
      return result(extra == kTableXmlTags[xmlVarType] && slot &&
                    target.identifier(count, *slot, xml_unescaped(content)));
    }
    case xmlInvalid:
      break;
  }
  return kXmlBadTag;
}

/// Builds the image of a table; each place of a list has to come once.
class XmlImage {
 public:
  explicit XmlImage(std::size_t bytes) : bytes_(static_cast<Int64>(bytes)) {}
  TTableImage& image() noexcept { return image_; }
  bool complete() const noexcept { return sized_ && (cells_done_ || image_.cells.empty()); }

  bool size(Integer cols, Integer rows) {
    if (sized_ || !zor::detail::may_hold_table(cols, rows, bytes_)) return false;
    TString comment = image_.comment;
    image_ = TTableImage(cols, rows);
    image_.comment = comment;
    return sized_ = true;
  }
  bool comment(const TString& text);
  bool name(TDims dim, Integer place, const TString& text) {
    if (!mark(place, dim == dimCols ? image_.ncols() : image_.nrows())) return false;
    (dim == dimCols ? image_.columns[place - 1].name : image_.rows[place - 1].name) = text;
    return true;
  }
  bool attribute(TDims dim, Integer place, Integer n) {
    if (!mark(place, dim == dimCols ? image_.ncols() : image_.nrows())) return false;
    (dim == dimCols ? image_.columns[place - 1].attribute : image_.rows[place - 1].attribute) = n;
    return true;
  }
  bool scale(Integer col, TMScaleType s) {
    if (!sized_ || col > image_.ncols()) return false;
    image_.columns[col - 1].type.MScaleType = s;
    return true;
  }
  bool identifier(Integer col, Integer slot, const TString& text) {
    image_.columns[col - 1].type.IDs[slot] = text;
    return true;
  }
  bool cell(Integer col, Integer row, Double x, Byte state) {
    if (col > image_.ncols() || row > image_.nrows()) return false;
    const Int64 place = Int64{col - 1} * image_.nrows() + row;
    if (!mark(place, Int64{image_.ncols()} * image_.nrows())) return false;
    image_.cells[col - 1][row - 1] = x;
    image_.states[col - 1][row - 1] = state;
    return true;
  }
  bool begin_list(TDTxmlTags tag) {
    if (!sized_ || (tag == xmlDataCells && cells_done_)) return false;
    const bool columns = tag == xmlColNames || tag == xmlColAttrib;
    expected_ = tag == xmlDataCells ? Int64{image_.ncols()} * image_.nrows()
                : columns           ? image_.ncols()
                                    : image_.nrows();
    seen_.assign(static_cast<std::size_t>(expected_), false);
    return true;
  }
  bool end_list(TDTxmlTags tag) {
    cells_done_ = cells_done_ || tag == xmlDataCells;
    return expected_ == 0;
  }

 private:
  bool mark(Int64 place, Int64 n) {
    if (place > n || seen_[static_cast<std::size_t>(place - 1)]) return false;
    seen_[static_cast<std::size_t>(place - 1)] = true;
    --expected_;
    return true;
  }
  TTableImage image_;
  Int64 bytes_;
  bool sized_ = false, cells_done_ = false;
  Int64 expected_ = 0;
  std::vector<bool> seen_;
};

}  // namespace ZOR_datatable

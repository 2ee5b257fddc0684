#include <algorithm>
#include <cmath>
#include <cstring>

#include "zor/base/stringl_text.h"
#include "zor/datatable/data_table.h"
#include "zor/datatable/xml_builder_internal.h"
#include "zor/matrices/cell_text_internal.h"
#include "zor/runtime/number_reader.h"
#include "zor/runtime/number_writer.h"

namespace ZOR_datatable {

namespace {

using zor::detail::to_size;

constexpr std::string_view kNaN = "NAN", kInf = "INF", kMinusInf = "-INF";

/// A table as the target of elements that are processed by hand.
struct TableTarget {
  TDataTable& table;
  bool size(Integer cols, Integer rows) const {
    if (!zor::detail::may_hold_table(cols, rows, 0)) return false;
    table.Resize(cols, rows);
    return true;
  }
  bool comment(const TString& text) const {
    table.SetComment(text);
    return true;
  }
  bool name(TDims dim, Integer place, const TString& text) const {
    dim == dimCols ? table.SetColName(place, text) : table.SetRowName(place, text);
    return place <= (dim == dimCols ? table.NrOfColumns() : table.NrOfRows());
  }
  bool attribute(TDims dim, Integer place, Integer n) const {
    dim == dimCols ? table.SetColAttrib(place, n) : table.SetRowAttrib(place, n);
    return place <= (dim == dimCols ? table.NrOfColumns() : table.NrOfRows());
  }
  bool scale(Integer col, TMScaleType s) const {
    table.SetMScaleType(col, s);
    return col <= table.NrOfColumns();
  }
  bool identifier(Integer col, Integer slot, const TString& text) const {
    table.SetNominalID(col, slot, text);
    return col >= 1 && col <= table.NrOfColumns();
  }
  bool cell(Integer col, Integer row, Double x, Byte state) const {
    table.SetElem(col, row, x);
    table.SetCellState(col, row, state);
    return col <= table.NrOfColumns() && row <= table.NrOfRows();
  }
  bool begin_list(TDTxmlTags) const { return true; }
  bool end_list(TDTxmlTags) const { return true; }
};

/// Takes the cells that are written as the library writes them, and says where it stopped.
std::size_t take_plain_cells(std::string_view text, std::size_t at, XmlImage& target) {
  const char* p = text.data() + at;
  const char* const end = text.data() + text.size();
  const auto left = [&] { return std::string_view(p, static_cast<std::size_t>(end - p)); };
  const auto take = [&](std::string_view word) {
    if (left().size() < word.size() || std::memcmp(p, word.data(), word.size()) != 0) return false;
    p += word.size();
    return true;
  };
  const auto integer = [&](Integer& n) {
    Int64 value = 0;
    const char* const begin = p;
    while (p != end && *p >= '0' && *p <= '9' && value <= zor::detail::kMaxInteger) value = value * 10 + (*p++ - '0');
    n = static_cast<Integer>(value);
    return p != begin && value <= zor::detail::kMaxInteger;
  };
  std::size_t done = at;
  for (;;) {
    while (p != end && (*p == '\n' || *p == ' ')) ++p;
    Integer col = 0, row = 0, state = 0;
    if (!take("<cell ix=\"") || !integer(col) || !take("\" iy=\"") || !integer(row) || !take("\"")) return done;
    if (take(" st=\"") && (!integer(state) || state > 255 || !take("\""))) return done;
    if (!take(">")) return done;
    const auto number = zor::detail::parse_number(left());
    p += number.end;
    if (!number || !take("</cell>") || col < 1 || row < 1) return done;
    if (!target.cell(col, row, number.value, static_cast<Byte>(state))) return done;
    done = static_cast<std::size_t>(p - text.data());
  }
}

/// The opening tag of the table with this id.
std::optional<zor::detail::XmlTag> find_table(std::string_view text, const TString& id) {
  std::size_t at = 0;
  while (const auto tag = zor::detail::next_xml_tag(text, at)) {
    at = tag->end;
    if (tag->name != kTableXmlTags[xmlDataTableId]) continue;
    const auto found = zor::detail::xml_attribute(tag->attributes, "id");
    if (id.empty() || TString(found ? zor::detail::xml_unescaped(*found) : std::string()) == id) return tag;
  }
  return {};
}

}  // namespace

TDTxmlTags tag_of_name(std::string_view name) noexcept {
  const auto* const found = std::find(std::begin(kTableXmlTags), std::end(kTableXmlTags) - 1, name);
  return static_cast<TDTxmlTags>(found - std::begin(kTableXmlTags));
}

bool read_xml_number(std::string_view text, Double& x) noexcept {
  if (text == kNaN || text == kInf || text == kMinusInf) {
    x = text == kNaN ? std::nan("") : text == kInf ? HUGE_VAL : -HUGE_VAL;
    return true;
  }
  const auto number = zor::detail::parse_number(text);
  x = number.value;
  return number && number.end == text.size();
}

bool XmlImage::comment(const TString& text) {
  image_.comment = ZOR_stringl::RemoveControlChars(text);
  return true;
}

// The cells, which are most of a document, are taken in place; all else element by element.
Boolean TDataTable::read_xml(std::string_view text, const TString& id, std::size_t& taken) {
  const auto head = find_table(text, id);
  if (!head || head->empty) return false;
  XmlImage target(text.size());
  std::size_t at = head->end;
  for (;;) {
    const auto tag = zor::detail::next_xml_tag(text, at);
    if (!tag) return false;
    if (tag->name == kTableXmlTags[xmlDataTableEndId]) {
      at = tag->end;
      break;
    }
    const TDTxmlTags kind = tag_of_name(tag->name);
    if (kind == xmlDataCells && !tag->empty) {
      at = tag->end;
      if (!target.begin_list(kind)) return false;
      for (;;) {
        at = take_plain_cells(text, at, target);
        const auto next = zor::detail::next_xml_tag(text, at);
        if (!next) return false;
        at = next->end;
        if (next->name == "/datacells") break;
        const auto cell = zor::detail::next_xml_element(text, next->begin);
        if (!cell || cell->name != kTableXmlTags[xmlCellID] ||
            process_xml(target, xmlCellID, cell->attributes, cell->content, kTableXmlTags[kind], 0) != kXmlGoOn)
          return false;
        at = cell->end;
      }
      if (!target.end_list(kind)) return false;
      continue;
    }
    const auto element = zor::detail::next_xml_element(text, tag->begin);
    if (!element || kind < xmlComment) return false;
    if (process_xml(target, kind, element->attributes, element->content, kTableXmlTags[xmlDataTableId], 0) != kXmlGoOn)
      return false;
    at = element->end;
  }
  if (!target.complete()) return false;
  commit(target.image());
  taken = at;
  return true;
}

Integer TDataTable::ProcessXmlTag(TDTxmlTags Tag, const TString& Attr, const TString& Content, const TString& Extra,
                                  Integer Count) {
  TableTarget target{*this};
  return process_xml(target, Tag, Attr.utf8(), Content.utf8(), Extra.utf8(), Count);
}

Boolean TDataTable::ReadFromOpenXMLFile(TTextFile& F, const TString& DataID) {
  const Int64 start = F.Position();
  std::string rest;
  rest.reserve(to_size(F.Remaining()));
  for (int c = F.read_byte(); c >= 0; c = F.read_byte()) rest += static_cast<char>(c);
  std::size_t taken = 0;
  const Boolean found = read_xml(rest, DataID, taken);
  F.SetPosition(start + static_cast<Int64>(taken));
  return found;
}

Boolean TDataTable::ReadFromXMLStream(TStream* InStream, const TString& DataID) {
  if (!InStream) return false;
  const Int64 start = InStream->Position();
  const std::string rest = zor::detail::rest_of(*InStream);
  std::size_t taken = 0;
  const Boolean found = read_xml(rest, DataID, taken);
  InStream->SetPosition(start + static_cast<Int64>(taken));
  return found;
}

Boolean TDataTable::LoadFromXMLFile(const TString& FName, const TString& DataID) {
  TMemoryStream bytes;
  try {
    bytes.LoadFromFile(FName);
  } catch (const EInOutError&) {
    return false;
  }
  std::size_t taken = 0;
  return read_xml({reinterpret_cast<const char*>(bytes.Bytes().data()), bytes.Bytes().size()}, DataID, taken);
}

Boolean TDataTable::ReadFromXMLString(const TString& InString, Integer& StartAt, const TString& DataID) {
  const Integer start = std::max(StartAt, 1);
  const auto units = InString.units();
  const std::string text = TString(units.substr(std::min(to_size(start - 1), units.size()))).utf8();
  std::size_t taken = 0;
  const Boolean found = read_xml(text, DataID, taken);
  if (found) StartAt = start + TString(std::string_view(text).substr(0, taken)).Length();
  return found;
}

void TDataTable::WriteToOpenXMLFile(TTextFile& F, Boolean CreateHeader, Integer Precision,
                                    const TString& DataID) const {
  using zor::detail::xml_escaped;
  const auto number = [](Int64 n) { return std::to_string(n); };
  if (CreateHeader) F.Write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
  F.Write("<datatable id=\"" + xml_escaped(DataID.utf8()) + "\">\n");
  F.Write("<comment>" + xml_escaped(Comment().utf8()) + "</comment>\n");
  F.Write("<size cols=\"" + number(NrOfColumns()) + "\" rows=\"" + number(NrOfRows()) + "\"></size>\n");
  const auto list = [&](TDTxmlTags tag, const auto& records, auto write_text) {
    const std::string name(kTableXmlTags[tag]);
    const std::string_view item = kTableXmlTags[tag == xmlColNames || tag == xmlColAttrib ? xmlColId : xmlRowId];
    F.Write("<" + name + ">");
    for (std::size_t i = 0; i < records.size(); ++i) {
      F.Write("<");
      F.Write(item);
      F.Write(" ix=\"");
      F.WriteInteger(static_cast<Int64>(i + 1));
      F.Write("\">");
      write_text(records[i]);
      F.Write("</");
      F.Write(item);
      F.Write(">");
    }
    F.Write("</" + name + ">\n");
  };
  const auto name = [&](const auto& record) {
    const std::string_view text = record.name.view();
    const bool plain = std::ranges::all_of(text, [](char c) {
      return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-';
    });
    plain ? F.Write(text) : F.Write(xml_escaped(text));
  };
  const auto attribute = [&](const auto& record) { F.WriteInteger(record.attribute); };
  list(xmlColNames, FFrame.columns, name);
  list(xmlRowNames, FFrame.rows, name);
  list(xmlColAttrib, FFrame.columns, attribute);
  list(xmlRowAttrib, FFrame.rows, attribute);
  for (Integer c = 0; c < NrOfColumns(); ++c) {
    const TVTypeSpec& type = FFrame.columns[c].type;
    F.Write("<vardef ix=\"" + number(c + 1) + "\" scale=\"" + std::string(MScaleTypeNames[type.MScaleType]) + "\">");
    for (Integer slot = 0; slot < kNominalIDs; ++slot) {
      if (type.IDs[slot].empty()) continue;
      F.Write("<idf ord=\"" + number(slot) + "\">" + xml_escaped(type.IDs[slot].view()) + "</idf>");
    }
    F.Write("</vardef>\n");
  }
  F.Write("<datacells>\n");
  constexpr Integer kShortest = 15;
  const zor::detail::CellFormat format(Precision >= 1 && Precision < kShortest ? Precision : kShortest, -1);
  for (Integer c = 1; c <= NrOfColumns(); ++c) {
    const std::string before = "<cell ix=\"" + number(c) + "\" iy=\"";
    for (Integer r = 1; r <= NrOfRows(); ++r) {
      constexpr std::size_t kTags = 64;
      char* const start = F.room(before.size() + kTags + 2 * zor::detail::kNumberBuffer);
      char* out = start;
      const auto put = [&out](std::string_view text) {
        std::memcpy(out, text.data(), text.size());
        out += text.size();
      };
      put(before);
      out += zor::detail::format_integer(out, r);
      if (const Byte state = CellState(c, r); state != 0) {
        put("\" st=\"");
        out += zor::detail::format_integer(out, state);
      }
      put("\">");
      const Double x = NumericData->GetVal(c, r);
      if (std::isfinite(x)) {
        out += format.write(out, x);
      } else {
        put(std::isnan(x) ? kNaN : x > 0 ? kInf : kMinusInf);
      }
      put("</cell>\n");
      F.took(static_cast<std::size_t>(out - start));
    }
  }
  F.Write("</datacells>\n</datatable>\n");
}

void TDataTable::WriteToXMLStream(TStream* OutStream, Boolean CreateHeader, Integer Precision,
                                  const TString& DataID) const {
  if (!OutStream) return;
  TTextFile file;
  file.AssignStream(OutStream);
  file.Rewrite();
  WriteToOpenXMLFile(file, CreateHeader, Precision, DataID);
  file.Close();
}

void TDataTable::SaveAsXMLFile(const TString& FName, Integer Precision, const TString& DataID) const {
  TTextFile file(FName);
  file.Replace();
  WriteToOpenXMLFile(file, true, Precision, DataID);
  file.Close();
}

}  // namespace ZOR_datatable

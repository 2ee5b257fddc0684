#include <algorithm>

#include "zor/base/stringl_text.h"
#include "zor/datatable/data_table.h"

namespace ZOR_datatable {

namespace {

Integer code_points(const TDTNameStr& name) noexcept {
  return static_cast<Integer>(
      std::ranges::count_if(name.view(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

template <class Record>
Integer longest_name(const TDynArray<Record>& records) noexcept {
  Integer longest = 0;
  for (const Record& record : records) longest = std::max(longest, code_points(record.name));
  return longest;
}

template <class Record>
void set_attributes(TDynArray<Record>& records, Integer attribute, Cardinal mask) noexcept {
  for (Record& record : records) {
    const Cardinal bits = (static_cast<Cardinal>(record.attribute) & ~mask) | (static_cast<Cardinal>(attribute) & mask);
    record.attribute = static_cast<Integer>(bits);
  }
}

}  // namespace

TDTNameStr TTableModel::ColName(Integer ColNr) const noexcept {
  return has_column(ColNr) ? FFrame.columns[ColNr - 1].name : TDTNameStr();
}

void TTableModel::SetColName(Integer ColNr, const TDTNameStr& name) {
  if (!has_column(ColNr)) return;
  FFrame.columns[ColNr - 1].name = name;
  ChangedNames();
}

TDTNameStr TTableModel::RowName(Integer RowNr) const noexcept {
  return has_row(RowNr) ? FFrame.rows[RowNr - 1].name : TDTNameStr();
}

void TTableModel::SetRowName(Integer RowNr, const TDTNameStr& name) {
  if (!has_row(RowNr)) return;
  FFrame.rows[RowNr - 1].name = name;
  ChangedNames();
}

Integer TTableModel::ColAttrib(Integer ColNr) const noexcept {
  return has_column(ColNr) ? FFrame.columns[ColNr - 1].attribute : 0;
}

void TTableModel::SetColAttrib(Integer ColNr, Integer Attrib) {
  if (!has_column(ColNr)) return;
  FFrame.columns[ColNr - 1].attribute = Attrib;
  ChangedAttrib();
}

Integer TTableModel::RowAttrib(Integer RowNr) const noexcept {
  return has_row(RowNr) ? FFrame.rows[RowNr - 1].attribute : 0;
}

void TTableModel::SetRowAttrib(Integer RowNr, Integer Attrib) {
  if (!has_row(RowNr)) return;
  FFrame.rows[RowNr - 1].attribute = Attrib;
  ChangedAttrib();
}

void TTableModel::SetRowAttributes(Integer Attrib, Cardinal Mask) {
  set_attributes(FFrame.rows, Attrib, Mask);
  ChangedAttrib();
}

void TTableModel::SetColAttributes(Integer Attrib, Cardinal Mask) {
  set_attributes(FFrame.columns, Attrib, Mask);
  ChangedAttrib();
}

Integer TTableModel::MaxRowNameLength() const noexcept { return longest_name(FFrame.rows); }
Integer TTableModel::MaxColNameLength() const noexcept { return longest_name(FFrame.columns); }

void TTableModel::SetComment(const TString& text) {
  FFrame.comment = ZOR_stringl::RemoveControlChars(text);
  ChangedSetup();
}

}  // namespace ZOR_datatable

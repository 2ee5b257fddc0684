#include "zor/datatable/table_image.h"

#include <algorithm>

#include "zor/runtime/number_writer.h"
#include "zor/runtime/text.h"

namespace ZOR_datatable {

EZORDataTableError::~EZORDataTableError() = default;

TTableImage::TTableImage(Integer column_count, Integer row_count) {
  zor::detail::set_length(columns, column_count);
  zor::detail::set_length(rows, row_count);
  SetLength(states, column_count, row_count);
  if (column_count > 0 && row_count > 0) SetLength(cells, column_count, row_count);
}

}  // namespace ZOR_datatable

namespace zor::detail {

using namespace ZOR_datatable;

namespace {

template <class Record>
void set_record_length(TDynArray<Record>& records, Integer n, char kind) {
  const auto kept = std::min(Length(records), n);
  TDynArray<Record> made = records;
  SetLength(made, n);
  for (Integer i = kept; i < n; ++i) {
    made[i] = Record();
    made[i].name = default_name(kind, i + 1);
  }
  records.swap(made);
}

bool is_ascii(std::string_view text) noexcept {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

TDTNameStr default_name(char kind, Integer number) noexcept {
  char text[kNumberBuffer] = {kind, '-'};
  return std::string_view(text, 2 + format_integer(text + 2, number));
}

void set_length(TDynArray<TColumnRecord>& columns, Integer n) { set_record_length(columns, n, 'C'); }
void set_length(TDynArray<TRowRecord>& rows, Integer n) { set_record_length(rows, n, 'R'); }

bool same_text(std::string_view a, std::string_view b) {
  if (a == b) return true;
  if (!is_ascii(a) || !is_ascii(b)) return equal_ignoring_case(TString(a).units(), TString(b).units());
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return std::ranges::equal(a, b, {}, lower, lower);
}

Integer find_identifier(const TVTypeSpec& type, const TNominalIDStr& id, bool ignore_case) {
  if (id.empty()) return -1;
  for (Integer slot = 0; slot < kNominalIDs; ++slot) {
    if (ignore_case ? same_text(type.IDs[slot].view(), id.view()) : type.IDs[slot] == id) return slot;
  }
  return -1;
}

Integer free_slot(const TVTypeSpec& type) noexcept {
  const auto* const found = std::ranges::find_if(type.IDs, &TNominalIDStr::empty);
  return found == std::end(type.IDs) ? -1 : static_cast<Integer>(found - type.IDs);
}

Integer find_or_add_identifier(TVTypeSpec& type, const TNominalIDStr& id) {
  if (id.empty()) return -1;
  Integer slot = find_identifier(type, id, true);
  if (slot < 0 && (slot = free_slot(type)) >= 0) type.IDs[slot] = id;
  return slot;
}

void copy_visible_type(const TVTypeSpec& from, TVTypeSpec& to) noexcept {
  if (is_categorial(from.MScaleType)) {
    to = from;
  } else {
    const TMScaleType scale = from.MScaleType;  // both may be one record
    to = TVTypeSpec();
    to.MScaleType = scale;
  }
}

}  // namespace zor::detail

#include <algorithm>
#include <cmath>

#include "zor/datatable/data_table.h"
#include "zor/runtime/number_writer.h"
#include "zor/runtime/numbers.h"

namespace ZOR_datatable {

namespace {

bool is_slot(Integer ordinal) noexcept { return ordinal >= 0 && ordinal < kNominalIDs; }

}  // namespace

TMScaleType TTableModel::MScaleType(Integer ColNr) const noexcept {
  return has_column(ColNr) ? FFrame.columns[ColNr - 1].type.MScaleType : stUnknown;
}

void TTableModel::SetMScaleType(Integer ColNr, TMScaleType scale) {
  if (!has_column(ColNr) || scale > stRatio) return;
  FFrame.columns[ColNr - 1].type.MScaleType = scale;
  ChangedSetup();
}

TNominalIDStr TTableModel::ElemNominal(Integer ACol, Integer ARow) const {
  if (!contains(ACol, ARow) || !column_is_categorial(ACol)) return {};
  const Double value = NumericData->GetVal(ACol, ARow);
  if (!std::isfinite(value)) return {};
  const Int64 ordinal = ZOR_runtime::Round(value);
  if (ordinal >= 0 && ordinal < kNominalIDs) return FFrame.columns[ACol - 1].type.IDs[ordinal];
  char text[zor::detail::kNumberBuffer];
  return std::string_view(text, zor::detail::format_integer(text, ordinal));
}

void TTableModel::SetElemNominal(Integer ACol, Integer ARow, const TNominalIDStr& id) {
  if (!contains(ACol, ARow) || id.empty()) return;
  const Integer slot = zor::detail::find_or_add_identifier(FFrame.columns[ACol - 1].type, id);
  if (slot < 0) zor::detail::Fail<EZORDataTableError>(*this, "number of available nominal values exceeded");
  store_cell(ACol, ARow, slot);
  ChangedData();
}

Integer TTableModel::OrdinalOfNominalID(Integer Col, const TNominalIDStr& ID, Boolean IgnoreCase) const {
  if (!has_column(Col) || !column_is_categorial(Col)) return -1;
  return zor::detail::find_identifier(FFrame.columns[Col - 1].type, ID, IgnoreCase);
}

Integer TTableModel::AddNominalID(Integer Col, const TNominalIDStr& MScaleID) {
  if (!has_column(Col) || MScaleID.empty()) return -1;
  const Integer found = OrdinalOfNominalID(Col, MScaleID, true);
  if (found >= 0) return found;
  TVTypeSpec& type = FFrame.columns[Col - 1].type;
  const Integer slot = zor::detail::free_slot(type);
  if (slot < 0) return -1;
  type.MScaleType = stNominal;
  type.IDs[slot] = MScaleID;
  ChangedSetup();
  return slot;
}

void TTableModel::ClearNominalIDs(Integer Col) {
  if (!has_column(Col)) return;
  std::ranges::fill(FFrame.columns[Col - 1].type.IDs, TNominalIDStr());
  ChangedSetup();
}

Integer TTableModel::CountNominalIDs(Integer Col) const noexcept {
  if (!has_column(Col)) return 0;
  const auto& slots = FFrame.columns[Col - 1].type.IDs;
  return kNominalIDs - static_cast<Integer>(std::ranges::count_if(slots, &TNominalIDStr::empty));
}

TNominalIDStr TTableModel::NominalID(Integer ColIx, Integer OrdVal) const noexcept {
  if (!has_column(ColIx) || !is_slot(OrdVal) || !column_is_categorial(ColIx)) return {};
  return FFrame.columns[ColIx - 1].type.IDs[OrdVal];
}

void TTableModel::SetNominalID(Integer ColIx, Integer OrdVal, const TNominalIDStr& id) {
  if (!has_column(ColIx) || !is_slot(OrdVal)) return;
  if (id.empty() || column_is_categorial(ColIx)) FFrame.columns[ColIx - 1].type.IDs[OrdVal] = id;
  ChangedSetup();
}

}  // namespace ZOR_datatable

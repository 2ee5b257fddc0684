#include <algorithm>

#include "zor/datatable/data_table.h"

namespace ZOR_datatable {

namespace {

bool same_identifiers(const TDynArray<TColumnRecord>& columns) {
  return std::ranges::all_of(
      columns, [&](const TColumnRecord& column) { return std::ranges::equal(column.type.IDs, columns[0].type.IDs); });
}

}  // namespace

void TDataTable::Serialize(Boolean ColHeadsAsVar, Boolean IncludeColRowNumbers) {
  const Integer width = 1 + (ColHeadsAsVar ? 1 : 0) + (IncludeColRowNumbers ? 2 : 0);
  const Integer old_columns = NrOfColumns(), old_rows = NrOfRows();
  const Int64 cells = Int64{old_columns} * old_rows;
  if (cells > zor::detail::kMaxInteger) zor::detail::Fail<EZORDataTableError>(*this, "not enough memory on heap");
  {
    const TableMute mute(*this, {TableNotice::kData});
    const TMScaleType highest = FindHighestMLevel(0, 0);
    TDataTable old;
    old.Clone(this);
    Resize(width, static_cast<Integer>(cells));
    // Nothing of the old columns may show through in the new ones.
    for (Integer c = 0; c < std::min(width, NrOfColumns()); ++c) {
      FFrame.columns[c] = TColumnRecord();
      FFrame.columns[c].name = zor::detail::default_name('C', c + 1);
    }
    if (is_categorial(highest) && old_columns > 0 && same_identifiers(old.FFrame.columns) && has_column(width))
      std::ranges::copy(old.FFrame.columns[0].type.IDs, FFrame.columns[width - 1].type.IDs);
    if (ColHeadsAsVar) {
      ClearNominalIDs(1);
      for (Integer c = 1; c <= old_columns; ++c)
        AddNominalID(1, std::to_string(c) + ":" + std::string(old.ColName(c).view()));
      SetColName(1, "(column)");
    }
    if (IncludeColRowNumbers) {
      SetColName(width - 2, "(col. index)");
      SetColName(width - 1, "(row index)");
    }
    SetColName(width, "(data)");
    SetMScaleType(width, highest);
    Integer k = 0;
    for (Integer c = 1; c <= old_columns; ++c) {
      for (Integer r = 1; r <= old_rows; ++r) {
        ++k;
        if (ColHeadsAsVar) store_cell(1, k, c);
        if (IncludeColRowNumbers) {
          store_cell(width - 2, k, c);
          store_cell(width - 1, k, r);
        }
        store_cell(width, k, old.GetElem(c, r));
        SetRowName(k, old.RowName(r));
        SetRowAttrib(k, old.RowAttrib(r));
        SetCellState(width, k, old.CellState(c, r));
      }
    }
  }
  ChangedSetup();
}

}  // namespace ZOR_datatable

#include <algorithm>

#include "zor/datatable/data_table.h"
#include "zor/runtime/numbers.h"

namespace ZOR_datatable {

void TTableModel::Assign(const TPersistent* Source) {
  const auto* const from = dynamic_cast<const TTableModel*>(Source);
  if (!from) return TComponent::Assign(Source);
  if (from == this) return;
  TTableFrame frame;
  frame.comment = from->FFrame.comment;
  frame.columns = CopyOf(from->FFrame.columns);
  frame.rows = CopyOf(from->FFrame.rows);
  frame.states = from->FFrame.states;
  SetLength(frame.states, from->NrOfColumns(), from->NrOfRows());
  // The matrix takes the other one's handlers too, which report to the other table.
  try {
    NumericData->Assign(from->NumericData);
  } catch (...) {
    bind_matrix();
    throw;
  }
  bind_matrix();
  std::swap(FFrame, frame);
  FSortIncludeHd = from->FSortIncludeHd;
  OnChange = from->OnChange;
  OnChangeSetup = from->OnChangeSetup;
  OnChangeNames = from->OnChangeNames;
  OnChangeCellState = from->OnChangeCellState;
  OnChangeAttrib = from->OnChangeAttrib;
  OnPercentDone = from->OnPercentDone;
  OnResize = from->OnResize;
  OnSortExchange = from->OnSortExchange;
  OnExportText = from->OnExportText;
}

void TTableModel::AssignTo(TPersistent* Dest) const {
  if (auto* const table = dynamic_cast<TTableModel*>(Dest)) {
    table->Assign(this);
  } else {
    TComponent::AssignTo(Dest);
  }
}

void TTableModel::Clone(const TDataTable* ExtTab) {
  if (!ExtTab) return;
  const Integer old_columns = NrOfColumns(), old_rows = NrOfRows();
  {
    const TableMute mute(*this, {TableNotice::kData, TableNotice::kCellStates, TableNotice::kSetup, TableNotice::kNames,
                                 TableNotice::kAttrib});
    Resize(ExtTab->NrOfColumns(), ExtTab->NrOfRows());
    FFrame.comment = ExtTab->FFrame.comment;
    // A handler of OnResize may have changed either size.
    const Integer columns = std::min(NrOfColumns(), ExtTab->NrOfColumns());
    for (Integer c = 1; c <= columns; ++c) {
      const TColumnRecord& from = ExtTab->FFrame.columns[c - 1];
      TColumnRecord& to = FFrame.columns[c - 1];
      to.name = from.name;
      to.attribute = from.attribute;
      copy_cells(*ExtTab, c, c, 1, 1, std::min(NrOfRows(), ExtTab->NrOfRows()));
      zor::detail::copy_visible_type(from.type, to.type);
    }
    std::copy_n(ExtTab->FFrame.rows.begin(), std::min(FFrame.rows.size(), ExtTab->FFrame.rows.size()),
                FFrame.rows.begin());
  }
  notify_contents();
  notify_resized(old_columns, old_rows);
}

}  // namespace ZOR_datatable

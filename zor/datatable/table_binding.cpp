#include "zor/datatable/data_table.h"

namespace ZOR_datatable {

void TTableModel::bind_matrix() {
  NumericData->OnChange = FHook;
  NumericData->OnSortExchange = FSortHook;
}

// Two tables may have held one matrix: only hooks of this one are taken off.
void TTableModel::release_matrix() noexcept {
  if (!FExtMatAssigned) {
    delete NumericData;
    return;
  }
  if (NumericData->OnChange == FHook) NumericData->OnChange = nullptr;
  if (owns_hook()) NumericData->OnSortExchange = nullptr;
}

void TTableModel::DataHasChanged([[maybe_unused]] TObject* Sender) { ChangedData(); }

void TTableModel::AssignAnotherDataMatrix(TMatrix* NewDMat) {
  if (!NewDMat) return;
  const Integer old_columns = NrOfColumns(), old_rows = NrOfRows();
  {
    const TableMute mute(*this, {TableNotice::kData, TableNotice::kSetup});
    TTableFrame frame = resized_frame(NewDMat->NrOfColumns(), NewDMat->NrOfRows());
    if (NewDMat != NumericData) {
      release_matrix();
      NumericData = NewDMat;
      FExtMatAssigned = true;
    }
    bind_matrix();
    TDouble2DArray same_cells;
    replace(frame, same_cells);
    for (TColumnRecord& column : FFrame.columns) column.type.MScaleType = stInterval;
    notify_resized(old_columns, old_rows);
  }
  ChangedData();
  ChangedSetup();
  ChangedNames();
  ChangedAttrib();
  ChangedCellStates();
}

}  // namespace ZOR_datatable

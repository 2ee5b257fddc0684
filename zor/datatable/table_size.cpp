#include <algorithm>

#include "zor/datatable/data_table.h"
#include "zor/matrices/heap_guard_internal.h"
#include "zor/matrices/matrix_cells_internal.h"

namespace ZOR_datatable {

namespace {

// (0, 0) means all; of nothing the range is (1, 0), so that no loop runs.
Integer repair_range(Integer& lo, Integer& hi, Integer n, bool reversal_counts) noexcept {
  if (n == 0 || (lo == 0 && hi == 0)) {
    const Integer moved = lo == 0 && hi == 0 ? 0 : kRangeClamped;
    lo = 1;
    hi = n;
    return moved;
  }
  const Integer low = std::clamp(lo, 1, n), high = std::clamp(hi, 1, n);
  const bool moved = low != lo || high != hi;
  lo = std::min(low, high);
  hi = std::max(low, high);
  return moved || (reversal_counts && low > high) ? kRangeClamped : 0;
}

}  // namespace

Integer TTableModel::MakeValidColRange(Integer& Lo, Integer& Hi) const noexcept {
  return repair_range(Lo, Hi, NrOfColumns(), false);
}

Integer TTableModel::MakeValidRowRange(Integer& Lo, Integer& Hi) const noexcept {
  return repair_range(Lo, Hi, NrOfRows(), true);
}

void TTableModel::Resize(Integer NrCols, Integer NrRows) {
  if (NrCols < 0 || NrRows < 0 || (NrCols == NrOfColumns() && NrRows == NrOfRows())) return;
  TDouble2DArray cells = resized_cells(NrCols, NrRows);
  TTableFrame frame = resized_frame(NrCols, NrRows);
  NumericData->OnChange = FHook;
  replace(frame, cells);
}

void TTableModel::change_size(Integer columns, Integer rows) {
  if (columns < 0 || rows < 0 || (columns == NrOfColumns() && rows == NrOfRows())) return;
  TDouble2DArray cells = resized_cells(columns, rows);
  TTableFrame frame = resized_frame(columns, rows);
  replace(frame, cells);
}

TTableFrame TTableModel::resized_frame(Integer columns, Integer rows) const {
  try {
    TTableFrame frame = FFrame;
    if (columns != NrOfColumns()) zor::detail::set_length(frame.columns, columns);
    if (rows != NrOfRows()) zor::detail::set_length(frame.rows, rows);
    SetLength(frame.states, columns, rows);
    return frame;
  } catch (...) {
    std::throw_with_nested(EZORDataTableError(zor::detail::component_message(*this, "not enough memory on heap")));
  }
}

// Numbers outside the size of the table do not come back: a matrix may still hold those of removed rows.
TDouble2DArray TTableModel::resized_cells(Integer columns, Integer rows) const {
  TDouble2DArray made;
  if (columns == 0 || rows == 0) return made;
  zor::detail::memory_guard(*NumericData, [&] {
    zor::detail::set_length_unset(made, zor::detail::to_size(columns), zor::detail::to_size(rows));
  });
  for (Integer c = 0; c < columns; ++c) {
    const std::span<const Double> old = ColumnView(c + 1);
    const auto kept = std::min(old.size(), made[c].size());
    std::fill(std::copy_n(old.begin(), kept, made[c].begin()), made[c].end(), 0.0);
  }
  return made;
}

void TTableModel::replace(TTableFrame& frame, TDouble2DArray& cells) {
  const Integer old_columns = NrOfColumns(), old_rows = NrOfRows();
  std::swap(FFrame, frame);
  bool resized = false;
  if (!cells.empty()) {
    resized = NumericData->NrOfColumns() != Length(cells) || NumericData->NrOfRows() != Length(cells[0]);
    zor::detail::MatrixCells::swap(*NumericData, cells);
  }
  if (resized) NumericData->Resized();
  if (old_columns != NrOfColumns() || old_rows != NrOfRows()) notify_resized(old_columns, old_rows);
}

}  // namespace ZOR_datatable

#include <algorithm>

#include "zor/datatable/data_table.h"
#include "zor/runtime/numbers.h"

namespace ZOR_datatable {

using zor::detail::to_size;

// Rows may lie outside of either table; a stretch may overlap itself.
void TTableModel::copy_cells(const TTableModel& from, Integer src_col, Integer dst_col, Int64 src_row, Int64 dst_row,
                             Int64 count) {
  if (!has_column(dst_col) || !from.has_column(src_col)) return;
  const Int64 skip = std::max<Int64>({0, 1 - dst_row, 1 - src_row});
  count = std::min({count, from.NrOfRows() - src_row + 1, NrOfRows() - dst_row + 1}) - skip;
  if (count <= 0) return;
  const std::size_t source = to_size(src_row + skip - 1), target = to_size(dst_row + skip - 1), n = to_size(count);
  const std::span<const Byte> states = from.column_states(src_col).subspan(source, n);
  const std::span<Byte> to_states = column_states(dst_col).subspan(target, n);
  const auto move = [](auto x, auto y) {
    if (x.data() < y.data()) {
      std::copy_backward(x.begin(), x.end(), y.end());
    } else {
      std::copy(x.begin(), x.end(), y.begin());
    }
  };
  move(states, to_states);
  const std::span<const Double> all = from.ColumnView(src_col);
  const std::span<Double> to_all = column_cells(dst_col);
  const std::size_t room = target < to_all.size() ? std::min(n, to_all.size() - target) : 0;
  const std::size_t there = source < all.size() ? std::min(room, all.size() - source) : 0;
  if (room == 0) return;
  const bool round = from.column_is_categorial(src_col);
  const std::span<Double> to = to_all.subspan(target, room);
  if (there > 0) move(all.subspan(source, there), to.first(there));
  std::ranges::fill(to.subspan(there), 0.0);
  if (!round) return;
  for (Double& x : to.first(there)) x = zor::detail::round_to_even(x);
}

void TTableEdits::CopyFrom(const TDataTable* ExtTab, Integer SourceColLo, Integer SourceRowLo, Integer SourceColHi,
                           Integer SourceRowHi, Integer DestCol, Integer DestRow) {
  if (!ExtTab) return;
  const auto clip = [](Integer& lo, Integer& hi, Integer n) {
    lo = std::min(std::max(lo, 1), n), hi = std::min(std::max(hi, 1), n);
    if (lo > hi) std::swap(lo, hi);
  };
  if (ExtTab->NrOfColumns() > 0 && ExtTab->NrOfRows() > 0) {
    clip(SourceColLo, SourceColHi, ExtTab->NrOfColumns());
    clip(SourceRowLo, SourceRowHi, ExtTab->NrOfRows());
    const Int64 shift = Int64{DestCol} - SourceColLo, height = Int64{SourceRowHi} - SourceRowLo + 1;
    // Columns that exist on both sides, from right to left where a column moves right within one table.
    const Int64 lo = std::max<Int64>(SourceColLo, 1 - shift), hi = std::min<Int64>(SourceColHi, NrOfColumns() - shift);
    for (Int64 i = 0; i <= hi - lo; ++i) {
      const Int64 c = shift > 0 ? hi - i : lo + i;
      copy_cells(*ExtTab, static_cast<Integer>(c), static_cast<Integer>(c + shift), SourceRowLo, DestRow, height);
    }
  }
  ChangedData();
  ChangedCellStates();
}

Integer TTableEdits::CopyColumnFrom(const TDataTable* ExtTab, Integer SrcCol, Integer DestCol) {
  if (!ExtTab) return kNoTable;
  if (!has_column(DestCol)) return kNoTargetColumn;
  if (!ExtTab->has_column(SrcCol)) return kNoSourceColumn;
  const TColumnRecord& from = ExtTab->FFrame.columns[SrcCol - 1];
  TColumnRecord& to = FFrame.columns[DestCol - 1];
  const bool other_height = ExtTab->NrOfRows() != NrOfRows();
  copy_cells(*ExtTab, SrcCol, DestCol, 1, 1, std::min(ExtTab->NrOfRows(), NrOfRows()));
  to.name = from.name;
  to.attribute = from.attribute;
  zor::detail::copy_visible_type(from.type, to.type);
  notify_contents();
  return other_height ? kOtherHeight : 0;
}

Boolean TTableEdits::CopyCellStatesFrom(const TDataTable* ExtTab) {
  if (!ExtTab || ExtTab->NrOfColumns() != NrOfColumns() || ExtTab->NrOfRows() != NrOfRows()) return false;
  for (Integer c = 1; c <= NrOfColumns(); ++c) std::ranges::copy(ExtTab->column_states(c), column_states(c).begin());
  ChangedCellStates();
  return true;
}

}  // namespace ZOR_datatable

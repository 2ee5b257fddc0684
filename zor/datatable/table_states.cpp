#include <algorithm>

#include "zor/datatable/data_table.h"

namespace ZOR_datatable {

using zor::detail::to_size;

template <class Change>
void TTableEdits::change_states(Range cols, Range rows, Change change) {
  for (Integer c = cols.lo; c <= cols.hi; ++c) {
    for (Byte& state : column_states(c).subspan(to_size(rows.lo - 1), rows.size()))
      state = static_cast<Byte>(change(unsigned{state}));
  }
  ChangedCellStates();
}

void TTableEdits::SetAllCellStates(Byte CellState) {
  change_states(columns(0, 0), rows(0, 0), [=](unsigned) { return unsigned{CellState}; });
}

void TTableEdits::SetCellStates(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Byte CellState,
                                TLogicOp LogicOp) {
  if (LogicOp > loXorNot) return;
  const unsigned mask = LogicOp >= loAndNot ? ~unsigned{CellState} & 255u : CellState;
  const auto op = static_cast<unsigned>(LogicOp) % 3;
  change_states(columns(LowCol, HighCol), rows(LowRow, HighRow), [=](unsigned state) {
    return op == loAnd ? state & mask : op == loOr ? state | mask : state ^ mask;
  });
}

void TTableEdits::UnmarkAllCells() {
  change_states(columns(0, 0), rows(0, 0), [](unsigned state) { return state & ~unsigned{kCellMarkA | kCellMarkB}; });
}

void TTableEdits::InvertCellStates(Byte StateMask) {
  change_states(columns(0, 0), rows(0, 0), [=](unsigned state) { return state ^ StateMask; });
}

void TTableEdits::ExchangeMarkings() {
  change_states(columns(0, 0), rows(0, 0), [](unsigned state) {
    return (state & ~unsigned{kCellMarkA | kCellMarkB}) | (state & kCellMarkA) << 1 | (state & kCellMarkB) >> 1;
  });
}

Integer TTableEdits::FillMarkedCells(Double Value, Byte StateMask) {
  std::size_t count = 0;
  for (Integer c = 1; c <= NrOfColumns(); ++c) {
    const std::span<const Byte> states = column_states(c);
    for (std::size_t r = 0; r < states.size(); ++r) {
      if ((states[r] & StateMask) == 0) continue;
      store_cell(c, static_cast<Integer>(r + 1), Value);
      ++count;
    }
  }
  if (count > 0) ChangedData();
  return zor::detail::to_integer(count);
}

Boolean TTableEdits::IfRowHasCellState(Integer row, Byte CellState) const noexcept {
  return has_row(row) && NrOfColumns() > 0 && IfAnyCellHasCellState(0, row, 0, row, CellState);
}

Boolean TTableEdits::IfColHasCellState(Integer col, Byte CellState) const noexcept {
  return has_column(col) && IfAnyCellHasCellState(col, 0, col, 0, CellState);
}

Boolean TTableEdits::IfAnyCellHasCellState(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                           Byte CellState) const noexcept {
  const Range cols = columns(LowCol, HighCol), down = rows(LowRow, HighRow);
  for (Integer c = cols.lo; c <= cols.hi; ++c) {
    const auto states = column_states(c).subspan(to_size(down.lo - 1), down.size());
    if (std::ranges::any_of(states, [=](Byte state) { return (state & CellState) != 0; })) return true;
  }
  return false;
}

Integer TTableEdits::CountMarkedCellsInRow(Integer Row, Byte StateMask) const noexcept {
  Integer count = 0;
  for (Integer c = 1; c <= NrOfColumns(); ++c) count += (CellState(c, Row) & StateMask) != 0;
  return count;
}

Integer TTableEdits::CountMarkedCellsInColumn(Integer Col, Byte StateMask) const noexcept {
  const auto states = column_states(Col);
  return zor::detail::to_integer(
      static_cast<std::size_t>(std::ranges::count_if(states, [=](Byte state) { return (state & StateMask) != 0; })));
}

}  // namespace ZOR_datatable

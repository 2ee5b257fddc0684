#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "zor/datatable/data_table.h"
#include "zor/runtime/numbers.h"

namespace ZOR_datatable {

using zor::detail::to_size;

namespace {

/// Moves a stretch of a line that may be shorter than the table; what it lacks is 0.
template <class T>
void move_stretch(std::span<T> line, std::size_t to, std::size_t from, std::size_t count) {
  if (to >= line.size()) return;
  count = std::min(count, line.size() - to);
  const std::size_t there = from < line.size() ? std::min(count, line.size() - from) : 0;
  std::memmove(static_cast<void*>(line.data() + to), line.data() + from, there * sizeof(T));
  std::fill_n(line.begin() + static_cast<std::ptrdiff_t>(to + there), count - there, T());
}

template <class T>
void blank_stretch(std::span<T> line, std::size_t at, std::size_t count) {
  for (T& x : line.subspan(std::min(at, line.size()), std::min(count, line.size() - std::min(at, line.size()))))
    x = T();
}

}  // namespace

// Insertion empties the identifiers of columns that are not categorial, removal leaves those of the receiving place.
void TTableEdits::move_column_type(Integer to, Integer from, MovePolicy policy) noexcept {
  TVTypeSpec& type = FFrame.columns[to - 1].type;
  if (from == 0) {
    if (policy == MovePolicy::kInsert) type = TVTypeSpec();
    return;
  }
  const TVTypeSpec& source = FFrame.columns[from - 1].type;
  if (policy == MovePolicy::kInsert) {
    zor::detail::copy_visible_type(source, type);
  } else if (policy == MovePolicy::kRemoveMany || is_categorial(source.MScaleType)) {
    type = source;
  } else {
    type.MScaleType = source.MScaleType;
  }
}

void TTableEdits::move_lines_unheard(TDims dim, const LineMove& move, MovePolicy policy) {
  const std::size_t to = to_size(move.to - 1), from = to_size(move.from - 1), count = to_size(move.count);
  if (dim == dimRows) {
    const std::span<TRowRecord> records(FFrame.rows.data(), FFrame.rows.size());
    const auto act = [&](auto line) {
      move.from > 0 ? move_stretch(line, to, from, count) : blank_stretch(line, to, count);
    };
    act(records);
    for (Integer c = 1; c <= NrOfColumns(); ++c) {
      const std::span<Double> cells = column_cells(c);
      act(cells);
      act(column_states(c));
      if (!column_is_categorial(c) || move.from == 0) continue;
      for (std::size_t r = to; r < std::min(to + count, cells.size()); ++r)
        cells[r] = zor::detail::round_to_even(cells[r]);
    }
    return;
  }
  for (std::size_t i = 0; i < count; ++i) {
    const bool down = move.from > 0 && move.to > move.from;
    const auto step = static_cast<Integer>(down ? count - 1 - i : i);
    const Integer target = move.to + step, source = move.from > 0 ? move.from + step : 0;
    TColumnRecord& record = FFrame.columns[target - 1];
    record.name = source > 0 ? FFrame.columns[source - 1].name : TDTNameStr();
    record.attribute = source > 0 ? FFrame.columns[source - 1].attribute : 0;
    if (source > 0) {
      copy_cells(*this, source, target, 1, 1, NrOfRows());
    } else {
      std::ranges::fill(column_cells(target), 0.0);
      std::ranges::fill(column_states(target), Byte{0});
    }
    move_column_type(target, source, policy);
  }
}

void TTableEdits::move_line_heard(TDims dim, Integer to, Integer from, MovePolicy policy) {
  const bool rows = dim == dimRows, single = policy != MovePolicy::kRemoveMany;
  const auto attribute = [&] { rows ? SetRowAttrib(to, RowAttrib(from)) : SetColAttrib(to, ColAttrib(from)); };
  const auto name = [&] { rows ? SetRowName(to, RowName(from)) : SetColName(to, ColName(from)); };
  if (single) attribute();
  name();
  if (!single) attribute();
  for (Integer i = 1; i <= line_length(dim); ++i) {
    const Integer to_col = rows ? i : to, to_row = rows ? to : i, from_col = rows ? i : from,
                  from_row = rows ? from : i;
    store_cell(to_col, to_row, GetElem(from_col, from_row));
    const Byte state = CellState(from_col, from_row);
    if (single) {
      SetCellState(to_col, to_row, state);
    } else if (contains(to_col, to_row)) {
      FFrame.states[to_col - 1][to_row - 1] = state;
    }
  }
  if (!rows && has_column(to) && from <= NrOfColumns()) move_column_type(to, from, policy);
}

// The handlers of names, attributes and states want to see each line; a handler may even change the size. Otherwise
// whole stretches move.
void TTableEdits::move_lines(TDims dim, std::span<const LineMove> moves, MovePolicy policy) {
  const bool states_fire = policy != MovePolicy::kRemoveMany;
  const bool heard = FNotices.held == 0 && (OnChangeNames || OnChangeAttrib || (states_fire && OnChangeCellState));
  const TableMute mute(*this, {TableNotice::kSetup});
  for (const LineMove& move : moves) {
    if (!heard) {
      move_lines_unheard(dim, move, policy);
      continue;
    }
    const bool down = move.from > 0 && move.to > move.from;
    for (Integer i = 0; i < move.count; ++i) {
      const Integer step = down ? move.count - 1 - i : i;
      move_line_heard(dim, move.to + step, move.from > 0 ? move.from + step : 0, policy);
    }
  }
  if (heard || moves.empty()) return;
  ChangedAttrib();
  ChangedNames();
  if (states_fire) ChangedCellStates();
}

void TTableEdits::insert_line(TDims dim, Integer ix) {
  if (ix < 1 || ix > lines(dim) + 1) return;
  {
    const TableMute mute(*this, {TableNotice::kData});
    set_lines(dim, lines(dim) + 1);
    if (const Integer n = lines(dim); ix <= n) {
      const std::array<LineMove, 2> moves{{{ix + 1, ix, n - ix}, {ix, 0, 1}}};
      move_lines(dim, moves, MovePolicy::kInsert);
    }
  }
  ChangedSetup();
}

void TTableEdits::remove_line(TDims dim, Integer ix) {
  const Integer n = lines(dim);
  if (n < 2 || ix < 1 || ix > n) return;
  {
    const TableMute mute(*this, {TableNotice::kData});
    const LineMove move{ix, ix + 1, n - ix};
    if (move.count > 0) move_lines(dim, {&move, 1}, MovePolicy::kRemove);
    set_lines(dim, n - 1);
  }
  ChangedSetup();
}

void TTableEdits::InsertRow(Integer ix) { insert_line(dimRows, ix); }
void TTableEdits::InsertColumn(Integer ix) { insert_line(dimCols, ix); }
void TTableEdits::RemoveRow(Integer ix) { remove_line(dimRows, ix); }
void TTableEdits::RemoveColumn(Integer ix) { remove_line(dimCols, ix); }

void TTableEdits::remove_stretches(TDims dim, std::span<const LineMove> moves, Integer left) {
  {
    const TableMute mute(*this, {TableNotice::kData});
    move_lines(dim, moves, MovePolicy::kRemoveMany);
    dim == dimCols ? Resize(left, NrOfRows()) : Resize(NrOfColumns(), left);
  }
  ChangedSetup();
}

Integer TTableEdits::RemoveRows(Integer FirstRow, Integer LastRow) {
  const Integer n = NrOfRows();
  if (FirstRow == 0 && LastRow == 0) FirstRow = n > 0 ? 1 : 0, LastRow = n;
  if (n == 0 && LastRow == 0) return 0;
  if (!has_row(FirstRow) || !has_row(LastRow)) return kNothingRemoved;
  if (FirstRow > LastRow) return 0;
  const Integer count = LastRow - FirstRow + 1;
  const LineMove move{FirstRow, LastRow + 1, n - LastRow};
  remove_stretches(dimRows, {&move, move.count > 0 ? std::size_t{1} : 0}, n - count);
  return count;
}

Integer TTableEdits::remove_marked(TDims dim, Integer first, Integer last, Byte mask, Boolean marked) {
  const Integer n = lines(dim);
  if (first == 0 && last == 0) {
    if (n == 0) return 0;
    first = 1, last = n;
  }
  if (first < 1 || first > n || last < 1 || last > n) return kNothingRemoved;
  std::vector<Byte> all(to_size(n));
  for (std::size_t c = 0; c < FFrame.states.size(); ++c) {
    const auto& states = FFrame.states[c];
    for (std::size_t r = 0; r < states.size(); ++r) {
      Byte& line = all[dim == dimCols ? c : r];
      line = static_cast<Byte>(line | states[r]);
    }
  }
  std::vector<LineMove> moves;
  Integer place = 1;
  for (Integer i = 1; i <= n; ++i) {
    if (i >= first && i <= last && ((all[to_size(i - 1)] & mask) != 0) == marked) continue;
    if (place < i) {
      if (!moves.empty() && moves.back().from + moves.back().count == i) {
        ++moves.back().count;
      } else {
        moves.push_back({place, i, 1});
      }
    }
    ++place;
  }
  const Integer count = n - place + 1;
  if (count == 0) return 0;
  moves.push_back({place, 0, count});
  remove_stretches(dim, moves, n - count);
  return count;
}

Integer TTableEdits::RemoveMarkedColumns(Integer FirstCol, Integer LastCol, Byte CSMask) {
  return remove_marked(dimCols, FirstCol, LastCol, CSMask, true);
}
Integer TTableEdits::RemoveUnmarkedColumns(Integer FirstCol, Integer LastCol, Byte CSMask) {
  return remove_marked(dimCols, FirstCol, LastCol, CSMask, false);
}
Integer TTableEdits::RemoveMarkedRows(Integer FirstRow, Integer LastRow, Byte CSMask) {
  return remove_marked(dimRows, FirstRow, LastRow, CSMask, true);
}
Integer TTableEdits::RemoveUnmarkedRows(Integer FirstRow, Integer LastRow, Byte CSMask) {
  return remove_marked(dimRows, FirstRow, LastRow, CSMask, false);
}

}  // namespace ZOR_datatable

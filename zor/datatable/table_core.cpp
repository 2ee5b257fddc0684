#include <algorithm>

#include "zor/datatable/data_table.h"
#include "zor/kernels/elementwise.h"
#include "zor/matrices/matrix_cells_internal.h"
#include "zor/runtime/numbers.h"

namespace ZOR_datatable {

using zor::detail::to_size;

TTableModel::TTableModel(TComponent* AOwner) : TComponent(AOwner), NumericData(nullptr) {
  FHook = [this](TObject* sender) { DataHasChanged(sender); };
  FSortHook = [this](TObject* sender, Byte what, Integer index1, Integer index2, Integer first, Integer last) {
    ExchangeDuringSort(sender, what, index1, index2, first, last);
  };
  try {
    TTableImage image(1, 1);
    NumericData = new TMatrix;
    static_cast<TTableFrame&>(image).columns.swap(FFrame.columns);
    FFrame.rows.swap(image.rows);
    FFrame.states.swap(image.states);
  } catch (...) {
    std::throw_with_nested(
        EZORDataTableError(zor::detail::component_message(*this, "failed to initialize (out of memory)")));
  }
  bind_matrix();
}

TDataTable::TDataTable(std::initializer_list<TNamedColumn> list, TComponent* AOwner) : TDataTable(AOwner) {
  std::size_t rows = 0;
  for (const TNamedColumn& column : list) rows = std::max({rows, column.numbers.size(), column.texts.size()});
  Resize(zor::detail::to_integer(list.size()), zor::detail::to_integer(rows));
  Integer c = 0;
  for (const TNamedColumn& column : list) {
    SetColName(++c, column.name);
    if (!column.texts.empty()) SetMScaleType(c, stNominal);
    const std::size_t given = std::max(column.numbers.size(), column.texts.size());
    for (std::size_t r = 0; r < rows; ++r) {
      const auto row = static_cast<Integer>(r + 1);
      if (r < column.numbers.size()) store_cell(c, row, column.numbers[r]);
      if (r < column.texts.size()) SetElemNominal(c, row, column.texts[r]);
      if (r >= given || (!column.texts.empty() && column.texts[r].empty())) SetCellState(c, row, kCellEmpty);
    }
  }
}

TTableModel::~TTableModel() { release_matrix(); }

TDataTable::TDataTable(TComponent* AOwner) : TTableStatistics(AOwner) {}

const char* TDataTable::ClassName() const noexcept { return "TDataTable"; }

void TTableModel::Clear() {
  TTableImage image(NrOfColumns(), NrOfRows());
  image.columns.swap(FFrame.columns);
  image.rows.swap(FFrame.rows);
  image.states.swap(FFrame.states);
  FFrame.comment.clear();
  if (NrOfColumns() > 0 && NrOfRows() > 0) {
    for (Integer c = 1; c <= NrOfColumns(); ++c) zor::kernels::fill(column_cells(c), 0.0);
    NumericData->Changed();
  } else {
    ChangedData();
  }
  ChangedNames();
  ChangedAttrib();
  ChangedCellStates();
  ChangedSetup();
}

Double TTableModel::GetElem(Integer ACol, Integer ARow) const noexcept {
  if (!contains(ACol, ARow)) return 0.0;
  const Double value = NumericData->GetVal(ACol, ARow);
  return column_is_categorial(ACol) ? zor::detail::round_to_even(value) : value;
}

void TTableModel::SetElem(Integer ACol, Integer ARow, Double value) {
  if (!contains(ACol, ARow)) return;
  store_cell(ACol, ARow, value);
  ChangedData();
}

void TTableModel::store_cell(Integer col, Integer row, Double value) noexcept {
  const std::span<Double> cells = column_cells(col);
  if (to_size(row - 1) < cells.size()) cells[to_size(row - 1)] = value;
}

Byte TTableModel::CellState(Integer ACol, Integer ARow) const noexcept {
  return contains(ACol, ARow) ? FFrame.states[ACol - 1][ARow - 1] : Byte{0};
}

void TTableModel::SetCellState(Integer ACol, Integer ARow, Byte state) {
  if (!contains(ACol, ARow) || FFrame.states[ACol - 1][ARow - 1] == state) return;
  FFrame.states[ACol - 1][ARow - 1] = state;
  ChangedCellStates();
}

Boolean TTableModel::IsNumber(Integer ACol, Integer ARow) const noexcept {
  return contains(ACol, ARow) && is_numeric_state(CellState(ACol, ARow));
}

void TTableModel::set_state_bit(Integer col, Integer row, Byte bit, Boolean on) {
  if (!contains(col, row)) return;
  const unsigned state = CellState(col, row);
  SetCellState(col, row, static_cast<Byte>(on ? state | bit : state & ~unsigned{bit}));
  ChangedData();
}

std::span<const Double> TTableModel::ColumnView(Integer ACol) const noexcept {
  if (!has_column(ACol)) return {};
  const std::span<const Double> cells = NumericData->Column(ACol);
  return cells.first(std::min(cells.size(), to_size(NrOfRows())));
}

std::span<Double> TTableModel::column_cells(Integer col) noexcept {
  if (!has_column(col)) return {};
  const std::span<Double> cells = zor::detail::MatrixCells::column(*NumericData, col);
  return cells.first(std::min(cells.size(), to_size(NrOfRows())));
}

std::span<Byte> TTableModel::column_states(Integer col) noexcept {
  if (!has_column(col)) return {};
  auto& states = FFrame.states[col - 1];
  return {states.data(), states.size()};
}

std::span<const Byte> TTableModel::column_states(Integer col) const noexcept {
  if (!has_column(col)) return {};
  const auto& states = FFrame.states[col - 1];
  return {states.data(), states.size()};
}

}  // namespace ZOR_datatable

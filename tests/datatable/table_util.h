#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "zor/datatable/ZOR_datatable.h"

namespace table_test {

using namespace ZOR_datatable;

/// Writes the letter of each event: C K S N A R, E for an exchange.
inline std::string& listen(TDataTable& table, std::string& log) {
  table.OnChange = [&log](TObject*) { log += 'C'; };
  table.OnChangeCellState = [&log](TObject*) { log += 'K'; };
  table.OnChangeSetup = [&log](TObject*) { log += 'S'; };
  table.OnChangeNames = [&log](TObject*) { log += 'N'; };
  table.OnChangeAttrib = [&log](TObject*) { log += 'A'; };
  table.OnResize = [&log](TObject*, Integer, Integer, Integer, Integer) { log += 'R'; };
  return log;
}

/// The events of an action.
template <class Action>
std::string events_of(TDataTable& table, Action action) {
  std::string log;
  listen(table, log);
  action();
  for (TNotifyEvent* event :
       {&table.OnChange, &table.OnChangeCellState, &table.OnChangeSetup, &table.OnChangeNames, &table.OnChangeAttrib}) {
    *event = nullptr;
  }
  table.OnResize = nullptr;
  return log;
}

/// Cell (c, r) is 10 c + r, its state 64 c + r, its row's attribute r and its column's 300 + c.
inline void number_cells(TDataTable& table, Integer columns, Integer rows) {
  table.Resize(columns, rows);
  for (Integer c = 1; c <= columns; ++c) {
    for (Integer r = 1; r <= rows; ++r) {
      table.SetElem(c, r, 10.0 * c + r);
      table.SetCellState(c, r, static_cast<Byte>(64 * c + r));
    }
    table.SetColAttrib(c, 300 + c);
  }
  for (Integer r = 1; r <= rows; ++r) table.SetRowAttrib(r, r);
}

inline std::vector<double> column(const TDataTable& table, Integer c) {
  const auto cells = table.ColumnView(c);
  return {cells.begin(), cells.end()};
}

inline std::vector<int> states(const TDataTable& table, Integer c) {
  std::vector<int> all;
  for (Integer r = 1; r <= table.NrOfRows(); ++r) all.push_back(table.CellState(c, r));
  return all;
}

inline std::string row_names(const TDataTable& table) {
  std::string all;
  for (Integer r = 1; r <= table.NrOfRows(); ++r) all += std::string(table.RowName(r).view()) + ' ';
  return all;
}

using Cells = std::vector<double>;

}  // namespace table_test

#pragma once

#include <iosfwd>
#include <utility>
#include <vector>

#include "zor/datatable/data_table.h"

/// \file  Tables as text for people, their rows one by one, and what stands in them in a few numbers.

namespace ZOR_datatable {

/// Prints names and cells, cut to 20 lines and to the columns that fit a line: identifiers in categorial columns, "-"
/// for cells that are not numeric.
ZOR_API std::ostream& operator<<(std::ostream& out, const TDataTable& table);

/// One column of a summary. Means and the like are those of the numeric cells of a metric column, 0.0 of none; the
/// deviation divides by n - 1 and is 0.0 below three cells. A categorial column has the number of its numeric cells for
/// each identifier, by slot.
struct TColumnSummary {
  TDTNameStr name;
  TMScaleType scale = stUnknown;
  Integer count = 0, missing = 0;
  Double mean = 0.0, deviation = 0.0;
  Double minimum = 0.0, q1 = 0.0, median = 0.0, q3 = 0.0, maximum = 0.0;
  std::vector<std::pair<TNominalIDStr, Integer>> classes;
};
using TTableSummary = std::vector<TColumnSummary>;

/// What stands in each column.
///     std::cout << Summary(table);
ZOR_API TTableSummary Summary(const TDataTable& table);
/// One line a column.
ZOR_API std::ostream& operator<<(std::ostream& out, const TTableSummary& summary);

/// A row of a table; valid as long as the table has it.
class TTableRow {
 public:
  TTableRow(const TDataTable& table, Integer row) noexcept : table_(&table), row_(row) {}
  Integer Index() const noexcept { return row_; }
  TDTNameStr Name() const noexcept { return table_->RowName(row_); }
  Integer Attrib() const noexcept { return table_->RowAttrib(row_); }
  Double operator[](Integer col) const noexcept { return table_->GetElem(col, row_); }
  TNominalIDStr Nominal(Integer col) const { return table_->ElemNominal(col, row_); }
  Boolean IsNumber(Integer col) const noexcept { return table_->IsNumber(col, row_); }

 private:
  const TDataTable* table_;
  Integer row_;
};

/// The rows of a table, first to last.
///     for (const TTableRow row : Rows(table)) sum += row[2];
class TTableRows {
 public:
  class iterator {
   public:
    iterator(const TDataTable& table, Integer row) noexcept : table_(&table), row_(row) {}
    TTableRow operator*() const noexcept { return {*table_, row_}; }
    iterator& operator++() noexcept {
      ++row_;
      return *this;
    }
    bool operator==(const iterator&) const = default;

   private:
    const TDataTable* table_;
    Integer row_;
  };
  explicit TTableRows(const TDataTable& table) noexcept : table_(table) {}
  iterator begin() const noexcept { return {table_, 1}; }
  iterator end() const noexcept { return {table_, table_.NrOfRows() + 1}; }

 private:
  const TDataTable& table_;
};
inline TTableRows Rows(const TDataTable& table) noexcept { return TTableRows(table); }

}  // namespace ZOR_datatable

#include <algorithm>
#include <functional>
#include <vector>

#include "zor/datatable/table_statistics.h"
#include "zor/kernels/search.h"

namespace ZOR_datatable {

namespace {

template <class Record>
Integer attribute_levels(const TDynArray<Record>& records) {
  std::vector<Integer> values;
  for (const Record& record : records) values.push_back(record.attribute);
  std::sort(values.begin(), values.end());
  return zor::detail::to_integer(static_cast<std::size_t>(std::unique(values.begin(), values.end()) - values.begin()));
}

}  // namespace

Boolean TTableStatistics::is_constant(TDims dim, Integer line, Double& value) const noexcept {
  if (line < 1 || line > lines(dim) || line_length(dim) < 1) return false;
  value = number_at(dim, line, 1);
  for (Integer i = 1; i <= line_length(dim); ++i) {
    if (number_at(dim, line, i) != value) return false;
  }
  return true;
}

Boolean TTableStatistics::IsConstantColumn(Integer ColIx, Double& ConstVal) const noexcept {
  return is_constant(dimCols, ColIx, ConstVal);
}

Boolean TTableStatistics::IsConstantRow(Integer RowIx, Double& ConstVal) const noexcept {
  return is_constant(dimRows, RowIx, ConstVal);
}

Boolean TTableStatistics::IsConstantColumn(Integer ColIx) const noexcept {
  Double value = 0.0;
  return IsConstantColumn(ColIx, value);
}

Boolean TTableStatistics::IsConstantRow(Integer RowIx) const noexcept {
  Double value = 0.0;
  return IsConstantRow(RowIx, value);
}

Boolean TTableStatistics::CheckDichotomousColumn(Integer col, Double& v1, Double& v2) const noexcept {
  v1 = v2 = 0.0;
  const std::span<const Double> cells = ColumnView(col);
  if (cells.size() < 2) return false;
  v1 = v2 = cells[0];
  bool third = false;
  for (const Double x : cells) {
    if (x == v1 || x == v2) continue;
    third = v1 != v2;
    if (third) break;
    v2 = x;
  }
  if (v1 > v2) std::swap(v1, v2);
  return !third && v1 < v2;
}

Boolean TTableStatistics::IsDichotomousColumn(Integer ColIx) const noexcept {
  Double v1 = 0.0, v2 = 0.0;
  return CheckDichotomousColumn(ColIx, v1, v2);
}

Integer TTableStatistics::RowAttribLevels() const { return attribute_levels(FFrame.rows); }
Integer TTableStatistics::ColAttribLevels() const { return attribute_levels(FFrame.columns); }

template <class Better>
Integer TTableStatistics::extreme_attribute(TDims dim, Range range, Integer& place, Better better) const noexcept {
  Integer best = 0;
  place = 0;
  for (Integer i = range.lo; i <= range.hi; ++i) {
    const Integer attribute = dim == dimCols ? ColAttrib(i) : RowAttrib(i);
    if (place != 0 && !better(attribute, best)) continue;
    best = attribute;
    place = i;
  }
  return best;
}

Integer TTableStatistics::MaxRowAttrib(Integer FirstRow, Integer LastRow, Integer& Row) const noexcept {
  return extreme_attribute(dimRows, rows(FirstRow, LastRow), Row, std::greater<>());
}
Integer TTableStatistics::MinRowAttrib(Integer FirstRow, Integer LastRow, Integer& Row) const noexcept {
  return extreme_attribute(dimRows, rows(FirstRow, LastRow), Row, std::less<>());
}
Integer TTableStatistics::MaxColAttrib(Integer FirstCol, Integer LastCol, Integer& Col) const noexcept {
  return extreme_attribute(dimCols, columns(FirstCol, LastCol), Col, std::greater<>());
}
Integer TTableStatistics::MinColAttrib(Integer FirstCol, Integer LastCol, Integer& Col) const noexcept {
  return extreme_attribute(dimCols, columns(FirstCol, LastCol), Col, std::less<>());
}

}  // namespace ZOR_datatable

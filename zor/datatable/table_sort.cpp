#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include "zor/datatable/data_table.h"
#include "zor/kernels/comb_sort.h"
#include "zor/runtime/text.h"

namespace ZOR_datatable {

using zor::detail::to_size;

namespace {

std::vector<Int64> unsorted(std::size_t n) {
  std::vector<Int64> from(n);
  std::iota(from.begin(), from.end(), Int64{0});
  return from;
}

/// Cell i of the line takes what cell from[i] held.
template <class T>
void reorder(std::span<T> line, std::span<const Int64> from, std::vector<T>& work) {
  work.resize(from.size());
  for (std::size_t i = 0; i < from.size(); ++i) work[i] = line[to_size(from[i])];
  std::ranges::copy(work, line.begin());
}

/// The same for whole columns, of which the cells lo to hi - 1 move.
template <class T, class ColumnAt>
void reorder_columns(std::span<const Int64> from, std::size_t lo, std::size_t hi, ColumnAt column_at) {
  std::vector<T> work;
  work.reserve(from.size() * (hi - lo));
  for (const Int64 source : from) {
    const std::span<T> column = column_at(to_size(source)).subspan(lo, hi - lo);
    work.insert(work.end(), column.begin(), column.end());
  }
  for (std::size_t i = 0; i < from.size(); ++i) {
    std::copy_n(work.begin() + static_cast<std::ptrdiff_t>(i * (hi - lo)), hi - lo, column_at(i).data() + lo);
  }
}

}  // namespace

void TTableEdits::apply_order_to_numbers(TDims dim, Range sorted, std::span<const Int64> from, Range cross) {
  if (dim == dimCols) {
    reorder_columns<Double>(from, to_size(cross.lo - 1), to_size(cross.hi),
                            [&](std::size_t i) { return column_cells(sorted.lo + static_cast<Integer>(i)); });
    return;
  }
  std::vector<Double> work;
  for (Integer c = cross.lo; c <= cross.hi; ++c) reorder(column_cells(c).subspan(to_size(sorted.lo - 1)), from, work);
}

void TTableEdits::apply_order(TDims dim, Range sorted, std::span<const Int64> from, Range cross, Boolean headers) {
  apply_order_to_numbers(dim, sorted, from, cross);
  if (dim == dimCols) {
    reorder_columns<Byte>(from, to_size(cross.lo - 1), to_size(cross.hi),
                          [&](std::size_t i) { return column_states(sorted.lo + static_cast<Integer>(i)); });
    std::vector<TColumnRecord> work;
    if (headers) reorder(std::span(FFrame.columns.data() + (sorted.lo - 1), sorted.size()), from, work);
    return;
  }
  std::vector<Byte> work;
  for (Integer c = cross.lo; c <= cross.hi; ++c) reorder(column_states(c).subspan(to_size(sorted.lo - 1)), from, work);
  std::vector<TRowRecord> records;
  if (headers) reorder(std::span(FFrame.rows.data() + (sorted.lo - 1), sorted.size()), from, records);
}

// Where nobody wants to see the exchanges, the keys are sorted alone and each line then moves once.
void TTableEdits::sort_numbers(TDims dim, Integer key, Boolean ascending, Range cols, Range rows, Boolean headers) {
  const Range sorted = dim == dimCols ? cols : rows, cross = dim == dimCols ? rows : cols;
  if (sorted.size() < 2 || key < 1 || key > line_length(dim)) return;
  if (OnSortExchange || !owns_hook() || !matrix_fits()) {
    dim == dimCols ? NumericData->SortCols(key, ascending, cols.lo, rows.lo, cols.hi, rows.hi)
                   : NumericData->SortRows(key, ascending, cols.lo, rows.lo, cols.hi, rows.hi);
    return;
  }
  std::vector<Double> keys(sorted.size());
  for (std::size_t i = 0; i < keys.size(); ++i) keys[i] = number_at(dim, sorted.lo + static_cast<Integer>(i), key);
  std::vector<Int64> from = unsorted(keys.size());
  zor::kernels::comb_sort_pairs(keys, from, keys.size() - 1, ascending);
  apply_order(dim, sorted, from, cross, headers);
  if (key < cross.lo || key > cross.hi) apply_order_to_numbers(dim, sorted, from, {key, key});
  NumericData->Changed();
}

void TTableEdits::SortRows(Integer SortColIx, Boolean Ascending, Integer LowCol, Integer LowRow, Integer HighCol,
                           Integer HighRow, Boolean IncludeHeaders) {
  FSortIncludeHd = IncludeHeaders;
  if (NrOfColumns() == 0 || NrOfRows() == 0) return;
  sort_numbers(dimRows, SortColIx, Ascending, columns(LowCol, HighCol), rows(LowRow, HighRow), IncludeHeaders);
  if (!IncludeHeaders) return;
  ChangedNames();
  ChangedAttrib();
}

void TTableEdits::SortCols(Integer SortRowIx, Boolean Ascending, Integer LowCol, Integer LowRow, Integer HighCol,
                           Integer HighRow, Boolean IncludeHeaders) {
  FSortIncludeHd = IncludeHeaders;
  if (NrOfColumns() == 0 || NrOfRows() == 0) return;
  sort_numbers(dimCols, SortRowIx, Ascending, columns(LowCol, HighCol), rows(LowRow, HighRow), IncludeHeaders);
  if (!IncludeHeaders) return;
  ChangedNames();
  ChangedAttrib();
}

template <class Keys>
void TTableEdits::sort_headers(TDims dim, Boolean ascending, Range sorted, Range cross, const Keys& keys) {
  const std::size_t n = sorted.size();
  std::vector<Int64> from = unsorted(n);
  const auto out_of_order = [&](std::size_t i, std::size_t j) {
    const auto &a = keys[to_size(from[i])], &b = keys[to_size(from[j])];
    return ascending ? b < a : a < b;
  };
  const bool seen = OnSortExchange || data_is_heard() || !matrix_fits();
  const auto exchange = [&](std::size_t i, std::size_t j) {
    std::swap(from[i], from[j]);
    if (!seen) return;
    const Integer a = sorted.lo + static_cast<Integer>(i), b = sorted.lo + static_cast<Integer>(j);
    for (Integer k = cross.lo; k <= cross.hi; ++k) {
      const Double x = number_at(dim, a, k), y = number_at(dim, b, k);
      dim == dimCols ? NumericData->SetVal(a, k, y) : NumericData->SetVal(k, a, y);
      dim == dimCols ? NumericData->SetVal(b, k, x) : NumericData->SetVal(k, b, x);
    }
    if (b <= lines(dim)) {  // a handler may have changed the size
      swap_states(dim, a, b, {cross.lo, std::min(cross.hi, line_length(dim))});
      swap_header(dim, a, b);
    }
    OnSortExchange(this, static_cast<Byte>(dim == dimCols ? 1 : 2), a, b, cross.lo, cross.hi);
  };
  zor::kernels::comb_sort_with(n, n - 1, out_of_order, exchange, [] {});
  if (!seen) apply_order(dim, sorted, from, cross, true);
  ChangedData();
}

void TTableEdits::sort_names(TDims dim, Boolean ascending, Boolean ignore_case, Range sorted, Range cross) {
  if (sorted.size() < 2) return;
  const auto name = [&](std::size_t i) -> const TDTNameStr& {
    const Integer line = sorted.lo - 1 + static_cast<Integer>(i);
    return dim == dimCols ? FFrame.columns[line].name : FFrame.rows[line].name;
  };
  if (ignore_case) {
    std::vector<TString> keys(sorted.size());
    for (std::size_t i = 0; i < keys.size(); ++i) keys[i] = LowerCase(name(i));
    sort_headers(dim, ascending, sorted, cross, keys);
  } else {
    std::vector<TDTNameStr> keys(sorted.size());
    for (std::size_t i = 0; i < keys.size(); ++i) keys[i] = name(i);
    sort_headers(dim, ascending, sorted, cross, keys);
  }
  ChangedNames();
}

void TTableEdits::sort_attributes(TDims dim, Boolean ascending, Range sorted, Range cross) {
  if (sorted.size() < 2) return;
  std::vector<Integer> keys(sorted.size());
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const Integer line = sorted.lo + static_cast<Integer>(i);
    keys[i] = dim == dimCols ? ColAttrib(line) : RowAttrib(line);
  }
  sort_headers(dim, ascending, sorted, cross, keys);
  ChangedAttrib();
}

void TTableEdits::SortRowNames(Boolean Ascending, Boolean IgnoreCase, Integer LowCol, Integer LowRow, Integer HighCol,
                               Integer HighRow) {
  sort_names(dimRows, Ascending, IgnoreCase, rows(LowRow, HighRow), columns(LowCol, HighCol));
}

void TTableEdits::SortColNames(Boolean Ascending, Boolean IgnoreCase, Integer LowCol, Integer LowRow, Integer HighCol,
                               Integer HighRow) {
  sort_names(dimCols, Ascending, IgnoreCase, columns(LowCol, HighCol), rows(LowRow, HighRow));
}

void TTableEdits::SortRowAttributes(Boolean Ascending, Integer LowCol, Integer LowRow, Integer HighCol,
                                    Integer HighRow) {
  sort_attributes(dimRows, Ascending, rows(LowRow, HighRow), columns(LowCol, HighCol));
}

void TTableEdits::SortColAttributes(Boolean Ascending, Integer LowCol, Integer LowRow, Integer HighCol,
                                    Integer HighRow) {
  sort_attributes(dimCols, Ascending, columns(LowCol, HighCol), rows(LowRow, HighRow));
}

}  // namespace ZOR_datatable

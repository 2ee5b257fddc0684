#include <algorithm>

#include "zor/datatable/data_table.h"

namespace ZOR_datatable {

using zor::detail::to_size;

namespace {

template <class T>
void swap_at(std::span<T> line, Integer i, Integer j) noexcept {
  if (to_size(std::max(i, j)) <= line.size()) std::swap(line[to_size(i - 1)], line[to_size(j - 1)]);
}

template <class T>
void swap_stretch(std::span<T> a, std::span<T> b, Integer lo, Integer hi) noexcept {
  const std::size_t begin = to_size(lo - 1), end = std::min({a.size(), b.size(), to_size(hi)});
  if (begin < end) std::swap_ranges(a.data() + begin, a.data() + end, b.data() + begin);
}

}  // namespace

void TTableEdits::swap_numbers(TDims dim, Integer i, Integer j, Range cross) noexcept {
  if (i == j) return;
  if (dim == dimCols) return swap_stretch(column_cells(i), column_cells(j), cross.lo, cross.hi);
  for (Integer c = cross.lo; c <= cross.hi; ++c) swap_at(column_cells(c), i, j);
}

void TTableModel::swap_states(TDims dim, Integer i, Integer j, Range cross) noexcept {
  if (i == j) return;
  if (dim == dimCols) return swap_stretch(column_states(i), column_states(j), cross.lo, cross.hi);
  for (Integer c = cross.lo; c <= cross.hi; ++c) swap_at(column_states(c), i, j);
}

void TTableModel::swap_header(TDims dim, Integer i, Integer j) noexcept {
  if (dim == dimCols) {
    std::swap(FFrame.columns[i - 1], FFrame.columns[j - 1]);
  } else {
    std::swap(FFrame.rows[i - 1], FFrame.rows[j - 1]);
  }
}

void TTableEdits::exchange_lines(TDims dim, Integer i, Integer j) {
  if (std::min(i, j) < 1 || std::max(i, j) > lines(dim)) return;
  const Range all{1, line_length(dim)};
  swap_numbers(dim, i, j, all);
  swap_states(dim, i, j, all);
  swap_header(dim, i, j);
  NumericData->OnChange = FHook;
  notify_exchange();
}

void TTableEdits::notify_exchange() {
  ChangedData();
  ChangedCellStates();
  ChangedAttrib();
  ChangedNames();
  ChangedSetup();
}

void TTableEdits::mirror_lines(TDims dim) {
  const Integer n = lines(dim);
  for (Integer i = 1; i <= n / 2; ++i) exchange_lines(dim, i, n + 1 - i);
  NumericData->OnChange = FHook;
  notify_exchange();
}

void TTableEdits::ExchangeRows(Integer r1, Integer r2) { exchange_lines(dimRows, r1, r2); }
void TTableEdits::ExchangeColumns(Integer c1, Integer c2) { exchange_lines(dimCols, c1, c2); }
void TTableEdits::MirrorRows() { mirror_lines(dimRows); }
void TTableEdits::MirrorColumns() { mirror_lines(dimCols); }

// The matrix may have another size than the table.
void TTableModel::ExchangeDuringSort([[maybe_unused]] TObject* Sender, Byte ExchgWhat, Integer index1, Integer index2,
                                     Integer first, Integer last) {
  const TDims dim = ExchgWhat == 1 ? dimCols : dimRows;
  if (std::min(index1, index2) >= 1 && std::max(index1, index2) <= lines(dim)) {
    if (FSortIncludeHd) swap_header(dim, index1, index2);
    swap_states(dim, index1, index2, {std::max(first, 1), std::min(last, line_length(dim))});
  }
  OnSortExchange(this, ExchgWhat, index1, index2, first, last);
}

}  // namespace ZOR_datatable

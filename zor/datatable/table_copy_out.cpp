#include <algorithm>
#include <vector>

#include "zor/datatable/data_table.h"
#include "zor/datatable/line_range_internal.h"
#include "zor/runtime/numbers.h"

namespace ZOR_datatable {

using zor::detail::to_size;

namespace {

template <class T>
T cell_of(Double x) noexcept {
  if constexpr (std::is_floating_point_v<T>) {
    return x;
  } else {
    return zor::detail::round_to_integer(x);
  }
}

/// Columns and rows of an array; (0, 0) if it is empty or ragged.
template <class A>
std::pair<Integer, Integer> size_of(const A& a) noexcept {
  if (a.empty() || a[0].empty()) return {0, 0};
  for (const auto& column : a) {
    if (column.size() != a[0].size()) return {0, 0};
  }
  return {Length(a), Length(a[0])};
}

}  // namespace

Integer TTableEdits::copy_whole_line(TDims dim, Integer line, TDoubleArray& dest) const {
  if (line < 1 || line > lines(dim)) return kBadLine;
  TDoubleArray made;
  SetLength(made, line_length(dim));
  for (Integer i = 0; i < Length(made); ++i) made[i] = number_at(dim, line, i + 1);
  dest.swap(made);
  return 0;
}

Integer TTableEdits::CopyDataColumnToArray(Integer Col, TDoubleArray& Dest) const {
  return copy_whole_line(dimCols, Col, Dest);
}

Integer TTableEdits::CopyDataRowToArray(Integer Row, TDoubleArray& Dest) const {
  return copy_whole_line(dimRows, Row, Dest);
}

namespace {

// A vector has at least one element: of no numbers it becomes one 0.
Integer to_vector(Integer code, const TDoubleArray& cells, TVector* dest) {
  if (code != 0) return code;
  dest->Resize(std::max(Length(cells), 1));
  auto edit = dest->Edit();
  edit[0] = 0.0;
  std::copy_n(cells.begin(), std::min(cells.size(), edit.cells().size()), edit.begin());
  return 0;
}

}  // namespace

Integer TTableEdits::CopyDataColumnToVector(Integer Col, TVector* Dest) const {
  if (!Dest) return kNoTarget;
  TDoubleArray cells;
  return to_vector(copy_whole_line(dimCols, Col, cells), cells, Dest);
}

Integer TTableEdits::CopyDataRowToVector(Integer Row, TVector* Dest) const {
  if (!Dest) return kNoTarget;
  TDoubleArray cells;
  return to_vector(copy_whole_line(dimRows, Row, cells), cells, Dest);
}

template <class Target>
Integer TTableEdits::copy_line(TDims dim, Target target, Integer base, Integer line, Integer first, Integer last,
                               Integer place) const {
  Integer code = 0;
  if (line < 1 || line > lines(dim)) code = kBadLine;
  if (!zor::detail::resolve_range(first, last, line_length(dim), 1)) code = kBadLineRange;
  const Int64 at = Int64{place} - base;
  if (at < 0 || at >= static_cast<Int64>(target.size())) code = kBadPlaceInLine;
  if (code != 0) return code;
  const Int64 count = std::min<Int64>(last - first + 1, static_cast<Int64>(target.size()) - at);
  for (Integer i = 0; i < count; ++i) {
    target[to_size(at + i)] = cell_of<typename Target::value_type>(elem_at(dim, line, first + i));
  }
  return 0;
}

template <class Vec>
Integer TTableEdits::copy_line_to_vector(TDims dim, Vec* dest, Integer line, Integer first, Integer last,
                                         Integer place) const {
  if (!dest) return kNoTarget;
  TDynArray<typename Vec::value_type> cells(dest->Cells().begin(), dest->Cells().end());
  const Integer code = copy_line(dim, std::span(cells.begin(), cells.end()), 1, line, first, last, place);
  if (code != 0) return code;
  auto edit = dest->Edit();
  std::ranges::copy(cells, edit.begin());
  return 0;
}

Integer TTableEdits::CopyDataColumnToArray(TDoubleArray Dest, Integer Col, Integer FirstRow, Integer LastRow,
                                           Integer DestElem) const {
  if (Dest.empty()) return kNoTarget;
  return copy_line(dimCols, std::span(Dest.begin(), Dest.end()), 0, Col, FirstRow, LastRow, DestElem);
}

Integer TTableEdits::CopyDataColumnToArray(TIntArray Dest, Integer Col, Integer FirstRow, Integer LastRow,
                                           Integer DestElem) const {
  if (Dest.empty()) return kNoTarget;
  return copy_line(dimCols, std::span(Dest.begin(), Dest.end()), 0, Col, FirstRow, LastRow, DestElem);
}

Integer TTableEdits::CopyDataRowToArray(TDoubleArray Dest, Integer Row, Integer FirstCol, Integer LastCol,
                                        Integer DestElem) const {
  if (Dest.empty()) return kNoTarget;
  return copy_line(dimRows, std::span(Dest.begin(), Dest.end()), 0, Row, FirstCol, LastCol, DestElem);
}

Integer TTableEdits::CopyDataRowToArray(TIntArray Dest, Integer Row, Integer FirstCol, Integer LastCol,
                                        Integer DestElem) const {
  if (Dest.empty()) return kNoTarget;
  return copy_line(dimRows, std::span(Dest.begin(), Dest.end()), 0, Row, FirstCol, LastCol, DestElem);
}

Integer TTableEdits::CopyDataColumnToVector(TVector* Dest, Integer Col, Integer FirstRow, Integer LastRow,
                                            Integer DestElem) const {
  return copy_line_to_vector(dimCols, Dest, Col, FirstRow, LastRow, DestElem);
}

Integer TTableEdits::CopyDataColumnToVector(TIntVector* Dest, Integer Col, Integer FirstRow, Integer LastRow,
                                            Integer DestElem) const {
  return copy_line_to_vector(dimCols, Dest, Col, FirstRow, LastRow, DestElem);
}

Integer TTableEdits::CopyDataRowToVector(TVector* Dest, Integer Row, Integer FirstCol, Integer LastCol,
                                         Integer DestElem) const {
  return copy_line_to_vector(dimRows, Dest, Row, FirstCol, LastCol, DestElem);
}

Integer TTableEdits::CopyDataRowToVector(TIntVector* Dest, Integer Row, Integer FirstCol, Integer LastCol,
                                         Integer DestElem) const {
  return copy_line_to_vector(dimRows, Dest, Row, FirstCol, LastCol, DestElem);
}

Integer TTableEdits::slice_line(TDims dim, Integer line, Integer first, Integer last, Integer step,
                                TDoubleArray& dest) const {
  Integer code = 0;
  if (step < 1) code = kBadPlaceInLine;
  if (!zor::detail::resolve_range(first, last, line_length(dim), 1)) code = kBadLineRange;
  if (line < 1 || line > lines(dim)) code = kBadLine;
  if (code != 0) return code;
  TDoubleArray made;
  SetLength(made, (Int64{last} - first + step) / step);
  for (Int64 i = 0; i < Length(made); ++i) made[i] = number_at(dim, line, static_cast<Integer>(first + i * step));
  dest.swap(made);
  return Length(dest);
}

Integer TTableEdits::SliceCol(Integer Col, Integer FirstRow, Integer LastRow, Integer Step,
                              TDoubleArray& DstVec) const {
  return slice_line(dimCols, Col, FirstRow, LastRow, Step, DstVec);
}

Integer TTableEdits::SliceRow(Integer Row, Integer FirstCol, Integer LastCol, Integer Step,
                              TDoubleArray& DstVec) const {
  return slice_line(dimRows, Row, FirstCol, LastCol, Step, DstVec);
}

Integer TTableEdits::source_block(Range& cols, Range& rows, Integer col_lo, Integer row_lo, Integer col_hi,
                                  Integer row_hi) const {
  Integer code = 0;
  if (MakeValidColRange(col_lo, col_hi) != 0) code = kBadSourceColumns;
  if (MakeValidRowRange(row_lo, row_hi) != 0) code = kBadSourceRows;
  cols = {col_lo, col_hi};
  rows = {row_lo, row_hi};
  return code;
}

Integer TTableEdits::CopyDataToMatrix(TMatrix* Dest, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi,
                                      Integer SrcRowHi, Integer DestCol, Integer DestRow) const {
  if (!Dest) return kNoTargetBlock;
  Range cols{}, rows{};
  Integer code = source_block(cols, rows, SrcColLo, SrcRowLo, SrcColHi, SrcRowHi);
  if (DestCol < 1 || DestCol > Dest->NrOfColumns() || DestRow < 1 || DestRow > Dest->NrOfRows()) code = kBadTargetCell;
  if (code != 0) return code;
  const Integer width = std::min(cols.hi - cols.lo, Dest->NrOfColumns() - DestCol) + 1;
  const Integer height = std::min(rows.hi - rows.lo, Dest->NrOfRows() - DestRow) + 1;
  if (width < 1 || height < 1) return 0;
  std::vector<Double> block;  // the matrix may be that of this table
  block.reserve(to_size(width) * to_size(height));
  for (Integer c = 0; c < width; ++c) {
    for (Integer r = 0; r < height; ++r) block.push_back(NumericData->GetVal(cols.lo + c, rows.lo + r));
  }
  if (!Dest->OnChange) {
    auto edit = Dest->Edit();
    for (Integer c = 0; c < width; ++c) {
      std::copy_n(block.begin() + static_cast<std::ptrdiff_t>(c) * height, height,
                  edit.Column(DestCol + c).begin() + (DestRow - 1));
    }
    return 0;
  }
  auto next = block.begin();
  for (Integer c = 0; c < width; ++c) {
    for (Integer r = 0; r < height; ++r) Dest->SetVal(DestCol + c, DestRow + r, *next++);
  }
  return 0;
}

template <class A>
Integer TTableEdits::copy_block_to_array(A& dest, Range cols, Range rows, Integer code, Integer dest_col,
                                         Integer dest_row) const {
  using T = typename A::value_type::value_type;
  const auto [width, height] = size_of(dest);
  if (width == 0) return kNoTargetBlock;
  if (dest_col < 0 || dest_col >= width || dest_row < 0 || dest_row >= height) code = kBadTargetCell;
  if (code != 0) return code;
  const Integer n = std::min(cols.hi - cols.lo, width - dest_col - 1);
  const Integer m = std::min(rows.hi - rows.lo, height - dest_row - 1);
  for (Integer c = 0; c <= n; ++c) {
    for (Integer r = 0; r <= m; ++r) {
      dest[dest_col + c][dest_row + r] = cell_of<T>(NumericData->GetVal(cols.lo + c, rows.lo + r));
    }
  }
  return 0;
}

Integer TTableEdits::CopyDataToArray(TDouble2DArray Dest, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi,
                                     Integer SrcRowHi, Integer DestCol, Integer DestRow) const {
  Range cols{}, rows{};
  const Integer code = source_block(cols, rows, SrcColLo, SrcRowLo, SrcColHi, SrcRowHi);
  return copy_block_to_array(Dest, cols, rows, code, DestCol, DestRow);
}

Integer TTableEdits::CopyDataToArray(TInt2DArray Dest, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi,
                                     Integer SrcRowHi, Integer DestCol, Integer DestRow) const {
  Range cols{}, rows{};
  const Integer code = source_block(cols, rows, SrcColLo, SrcRowLo, SrcColHi, SrcRowHi);
  return copy_block_to_array(Dest, cols, rows, code, DestCol, DestRow);
}

Integer TTableEdits::DuplicateDataAsArray(TDouble2DArray& Dest) const {
  if (size_of(Dest).first == 0) return kNoTargetBlock;
  TDouble2DArray made;
  SetLength(made, NrOfColumns(), NrOfRows());
  for (Integer c = 0; c < NrOfColumns(); ++c) {
    if (!made[c].empty()) std::ranges::copy(ColumnView(c + 1), made[c].begin());
  }
  Dest.swap(made);
  return 0;
}

}  // namespace ZOR_datatable

#include <algorithm>
#include <vector>

#include "zor/datatable/data_table.h"
#include "zor/datatable/line_range_internal.h"

namespace ZOR_datatable {

using zor::detail::to_size;

Integer TTableEdits::store_line(TDims dim, Integer line, std::span<const Double> cells) {
  if (line < 1 || line > lines(dim)) return kBadLine;
  const std::vector<Double> copy(
      cells.begin(), cells.begin() + static_cast<std::ptrdiff_t>(std::min(cells.size(), to_size(line_length(dim)))));
  const bool heard = data_is_heard();
  for (std::size_t k = 0; k < copy.size(); ++k) {
    const auto i = static_cast<Integer>(k + 1);
    const Integer c = dim == dimCols ? line : i, r = dim == dimCols ? i : line;
    if (heard) {
      NumericData->SetVal(c, r, copy[k]);
    } else {
      store_cell(c, r, copy[k]);
    }
  }
  if (!heard && !copy.empty()) ChangedData();
  return 0;
}

Integer TTableEdits::CopyDataColumnFromArray(Integer Col, const TDoubleArray& SrcArray) {
  return store_line(dimCols, Col, {SrcArray.data(), SrcArray.size()});
}

Integer TTableEdits::CopyDataColumnFromVector(Integer Col, const TVector* SrcVec) {
  return SrcVec ? store_line(dimCols, Col, SrcVec->Cells()) : kNoSource;
}

Integer TTableEdits::CopyDataRowFromArray(Integer Row, const TDoubleArray& SrcArray) {
  return store_line(dimRows, Row, {SrcArray.data(), SrcArray.size()});
}

Integer TTableEdits::CopyDataRowFromVector(Integer Row, const TVector* SrcVec) {
  return SrcVec ? store_line(dimRows, Row, SrcVec->Cells()) : kNoSource;
}

template <class T>
Integer TTableEdits::store_stretch(std::span<const T> cells, Integer base, Integer first, Integer last, Integer col,
                                   Integer row, Boolean down) {
  if (cells.empty()) return kNoSource;
  Integer code = 0;
  if (!zor::detail::resolve_range(first, last, zor::detail::to_integer(cells.size()), base)) code = kBadSourceElements;
  if (!contains(col, row)) code = kBadCell;
  if (code != 0) return code;
  const Integer room = down ? NrOfRows() - row : NrOfColumns() - col;
  for (Integer i = 0; i <= std::min(last - first, room); ++i) {
    store_cell(down ? col : col + i, down ? row + i : row, static_cast<Double>(cells[to_size(first - base + i)]));
  }
  ChangedData();
  return 0;
}

Integer TTableEdits::CopyDataFromVector(const TVector* Src, Integer FirstElem, Integer LastElem, Integer Col,
                                        Integer Row, Boolean AsColumn) {
  return Src ? store_stretch(Src->Cells(), 1, FirstElem, LastElem, Col, Row, AsColumn) : kNoSource;
}

Integer TTableEdits::CopyDataFromVector(const TIntVector* Src, Integer FirstElem, Integer LastElem, Integer Col,
                                        Integer Row, Boolean AsColumn) {
  return Src ? store_stretch(Src->Cells(), 1, FirstElem, LastElem, Col, Row, AsColumn) : kNoSource;
}

Integer TTableEdits::CopyDataFromArray(const TDoubleArray& Src, Integer FirstElem, Integer LastElem, Integer Col,
                                       Integer Row, Boolean AsColumn) {
  return store_stretch(std::span(Src.begin(), Src.end()), 0, FirstElem, LastElem, Col, Row, AsColumn);
}

Integer TTableEdits::CopyDataFromArray(const TIntArray& Src, Integer FirstElem, Integer LastElem, Integer Col,
                                       Integer Row, Boolean AsColumn) {
  return store_stretch(std::span(Src.begin(), Src.end()), 0, FirstElem, LastElem, Col, Row, AsColumn);
}

// The matrix may be that of this table: blocks are copied in the direction in which nothing is overwritten too early.
Integer TTableEdits::CopyDataFromMatrix(const TMatrix* MatSrc, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi,
                                        Integer SrcRowHi, Integer DstCol, Integer DstRow) {
  if (!MatSrc || !contains(DstCol, DstRow)) return kNoSource;
  MatSrc->MakeValidColRange(SrcColLo, SrcColHi);
  MatSrc->MakeValidRowRange(SrcRowLo, SrcRowHi);
  const Integer n = std::min(SrcColHi - SrcColLo, NrOfColumns() - DstCol);
  const std::size_t height = to_size(std::min(SrcRowHi - SrcRowLo, NrOfRows() - DstRow) + 1);
  for (Integer i = 0; i <= n; ++i) {
    const Integer c = DstCol > SrcColLo ? n - i : i;
    const std::span<const Double> source = MatSrc->Column(SrcColLo + c).subspan(to_size(SrcRowLo - 1), height);
    const std::vector<Double> copy(source.begin(), source.end());
    const std::span<Double> cells = column_cells(DstCol + c);
    if (to_size(DstRow - 1) >= cells.size()) continue;
    const std::span<Double> target = cells.subspan(to_size(DstRow - 1));
    std::copy_n(copy.begin(), std::min(copy.size(), target.size()), target.begin());
  }
  ChangedData();
  return 0;
}

template <class A>
Integer TTableEdits::copy_block_from_array(const A& src, Integer col_lo, Integer row_lo, Integer col_hi, Integer row_hi,
                                           Integer col, Integer row) {
  if (src.empty() || src[0].empty()) return kNoSource;
  for (const auto& column : src) {
    if (column.size() != src[0].size()) return kNoSource;
  }
  Integer code = 0;
  if (!zor::detail::resolve_range(col_lo, col_hi, Length(src), 0)) code = kBadSourceColumns;
  if (!zor::detail::resolve_range(row_lo, row_hi, Length(src[0]), 0)) code = kBadSourceRows;
  if (!contains(col, row)) code = kBadCell;
  if (code != 0) return code;
  for (Integer c = 0; c <= std::min(col_hi - col_lo, NrOfColumns() - col); ++c) {
    for (Integer r = 0; r <= std::min(row_hi - row_lo, NrOfRows() - row); ++r) {
      store_cell(col + c, row + r, static_cast<Double>(src[col_lo + c][row_lo + r]));
    }
  }
  ChangedData();
  return 0;
}

Integer TTableEdits::CopyDataFromArray(const TDouble2DArray& Src, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi,
                                       Integer SrcRowHi, Integer Col, Integer Row) {
  return copy_block_from_array(Src, SrcColLo, SrcRowLo, SrcColHi, SrcRowHi, Col, Row);
}

Integer TTableEdits::CopyDataFromArray(const TInt2DArray& Src, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi,
                                       Integer SrcRowHi, Integer Col, Integer Row) {
  return copy_block_from_array(Src, SrcColLo, SrcRowLo, SrcColHi, SrcRowHi, Col, Row);
}

}  // namespace ZOR_datatable

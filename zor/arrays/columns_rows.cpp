#include "zor/arrays/columns_rows.h"

#include <algorithm>

#include "zor/arrays/copy_cells_internal.h"
#include "zor/base/errors.h"

namespace ZOR_openarrays {
namespace {

using zor::detail::copy_run;
using zor::detail::shape_of;

bool inside(Integer i, std::size_t n) noexcept { return i >= 0 && static_cast<std::size_t>(i) < n; }

/// Cells from `first`, `count` of them.
struct Range {
  std::size_t first = 0, count = 0;
};

/// The checks that columns and rows taken out have in common: `along` cells lie in the direction of the range, `across`
/// in that of the fixed index.
Integer find_range(Integer fixed, Integer first, Integer last, std::size_t along, std::size_t across, Range& range) {
  if (along == 0) return kEmptyArray;
  if (first > last || !inside(first, along) || !inside(last, along)) return kBadRange;
  if (!inside(fixed, across)) return kBadColumnOrRow;
  range.first = static_cast<std::size_t>(first);
  range.count = static_cast<std::size_t>(last) - range.first + 1;
  return 0;
}

template <class A>
Integer find_rows(const A& a, Integer col, Integer first, Integer last, Range& rows) {
  const auto [cols, length] = shape_of(a).length;
  return find_range(col, first, last, length, cols, rows);
}

template <class A>
Integer find_columns(const A& a, Integer row, Integer first, Integer last, Range& columns) {
  const auto [cols, length] = shape_of(a).length;
  return find_range(row, first, last, cols, length, columns);
}

/// The cells of a row in an array of their own.
template <class R>
R gather(const TDynArray<R>& a, Integer row, const Range& columns) {
  R cells;
  zor::detail::set_length_unset(cells, columns.count);
  for (std::size_t i = 0; i < columns.count; ++i) cells[i] = a[columns.first + i][row];
  return cells;
}

/// Copies as many of the cells as fit behind index `at`.
Integer copy_fitting(const Double* from, std::size_t count, TDoubleArray& dest, Integer at) {
  const auto to = static_cast<std::size_t>(at);
  copy_run(from, (std::min)(count, dest.size() - to), dest.data() + to);
  return 0;
}

/// The checks that columns and rows put in have in common; gives the range of Src.
template <class A>
Integer find_source(const ColumnOf<A>& src, Integer first, Integer last, Integer col, Integer row, const A& dest,
                    Range& range) {
  const auto [cols, rows] = shape_of(dest).length;
  const bool whole = first == 0 && last == 0;
  Integer code = 0;
  if (src.empty() || !(whole || (inside(first, src.size()) && inside(last, src.size())))) code = kBadSource;
  if (!inside(col, cols) || !inside(row, rows)) code = kBadRange;
  if (code != 0) return code;
  if (whole) {
    range = {0, src.size()};
  } else if (first <= last) {
    range = {static_cast<std::size_t>(first), static_cast<std::size_t>(last) - static_cast<std::size_t>(first) + 1};
  }
  return 0;
}

[[noreturn]] void fail_deprecated() { zor::detail::Fail<EZORError>("deprecated function, see help for details"); }

}  // namespace

template <LineArray R>
Integer CopyArrayColumn(const ColumnsOf<R>& A, Integer Col, Integer FirstRow, Integer LastRow, R& Res) {
  Range rows;
  if (const Integer code = find_rows(A, Col, FirstRow, LastRow, rows)) return code;
  const R column = A[Col];  // where Res is this column, Res gets cells of its own
  zor::detail::write_result(Res, zor::detail::Shape<1>{{rows.count}},
                            [&](R& out) { copy_run(column.data() + rows.first, rows.count, out.data()); });
  return 0;
}

template <LineArray R>
Integer CopyArrayRow(const ColumnsOf<R>& A, Integer Row, Integer FirstCol, Integer LastCol, R& Res) {
  Range columns;
  if (const Integer code = find_columns(A, Row, FirstCol, LastCol, columns)) return code;
  Res = gather(A, Row, columns);
  return 0;
}

Integer Copy2DColTo1DArray(const TDouble2DArray& A, Integer Col, Integer FirstRow, Integer LastRow, TDoubleArray& Dest,
                           Integer DestIx) {
  Range rows;
  if (const Integer code = find_rows(A, Col, FirstRow, LastRow, rows)) return code;
  if (!inside(DestIx, Dest.size())) return kBadDestIndex;
  return copy_fitting(A[Col].data() + rows.first, rows.count, Dest, DestIx);
}

Integer Copy2DRowTo1DArray(const TDouble2DArray& A, Integer Row, Integer FirstCol, Integer LastCol, TDoubleArray& Dest,
                           Integer DestIx) {
  Range columns;
  if (const Integer code = find_columns(A, Row, FirstCol, LastCol, columns)) return code;
  if (!inside(DestIx, Dest.size())) return kBadDestIndex;
  return copy_fitting(gather(A, Row, columns).data(), columns.count, Dest, DestIx);
}

template <PlaneArray A>
Integer CopyToArrayColumn(const ColumnOf<A>& Src, Integer First, Integer Last, Integer DestCol, Integer DestRow,
                          A& Dest) {
  Range cells;
  if (const Integer code = find_source(Src, First, Last, DestCol, DestRow, Dest, cells)) return code;
  auto& column = Dest[DestCol];
  const auto at = static_cast<std::size_t>(DestRow);
  copy_run(Src.data() + cells.first, (std::min)(cells.count, column.size() - at), column.data() + at);
  return 0;
}

template <PlaneArray A>
Integer CopyToArrayRow(const ColumnOf<A>& Src, Integer First, Integer Last, Integer DestCol, Integer DestRow, A& Dest) {
  Range cells;
  if (const Integer code = find_source(Src, First, Last, DestCol, DestRow, Dest, cells)) return code;
  const bool is_column = std::ranges::any_of(Dest, [&](const auto& column) { return column.data() == Src.data(); });
  const ColumnOf<A> source = is_column ? CopyOf(Src) : Src;
  const auto at = static_cast<std::size_t>(DestCol);
  const std::size_t count = (std::min)(cells.count, Dest.size() - at);
  for (std::size_t i = 0; i < count; ++i) Dest[at + i][DestRow] = source[cells.first + i];
  return 0;
}

template <PlaneArray A>
Integer CopyVectorToArrayColumn(const ColumnOf<A>&, Integer, Integer, Integer, Integer, A&) {
  fail_deprecated();
}

template <PlaneArray A>
Integer CopyVectorToArrayRow(const ColumnOf<A>&, Integer, Integer, Integer, Integer, A&) {
  fail_deprecated();
}

#define ZOR_INTO(Name, R) \
  template Integer Name<TDynArray<R>>(const R&, Integer, Integer, Integer, Integer, TDynArray<R>&);
#define ZOR_INSTANCES(R)                                                                   \
  template Integer CopyArrayColumn<R>(const TDynArray<R>&, Integer, Integer, Integer, R&); \
  template Integer CopyArrayRow<R>(const TDynArray<R>&, Integer, Integer, Integer, R&);    \
  ZOR_INTO(CopyToArrayColumn, R)                                                           \
  ZOR_INTO(CopyToArrayRow, R)                                                              \
  ZOR_INTO(CopyVectorToArrayColumn, R)                                                     \
  ZOR_INTO(CopyVectorToArrayRow, R)

ZOR_INSTANCES(TDoubleArray)
ZOR_INSTANCES(TIntArray)
ZOR_INSTANCES(TBoolArray)

}  // namespace ZOR_openarrays

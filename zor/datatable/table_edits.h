#pragma once

#include "zor/datatable/table_model.h"

/// \file  The edits, sorts, copies, searches and cell states of TDataTable.

namespace ZOR_datatable {

/// Result of the removals: a bound is outside.
inline constexpr Integer kNothingRemoved = -1;
/// Results of CopyColumnFrom.
inline constexpr Integer kNoSourceColumn = -1;
inline constexpr Integer kNoTargetColumn = -2;
inline constexpr Integer kOtherHeight = -3;
inline constexpr Integer kNoTable = -4;
/// Results of the copies of one line.
inline constexpr Integer kBadLine = -1;
inline constexpr Integer kBadLineRange = -2;
inline constexpr Integer kBadPlaceInLine = -3;
inline constexpr Integer kNoTarget = -4;
/// Results of the copies into the table.
inline constexpr Integer kNoSource = -1;
inline constexpr Integer kBadSourceColumns = -2;
inline constexpr Integer kBadSourceRows = -3;
inline constexpr Integer kBadSourceElements = -4;
inline constexpr Integer kBadCell = -5;
/// Results of the copies of blocks out of the table, beside the two of source columns and rows.
inline constexpr Integer kNoTargetBlock = -1;
inline constexpr Integer kBadTargetCell = -4;
/// Results of FindCells.
inline constexpr Integer kBadCompareOp = -1;
inline constexpr Integer kMoreCells = -2;

/// See TDataTable.
class ZOR_API TTableEdits : public TTableModel {
 public:
  /// \name Edits: numbers, states, names, attributes, scales and identifiers move together
  /// A bad index: nothing. Moved cells of categorial columns are rounded. N and A fire for each moved line, K for each
  /// state that an insertion or the removal of one line changes, R for the size, one S at the end; C never.
  /// @{
  /// A row in front of row ix (1 to NrOfRows + 1): no name, attribute 0, numbers 0.0, states 0.
  void InsertRow(Integer ix);
  /// The same for columns; scale stInterval, no identifiers. Moved columns that are not categorial lose theirs.
  void InsertColumn(Integer ix);
  /// The last row or column stays. A column that moves into the place of another and is not categorial finds that one's
  /// identifiers there: empty them with ClearNominalIDs before it becomes so.
  void RemoveRow(Integer ix);
  void RemoveColumn(Integer ix);
  /// Number of rows removed, which may be all; (0, 0) means all, a reversed range none. kNothingRemoved for a bound
  /// outside.
  Integer RemoveRows(Integer FirstRow, Integer LastRow);
  /// Removes the lines of a range that have (Unmarked: have not) a cell with a bit of the mask; the rest as RemoveRows.
  Integer RemoveMarkedColumns(Integer FirstCol, Integer LastCol, Byte CSMask);
  Integer RemoveUnmarkedColumns(Integer FirstCol, Integer LastCol, Byte CSMask);
  Integer RemoveMarkedRows(Integer FirstRow, Integer LastRow, Byte CSMask);
  Integer RemoveUnmarkedRows(Integer FirstRow, Integer LastRow, Byte CSMask);
  /// Exchange all of two lines: C K A N S. Binds NumericData->OnChange to the table.
  void ExchangeRows(Integer r1, Integer r2);
  void ExchangeColumns(Integer c1, Integer c2);
  /// Reverse the order by exchanges, then C K A N S once more.
  void MirrorRows();
  void MirrorColumns();
  /// @}

  /// \name Sorts: comb sort in place, not stable, equal keys stay; OnSortExchange after each exchange
  /// @{
  /// By the numbers of one line, which move along also where they lie outside of the range, then without their states.
  /// Names, attributes, scales and identifiers move only with IncludeHeaders. C; with headers also N A.
  void SortRows(Integer SortColIx, Boolean Ascending, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                Boolean IncludeHeaders);
  void SortCols(Integer SortRowIx, Boolean Ascending, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                Boolean IncludeHeaders);
  /// By name, byte by byte, or with IgnoreCase by the units of the lower-cased text; headers always move. C for each
  /// number written, then C N.
  void SortRowNames(Boolean Ascending, Boolean IgnoreCase, Integer LowCol, Integer LowRow, Integer HighCol,
                    Integer HighRow);
  void SortRowNames(Boolean Ascending, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) {
    SortRowNames(Ascending, false, LowCol, LowRow, HighCol, HighRow);
  }
  void SortColNames(Boolean Ascending, Boolean IgnoreCase, Integer LowCol, Integer LowRow, Integer HighCol,
                    Integer HighRow);
  void SortColNames(Boolean Ascending, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) {
    SortColNames(Ascending, false, LowCol, LowRow, HighCol, HighRow);
  }
  /// By attribute; C for each number written, then C A.
  void SortRowAttributes(Boolean Ascending, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow);
  void SortColAttributes(Boolean Ascending, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow);
  /// @}

  /// \name Copies from tables; cells that fall outside are dropped, categorial cells are rounded
  /// The source may be this table. Null: nothing.
  /// @{
  /// A block of numbers and states, bounds moved into the source and exchanged if reversed: C K.
  void CopyFrom(const TDataTable* ExtTab, Integer SourceColLo, Integer SourceRowLo, Integer SourceColHi,
                Integer SourceRowHi, Integer DestCol, Integer DestRow);
  /// A column with all that belongs to it: C K S N A. 0; kOtherHeight, after copying to the shorter height;
  /// kNoSourceColumn, kNoTargetColumn (wins), kNoTable.
  Integer CopyColumnFrom(const TDataTable* ExtTab, Integer SrcCol, Integer DestCol);
  /// All states: K. False, with nothing done, if the sizes differ.
  Boolean CopyCellStatesFrom(const TDataTable* ExtTab);
  /// @}

  /// \name Numbers to and from vectors (elements from 1), matrices and arrays (from 0)
  /// States stay. (0, 0) is a whole line; reversed bounds are exchanged. Forms with a range take rounded numbers of
  /// categorial columns, all others raw ones; integers are rounded, ties to even. 0, or the last code that applies: of
  /// the column or row (kBadLine), the range (kBadLineRange), the place (kBadPlaceInLine), the target (kNoTarget).
  /// @{
  Integer CopyDataColumnToArray(Integer Col, TDoubleArray& Dest) const;
  Integer CopyDataRowToArray(Integer Row, TDoubleArray& Dest) const;
  Integer CopyDataColumnToVector(Integer Col, TVector* Dest) const;
  Integer CopyDataRowToVector(Integer Row, TVector* Dest) const;
  /// As much as fits from DestElem on; the target keeps its size.
  Integer CopyDataColumnToArray(TDoubleArray Dest, Integer Col, Integer FirstRow, Integer LastRow,
                                Integer DestElem) const;
  Integer CopyDataColumnToArray(TIntArray Dest, Integer Col, Integer FirstRow, Integer LastRow, Integer DestElem) const;
  Integer CopyDataRowToArray(TDoubleArray Dest, Integer Row, Integer FirstCol, Integer LastCol, Integer DestElem) const;
  Integer CopyDataRowToArray(TIntArray Dest, Integer Row, Integer FirstCol, Integer LastCol, Integer DestElem) const;
  Integer CopyDataColumnToVector(TVector* Dest, Integer Col, Integer FirstRow, Integer LastRow, Integer DestElem) const;
  Integer CopyDataColumnToVector(TIntVector* Dest, Integer Col, Integer FirstRow, Integer LastRow,
                                 Integer DestElem) const;
  Integer CopyDataRowToVector(TVector* Dest, Integer Row, Integer FirstCol, Integer LastCol, Integer DestElem) const;
  Integer CopyDataRowToVector(TIntVector* Dest, Integer Row, Integer FirstCol, Integer LastCol, Integer DestElem) const;
  /// Every Step-th number of a range; the number of them, or the last of kBadPlaceInLine (Step below 1), kBadLineRange,
  /// kBadLine.
  Integer SliceCol(Integer Col, Integer FirstRow, Integer LastRow, Integer Step, TDoubleArray& DstVec) const;
  Integer SliceRow(Integer Row, Integer FirstCol, Integer LastCol, Integer Step, TDoubleArray& DstVec) const;
  /// As many numbers as both have, from the first on; C for each. kBadLine, also for null.
  Integer CopyDataColumnFromArray(Integer Col, const TDoubleArray& SrcArray);
  Integer CopyDataColumnFromVector(Integer Col, const TVector* SrcVec);
  Integer CopyDataRowFromArray(Integer Row, const TDoubleArray& SrcArray);
  Integer CopyDataRowFromVector(Integer Row, const TVector* SrcVec);
  /// A range down from (Col, Row), or along the row; what falls outside is dropped: one C. 0, or the last of kNoSource,
  /// kBadSourceElements, kBadCell.
  Integer CopyDataFromVector(const TVector* Src, Integer FirstElem, Integer LastElem, Integer Col, Integer Row,
                             Boolean AsColumn);
  Integer CopyDataFromVector(const TIntVector* Src, Integer FirstElem, Integer LastElem, Integer Col, Integer Row,
                             Boolean AsColumn);
  Integer CopyDataFromArray(const TDoubleArray& Src, Integer FirstElem, Integer LastElem, Integer Col, Integer Row,
                            Boolean AsColumn);
  Integer CopyDataFromArray(const TIntArray& Src, Integer FirstElem, Integer LastElem, Integer Col, Integer Row,
                            Boolean AsColumn);
  /// A block, as much as fits. The source range must lie inside; reversed columns are exchanged, reversed rows are an
  /// error. 0, or the last of kNoTargetBlock, kBadSourceColumns, kBadSourceRows, kBadTargetCell.
  Integer CopyDataToMatrix(TMatrix* Dest, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi, Integer SrcRowHi,
                           Integer DestCol, Integer DestRow) const;
  Integer CopyDataToArray(TDouble2DArray Dest, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi, Integer SrcRowHi,
                          Integer DestCol, Integer DestRow) const;
  Integer CopyDataToArray(TInt2DArray Dest, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi, Integer SrcRowHi,
                          Integer DestCol, Integer DestRow) const;
  /// A block of a matrix, its range repaired, as much as fits: one C. kNoSource for null and a place outside.
  Integer CopyDataFromMatrix(const TMatrix* MatSrc, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi,
                             Integer SrcRowHi, Integer DstCol, Integer DstRow);
  /// The same from an array. 0, or the last of kNoSource, kBadSourceColumns, kBadSourceRows, kBadCell.
  Integer CopyDataFromArray(const TDouble2DArray& Src, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi,
                            Integer SrcRowHi, Integer Col, Integer Row);
  Integer CopyDataFromArray(const TInt2DArray& Src, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi,
                            Integer SrcRowHi, Integer Col, Integer Row);
  /// Gives Dest, which must not be empty, the size and the numbers of the table. 0 or kNoTargetBlock.
  Integer DuplicateDataAsArray(TDouble2DArray& Dest) const;
  /// @}

  /// \name Search
  /// @{
  /// Columns (CellList[0]) and rows (CellList[1]) of the cells of a range that compare true, column after column; raw
  /// numbers, whatever their state; NaN never does. Their number, at most 10000; kMoreCells if there are more;
  /// kBadCompareOp.
  Integer FindCells(Double Limit, Double Limit2, TCompareMode CompareOp, Integer LowCol, Integer LowRow,
                    Integer HighCol, Integer HighRow, TInt2DArray& CellList) const;
  /// First position of a name, blanks at its ends and the case of letters ignored; 0 if there is none.
  Integer FindColIndex(const TDTNameStr& ColID) const;
  Integer FindRowIndex(const TDTNameStr& RowID) const;
  /// @}

  /// \name States of cells: one K
  /// @{
  void SetAllCellStates(Byte CellState);
  /// state Op CellState in a range, on 8 bits; the ...Not forms take the complement of CellState. An unknown Op:
  /// nothing.
  void SetCellStates(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Byte CellState,
                     TLogicOp LogicOp);
  /// Clears the bits 64 and 128.
  void UnmarkAllCells();
  void InvertCellStates(Byte StateMask);
  /// Swaps the bits 64 and 128.
  void ExchangeMarkings();
  /// Writes Value into each cell with a bit of the mask, and gives their number: C if there are any, no K.
  Integer FillMarkedCells(Double Value, Byte StateMask);
  Boolean IfRowHasCellState(Integer row, Byte CellState) const noexcept;
  Boolean IfColHasCellState(Integer col, Byte CellState) const noexcept;
  Boolean IfAnyCellHasCellState(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                Byte CellState) const noexcept;
  /// Cells with a bit of the mask.
  Integer CountMarkedCellsInRow(Integer Row, Byte StateMask) const noexcept;
  Integer CountMarkedCellsInColumn(Integer Col, Byte StateMask) const noexcept;
  /// @}

 protected:
  using TTableModel::TTableModel;

 private:
  /// A stretch of lines that moves; `from` 0 blanks it instead.
  struct LineMove {
    Integer to, from, count;
  };
  /// How moves are reported, and what becomes of the type of a moved column.
  enum class MovePolicy { kInsert, kRemove, kRemoveMany };
  void move_lines(TDims dim, std::span<const LineMove> moves, MovePolicy policy);
  void move_lines_unheard(TDims dim, const LineMove& move, MovePolicy policy);
  void move_line_heard(TDims dim, Integer to, Integer from, MovePolicy policy);
  void move_column_type(Integer to, Integer from, MovePolicy policy) noexcept;
  void insert_line(TDims dim, Integer ix);
  void remove_line(TDims dim, Integer ix);
  Integer remove_marked(TDims dim, Integer first, Integer last, Byte mask, Boolean marked);
  void remove_stretches(TDims dim, std::span<const LineMove> moves, Integer left);
  void exchange_lines(TDims dim, Integer i, Integer j);
  void mirror_lines(TDims dim);
  void notify_exchange();
  void swap_numbers(TDims dim, Integer i, Integer j, Range cross) noexcept;
  template <class Keys>
  void sort_headers(TDims dim, Boolean ascending, Range sorted, Range cross, const Keys& keys);
  void sort_names(TDims dim, Boolean ascending, Boolean ignore_case, Range sorted, Range cross);
  void sort_attributes(TDims dim, Boolean ascending, Range sorted, Range cross);
  void sort_numbers(TDims dim, Integer key, Boolean ascending, Range cols, Range rows, Boolean headers);
  /// Line number i of `sorted` takes what line number from[i] held, in the cross range.
  void apply_order(TDims dim, Range sorted, std::span<const Int64> from, Range cross, Boolean headers);
  void apply_order_to_numbers(TDims dim, Range sorted, std::span<const Int64> from, Range cross);
  template <class Target>
  Integer copy_line(TDims dim, Target target, Integer base, Integer line, Integer first, Integer last,
                    Integer place) const;
  template <class Vec>
  Integer copy_line_to_vector(TDims dim, Vec* dest, Integer line, Integer first, Integer last, Integer place) const;
  Integer copy_whole_line(TDims dim, Integer line, TDoubleArray& dest) const;
  Integer slice_line(TDims dim, Integer line, Integer first, Integer last, Integer step, TDoubleArray& dest) const;
  Integer store_line(TDims dim, Integer line, std::span<const Double> cells);
  template <class T>
  Integer store_stretch(std::span<const T> cells, Integer base, Integer first, Integer last, Integer col, Integer row,
                        Boolean down);
  template <class A>
  Integer copy_block_to_array(A& dest, Range cols, Range rows, Integer code, Integer dest_col, Integer dest_row) const;
  template <class A>
  Integer copy_block_from_array(const A& src, Integer col_lo, Integer row_lo, Integer col_hi, Integer row_hi,
                                Integer col, Integer row);
  Integer source_block(Range& cols, Range& rows, Integer col_lo, Integer row_lo, Integer col_hi, Integer row_hi) const;
  /// Changes every state of a range: one K.
  template <class Change>
  void change_states(Range cols, Range rows, Change change);
};

}  // namespace ZOR_datatable

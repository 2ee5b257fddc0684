#pragma once

#include <initializer_list>
#include <span>

#include "zor/base/elem_ref.h"
#include "zor/datatable/ZOR_datatable_fwd.h"
#include "zor/datatable/table_image.h"
#include "zor/datatable/table_scopes.h"
#include "zor/matrices/ZOR_matrix.h"

/// \file  The first of the bases that TDataTable is made of: what it holds, its size, its events.

namespace ZOR_datatable {

using ZOR_matrix::TMatrix;
using ZOR_vector::TIntVector;
using ZOR_vector::TVector;

/// Result of MakeValidColRange and MakeValidRowRange: a bound was moved, or the bounds of the rows were reversed.
using ZOR_matrix::kRangeClamped;

/// See TDataTable.
class ZOR_API TTableModel : public TComponent {
 public:
  using TRef = TElemRef<TTableModel, Double, Integer, Integer>;

  /// \name Events; the sender is the table
  /// @{
  TNotifyEvent OnChange;              ///< Numbers.
  TNotifyEvent OnChangeSetup;         ///< Scales, identifiers, comment, columns or rows inserted or removed.
  TNotifyEvent OnChangeNames;         ///< Names of columns or rows.
  TNotifyEvent OnChangeCellState;     ///< States of cells.
  TNotifyEvent OnChangeAttrib;        ///< Attributes of columns or rows.
  TOnPercentDoneEvent OnPercentDone;  ///< Progress.
  TDataTableResizeEvent OnResize;     ///< Size.
  TSortExchgEvent OnSortExchange;     ///< After each exchange of a sort.
  TExportTextEvent OnExportText;      ///< For the application; the table never fires it.
  /// @}

  /// The numbers. They may be read and written in place; OnChange of the matrix is bound to DataHasChanged and its
  /// OnSortExchange to ExchangeDuringSort. Sizes set, transpositions, exchanges and mirrorings called on the matrix
  /// move numbers only. To put another matrix here use AssignAnotherDataMatrix.
  TMatrix* NumericData;

  /// \name Construction and whole tables
  /// @{
  ~TTableModel() override;
  /// Everything but the size back to its default: C N A K S.
  void Clear();
  /// Takes over contents and events of a table, with its numbers as they are; this table keeps its own matrix. No
  /// event.
  void Assign(const TPersistent* Source) override;
  void AssignTo(TPersistent* Dest) const override;
  /// Takes over contents, not events: categorial numbers rounded, identifiers of columns that are not categorial
  /// dropped (Assign keeps both). R if the size changes, then C K S N A, R. Null: nothing.
  void Clone(const TDataTable* ExtTab);
  void CopyContentsFrom(const TDataTable* ExtTab) { Clone(ExtTab); }
  /// Puts a matrix of the caller, which must outlive the table, in the place of the present one, and sets the table to
  /// its size. All scales become stInterval, identifiers stay. A matrix of the table's own is freed, an earlier one of
  /// the caller only let go. R if the size changes, R, then C S N A K. Null: nothing.
  void AssignAnotherDataMatrix(TMatrix* NewDMat);
  /// True if the matrix belongs to the caller.
  Boolean ExtMatAssigned() const noexcept { return FExtMatAssigned; }
  /// @}

  /// \name Size: one R; the same size, and a negative one: nothing
  /// What lies inside the old and the new size stays, what is new has its default. 0 columns or rows are allowed: the
  /// matrix, which has at least one, then stays as it is, unseen. Throw with everything as it was: EZORDataTableError,
  /// or EZORMatrixError for the numbers, "not enough memory on heap".
  /// @{
  Integer NrOfColumns() const noexcept { return FFrame.ncols(); }
  Integer NrOfRows() const noexcept { return FFrame.nrows(); }
  void SetNrCols(Integer n) { change_size(n, NrOfRows()); }
  void SetNrRows(Integer n) { change_size(NrOfColumns(), n); }
  void SetNrOfColumns(Integer n) { SetNrCols(n); }
  void SetNrOfRows(Integer n) { SetNrRows(n); }
  /// Both at once, also binds NumericData->OnChange to the table.
  void Resize(Integer NrCols, Integer NrRows);
  /// Repairs a range: (0, 0) becomes 1 to the count; otherwise both bounds are moved into 1 to the count, which gives
  /// kRangeClamped, and then exchanged if reversed, which gives it for rows only. Of nothing the range is (1, 0).
  Integer MakeValidColRange(Integer& Lo, Integer& Hi) const noexcept;
  Integer MakeValidRowRange(Integer& Lo, Integer& Hi) const noexcept;
  /// @}

  /// \name Cells; outside, reading gives 0 or "" and writing does nothing
  /// @{
  /// The number, rounded (ties to even) in categorial columns. Writing stores as given: C.
  Double GetElem(Integer ACol, Integer ARow) const noexcept;
  void SetElem(Integer ACol, Integer ARow, Double value);
  Double Elem(Integer ACol, Integer ARow) const noexcept { return GetElem(ACol, ARow); }
  TRef Elem(Integer ACol, Integer ARow) noexcept { return {*this, ACol, ARow}; }
  Double GetVal(Integer ACol, Integer ARow) const noexcept { return GetElem(ACol, ARow); }
  void SetVal(Integer ACol, Integer ARow, Double value) { SetElem(ACol, ARow, value); }
  /// The identifier of a cell of a categorial column; a number without a slot as its decimal text, cut to 10, "" if it
  /// is not finite. Writing stores the ordinal of the identifier (case ignored), which gets the lowest free slot if it
  /// is new: C; in other columns too, whose scale stays, so that they show the texts as soon as they become
  /// categorial. Empty: nothing. Throws EZORDataTableError "number of available nominal values exceeded".
  TNominalIDStr ElemNominal(Integer ACol, Integer ARow) const;
  void SetElemNominal(Integer ACol, Integer ARow, const TNominalIDStr& id);
  /// The state byte, see table_types.h; K if it differs.
  Byte CellState(Integer ACol, Integer ARow) const noexcept;
  void SetCellState(Integer ACol, Integer ARow, Byte state);
  /// True if the bits 1 and 2 are clear.
  Boolean IsNumber(Integer ACol, Integer ARow) const noexcept;
  /// One bit of the state; a number is never altered. K if it differs, and C always.
  Boolean IsEmpty(Integer ACol, Integer ARow) const noexcept { return (CellState(ACol, ARow) & kCellEmpty) != 0; }
  void SetIsEmpty(Integer ACol, Integer ARow, Boolean on) { set_state_bit(ACol, ARow, kCellEmpty, on); }
  Boolean IsImputed(Integer ACol, Integer ARow) const noexcept { return (CellState(ACol, ARow) & kCellImputed) != 0; }
  void SetIsImputed(Integer ACol, Integer ARow, Boolean on) { set_state_bit(ACol, ARow, kCellImputed, on); }
  /// The numbers of a column as they are stored, row 1 first; empty outside. Valid until the next change of size.
  std::span<const Double> ColumnView(Integer ACol) const noexcept;
  /// Until the scope ends, events wait; then each fires once: R, C K S N A.
  ///     { auto edit = table.Edit();  table.SetElem(1, 1, 2.5);  table.SetElem(1, 2, 3.5); }   // one OnChange
  [[nodiscard]] TTableEditScope Edit();
  /// @}

  /// \name Names, attributes, scales, comment: N, A, S, S for each assignment
  /// @{
  TDTNameStr ColName(Integer ColNr) const noexcept;
  void SetColName(Integer ColNr, const TDTNameStr& name);
  TDTNameStr RowName(Integer RowNr) const noexcept;
  void SetRowName(Integer RowNr, const TDTNameStr& name);
  Integer ColAttrib(Integer ColNr) const noexcept;
  void SetColAttrib(Integer ColNr, Integer Attrib);
  Integer RowAttrib(Integer RowNr) const noexcept;
  void SetRowAttrib(Integer RowNr, Integer Attrib);
  /// All at once: one A. With a mask only its bits are set.
  void SetRowAttributes(Integer Attrib) { SetRowAttributes(Attrib, ~Cardinal{0}); }
  void SetColAttributes(Integer Attrib) { SetColAttributes(Attrib, ~Cardinal{0}); }
  void SetRowAttributes(Integer Attrib, Cardinal Mask);
  void SetColAttributes(Integer Attrib, Cardinal Mask);
  /// Longest name in characters (code points).
  Integer MaxRowNameLength() const noexcept;
  Integer MaxColNameLength() const noexcept;
  /// stUnknown outside. Setting leaves identifiers and numbers alone; a value outside the enumeration: nothing.
  TMScaleType MScaleType(Integer ColNr) const noexcept;
  void SetMScaleType(Integer ColNr, TMScaleType scale);
  /// Free text; control characters are removed.
  const TString& Comment() const noexcept { return FFrame.comment; }
  void SetComment(const TString& text);
  /// @}

  /// \name Identifiers of categorial columns; ordinals count from 0
  /// @{
  /// The first slot with this identifier; -1 if there is none, also for a column that is not categorial.
  Integer OrdinalOfNominalID(Integer Col, const TNominalIDStr& ID, Boolean IgnoreCase) const;
  /// The slot of the identifier, case ignored; a new one gets the lowest free slot and makes the column stNominal: S.
  /// -1 for a bad column, an empty identifier and a full list. Identifiers of a column that is not categorial are not
  /// seen: empty them with ClearNominalIDs before.
  Integer AddNominalID(Integer Col, const TNominalIDStr& MScaleID);
  /// Frees all slots: S. The scale stays.
  void ClearNominalIDs(Integer Col);
  Integer CountNominalIDs(Integer Col) const noexcept;
  /// The slot OrdVal; "" for a column that is not categorial. There, only an empty identifier can be written. S.
  TNominalIDStr NominalID(Integer ColIx, Integer OrdVal) const noexcept;
  void SetNominalID(Integer ColIx, Integer OrdVal, const TNominalIDStr& id);
  /// @}

  /// \name Notifications and fingerprints
  /// @{
  void ChangedData() { notify(TableNotice::kData, OnChange); }
  void ChangedCellStates() { notify(TableNotice::kCellStates, OnChangeCellState); }
  void ChangedSetup() { notify(TableNotice::kSetup, OnChangeSetup); }
  void ChangedNames() { notify(TableNotice::kNames, OnChangeNames); }
  void ChangedAttrib() { notify(TableNotice::kAttrib, OnChangeAttrib); }
  /// Bound to the matrix; C.
  void DataHasChanged(TObject* Sender);
  /// Bound to the matrix: moves the states of two columns (ExchgWhat 1) or rows (2), and what stands in their headers
  /// if the last SortRows or SortCols said so.
  void ExchangeDuringSort(TObject* Sender, Byte ExchgWhat, Integer index1, Integer index2, Integer first, Integer last);
  void PercDone([[maybe_unused]] TObject* Sender, Integer Percent) { OnPercentDone(this, Percent); }
  /// Fingerprints of 64 hexadecimal digits: eight CRC-32, byte number i (from 1, within its text or list) going to lane
  /// i mod 8. Equal tables have equal texts; the size does not enter, nor do the numbers. The first one takes comment,
  /// names, the low bytes of the attributes, scales and identifiers.
  TString CRCofNamesAndAttributes() const;
  TString CRCofCellStates() const;
  /// @}

 protected:
  explicit TTableModel(TComponent* AOwner);
  friend class TTableEditScope;
  friend class TableMute;

  /// Repaired inclusive bounds.
  struct Range {
    Integer lo, hi;
    std::size_t size() const noexcept { return zor::detail::to_size(hi - lo + 1); }
  };
  Range columns(Integer lo, Integer hi) const noexcept {
    MakeValidColRange(lo, hi);
    return {lo, hi};
  }
  Range rows(Integer lo, Integer hi) const noexcept {
    MakeValidRowRange(lo, hi);
    return {lo, hi};
  }
  /// Twins for columns and rows: dimCols names a column as a line, dimRows a row.
  Integer lines(TDims dim) const noexcept { return dim == dimCols ? NrOfColumns() : NrOfRows(); }
  Integer line_length(TDims dim) const noexcept { return dim == dimCols ? NrOfRows() : NrOfColumns(); }
  void set_lines(TDims dim, Integer n) { dim == dimCols ? SetNrCols(n) : SetNrRows(n); }
  void swap_states(TDims dim, Integer i, Integer j, Range cross) noexcept;
  void swap_header(TDims dim, Integer i, Integer j) noexcept;
  bool matrix_fits() const noexcept {
    return NumericData->NrOfColumns() == NrOfColumns() && NumericData->NrOfRows() == NrOfRows();
  }
  /// True if somebody wants to hear of each number that is written.
  bool data_is_heard() const noexcept { return OnChange || !(NumericData->OnChange == FHook); }
  /// Numbers (rounded in categorial columns) and states of a stretch of a column, no event.
  void copy_cells(const TTableModel& from, Integer src_col, Integer dst_col, Int64 src_row, Int64 dst_row, Int64 count);
  Double number_at(TDims dim, Integer line, Integer i) const noexcept {
    return dim == dimCols ? NumericData->GetVal(line, i) : NumericData->GetVal(i, line);
  }
  Double elem_at(TDims dim, Integer line, Integer i) const noexcept {
    return dim == dimCols ? GetElem(line, i) : GetElem(i, line);
  }
  bool contains(Integer col, Integer row) const noexcept { return has_column(col) && has_row(row); }
  bool has_column(Integer col) const noexcept { return col >= 1 && col <= NrOfColumns(); }
  bool has_row(Integer row) const noexcept { return row >= 1 && row <= NrOfRows(); }
  bool column_is_categorial(Integer col) const noexcept {
    return is_categorial(FFrame.columns[col - 1].type.MScaleType);
  }
  /// The numbers of a column that exists, as far as the matrix has them.
  std::span<Double> column_cells(Integer col) noexcept;
  std::span<const Double> column_cells(Integer col) const noexcept { return ColumnView(col); }
  std::span<Byte> column_states(Integer col) noexcept;
  std::span<const Byte> column_states(Integer col) const noexcept;
  void set_state_bit(Integer col, Integer row, Byte bit, Boolean on);

  void notify(TableNotice notice, const TNotifyEvent& event);
  void notify_resized(Integer old_columns, Integer old_rows);
  /// C K S N A.
  void notify_contents();
  bool owns_hook() const noexcept { return NumericData->OnSortExchange == FSortHook; }
  void bind_matrix();
  void release_matrix() noexcept;
  void change_size(Integer columns, Integer rows);
  /// Annotations for a new size, those that stay with what they hold.
  TTableFrame resized_frame(Integer columns, Integer rows) const;
  /// The numbers for a new size; nothing while a count is 0.
  TDouble2DArray resized_cells(Integer columns, Integer rows) const;
  /// Puts annotations and numbers (none: the matrix stays) in the place of the present ones, then notifies the matrix's
  /// OnResize and the table's.
  void replace(TTableFrame& frame, TDouble2DArray& cells);
  void store_cell(Integer col, Integer row, Double value) noexcept;

  TTableFrame FFrame;
  Boolean FSortIncludeHd = false;
  Boolean FExtMatAssigned = false;
  TableNotices FNotices;
  TNotifyEvent FHook;
  TSortExchgEvent FSortHook;
};

}  // namespace ZOR_datatable

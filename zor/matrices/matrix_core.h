#pragma once

#include <span>

#include "zor/base/ZOR_zorbase.h"
#include "zor/base/elem_ref.h"
#include "zor/matrices/ZOR_matrix_fwd.h"
#include "zor/matrices/columns_edit_scope.h"
#include "zor/matrices/xml_vocabulary.h"
#include "zor/runtime/streams.h"
#include "zor/runtime/text_file.h"
#include "zor/vectors/vector.h"

/// \file  What the matrices of two dimensions have in common, whatever their cells. What holds for all of it stands in
/// ZOR_matrix.h.

namespace zor::detail {
struct MatrixCells;  // matrix_cells_internal.h
}  // namespace zor::detail

namespace ZOR_matrix {

using namespace ZOR_zorbase;
using ZOR_vector::Cell;
using ZOR_vector::RealCell;
using ZOR_vector::TIntVector;
using ZOR_vector::TVector;

/// Failures of this unit.
ZOR_DECLARE_EXCEPTION(EZORMatrixError, EZORError);

/// Results of ExportAsASC and ImportASC; other negative codes of ImportASC are those of ReadHeaderOfASC.
using ZOR_vector::kBadRowAttribute;   // a row attribute is no number
using ZOR_vector::kBadValue;          // a cell is no number
using ZOR_vector::kCannotCreateFile;  // ExportAsASC
using ZOR_vector::kNoCells;           // no row or no column, or more than the file can hold
using ZOR_vector::kNoSuchFile;
/// Results of LoadBinary.
inline constexpr Integer kNotThisKind = -2;   ///< The head is that of another class, or of a file never finished.
inline constexpr Integer kFileTooShort = -3;  ///< A size is below 1, or the file lacks cells.
inline constexpr Integer kUnreadable = -4;    ///< The file is missing or cannot be read.

/// Result of MakeValidColRange and MakeValidRowRange: a bound was moved, or the bounds of the rows were reversed.
inline constexpr Integer kRangeClamped = -1;
/// Results of the copies from and to arrays.
inline constexpr Integer kNoArray = -1;          ///< Empty or ragged array.
inline constexpr Integer kBadColumnRange = -2;   ///< Columns of the source.
inline constexpr Integer kBadRowRange = -3;      ///< Rows of the source.
inline constexpr Integer kBadElementRange = -4;  ///< CopyFromArray from one dimension: positions of the source.
inline constexpr Integer kBadArrayPlace = -4;    ///< CopyToArray: the place in the array.
inline constexpr Integer kBadPlace = -5;         ///< The place in this matrix.

/// Results of EdgeVector.
inline constexpr Integer kNoDestination = -1;  ///< Null vector.
inline constexpr Integer kBadIndex = -2;       ///< An index of the list is outside.

/// A matrix that derives from TComponent and from MatrixCore<itself, its cells> has all that does not depend on the
/// kind of cells. The core is no component: it speaks for the matrix in events and messages.
template <class Self, Cell T>
class ZOR_API MatrixCore {
 public:
  using value_type = T;
  using TArray = TDynArray<T>;
  using T2DArray = TDynArray<TArray>;
  using TVec = ZOR_vector::VectorOf<T>;
  using TRef = TElemRef<Self, T, Integer, Integer>;
  /// After every change of cells.
  TNotifyEvent OnChange;
  /// After every change of size, behind OnChange.
  TNotifyEvent OnResize;
  /// After each exchange of SortRows and SortCols.
  TSortExchgEvent OnSortExchange;
  /// Progress, reported by PercDone.
  TOnPercentDoneEvent OnPercentDone;
  /// \name Size
  /// @{
  Integer NrOfColumns() const noexcept { return FNCol; }
  Integer NrOfRows() const noexcept { return FNRow; }
  /// Resizes with the other dimension unchanged; a value below 1 leaves the matrix as it is.
  void SetNCols(Integer value) { Resize(value, FNRow); }
  void SetNRows(Integer value) { Resize(FNCol, value); }
  void SetNrOfColumns(Integer value) { SetNCols(value); }
  void SetNrOfRows(Integer value) { SetNRows(value); }
  /// Sets the numbers of columns and rows; cells inside the old and the new bounds keep place and value, new ones are
  /// 0. One OnChange, then OnResize. False, with nothing changed, for a size below 1 and for an unchanged size. Throws
  /// EZORMatrixError "not enough memory on heap" also when a handler throws; the cause is nested in it.
  Boolean Resize(Integer Nc, Integer Nr);
  /// Resize, and if that changed the size all cells become 0, followed by OnChange, OnChange, OnResize. A matrix that
  /// already has the size keeps its cells: false.
  Boolean ResizeAndClear(Integer Nc, Integer Nr);
  /// @}

  /// \name Properties of the data
  /// @{
  /// Free identifier, which goes into files.
  const TString& DataID() const noexcept { return FDataID; }
  void SetDataID(const TString& id) { FDataID = id; }
  /// @}

  /// \name Cells
  /// @{
  /// The cell of column Nc and row Nr, 0 outside.
  T GetVal(Integer Nc, Integer Nr) const noexcept {
    const std::size_t c = static_cast<std::size_t>(Nc) - 1, r = static_cast<std::size_t>(Nr) - 1;
    return c < Mat.size() && r < Mat[c].size() ? Mat[c][r] : T{0};
  }
  /// Stores a value and tells OnChange; outside nothing happens.
  void SetVal(Integer Nc, Integer Nr, T Value) {
    const std::size_t c = static_cast<std::size_t>(Nc) - 1, r = static_cast<std::size_t>(Nr) - 1;
    if (c >= Mat.size() || r >= Mat[c].size()) return;
    Mat[c][r] = Value;
    Changed();
  }
  T Elem(Integer Nc, Integer Nr) const noexcept { return GetVal(Nc, Nr); }
  /// The cell, which may also be assigned to.
  TRef Elem(Integer Nc, Integer Nr) noexcept { return {self(), Nc, Nr}; }
  void SetElem(Integer Nc, Integer Nr, T value) { SetVal(Nc, Nr, value); }
  /// The cells of column Nc, row 1 first; empty outside. Valid until the next resize.
  std::span<const T> Column(Integer Nc) const noexcept {
    const std::size_t c = static_cast<std::size_t>(Nc) - 1;
    return c < Mat.size() ? std::span<const T>(Mat[c].data(), Mat[c].size()) : std::span<const T>();
  }
  /// Writable columns for one scope, which tells OnChange once at its end.
  [[nodiscard]] ColumnsEditScope<Self, T> Edit() { return {self(), Mat}; }
  /// Turns a pair of bounds into a valid range: (0, 0) becomes all columns, bounds outside are moved to the nearest
  /// column, then reversed ones exchanged. 0, or kRangeClamped if a bound was moved.
  Integer MakeValidColRange(Integer& LowCol, Integer& HighCol) const noexcept;
  /// The same for rows, except that exchanging reversed bounds gives kRangeClamped as well.
  Integer MakeValidRowRange(Integer& LowRow, Integer& HighRow) const noexcept;
  /// @}

  /// \name Filling: one OnChange
  /// @{
  void Fill(T value);
  void Fill(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, T value);
  /// Cells (i, i) up to the smaller dimension; the others stay.
  void FillDiag(T value);
  /// Column after column from the top, the first cell Offset, each next one the one before plus Diff, by repeated
  /// addition. No event.
  void FillSerial(T Offset, T Diff);
  /// @}

  /// \name Search
  /// @{
  /// Column and row of the cell nearest to Value, column after column from the top, of equally near ones the first;
  /// both 0 if there is none (NaN).
  void Find(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, T Value, Integer& ColIx,
            Integer& RowIx) const;
  /// Bisection in a sorted column: the row of a cell equal to Value, else the nearer one of the last two candidates, on
  /// a tie the later. 0 for a column that does not exist.
  Integer FindInSortedColumn(Integer Col, Boolean ColIsAscending, T Value) const;
  /// Fingerprint of the cells and their order, columns one behind the other: one CRC-32 for each byte of a cell, over
  /// that byte of all cells, each as eight upper-case hexadecimal digits, lowest byte first. One column has the
  /// fingerprint of a vector with its values. The size does not enter.
  TString CRCofData() const;
  /// @}

  /// \name Columns and rows
  /// @{
  /// Takes out a column or row; those behind it move up. OnChange, OnResize. False, with nothing changed, if it does
  /// not exist or is the only one. Throws as Resize does.
  Boolean RemoveColumn(Integer col);
  Boolean RemoveRow(Integer row);
  /// Exchanges the cells of two columns or rows; OnChange. An index outside: nothing.
  void ExchangeColumns(Integer c1, Integer c2);
  void ExchangeRows(Integer r1, Integer r2);
  /// Reverses the order of the columns or rows; OnChange.
  void MirrorColumns();
  void MirrorRows();
  /// Exchanges columns and rows; OnChange, then OnResize, also for a square matrix. True. Throws EZORMatrixError "not
  /// enough memory on heap".
  Boolean Transpose();
  /// @}

  /// \name Copies out of the matrix
  /// FirstCol to LastCol and FirstRow to LastRow are ranges; Row and Col are moved into the matrix. A null vector or
  /// array is left alone.
  /// @{
  /// Fills the vector with 0, then puts the cells in from element 1 on; what does not fit is dropped. The vector tells
  /// its Fill and each stored element.
  void CopyRowToVec(TVec* DestVec, Integer Row, Integer FirstCol, Integer LastCol) const;
  void CopyColToVec(TVec* DestVec, Integer Col, Integer FirstRow, Integer LastRow) const;
  /// The same from element DestElem on, which may be 0 or negative. Nothing at all happens unless a cell lands on the
  /// vector.
  void CopyRowToVec(TVec* DestVec, Integer Row, Integer FirstCol, Integer LastCol, Integer DestElem) const;
  void CopyColToVec(TVec* DestVec, Integer Col, Integer FirstRow, Integer LastRow, Integer DestElem) const;
  /// Fills the caller's array, whose length stays, with 0, then puts the cells in from position DestElem on, which
  /// counts from 0 and may be negative. Nothing at all happens unless a cell lands on the array. All handles that share
  /// the array see it.
  void CopyRowTo1DArray(TArray Dest, Integer Row, Integer FirstCol, Integer LastCol, Integer DestElem) const;
  void CopyColTo1DArray(TArray Dest, Integer Col, Integer FirstRow, Integer LastRow, Integer DestElem) const;
  /// Copies a range to Dest[DestCol][DestRow] on, as far as it fits; Dest keeps its size. Integers are rounded, ties to
  /// even. 0, kNoArray, or the last of kBadColumnRange (a bound outside), kBadRowRange (a bound outside, or reversed
  /// bounds) and kBadArrayPlace that applies.
  Integer CopyToArray(TDouble2DArray& Dest, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi, Integer SrcRowHi,
                      Integer DestCol, Integer DestRow) const;
  Integer CopyToArray(TInt2DArray& Dest, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi, Integer SrcRowHi,
                      Integer DestCol, Integer DestRow) const;
  /// Gives Dest the size and the cells of this matrix. 0, or kNoArray if Dest is empty or ragged before.
  Integer DuplicateDataAsArray(T2DArray& Dest) const;
  /// @}

  /// \name Copies into the matrix
  /// OnChange fires for each stored cell; cells that would land outside are dropped. CopyFrom fires OnChange once
  /// more at the end, Clone OnChange and OnResize.
  /// @{
  /// Becomes as large as the source and takes its cells. Null: nothing.
  void Clone(const Self* MatSource);
  /// Copies a block to (DestCol, DestRow). The bounds are moved into the source and exchanged if reversed; (0, 0, 0, 0)
  /// is the one cell (1, 1). Null: nothing.
  void CopyFrom(const Self* MatSource, Integer SourceColLo, Integer SourceRowLo, Integer SourceColHi,
                Integer SourceRowHi, Integer DestCol, Integer DestRow);
  /// Position i of the array, from 0, goes to (Col, Row + i) with AsColumn, else to (Col + i, Row): the position itself
  /// counts, not its distance from FirstElem. (0, 0) means the whole array; reversed bounds are exchanged. 0, kNoArray,
  /// kBadElementRange, or kBadPlace, which wins. A matrix of integers rounds, ties to even.
  Integer CopyFromArray(const TDoubleArray& Src, Integer FirstElem, Integer LastElem, Integer Col, Integer Row,
                        Boolean AsColumn);
  Integer CopyFromArray(const TIntArray& Src, Integer FirstElem, Integer LastElem, Integer Col, Integer Row,
                        Boolean AsColumn);
  /// Src[i][j] goes to (Col + i, Row + j), for i from SrcColLo to SrcColHi and j from SrcRowLo to SrcRowHi; each pair
  /// of zeros means all of the dimension, reversed bounds copy nothing. 0, kNoArray, or the last of kBadColumnRange,
  /// kBadRowRange and kBadPlace that applies.
  Integer CopyFromArray(const TDouble2DArray& Src, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi,
                        Integer SrcRowHi, Integer Col, Integer Row);
  Integer CopyFromArray(const TInt2DArray& Src, Integer SrcColLo, Integer SrcRowLo, Integer SrcColHi, Integer SrcRowHi,
                        Integer Col, Integer Row);
  /// @}

  /// \name Linear algebra
  /// Cells are (column, row). A result object, made by the caller, is resized with its events, then each cell is stored
  /// as SetVal does, with one OnChange for each; it may be an operand. A null operand or result, and sizes that do not
  /// fit, give false with nothing changed. The cells of products of matrices of doubles may fuse multiplication and
  /// addition, see zor/portable_kernels.h; no other operation here does. Each is one running sum from 0 with its terms
  /// in ascending order.
  /// @{
  /// MatRes = A B. OnChange also of this matrix, which does not change.
  Boolean Multiply(const Self* MatB, Self* MatRes);
  /// VecRes = A b. OnChange also of this matrix.
  Boolean Multiply(const TVec* VecB, TVec* VecRes);
  /// MatRes = A B' for a B with as many columns. OnChange also of this matrix.
  Boolean MultiplyTransposed(const Self* MatB, Self* MatRes);
  /// MatRes = A' B for a B with as many rows.
  Boolean TransposeAndMultiply(const Self* MatB, Self* MatRes) const;
  /// VecRes = A' b.
  Boolean TransposeAndMultiply(const TVec* VecB, TVec* VecRes) const;
  /// Products of like cells of two matrices of equal size. OnChange also of this matrix.
  Boolean EMult(const Self* MatB, Self* MatRes);
  /// Adds and subtracts like cells of a matrix of equal size, in place; OnChange.
  Boolean Add(const Self* MatB);
  Boolean Subtract(const Self* MatB);
  /// Every cell times, or plus, a number; OnChange.
  void SMult(T Scalar);
  void SAdd(T Scalar);
  /// Sum of the diagonal; 0 if the matrix is not square.
  T Trace() const;
  /// @}

  /// \name Statistics of a range; no event
  /// NaN is never extreme and never counted.
  /// @{
  /// Sum of the cells, column after column from the top.
  T Sum(Integer LoC, Integer LoR, Integer HiC, Integer HiR) const;
  /// Mean S / n and sample variance (Q - S * S / n) / (n - 1), from one pass with sums carried in twice the precision.
  /// The variance is 1.0 below three cells, exactly 0.0 for equal cells, never negative.
  void MeanVar(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Mean, Double& Variance) const;
  /// Smallest and largest cell. The search starts from uc_MaxReal and -uc_MaxReal, which stay if all cells are NaN.
  void MinMax(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, T& Minimum, T& Maximum) const;
  /// exp of the mean logarithm; 0.0 if a cell is 0. Throws EZORMatrixError for a negative cell.
  Double GeometricMean(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) const;
  /// n / sum of 1 / x. Throws EZORMatrixError for a cell of 0 or below.
  Double HarmonicMean(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) const;
  /// Skewness and excess kurtosis with the standard deviation of n - 1 in the denominator; 0.0 for one cell. Unlike
  /// those of a vector they have no floor of four values. Equal cells give the sums of powers as they stand.
  void SkewKurt(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Skewness,
                Double& Kurtosis) const;
  /// The same corrected to a sample; 0.0 below four cells.
  void SkewKurtSample(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Skewness,
                      Double& Kurtosis) const;
  /// Quartiles, interpolated at position (n + 1) p of the sorted cells. True. Throws EZORMatrixError "not enough memory
  /// on heap".
  Boolean Quartiles(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Q1, Double& Q2,
                    Double& Q3) const;
  /// The cell of rank Round(prob * n / 100), ties to even, at most n - 1, of the ascending order counted from 0; prob
  /// is moved into 0 to 100, NaN gives NaN. Nothing is interpolated: Percentile(50) of 1, 2, 3, 4 is 3, of three cells
  /// it is the largest. NaN cells count as largest. Throws EZORMatrixError "not enough memory on heap".
  Double Percentile(Double prob, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) const;
  /// An estimate of it from SampleSize cells drawn with replacement, after reseeding the runtime's generator from the
  /// clock; 0.0 without selection where the percentile falls among the zeros of the sample. The exact percentile for a
  /// SampleSize below 1 or not below the number of cells.
  Double Percentile(Double prob, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                    Integer SampleSize) const;
  /// Number of cells with RangeLow <= x <= RangeHigh.
  Integer CountValues(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, T RangeLow, T RangeHigh) const;
  /// @}

  /// \name Statistics of the whole matrix; no event
  /// @{
  /// ResultArray becomes as large as the matrix, with true for each cell above Threshold. The number of these.
  Integer Dichotomize(T Threshold, TBool2DArray& ResultArray) const;
  /// Gives Means the mean of each column (dimCols) or of each row (dimRows), summed in order. Null: nothing.
  void MeanVec(TDims Dim, TVector* Means) const;
  /// @}

  /// \name Projections; no event of this matrix
  /// @{
  /// Projects the matrix on an edge: one result for each row (orHorizontal), over the columns listed in EdgeIx, or for
  /// each column (orVertical), over the rows listed; an empty list means all. eoMean divides by the full number of
  /// columns or rows, whatever the list; eoStdDev is 0.0 below three cells, from sums in twice the precision; eoMin and
  /// eoMax start from uc_MaxDouble and -uc_MaxDouble. Dest gets as many elements, each stored with SetVal. 0;
  /// kBadIndex, with the bad indices skipped; kNoDestination.
  Integer EdgeVector(TOrientation Orient, TEdgeOp EdgeOp, const TIntArray& EdgeIx, TVector* Dest) const;
  void EdgeVector(TOrientation Orient, TEdgeOp EdgeOp, TVector* Dest) const {
    EdgeVector(Orient, EdgeOp, TIntArray(), Dest);
  }
  /// @}

  /// \name Order
  /// @{
  /// Comb sort of the rows of a range by the cells of column SortColIx, which move along also where they lie outside of
  /// the range. OnSortExchange(2, row, row, LowCol, HighCol) after each exchange, OnChange once at the end. Not stable;
  /// a NaN key never moves, and the rows before and behind it are not put in order with each other. A column that does
  /// not exist, or a range of one row: nothing.
  void SortRows(Integer SortColIx, Boolean Ascending, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow);
  /// The same for columns by the cells of row SortRowIx; OnSortExchange(1, column, column, LowRow, HighRow).
  void SortCols(Integer SortRowIx, Boolean Ascending, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow);
  /// @}

  /// \name XML documents
  /// The vocabulary stands in xml_vocabulary.h. The writers put the cells in storage order, as Precision says; NaN is
  /// written NAN and read as 0, infinities are 1e999 and read as the largest double. An empty DataID stands, when
  /// writing, for the property, when reading for the first matrix of the document.
  /// @{
  /// Takes one tag of a document: sizes are noted, the first cell resizes to them, each cell is stored through SetVal.
  /// An attribute that is missing counts as 0. kXmlGoOn, kXmlComplete at the end of the matrix, kXmlBadTag.
  Integer ProcessXmlTag(TMatXmlTag Tag, const TString& Attr, const TString& Content);
  /// Reads the matrix with this id and takes over its id, size and cells: OnChange, and OnResize if the size changed.
  /// Foreign elements before it are passed over whole. False, with nothing changed and no event, if there is none, its
  /// end or a size is missing, its sizes stand behind a cell or are more than the document can hold, or it has an
  /// unknown tag; also for a null stream and a file that cannot be read.
  Boolean LoadFromXMLFile(const TString& FName, const TString& DataID);
  Boolean ReadFromXMLStream(TStream* InStream, const TString& DataID);
  /// Reads on behind the end tag of the matrix.
  Boolean ReadFromOpenXMLFile(TTextFile& XMLFile, const TString& DataID);
  /// Writes the matrix, with CreateHeader behind the head of a document. What cannot be written raises EInOutError; a
  /// null stream does nothing.
  void WriteToOpenXMLFile(TTextFile& XMLFile, Boolean CreateHeader, const TString& DataID) const;
  void WriteToXMLStream(TStream* OutStream, Boolean CreateHeader, const TString& DataID) const;
  /// With the head of a document.
  void SaveAsXMLFile(const TString& FName, const TString& DataID) const;
  /// @}

  /// \name Text files
  /// @{
  /// Reads an ASC text file, names and row attributes being dropped; "NAN" and "###" give 0. OnChange and OnResize of a
  /// new size, OnChange for each cell. 0; kBadRowAttribute, kBadValue (the matrix ends with the row that failed);
  /// kNoSuchFile; kNoCells, also for more cells than the file can hold; or a code of ReadHeaderOfASC. CustData becomes
  /// empty where the file has none; kBadValue, with all cells read, if its block is damaged.
  Integer ImportASC(const TString& FName, TString& Comment);
  Integer ImportASC(const TString& FName, TString& Comment, TStr2DArray& CustData);
  /// Writes a range as plain text: the line "LoC LoR HiC HiR", then one line a row with blanks between the cells, as
  /// Precision says. True as soon as the file could be created, also if writing fails later, which leaves the old file.
  Boolean StoreOnFile(Integer LoC, Integer LoR, Integer HiC, Integer HiR, const TString& FileName) const;
  /// Reads the plain form into the cells that it names; with AdjustMatrixSize the matrix is first sized to the last of
  /// them. False, without values, if that lies beyond the size. Words that are no numbers leave their cell, NAN gives
  /// 0. OnChange for each cell and once at the end. Raises nothing.
  Boolean LoadFromFile(const TString& FileName, Boolean AdjustMatrixSize);
  /// @}

  /// \name Streams and binary files: every bit comes back
  /// @{
  /// Writes LoC, LoR, HiC, HiR of a repaired range and its cells, column by column: 8-byte floats, little endian.
  void SaveToStream(TStream& OutStream, Integer LoC, Integer LoR, Integer HiC, Integer HiR) const;
  /// A null stream is replaced by a new one, which the caller then owns.
  void SaveToStream(TMemoryStream*& OutStream, Integer LoC, Integer LoR, Integer HiC, Integer HiR) const;
  /// A null stream does nothing.
  void SaveToStream(TFileStream* OutStream, Integer LoC, Integer LoR, Integer HiC, Integer HiR) const;
  /// Reads the stream form from the current place; OnChange for each cell and once at the end. False for a null stream,
  /// a range beyond the size, or an early end.
  Boolean LoadFromStream(TStream* InStream, Boolean AdjustMatrixSize);
  /// Writes a file of 4096-byte records (record_codec.h), row after row. EInOutError if that fails; the old file
  /// stays.
  void SaveBinary(const TString& FName) const;
  /// Reads such a file: size, cells and DataID; OnChange, and OnResize if the size changed. 0; with nothing changed,
  /// kNotThisKind, kFileTooShort or kUnreadable.
  Integer LoadBinary(const TString& FName);
  /// Reads the head of a file of records. True if it belongs to this class. False, with all outputs empty, if the file
  /// does not exist or has no head.
  Boolean ReadBinaryHeader(const TString& FName, Integer& NrColumns, Integer& NrRows, TString& DataID,
                           Integer& Format) const;
  /// @}

  /// \name Notifications
  /// @{
  void Changed() { OnChange(&self()); }
  void Resized() { OnResize(&self()); }
  void SortExchange(Byte ExchgWhat, Integer index1, Integer index2, Integer first, Integer last) {
    OnSortExchange(&self(), ExchgWhat, index1, index2, first, last);
  }
  /// Tells OnPercentDone with this matrix as the sender, whoever computes.
  void PercDone([[maybe_unused]] TObject* Sender, Integer Percent) { OnPercentDone(&self(), Percent); }
  /// @}

 protected:
  MatrixCore() = default;
  ~MatrixCore() = default;
  MatrixCore(const MatrixCore&) = delete;
  MatrixCore& operator=(const MatrixCore&) = delete;

  /// Inclusive bounds, from 1; 1 to 0 where there is nothing.
  struct Bounds {
    Integer lo, hi;
    std::size_t size() const noexcept { return static_cast<std::size_t>(hi - lo + 1); }
  };
  /// The block of cells in memory, which members that work on it ask for their bounds. It is the whole matrix, or
  /// nothing where the cells are kept in another form.
  Integer dense_columns() const noexcept { return Length(Mat); }
  Integer dense_rows() const noexcept { return Mat.empty() ? 0 : Length(Mat[0]); }
  /// Repaired bounds within that block.
  Bounds columns(Integer LowCol, Integer HighCol) const noexcept;
  Bounds rows(Integer LowRow, Integer HighRow) const noexcept;
  /// Calls f with the cells of each column of a block, from left to right.
  template <class F>
  void for_columns(Bounds cols, Bounds rows, F f) {
    for (Integer c = cols.lo; c <= cols.hi; ++c) f(std::span<T>(Mat[c - 1].data() + (rows.lo - 1), rows.size()));
  }
  template <class F>
  void for_columns(Bounds cols, Bounds rows, F f) const {
    for (Integer c = cols.lo; c <= cols.hi; ++c) f(Column(c).subspan(zor::detail::to_size(rows.lo - 1), rows.size()));
  }
  /// The same for all cells.
  template <class F>
  void for_columns(F f) {
    for (TArray& column : Mat) f(std::span<T>(column.data(), column.size()));
  }
  /// A block as a walk over runs of cells (run_statistics_internal.h).
  auto walk(Bounds cols, Bounds rows) const noexcept {
    return [this, cols, rows](auto take) { this->for_columns(cols, rows, take); };
  }
  /// The columns as raw cells.
  TDynArray<const T*> column_pointers() const;
  /// Private copy of a range, column after column. Throws EZORMatrixError "not enough memory on heap".
  TArray copy_of_range(Bounds cols, Bounds rows) const;

  // Other cells take the place of the present ones: swap_cells without an event, renew_cells with OnChange and
  // OnResize, and renew_as_read, for readers, with OnResize only if the size changed.
  void swap_cells(T2DArray& made) noexcept {
    Mat.swap(made);
    FNCol = dense_columns();
    FNRow = dense_rows();
  }
  void renew_cells(T2DArray& made);
  void renew_as_read(T2DArray& made);
  // Values are written into the cells, as SetVal does: write_block puts a block of columns by rows cells, of which
  // column i begins at column_at(i), both from 0, at (dest_col, dest_row) and drops what lands outside; where a handler
  // is set the block must belong to the caller alone. write_result first takes the size of the block.
  template <class ColumnAt>
  void write_block(Int64 columns, Int64 rows, ColumnAt column_at, Int64 dest_col, Int64 dest_row);
  void write_result(T2DArray& made);

  // Mat[c - 1][r - 1]; all columns have as many cells and lie in one block at equal distance.
  T2DArray Mat;
  Integer FNCol = 1, FNRow = 1;      // the size, in whatever form the cells are kept
  Integer FAuxCol = 0, FAuxRow = 0;  // sizes that a document announced
  Boolean FirstCell = true;          // no cell of the document has come yet
  Integer FPrecis[2] = {15, -1};     // how text shows doubles: significant digits, decimals
  TString FDataID;

 private:
  friend struct zor::detail::MatrixCells;

  Self& self() noexcept { return static_cast<Self&>(*this); }
  const Self& self() const noexcept { return static_cast<const Self&>(*this); }

  template <class Key, class Exchange, class Apply>
  void sort_lines(Bounds lines, Boolean ascending, Key key, Exchange exchange, Apply apply);
  /// Exchanges two cells if both exist.
  void exchange_cells(Integer c1, Integer r1, Integer c2, Integer r2) noexcept;
  enum class Side { rows, columns };
  /// The product whose rows come from that side of this matrix, and its columns from that side of b.
  void multiply_sides(const Self& b, Side rows, Side columns, Self& to) const;
  /// combine(cells, other's cells) for each column of two matrices of equal size.
  Boolean combine_with(const Self* other, void (*combine)(std::span<T> cells, std::span<const T> others));
  Integer import_asc(const TString& FName, TString& Comment, TStr2DArray* CustData);
  /// A cell of a document: the first one resizes.
  void process_xml_cell(Integer col, Integer row, T value);
  TArray row_cells(Integer Row, Integer FirstCol, Integer LastCol) const;
  TArray column_cells(Integer Col, Integer FirstRow, Integer LastRow) const;
  template <class A>
  Integer copy_to_array(A& dest, Bounds cols, Bounds rows, Integer dest_col, Integer dest_row) const;
  template <class A>
  Integer copy_from_array(const A& src, Integer first, Integer last, Integer col, Integer row, Boolean as_column);
  template <class A>
  Integer copy_from_plane(const A& src, Bounds cols, Bounds rows, Integer col, Integer row);

 protected:
  /// Stores the words from next_word in the cells of a row, those that are numbers; ends at an empty word.
  template <class NextWord>
  void read_row(Int64 first_col, Int64 last_col, Int64 row, NextWord next_word);
};

}  // namespace ZOR_matrix

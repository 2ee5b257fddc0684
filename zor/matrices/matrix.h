#pragma once

#include <iosfwd>
#include <span>

#include "zor/base/ZOR_zorbase.h"
#include "zor/base/elem_ref.h"
#include "zor/matrices/ZOR_matrix_fwd.h"
#include "zor/matrices/columns_edit_scope.h"
#include "zor/matrices/xml_vocabulary.h"
#include "zor/runtime/streams.h"
#include "zor/runtime/text_file.h"
#include "zor/vectors/vector.h"

/// \file  The body of TMatrix. What holds for all of it stands in ZOR_matrix.h.

namespace ZOR_matrix {

using namespace ZOR_zorbase;
using ZOR_vector::BasicVector;
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

/// Sender, Row1, Row2, Distance: the handler puts the distance of two rows into Distance, which starts at 0.
using TOnCalcDistanceEvent = TEvent<TObject*, Integer, Integer, Double&>;

/// Result of MakeValidColRange and MakeValidRowRange: a bound was moved, or the bounds of the rows were reversed.
inline constexpr Integer kRangeClamped = -1;
/// Results of the copies from and to arrays.
inline constexpr Integer kNoArray = -1;          ///< Empty or ragged array.
inline constexpr Integer kBadColumnRange = -2;   ///< Columns of the source.
inline constexpr Integer kBadRowRange = -3;      ///< Rows of the source.
inline constexpr Integer kBadElementRange = -4;  ///< CopyFromArray from one dimension: positions of the source.
inline constexpr Integer kBadArrayPlace = -4;    ///< CopyToArray: the place in the array.
inline constexpr Integer kBadPlace = -5;         ///< The place in this matrix.

/// Norms of a matrix.
enum TNormType { ntColwise, ntRowwise, ntSpectral, ntFrobenius };

/// Results of CalcDistMat.
inline constexpr Integer kNotSquare = -1;          ///< The matrix of distances is null or not square.
inline constexpr Integer kOtherNumberOfRows = -2;  ///< It has not as many columns as there are rows.
/// Results of EdgeVector.
inline constexpr Integer kNoDestination = -1;  ///< Null vector.
inline constexpr Integer kBadIndex = -2;       ///< An index of the list is outside.
/// Results of Diff.
inline constexpr Integer kBadOrder = -1;     ///< Not 1 to 10.
inline constexpr Integer kTooFewCells = -2;  ///< Not more cells than the order.
/// Results of ResampleExtMat.
inline constexpr Integer kBadColumnShare = -1;   ///< Percentage of the columns.
inline constexpr Integer kBadRowShare = -2;      ///< Percentage of the rows.
inline constexpr Integer kNoSourceMatrix = -3;   ///< Null matrix.
inline constexpr Integer kTooManyDistinct = -4;  ///< Distinct numbers out of more than a million.
inline constexpr Integer kNoIndexArray = -5;     ///< An index array without storage.

template <Cell T>
class ZOR_API BasicMatrix : public TComponent {
 public:
  using value_type = T;
  using TArray = TDynArray<T>;
  using T2DArray = TDynArray<TArray>;
  using TVec = BasicVector<T>;
  using TRef = TElemRef<BasicMatrix, T, Integer, Integer>;

  /// After every change of cells.
  TNotifyEvent OnChange;
  /// After every change of size, behind OnChange.
  TNotifyEvent OnResize;
  /// After each exchange of SortRows and SortCols.
  TSortExchgEvent OnSortExchange;
  /// Asked for the distance of two rows when the mode is dmUserDef.
  TOnCalcDistanceEvent OnCalcDistance;
  /// Progress, told by PercDone.
  TOnPercentDoneEvent OnPercentDone;

  /// One column, one row, cell 0; no event is set.
  explicit BasicMatrix(TComponent* AOwner = nullptr);
  ~BasicMatrix() override = default;
  const char* ClassName() const noexcept override;

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
  /// How XML and plain text files show numbers; values are limited to -1 to 25. The setting of an ix of 2 or more is
  /// the number of decimals in fixed notation; if it is -1, as in a new matrix, the notation is general with as many
  /// significant digits as the setting of an ix below 2 says, where 15 (as in a new matrix) and more, or -1, mean the
  /// shortest text that reads back to the same double, and 0 counts as 1.
  Integer Precision(Integer ix) const noexcept
    requires RealCell<T>
  {
    return FPrecis[ix < 2 ? 0 : 1];
  }
  void SetPrecision(Integer ix, Integer value) noexcept
    requires RealCell<T>
  {
    FPrecis[ix < 2 ? 0 : 1] = value < -1 ? -1 : value > 25 ? 25 : value;
  }
  Integer GetFPrecis(Integer ix) const noexcept
    requires RealCell<T>
  {
    return Precision(ix);
  }
  void SetFPrecis(Integer ix, Integer value) noexcept
    requires RealCell<T>
  {
    SetPrecision(ix, value);
  }
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
  TRef Elem(Integer Nc, Integer Nr) noexcept { return {*this, Nc, Nr}; }
  void SetElem(Integer Nc, Integer Nr, T value) { SetVal(Nc, Nr, value); }

  /// The cells of column Nc, row 1 first; empty outside. Valid until the next resize.
  std::span<const T> Column(Integer Nc) const noexcept {
    const std::size_t c = static_cast<std::size_t>(Nc) - 1;
    return c < Mat.size() ? std::span<const T>(Mat[c].data(), Mat[c].size()) : std::span<const T>();
  }
  /// Writable columns for one scope, which tells OnChange once at its end.
  [[nodiscard]] ColumnsEditScope<BasicMatrix, T> Edit() { return {*this, Mat}; }

  /// Turns a pair of bounds into a valid range: (0, 0) becomes all columns, bounds outside are moved to the nearest
  /// column, then reversed ones exchanged. 0, or kRangeClamped if a bound was moved.
  Integer MakeValidColRange(Integer& LowCol, Integer& HighCol) const noexcept;
  /// The same for rows, except that exchanging reversed bounds gives kRangeClamped as well.
  Integer MakeValidRowRange(Integer& LowRow, Integer& HighRow) const noexcept;
  /// @}

  /// \name Filling: one OnChange
  /// @{
  void Fill(T value);
  template <std::floating_point F>
    requires(!RealCell<T>)
  void Fill(F) = delete;  // no silent narrowing
  void Fill(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, T value);
  template <std::floating_point F>
    requires(!RealCell<T>)
  void Fill(Integer, Integer, Integer, Integer, F) = delete;
  /// Cells (i, i) up to the smaller dimension; the others stay.
  void FillDiag(T value);
  /// RangeLow + (RangeHigh - RangeLow) * u with u uniform in [0, 1), from the runtime's generator, which is not
  /// reseeded; column after column.
  void FillRandomUniform(Double RangeLow, Double RangeHigh)
    requires RealCell<T>;
  void FillRandomUniform(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, Double RangeLow,
                         Double RangeHigh)
    requires RealCell<T>;
  /// Mean + StdDev * g, g being standard normal deviates (GRandom); column after column.
  void FillRandomGauss(Double Mean, Double StdDev)
    requires RealCell<T>;
  void FillRandomGauss(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, Double Mean, Double StdDev)
    requires RealCell<T>;
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
  void AssignTo(TPersistent* Dest) const override;
  /// @}

  /// \name Copies into the matrix
  /// OnChange fires for each stored cell; cells that would land outside are dropped. CopyFrom and CopyFromVec tell
  /// OnChange once more at the end, Clone OnChange and OnResize.
  /// @{
  /// Becomes as large as the source and takes its cells. Null: nothing.
  void Clone(const BasicMatrix* MatSource);
  /// Takes over size, cells, DataID, Precision and the handlers of a TMatrix. No event.
  void Assign(const TPersistent* Source) override;
  /// Copies a block to (DestCol, DestRow). The bounds are moved into the source and exchanged if reversed; (0, 0, 0, 0)
  /// is the one cell (1, 1). Null: nothing.
  void CopyFrom(const BasicMatrix* MatSource, Integer SourceColLo, Integer SourceRowLo, Integer SourceColHi,
                Integer SourceRowHi, Integer DestCol, Integer DestRow);
  /// Copies a range of a vector along a row (dimCols) or down a column (dimRows) from (DestCol, DestRow) on. Null:
  /// nothing.
  void CopyFromVec(TDims Dim, const TVec* Src, Integer FirstElem, Integer LastElem, Integer DestCol, Integer DestRow)
    requires RealCell<T>;
  /// Down a column.
  void CopyFromVec(const TVec* Src, Integer FirstElem, Integer LastElem, Integer DestCol, Integer DestRow)
    requires RealCell<T>;
  void CopyFromVec(const TVec* Src, Integer FirstElem, Integer LastElem, Integer DestCol, Integer DestRow,
                   Boolean AsColumn)
    requires RealCell<T>;
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
  /// fit, give false with nothing changed. The cells of products of matrices, of Square, Invert, LUdecomposition and
  /// CalcHatMatrix may fuse multiplication and addition, see zor/portable_kernels.h; no other operation does. Each is
  /// one running sum from 0.0 with its terms in ascending order.
  /// @{
  /// MatRes = A B. OnChange also of this matrix, which does not change.
  Boolean Multiply(const BasicMatrix* MatB, BasicMatrix* MatRes)
    requires RealCell<T>;
  /// VecRes = A b. OnChange also of this matrix.
  Boolean Multiply(const TVector* VecB, TVector* VecRes)
    requires RealCell<T>;
  /// MatRes = A B' for a B with as many columns. OnChange also of this matrix.
  Boolean MultiplyTransposed(const BasicMatrix* MatB, BasicMatrix* MatRes)
    requires RealCell<T>;
  /// MatRes = A' B for a B with as many rows.
  Boolean TransposeAndMultiply(const BasicMatrix* MatB, BasicMatrix* MatRes) const
    requires RealCell<T>;
  /// VecRes = A' b.
  Boolean TransposeAndMultiply(const TVector* VecB, TVector* VecRes) const
    requires RealCell<T>;
  /// Products of like cells of two matrices of equal size. OnChange also of this matrix.
  Boolean EMult(const BasicMatrix* MatB, BasicMatrix* MatRes)
    requires RealCell<T>;
  /// Adds and subtracts like cells of a matrix of equal size, in place; OnChange.
  Boolean Add(const BasicMatrix* MatB)
    requires RealCell<T>;
  Boolean Subtract(const BasicMatrix* MatB)
    requires RealCell<T>;
  /// Every cell times, or plus, a number; OnChange.
  void SMult(Double Scalar)
    requires RealCell<T>;
  void SAdd(Double Scalar)
    requires RealCell<T>;

  /// MatRes(i, j) = MatRes(j, i) = (sum over the rows r of A(i, r) * A(j, r)) / Norm: the Gram matrix of the columns,
  /// or with centred columns and Norm = n - 1 their covariances. MatRes is resized with its events, its cells are
  /// written without. There is a feedback step for each column, with one thread with a test of AbortMathProc before it,
  /// with more threads a test now and then; an abort gives false, with MatRes sized and its cells undefined. False,
  /// with nothing changed, for a null MatRes, this matrix itself, and a Norm of 0 or not finite. NThreads is limited to
  /// 1 .. the smaller of CPUCount and the number of columns; worker threads work on blocks of columns while the calling
  /// one runs MathFeedBackProc. The cells do not depend on the number of threads. An exception of a handler passes on
  /// after all workers have ended. Neither matrix may be changed during the call.
  Boolean Square(BasicMatrix* MatRes, Double Norm, Integer NThreads) const
    requires RealCell<T>;
  /// With one thread less than there are processors, but at least one.
  Boolean Square(BasicMatrix* MatRes, Double Norm) const
    requires RealCell<T>;

  /// Becomes its inverse, by InvertArray of ZOR_openarrays, which tells method, pivots, feedback and aborts. False if
  /// the matrix is not square or a row holds only zeros, with nothing changed; if it is singular or AbortMathProc was
  /// set, with its cells partly factored; and if a feedback procedure resized it. What that throws passes on, as from
  /// CalcHatMatrix. No event.
  Boolean Invert()
    requires RealCell<T>;
  /// Product of the diagonal of the upper factor of LUdecomposition; 0.0 if the matrix is not square or has a cell that
  /// is not finite.
  Double Determinant() const
    requires RealCell<T>;
  /// The triangular factors of LUdecomposition of ZOR_openarrays, which are resized, then told as CopyFromArray does.
  /// False, with nothing changed, also if the matrix is not square, a cell is not finite, or MatL is MatU.
  Boolean LUdecomposition(BasicMatrix* MatL, BasicMatrix* MatU) const
    requires RealCell<T>;
  /// A = L L' for a symmetric positive definite matrix, of which the cells with row >= column are read. MatL is resized
  /// with its events; L goes into its cells with row >= column, the others stay, then one OnChange. This matrix gets L
  /// without its diagonal, turned, in its cells with column > row, and tells no event. The terms of each cell are
  /// subtracted from the last column to the first. False, with nothing changed, if the matrix is not square or not
  /// positive definite, or MatL is this matrix.
  Boolean CholeskyDecomp(BasicMatrix* MatL)
    requires RealCell<T>;
  /// Makes the sums of magnitudes of row and column i, both without the diagonal, equal for each i: a similarity
  /// transformation by a diagonal matrix, in passes until no factor exceeds Tolerance, which is limited to 1.000001 to
  /// 1.05. Rows and columns whose factor would be 0 or not finite, and columns of zeros, are passed over. False, with
  /// nothing changed, if the matrix is not square; false also after 100 passes. No event. (Osborne, On pre-conditioning
  /// of matrices, 1960)
  Boolean Balance(Double Tolerance)
    requires RealCell<T>;
  /// ntColwise and ntRowwise: the largest sum of magnitudes of a column or row, where NaN is never it. ntFrobenius: the
  /// root of the sum of squares. ntSpectral: the largest singular value; its computation takes four feedback steps for
  /// each column. Raises EZORMatrixError "near singular covariance matrix" if that did not converge (a cell is not
  /// finite) or AbortMathProc is set.
  Double Norm(TNormType nt) const
    requires RealCell<T>;
  /// Sum of the diagonal; 0.0 if the matrix is not square.
  Double Trace() const
    requires RealCell<T>;
  /// HatMat = A (A' A)^-1 A', by CalcHatMatrix of ZOR_openarrays. HatMat becomes square with as many rows as this
  /// matrix has; if the inversion fails its cells stay as they are then. 0; kEmptyArray, kSizeMismatch (null, or this
  /// matrix itself), kSingular, kInverseAborted of ZOR_openarrays. No event on either matrix.
  Integer CalcHatMatrix(BasicMatrix* HatMat) const
    requires RealCell<T>;
  /// @}

  /// \name Statistics of a range; no event
  /// NaN is never extreme and never counted.
  /// @{
  /// Sum of the cells, column after column from the top.
  Double Sum(Integer LoC, Integer LoR, Integer HiC, Integer HiR) const
    requires RealCell<T>;
  /// Mean S / n and sample variance (Q - S * S / n) / (n - 1), from one pass with sums carried in twice the precision.
  /// The variance is 1.0 below three cells, exactly 0.0 for equal cells, never negative.
  void MeanVar(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Mean, Double& Variance) const
    requires RealCell<T>;
  /// Smallest and largest cell. The search starts from uc_MaxReal and -uc_MaxReal, which stay if all cells are NaN.
  void MinMax(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Minimum, Double& Maximum) const
    requires RealCell<T>;
  /// exp of the mean logarithm; 0.0 if a cell is 0. Throws EZORMatrixError for a negative cell.
  Double GeometricMean(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) const
    requires RealCell<T>;
  /// n / sum of 1 / x. Throws EZORMatrixError for a cell of 0 or below.
  Double HarmonicMean(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) const
    requires RealCell<T>;
  /// Skewness and excess kurtosis with the standard deviation of n - 1 in the denominator; 0.0 for one cell. Unlike
  /// those of a vector they have no floor of four values. Equal cells give the sums of powers as they stand.
  void SkewKurt(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Skewness,
                Double& Kurtosis) const
    requires RealCell<T>;
  /// The same corrected to a sample; 0.0 below four cells.
  void SkewKurtSample(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Skewness,
                      Double& Kurtosis) const
    requires RealCell<T>;
  /// Quartiles, interpolated at position (n + 1) p of the sorted cells. True. Throws EZORMatrixError "not enough memory
  /// on heap".
  Boolean Quartiles(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Q1, Double& Q2,
                    Double& Q3) const
    requires RealCell<T>;
  /// The cell of rank Round(prob * n / 100), ties to even, at most n - 1, of the ascending order counted from 0; prob
  /// is moved into 0 to 100, NaN gives NaN. Nothing is interpolated: Percentile(50) of 1, 2, 3, 4 is 3, of three cells
  /// it is the largest. NaN cells count as largest. Throws EZORMatrixError "not enough memory on heap".
  Double Percentile(Double prob, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) const
    requires RealCell<T>;
  /// An estimate of it from SampleSize cells drawn with replacement, after reseeding the runtime's generator from the
  /// clock; 0.0 without selection where the percentile falls among the zeros of the sample. The exact percentile for a
  /// SampleSize below 1 or not below the number of cells.
  Double Percentile(Double prob, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                    Integer SampleSize) const
    requires RealCell<T>;
  /// Number of cells with RangeLow <= x <= RangeHigh.
  Integer CountValues(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, Double RangeLow,
                      Double RangeHigh) const
    requires RealCell<T>;
  /// Counts the cells in bins as TVector::Histogram does. False, with nothing touched, for more than 500 bins, a
  /// BinWidth not above 0, or limits not finite.
  Boolean Histogram(Integer LoX, Integer LoY, Integer HiX, Integer HiY, Double FirstBin, Double LastBin,
                    Double BinWidth, TIntArray& Histo, Integer& Underflow, Integer& Overflow, Integer& MaxCnt) const
    requires RealCell<T>;
  Boolean Histogram(Integer LoX, Integer LoY, Integer HiX, Integer HiY, Double FirstBin, Double LastBin,
                    Double BinWidth, TIntVector* Histo, Integer& Underflow, Integer& Overflow, Integer& MaxCnt) const
    requires RealCell<T>;
  /// @}

  /// \name Statistics of the whole matrix; no event
  /// @{
  /// ResultArray becomes as large as the matrix, with true for each cell above Threshold. The number of these.
  Integer Dichotomize(Double Threshold, TBool2DArray& ResultArray) const
    requires RealCell<T>;
  /// Gives Means the mean of each column (dimCols) or of each row (dimRows), summed in order. Null: nothing.
  void MeanVec(TDims Dim, TVector* Means) const
    requires RealCell<T>;
  /// Correlation coefficient of Pearson over all cells as one sample, from sums in twice the precision; 0.0 below three
  /// cells and for cells that are all equal. Throws EZORMatrixError for another size or null.
  Double Correlate(const BasicMatrix* OtherMat) const
    requires RealCell<T>;
  /// @}

  /// \name Scaling of columns and rows
  /// Each vector that is not null gets one element for each column or row, the value used for it; the same vector given
  /// twice holds the later values. One OnChange. Mean and variance are those of MeanVar: below three cells the variance
  /// is 1.0, so that two rows are centred, not scaled.
  /// @{
  /// x - mean.
  void MeanCenterColumns(TVector* Means)
    requires RealCell<T>;
  void MeanCenterRows(TVector* Means)
    requires RealCell<T>;
  /// (x - mean) / sqrt(variance) where the variance is above 0; equal cells stay. StdDevs gets sqrt(variance).
  void StandardizeColumns(TVector* Means, TVector* StdDevs)
    requires RealCell<T>;
  void StandardizeRows(TVector* Means, TVector* StdDevs)
    requires RealCell<T>;
  /// (x - Percentile(50)) / diff, with diff = |Percentile(50) - Percentile(RefQuant)|, where that is above 0; else x
  /// stays. The percentiles are those of the matrix, without interpolation.
  void QNormalizeColumns(Double RefQuant, TVector* Medians, TVector* QuantDiffs)
    requires RealCell<T>;
  void QNormalizeRows(Double RefQuant, TVector* Medians, TVector* QuantDiffs)
    requires RealCell<T>;
  /// @}

  /// \name Distances and projections; no event of this matrix
  /// @{
  /// Distance of two objects, which are rows; a row outside counts as zeros.
  ///
  /// | Mode | Result |
  /// |---|---|
  /// | dmTanimoto | Sxy / (Sxx + Syy - Sxy), a similarity: 1.0 for identical rows, also of zeros |
  /// | dmManhattan | sum of abs(x - y) |
  /// | dmEuclid | square root of the next one |
  /// | dmEuclidSqr | sum of (x - y)^2 |
  /// | dmDice | 2 Sxy / (Sxx + Syy), a similarity |
  /// | dmUserDef | what OnCalcDistance leaves; 0.0 without a handler |
  Double DistanceOfObjects(TDistMode Mode, Integer obj1, Integer obj2) const
    requires RealCell<T>;
  /// Stores the distances of all pairs of rows in DMat, which must have as many columns and rows; its diagonal becomes
  /// 0.0, also for similarities. DMat tells no event and may be this matrix. 0; kNotSquare, also for null;
  /// kOtherNumberOfRows, which wins. On a code nothing is written.
  Integer CalcDistMat(TDistMode Mode, BasicMatrix* DMat) const
    requires RealCell<T>;
  /// Projects the matrix on an edge: one result for each row (orHorizontal), over the columns listed in EdgeIx, or for
  /// each column (orVertical), over the rows listed; an empty list means all. eoMean divides by the full number of
  /// columns or rows, whatever the list; eoStdDev is 0.0 below three cells, from sums in twice the precision; eoMin and
  /// eoMax start from uc_MaxDouble and -uc_MaxDouble. Dest gets as many elements, each stored with SetVal. 0;
  /// kBadIndex, with the bad indices skipped; kNoDestination.
  Integer EdgeVector(TOrientation Orient, TEdgeOp EdgeOp, const TIntArray& EdgeIx, TVector* Dest) const
    requires RealCell<T>;
  void EdgeVector(TOrientation Orient, TEdgeOp EdgeOp, TVector* Dest) const
    requires RealCell<T>
  {
    EdgeVector(Orient, EdgeOp, TIntArray(), Dest);
  }
  /// @}

  /// \name Order, differences, samples
  /// @{
  /// Comb sort of the rows of a range by the cells of column SortColIx, which move along also where they lie outside of
  /// the range. OnSortExchange(2, row, row, LowCol, HighCol) after each exchange, OnChange once at the end. Not stable;
  /// a NaN key never moves. A column that does not exist, or a range of one row: nothing.
  void SortRows(Integer SortColIx, Boolean Ascending, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow)
    requires RealCell<T>;
  /// The same for columns by the cells of row SortRowIx; OnSortExchange(1, column, column, LowRow, HighRow).
  void SortCols(Integer SortRowIx, Boolean Ascending, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow)
    requires RealCell<T>;
  /// Differences of neighbours, x[i + 1] - x[i], taken Order times (1 to 10) down each column (acrColumns) or along
  /// each row (acrRows), which become shorter by Order. OnChange, OnResize, OnChange, OnResize. 0; kBadOrder;
  /// kTooFewCells.
  Integer Diff(Integer Order, TApplyColRow Mode)
    requires RealCell<T>;
  /// Becomes a random part of SrcMat with colpct percent of its columns, distinct, in order if they are all, and rowpct
  /// percent of its rows, in random order: distinct, or with BootStrap drawn with replacement. RndColIx and RndRowIx,
  /// which must have storage, get the numbers drawn. Resize, then each cell through SetVal, OnChange, OnResize. SrcMat
  /// may be this matrix. 0; kNoSourceMatrix; the last of kNoIndexArray, kBadColumnShare and kBadRowShare (no column or
  /// row left, above 100 %, NaN); kTooManyDistinct. On a code nothing is touched.
  /// \warning Distinct numbers come from FillRandomUniform, see there: they are no fair sample.
  Integer ResampleExtMat(const BasicMatrix* SrcMat, Double colpct, Double rowpct, Boolean BootStrap,
                         TIntArray& RndColIx, TIntArray& RndRowIx)
    requires RealCell<T>;
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
  /// Writes an ASC text file: comment line (empty: a default text with the file name), counts, flags, one line a row,
  /// the cells with Precision decimals (0 to 25) and tabs between them; then, if there are any, the further text cells
  /// CustData[column][row], a block of their own: lines ";custdata", columns, rows, one line a row in quotes. 0, or
  /// kCannotCreateFile; EInOutError if writing fails later.
  Integer ExportAsASC(const TString& FName, Integer Precision, const TString& Comment) const
    requires RealCell<T>;
  Integer ExportAsASC(const TString& FName, Integer Precision, const TString& Comment,
                      const TStr2DArray& CustData) const
    requires RealCell<T>;
  /// Reads an ASC text file, names and row attributes being dropped; "NAN" and "###" give 0. OnChange and OnResize of a
  /// new size, OnChange for each cell. 0; kBadRowAttribute, kBadValue (the matrix ends with the row that failed);
  /// kNoSuchFile; kNoCells, also for more cells than the file can hold; or a code of ReadHeaderOfASC. CustData becomes
  /// empty where the file has none; kBadValue, with all cells read, if its block is damaged.
  Integer ImportASC(const TString& FName, TString& Comment);
  Integer ImportASC(const TString& FName, TString& Comment, TStr2DArray& CustData);
  /// Writes a range as plain text: the line "LoC LoR HiC HiR", then one line a row with blanks between the cells, as
  /// Precision says. True as soon as the file could be created, also if writing fails later.
  Boolean StoreOnFile(Integer LoC, Integer LoR, Integer HiC, Integer HiR, const TString& FileName) const;
  /// Reads the plain form into the cells that it names; with AdjustMatrixSize the matrix is first sized to the last of
  /// them. False, without values, if that lies beyond the size. Words that are no numbers leave their cell, NAN gives
  /// 0. OnChange for each cell and once at the end. Raises nothing.
  Boolean LoadFromFile(const TString& FileName, Boolean AdjustMatrixSize);
  /// With AutoDetect: the rows are the lines that carry the mark "//dig", their cells the words in front of it;
  /// AdjustMatrixSize takes the number of columns from the first such line. A file without any mark is read as the
  /// plain form.
  Boolean LoadFromFile(const TString& FileName, Boolean AdjustMatrixSize, Boolean AutoDetect)
    requires RealCell<T>;
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
  /// Writes a file of 4096-byte records (record_codec.h), row after row. EInOutError if that fails; such a file is read
  /// by nobody.
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
  void Changed() { OnChange(this); }
  void Resized() { OnResize(this); }
  void SortExchange(Byte ExchgWhat, Integer index1, Integer index2, Integer first, Integer last) {
    OnSortExchange(this, ExchgWhat, index1, index2, first, last);
  }
  /// Tells OnPercentDone with this matrix as the sender, whoever computes.
  void PercDone([[maybe_unused]] TObject* Sender, Integer Percent) { OnPercentDone(this, Percent); }
  /// @}

 private:
  /// Inclusive bounds, from 1.
  struct Bounds {
    Integer lo, hi;
    std::size_t size() const noexcept { return static_cast<std::size_t>(hi - lo + 1); }
  };
  /// Repaired bounds.
  Bounds columns(Integer LowCol, Integer HighCol) const noexcept {
    MakeValidColRange(LowCol, HighCol);
    return {LowCol, HighCol};
  }
  Bounds rows(Integer LowRow, Integer HighRow) const noexcept {
    MakeValidRowRange(LowRow, HighRow);
    return {LowRow, HighRow};
  }
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

  /// The columns as raw cells.
  TDynArray<const T*> column_pointers() const;
  /// Private copy of a range, column after column. Throws EZORMatrixError "not enough memory on heap".
  TArray copy_of_range(Bounds cols, Bounds rows) const;
  /// Centres and scales each column or row by what rule(cells) gives, and tells the two vectors what it was.
  template <class Rule>
  void scale_columns(TVector* centers, TVector* scales, Rule&& rule);
  template <class Rule>
  void scale_rows(TVector* centers, TVector* scales, Rule&& rule);
  template <class Key, class Exchange, class Apply>
  void sort_lines(Bounds lines, Boolean ascending, Key key, Exchange exchange, Apply apply);
  /// Exchanges two cells if both exist.
  void exchange_cells(Integer c1, Integer r1, Integer c2, Integer r2) noexcept;

  /// Puts other cells in the place of the present ones.
  void set_cells(T2DArray& made) noexcept {
    Mat.swap(made);
    FNCol = Length(Mat);
    FNRow = Length(Mat[0]);
  }
  /// The same told: OnChange, OnResize.
  void replace_cells(T2DArray& made);
  /// Stores a block of columns by rows cells, of which column i begins at column_at(i), both from 0, at (dest_col,
  /// dest_row). Each cell is told if a handler is set; then the block must belong to the caller alone. What lands
  /// outside is dropped.
  template <class ColumnAt>
  void store_block(Int64 columns, Int64 rows, ColumnAt column_at, Int64 dest_col, Int64 dest_row);
  /// The same told as readers do: OnChange, and OnResize only if the size changed.
  void take_over(T2DArray& made);
  /// Becomes the result of a computation: Resize, then each cell through SetVal.
  void store_result(T2DArray& made);
  enum class Side { rows, columns };
  /// The product whose rows come from that side of this matrix, and its columns from that side of b.
  void store_product(const BasicMatrix& b, Side rows, Side columns, BasicMatrix& to) const;
  /// combine(cells, other's cells) for each column of two matrices of equal size.
  Boolean combine_with(const BasicMatrix* other, void (*combine)(std::span<T> cells, std::span<const T> others));
  Integer import_asc(const TString& FName, TString& Comment, TStr2DArray* CustData);
  /// Stores the words from next_word in the cells of a row, those that are numbers; ends at an empty word.
  template <class NextWord>
  void read_row(Int64 first_col, Int64 last_col, Int64 row, NextWord next_word);
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

  // Mat[c - 1][r - 1]; all columns have FNRow cells and lie in one block at equal distance.
  T2DArray Mat;
  Integer FNCol = 1, FNRow = 1;
  Integer FAuxCol = 0, FAuxRow = 0;  // sizes that a document announced
  Boolean FirstCell = true;          // no cell of the document has come yet
  Integer FPrecis[2] = {15, -1};
  TString FDataID;
};

/// Prints the cells, cut to 20 rows and to the columns that fit a line.
ZOR_API std::ostream& operator<<(std::ostream& out, const TMatrix& matrix);

}  // namespace ZOR_matrix

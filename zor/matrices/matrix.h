#pragma once

#include <iosfwd>

#include "zor/matrices/matrix_core.h"

/// \file  TMatrix: what only doubles have. The rest stands in matrix_core.h.

namespace ZOR_matrix {

/// Sender, Row1, Row2, Distance: the handler puts the distance of two rows into Distance, which starts at 0.
using TOnCalcDistanceEvent = TEvent<TObject*, Integer, Integer, Double&>;

/// Norms of a matrix.
enum TNormType { ntColwise, ntRowwise, ntSpectral, ntFrobenius };

/// Results of CalcDistMat.
inline constexpr Integer kNotSquare = -1;          ///< The matrix of distances is null or not square.
inline constexpr Integer kOtherNumberOfRows = -2;  ///< It has not as many columns as there are rows.
/// Results of Diff.
inline constexpr Integer kBadOrder = -1;     ///< Not 1 to 10.
inline constexpr Integer kTooFewCells = -2;  ///< Not more cells than the order.
/// Results of ResampleExtMat.
inline constexpr Integer kBadColumnShare = -1;   ///< Percentage of the columns.
inline constexpr Integer kBadRowShare = -2;      ///< Percentage of the rows.
inline constexpr Integer kNoSourceMatrix = -3;   ///< Null matrix.
inline constexpr Integer kTooManyDistinct = -4;  ///< Distinct numbers out of more than a million.
inline constexpr Integer kNoIndexArray = -5;     ///< An index array without storage.

/// A matrix of doubles.
class ZOR_API TMatrix : public TComponent, public MatrixCore<TMatrix, Double> {
 public:
  /// Asked for the distance of two rows when the mode is dmUserDef.
  TOnCalcDistanceEvent OnCalcDistance;
  /// One column, one row, cell 0; no event is set.
  explicit TMatrix(TComponent* AOwner = nullptr);
  ~TMatrix() override = default;
  const char* ClassName() const noexcept override;
  /// \name Properties of the data
  /// @{
  /// How XML and plain text files show numbers; values are limited to -1 to 25. The setting of an ix of 2 or more is
  /// the number of decimals in fixed notation; if it is -1, as in a new matrix, the notation is general with as many
  /// significant digits as the setting of an ix below 2 says, where 15 (as in a new matrix) and more, or -1, mean the
  /// shortest text that reads back to the same double, and 0 counts as 1.
  Integer Precision(Integer ix) const noexcept { return FPrecis[ix < 2 ? 0 : 1]; }
  void SetPrecision(Integer ix, Integer value) noexcept {
    FPrecis[ix < 2 ? 0 : 1] = value < -1 ? -1 : value > 25 ? 25 : value;
  }
  Integer GetFPrecis(Integer ix) const noexcept { return Precision(ix); }
  void SetFPrecis(Integer ix, Integer value) noexcept { SetPrecision(ix, value); }
  /// @}

  /// \name Filling: one OnChange
  /// @{
  /// RangeLow + (RangeHigh - RangeLow) * u with u uniform in [0, 1), from the runtime's generator, which is not
  /// reseeded; column after column.
  void FillRandomUniform(Double RangeLow, Double RangeHigh);
  void FillRandomUniform(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, Double RangeLow,
                         Double RangeHigh);
  /// Mean + StdDev * g, g being standard normal deviates (GRandom); column after column.
  void FillRandomGauss(Double Mean, Double StdDev);
  void FillRandomGauss(Integer LowCol, Integer HighCol, Integer LowRow, Integer HighRow, Double Mean, Double StdDev);
  /// @}

  /// \name Copies
  /// OnChange fires for each stored cell; cells that would land outside are dropped. CopyFromVec fires OnChange
  /// once more at the end.
  /// @{
  /// Takes over size, cells, DataID, Precision and the handlers of a TMatrix. No event.
  void Assign(const TPersistent* Source) override;
  void AssignTo(TPersistent* Dest) const override;
  /// Copies a range of a vector along a row (dimCols) or down a column (dimRows) from (DestCol, DestRow) on. Null:
  /// nothing.
  void CopyFromVec(TDims Dim, const TVector* Src, Integer FirstElem, Integer LastElem, Integer DestCol,
                   Integer DestRow);
  /// Down a column.
  void CopyFromVec(const TVector* Src, Integer FirstElem, Integer LastElem, Integer DestCol, Integer DestRow);
  void CopyFromVec(const TVector* Src, Integer FirstElem, Integer LastElem, Integer DestCol, Integer DestRow,
                   Boolean AsColumn);
  /// @}

  /// \name Linear algebra of doubles
  /// Cells are (column, row). A result object is made by the caller. Square, Invert, LUdecomposition and CalcHatMatrix
  /// may fuse multiplication and addition, see zor/portable_kernels.h.
  /// @{
  /// MatRes(i, j) = MatRes(j, i) = (sum over the rows r of A(i, r) * A(j, r)) / Norm: the Gram matrix of the columns,
  /// or with centred columns and Norm = n - 1 their covariances. MatRes is resized with its events, its cells are
  /// written without. There is a feedback step for each column, with one thread with a test of AbortMathProc before it,
  /// with more threads a test now and then; an abort gives false, with MatRes sized and its cells undefined. False,
  /// with nothing changed, for a null MatRes, this matrix itself, and a Norm of 0 or not finite. NThreads is limited to
  /// 1 .. the smaller of CPUCount and the number of columns; worker threads work on blocks of columns while the calling
  /// one runs MathFeedBackProc. The cells do not depend on the number of threads. An exception of a handler passes on
  /// after all workers have ended. Neither matrix may be changed during the call.
  Boolean Square(TMatrix* MatRes, Double Norm, Integer NThreads) const;
  /// With one thread less than there are processors, but at least one.
  Boolean Square(TMatrix* MatRes, Double Norm) const;
  /// Becomes its inverse, by InvertArray of ZOR_openarrays, which describes method, pivots, feedback and aborts. False
  /// if the matrix is not square or a row holds only zeros, with nothing changed; if it is singular or AbortMathProc
  /// was set, with its cells partly factored; and if a feedback procedure resized it. What that throws passes on, as
  /// from CalcHatMatrix. No event.
  Boolean Invert();
  /// Product of the diagonal of the upper factor of LUdecomposition; 0.0 if the matrix is not square, has a cell that
  /// is not finite, or a cell of a factor overflows, although the product might be large.
  Double Determinant() const;
  /// The triangular factors of LUdecomposition of ZOR_openarrays, which are resized, then filled as CopyFromArray does.
  /// False, with nothing changed, also if the matrix is not square, a cell is not finite, or MatL is MatU.
  Boolean LUdecomposition(TMatrix* MatL, TMatrix* MatU) const;
  /// A = L L' for a symmetric positive definite matrix, of which the cells with row >= column are read. MatL is resized
  /// with its events; L goes into its cells with row >= column, the others stay, then one OnChange. This matrix gets L
  /// without its diagonal, turned, in its cells with column > row, and tells no event. The terms of each cell are
  /// subtracted from the last column to the first. False, with nothing changed, if the matrix is not square or not
  /// positive definite, or MatL is this matrix.
  Boolean CholeskyDecomp(TMatrix* MatL);
  /// Makes the sums of magnitudes of row and column i, both without the diagonal, equal for each i: a similarity
  /// transformation by a diagonal matrix, in passes until no factor exceeds Tolerance, which is limited to 1.000001 to
  /// 1.05. Rows and columns whose factor would be 0 or not finite, and columns of zeros, are passed over. False, with
  /// nothing changed, if the matrix is not square; false also after 100 passes. No event. (Osborne, On pre-conditioning
  /// of matrices, 1960)
  Boolean Balance(Double Tolerance);
  /// ntColwise and ntRowwise: the largest sum of magnitudes of a column or row, where NaN is never it. ntFrobenius: the
  /// root of the sum of squares. ntSpectral: the largest singular value; its computation takes four feedback steps for
  /// each column. Raises EZORMatrixError "near singular covariance matrix" if that did not converge (a cell is not
  /// finite) or AbortMathProc is set.
  Double Norm(TNormType nt) const;
  /// HatMat = A (A' A)^-1 A', by CalcHatMatrix of ZOR_openarrays. HatMat becomes square with as many rows as this
  /// matrix has; if the inversion fails its cells stay as they are then. 0; kEmptyArray, kSizeMismatch (null, or this
  /// matrix itself), kSingular, kInverseAborted of ZOR_openarrays. No event on either matrix.
  Integer CalcHatMatrix(TMatrix* HatMat) const;
  /// @}

  /// \name Statistics of a range; no event
  /// NaN is never extreme and never counted.
  /// @{
  /// Counts the cells in bins as TVector::Histogram does. False, with nothing touched, for more than 500 bins, a
  /// BinWidth not above 0, or limits not finite.
  Boolean Histogram(Integer LoX, Integer LoY, Integer HiX, Integer HiY, Double FirstBin, Double LastBin,
                    Double BinWidth, TIntArray& Histo, Integer& Underflow, Integer& Overflow, Integer& MaxCnt) const;
  Boolean Histogram(Integer LoX, Integer LoY, Integer HiX, Integer HiY, Double FirstBin, Double LastBin,
                    Double BinWidth, TIntVector* Histo, Integer& Underflow, Integer& Overflow, Integer& MaxCnt) const;
  /// @}

  /// \name Statistics of the whole matrix; no event
  /// @{
  /// Correlation coefficient of Pearson over all cells as one sample, from sums in twice the precision; 0.0 below three
  /// cells and for cells that are all equal. Throws EZORMatrixError for another size or null.
  Double Correlate(const TMatrix* OtherMat) const;
  /// @}

  /// \name Scaling of columns and rows
  /// Each vector that is not null gets one element for each column or row, the value used for it; the same vector given
  /// twice holds the later values. One OnChange. Mean and variance are those of MeanVar: below three cells the variance
  /// is 1.0, so that two rows are centred, not scaled.
  /// @{
  /// x - mean.
  void MeanCenterColumns(TVector* Means);
  void MeanCenterRows(TVector* Means);
  /// (x - mean) / sqrt(variance) where the variance is above 0; equal cells stay. StdDevs gets sqrt(variance).
  void StandardizeColumns(TVector* Means, TVector* StdDevs);
  void StandardizeRows(TVector* Means, TVector* StdDevs);
  /// (x - Percentile(50)) / diff, with diff = |Percentile(50) - Percentile(RefQuant)|, where that is above 0; else x
  /// stays. The percentiles are those of the matrix, without interpolation.
  void QNormalizeColumns(Double RefQuant, TVector* Medians, TVector* QuantDiffs);
  void QNormalizeRows(Double RefQuant, TVector* Medians, TVector* QuantDiffs);
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
  Double DistanceOfObjects(TDistMode Mode, Integer obj1, Integer obj2) const;
  /// Stores the distances of all pairs of rows in DMat, which must have as many columns and rows; its diagonal becomes
  /// 0.0, also for similarities. DMat tells no event and may be this matrix. 0; kNotSquare, also for null;
  /// kOtherNumberOfRows, which wins. On a code nothing is written.
  Integer CalcDistMat(TDistMode Mode, TMatrix* DMat) const;
  /// @}

  /// \name Order, differences, samples
  /// @{
  /// Differences of neighbours, x[i + 1] - x[i], taken Order times (1 to 10) down each column (acrColumns) or along
  /// each row (acrRows), which become shorter by Order. OnChange, OnResize, OnChange, OnResize. 0; kBadOrder;
  /// kTooFewCells.
  Integer Diff(Integer Order, TApplyColRow Mode);
  /// Becomes a random part of SrcMat with colpct percent of its columns, distinct, in order if they are all, and rowpct
  /// percent of its rows, in random order: distinct, or with BootStrap drawn with replacement. RndColIx and RndRowIx,
  /// which must have storage, get the numbers drawn. Resize, then each cell through SetVal, OnChange, OnResize. SrcMat
  /// may be this matrix. 0; kNoSourceMatrix; the last of kNoIndexArray, kBadColumnShare and kBadRowShare (no column or
  /// row left, above 100 %, NaN); kTooManyDistinct. On a code nothing is touched.
  /// \warning Distinct numbers come from FillRandomUniform, see there: they are no fair sample.
  Integer ResampleExtMat(const TMatrix* SrcMat, Double colpct, Double rowpct, Boolean BootStrap, TIntArray& RndColIx,
                         TIntArray& RndRowIx);
  /// @}

  /// \name Text files
  /// @{
  /// Writes an ASC text file: comment line (empty: a default text with the file name), counts, flags, one line a row,
  /// the cells with Precision decimals (0 to 25) and tabs between them; then, if there are any, the further text cells
  /// CustData[column][row], a block of their own: lines ";custdata", columns, rows, one line a row in quotes; none for
  /// an array that is empty or whose columns differ in length. 0, or
  /// kCannotCreateFile; EInOutError if writing fails later.
  Integer ExportAsASC(const TString& FName, Integer Precision, const TString& Comment) const;
  Integer ExportAsASC(const TString& FName, Integer Precision, const TString& Comment,
                      const TStr2DArray& CustData) const;
  using MatrixCore::LoadFromFile;
  /// With AutoDetect: the rows are the lines that carry the mark "//dig", their cells the words in front of it;
  /// AdjustMatrixSize takes the number of columns from the first such line. A file without any mark is read as the
  /// plain form.
  Boolean LoadFromFile(const TString& FileName, Boolean AdjustMatrixSize, Boolean AutoDetect);
  /// @}

 private:
  /// Centres and scales each column or row by what rule(cells) gives, and reports in the two vectors what it was.
  template <class Rule>
  void scale_columns(TVector* centers, TVector* scales, Rule&& rule);
  template <class Rule>
  void scale_rows(TVector* centers, TVector* scales, Rule&& rule);
};

/// Prints the cells, cut to 20 rows and to the columns that fit a line.
ZOR_API std::ostream& operator<<(std::ostream& out, const TMatrix& matrix);

}  // namespace ZOR_matrix

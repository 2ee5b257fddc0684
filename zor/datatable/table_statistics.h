#pragma once

#include "zor/datatable/table_edits.h"

/// \file  The statistics of TDataTable.

namespace ZOR_datatable {

/// Results of CreateContingencyTable and ScanForCatValues.
inline constexpr Integer kNoSuchColumn = -1;
inline constexpr Integer kNotCategorial = -2;
inline constexpr Integer kClassesMissed = -3;  ///< The contingency table leaves values out.

/// See TDataTable.
class ZOR_API TTableStatistics : public TTableEdits {
 public:
  /// \name Counts, sums, means, extremes over a range
  /// `Num` takes the numeric cells of metric columns, `Valid` those of all columns (categorial numbers rounded),
  /// `Marked` those of metric columns of which a bit from 4 up is set both in the state and in CellState. Sums carry
  /// twice the precision of a double and are rounded once.
  /// @{
  Integer CountNumCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) const noexcept;
  Integer CountValidCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) const noexcept;
  Integer CountEmptyCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) const noexcept;
  Integer CountImputedCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow) const noexcept;
  Double SumOfNumCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Integer& NumData) const;
  Double SumOfMarkedCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Byte CellState,
                          Integer& NumData) const;
  Double SumOfSquaredNumCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Integer& NumData) const;
  Double SumOfSquaredMarkedCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Byte CellState,
                                 Integer& NumData) const;
  /// Number of cells; with none the extremes stay uc_MaxReal and -uc_MaxReal. The Marked form takes columns of any
  /// scale.
  Integer MinMaxOfNumCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Minimum,
                           Double& Maximum) const;
  Integer MinMaxOfValidCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Minimum,
                             Double& Maximum) const;
  Integer MinMaxOfMarkedCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Byte CellState,
                              Double& Minimum, Double& Maximum) const;
  /// Number of cells n; mean (0 for none) and variance, n - 1 in the denominator: 1.0 for n below 3, else exactly 0.0
  /// for equal cells.
  Integer MeanVarOfNumCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Mean,
                            Double& Variance) const;
  Integer MeanVarOfMarkedCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Byte CellState,
                               Double& Mean, Double& Variance) const;
  /// exp of the mean logarithm; 0.0 if a cell is 0 (which NumData does not count), and of no cell. Throws
  /// EZORMatrixError "negative argument passed to GeometricMean".
  Double GeometricMeanOfNumCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                 Integer& NumData) const;
  /// n / sum of 1 / x; 0.0 of no cell. Throws EZORMatrixError "negative or zero argument passed to HarmonicMean".
  Double HarmonicMeanOfNumCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                Integer& NumData) const;
  /// Quartiles at rank (n + 1) q of the sorted cells x[1] to x[n], between two ranks interpolated; all 0 of no cell.
  /// True. ProcStat grows by the passes of a sort. Throw EZORDataTableError "not enough memory on heap".
  Boolean QuartilesOfNumCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Q1, Double& Q2,
                              Double& Q3, Integer& NumData) const;
  Boolean QuartilesOfMarkedCells(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Double& Q1,
                                 Double& Q2, Double& Q3, Byte CellState, Integer& NumData) const;
  /// The value at rank (n - 1) prob / 100 of the sorted cells x[0] to x[n - 1], interpolated: another rule than that of
  /// the quartiles. prob is limited to 0 to 100; NaN gives NaN; 0 of no cell. Throw EZORMatrixError "not enough memory
  /// on heap".
  Double PercentileOfNumCells(Double prob, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                              Integer& NumData) const;
  Double PercentileOfMarkedCells(Double prob, Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow,
                                 Byte CellState, Integer& NumData) const;
  /// Puts the numeric cells of which a bit of the state is in CellState (255: all numeric ones) into DestVect, column
  /// after column, raw, and gives their number. Of none, and only then, the vector is one 0.0 and the result 0.
  Integer CopyCellsToVector(Integer LowCol, Integer LowRow, Integer HighCol, Integer HighRow, Byte CellState,
                            TVector* DestVect) const;
  /// @}

  /// \name Covariance and scaling
  /// @{
  /// Fills the first HiC - LoC + 1 columns and rows of CovarMat with a value for each pair of columns, over the n rows
  /// in which both are numeric (categorial numbers rounded); one OnChange of CovarMat. Bounds are not repaired: what
  /// lies outside of the table has no numeric cell.
  ///
  /// | Mode | Value |
  /// |---|---|
  /// | 0 | sum of a b / (n - 1) |
  /// | 1 | covariance; the means are those of all numeric cells of each column, and 0 for columns not metric |
  /// | 2 | Pearson's coefficient; 0 for n below 3 or a constant, 1 on the diagonal |
  /// | 3 | its square |
  /// | 4 | sum of (a - b)^2 / (n - 1) |
  /// | else | 0 |
  ///
  /// 0.0 for n below 2. False, with nothing done, if CovarMat is null or too small; false too if AbortMathProc, cleared
  /// on entry, stops it. One feedback step for each column, two if Mode is above 0.
  Boolean CalcCovar(TMatrix* CovarMat, Integer LoC, Integer HiC, Integer LoR, Integer HiR, Integer Mode) const;
  /// The numeric cells of each metric column become (x - mean) / deviation, unless that is 0: C if a column changed.
  /// The vectors, which may be null and are not resized, get mean and deviation.
  void StandardizeNumCellColumns(TVector* Means, TVector* StdDevs);
  /// The same for rows, with mean and deviation of the metric columns: C. Throws EZORDataTableError "standardization of
  /// rows is not possible with nominal or ordinal variables" before anything changes.
  void StandardizeNumCellRows(TVector* Means, TVector* StdDevs);
  /// The same without the division: C. The message begins with "mean centering of rows".
  void MeanCenterNumCellColumns(TVector* Means);
  void MeanCenterNumCellRows(TVector* Means);
  /// @}

  /// \name Categorial columns
  /// @{
  /// Counts the pairs of classes (rounded numbers) of two categorial columns over the rows in which both are numeric.
  /// ContTab[a][b] begins with class 0 in a dimension whose column has an identifier in slot 0 (then line i stands for
  /// NominalID(Col, i)), else with class 1; it ends with the largest class, and one line of sums; 1 x 1 if nothing is
  /// counted. 0; kClassesMissed if a class was outside, table delivered; kNoSuchColumn, kNotCategorial.
  Integer CreateContingencyTable(Integer Col1, Integer Col2, Integer LowRow, Integer HighRow,
                                 TInt2DArray& ContTab) const;
  /// OrdList[v] = number of cells that round to v, 0 to 150, whatever their state. The number of all others;
  /// kNoSuchColumn, kNotCategorial.
  Integer ScanForCatValues(Integer ACol, Integer LowRow, Integer HighRow, TIntArray& OrdList) const;
  TIntArray ListOfCategorialVars() const;
  /// Highest scale of a range of columns, at least stNominal; lowest one, at most stRatio.
  TMScaleType FindHighestMLevel(Integer FirstCol, Integer LastCol) const noexcept;
  TMScaleType FindLowestMLevel(Integer FirstCol, Integer LastCol) const noexcept;
  /// @}

  /// \name Shape of lines and attributes; raw numbers, whatever their state
  /// @{
  /// True if all numbers of a line are equal; ConstVal is the first one. False for a line that does not exist or has no
  /// cell.
  Boolean IsConstantColumn(Integer ColIx, Double& ConstVal) const noexcept;
  Boolean IsConstantRow(Integer RowIx, Double& ConstVal) const noexcept;
  Boolean IsConstantColumn(Integer ColIx) const noexcept;
  Boolean IsConstantRow(Integer RowIx) const noexcept;
  /// True if the column has exactly two different numbers; v1 is the smaller one.
  Boolean CheckDichotomousColumn(Integer col, Double& v1, Double& v2) const noexcept;
  Boolean IsDichotomousColumn(Integer ColIx) const noexcept;
  /// Number of different attributes.
  Integer RowAttribLevels() const;
  Integer ColAttribLevels() const;
  /// Extreme attribute of a range and its first place; 0 and place 0 of nothing.
  Integer MaxRowAttrib(Integer FirstRow, Integer LastRow, Integer& Row) const noexcept;
  Integer MinRowAttrib(Integer FirstRow, Integer LastRow, Integer& Row) const noexcept;
  Integer MaxColAttrib(Integer FirstCol, Integer LastCol, Integer& Col) const noexcept;
  Integer MinColAttrib(Integer FirstCol, Integer LastCol, Integer& Col) const noexcept;
  /// @}

 protected:
  using TTableEdits::TTableEdits;

 private:
  /// Which cells take part.
  struct Gate;
  /// Calls f with runs of the cells that take part, column after column.
  template <class F>
  void for_cells(const Gate& gate, Range cols, Range down, F f) const;
  template <class Takes>
  Integer count_cells(Range cols, Range down, Boolean metric_only, Takes takes) const noexcept;
  Double sum_of_cells(const Gate& gate, Range cols, Range down, Boolean squared, Integer& count) const;
  Integer extremes(const Gate& gate, Range cols, Range down, Double& minimum, Double& maximum) const;
  Integer mean_variance(const Gate& gate, Range cols, Range down, Double& mean, Double& variance) const;
  template <class Error>
  TDoubleArray gather(const Gate& gate, Range cols, Range down) const;
  Boolean quartiles(const Gate& gate, Range cols, Range down, Double& q1, Double& q2, Double& q3, Integer& count) const;
  Double percentile(const Gate& gate, Range cols, Range down, Double prob, Integer& count) const;
  /// x -> (x - shift) / scale in the numeric cells of a stretch.
  void scale_cells(Integer col, Integer first_row, Integer last_row, Double shift, Double scale) noexcept;
  void need_metric_rows(std::string_view message) const;
  Boolean is_constant(TDims dim, Integer line, Double& value) const noexcept;
  template <class Better>
  Integer extreme_attribute(TDims dim, Range range, Integer& place, Better better) const noexcept;
};

}  // namespace ZOR_datatable

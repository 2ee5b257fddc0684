#pragma once

#include <string_view>

#include "zor/base/ZOR_zorbase.h"
#include "zor/datatable/short_str.h"

/// \file  Types of the data table.

namespace ZOR_datatable {

using namespace ZOR_zorbase;

/// Failures of this unit.
ZOR_DECLARE_EXCEPTION(EZORDataTableError, EZORError);

/// Name of a column or row.
using TDTNameStr = TShortStr<50>;
/// One value of a nominal column.
using TNominalIDStr = TShortStr<10>;
static_assert(sizeof(TDTNameStr) == 51 && sizeof(TNominalIDStr) == 11);

/// Measurement scale of a column. Nominal and ordinal columns are categorial: their cells hold the ordinals of
/// identifiers. Interval and ratio columns are metric.
enum TMScaleType : Byte { stUnknown = 0, stNominal = 1, stOrdinal = 2, stInterval = 3, stRatio = 4 };
inline constexpr std::string_view MScaleTypeNames[] = {"Unknown", "Nominal", "Ordinal", "Interval", "Ratio"};
constexpr bool is_categorial(TMScaleType scale) noexcept { return scale == stNominal || scale == stOrdinal; }
constexpr bool is_metric(TMScaleType scale) noexcept { return scale == stInterval || scale == stRatio; }

/// Identifiers of a column; their ordinals are 0 to 150.
inline constexpr Integer kNominalIDs = 151;

/// Scale and identifiers of a column: one flat record. An empty identifier is a free slot.
struct TVTypeSpec {
  TMScaleType MScaleType = stInterval;
  TNominalIDStr IDs[kNominalIDs];
};
static_assert(sizeof(TVTypeSpec) == 1662 && std::is_trivially_copyable_v<TVTypeSpec>);

/// How FindCells compares a cell with its limits.
enum TCompareMode : Byte { cmLT = 0, cmGT, cmLE, cmGE, cmEQ, cmNE, cmInRange, cmOutOfRange };
inline constexpr std::string_view IDS_COMPAREMODE[] = {"cmLT", "cmGT", "cmLE",      "cmGE",
                                                       "cmEQ", "cmNE", "cmInRange", "cmOutOfRange"};

/// What SplitDataSet cuts: columns, rows, or rows into a test and a training set.
enum TDataSetSplitMode : Byte { splitColumns = 0, splitRows = 1, splitTstTrn = 2 };
/// Which line goes to which part: at random, in blocks, in turn.
enum TDataSelMode : Byte { selmRandSel = 0, selmBlocked = 1, selmInterleave = 2 };

/// Sender, OldColumns, OldRows, NewColumns, NewRows.
using TDataTableResizeEvent = TEvent<TObject*, Integer, Integer, Integer, Integer>;

/// \name Bits of a cell's state; a state of 0 is a plain number. The bits 4, 8 and 16 are free for the application.
/// @{
inline constexpr Byte kCellNoNumber = 1;  ///< No number of its own; only the application sets it.
inline constexpr Byte kCellEmpty = 2;
inline constexpr Byte kCellImputed = 32;  ///< The number was filled in for a missing one.
inline constexpr Byte kCellMarkA = 64;
inline constexpr Byte kCellMarkB = 128;
/// @}
/// True if the cell holds a number of its own.
constexpr bool is_numeric_state(Byte state) noexcept { return (state & (kCellNoNumber | kCellEmpty)) == 0; }

/// A column in a list from which a table is made: name and numbers, or name and texts, which become identifiers of a
/// nominal column (an empty text is an empty cell).
struct TNamedColumn {
  TNamedColumn(const TDTNameStr& column_name, std::initializer_list<double> cells)
      : name(column_name), numbers(cells) {}
  TNamedColumn(const TDTNameStr& column_name, const TDoubleArray& cells) : name(column_name), numbers(cells) {}
  TNamedColumn(const TDTNameStr& column_name, std::initializer_list<std::string_view> cells)
      : name(column_name), texts(cells.begin(), cells.end()) {}
  TNamedColumn(const TDTNameStr& column_name, const TStrArray& cells) : name(column_name), texts(cells) {}
  TDTNameStr name;
  TDoubleArray numbers;
  TStrArray texts;
};

}  // namespace ZOR_datatable

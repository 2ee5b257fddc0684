#pragma once

#include "zor/runtime/types.h"

/// \file  Enumerations that stand in more than one interface. Their ordinals are fixed: they are stored in files.

namespace ZOR_zorbase {

/// Which index a vector runs along: one element for each column, or one for each row.
enum TDims : ZOR_runtime::Byte { dimCols = 0, dimRows = 1 };

/// Whether each column or each row is one series.
enum TApplyColRow : ZOR_runtime::Byte { acrColumns = 0, acrRows = 1 };

/// Projection of a two-dimensional array: orHorizontal gives one result for each row, taken over the cells of the
/// columns; orVertical one for each column, taken over the cells of the rows.
enum TOrientation : ZOR_runtime::Byte { orHorizontal = 0, orVertical = 1 };

/// What a projection computes.
enum TEdgeOp : ZOR_runtime::Byte { eoMin = 0, eoMax = 1, eoSum = 2, eoMean = 3, eoStdDev = 4 };

/// Distance between two objects; dmUserDef asks the event OnCalcDistance of the owner.
enum TDistMode : ZOR_runtime::Byte {
  dmTanimoto = 0,
  dmManhattan = 1,
  dmEuclid = 2,
  dmEuclidSqr = 3,
  dmDice = 4,
  dmUserDef = 5
};

/// Shape of a mask.
enum TShapeKind : ZOR_runtime::Byte { skRectangle = 0, skEllipse = 1, skCircle = 2, skRing = 3 };

/// Element type of an untyped buffer: 8-byte float (vkDouble, vkExtended), 4-byte float, 32-bit signed integer
/// (vkInteger, vkLongint).
enum TVarKind : ZOR_runtime::Byte { vkDouble = 0, vkExtended = 1, vkSingle = 2, vkInteger = 3, vkLongint = 4 };

/// Notation of an angle.
enum TDegreeFormat : ZOR_runtime::Byte { dfDecimal = 0, dfDegMin = 1, dfDegMinSec = 2, dfPlain = 3 };

/// How a new bit pattern is combined with a stored one; the ...Not forms take the complement of the new pattern.
enum TLogicOp : ZOR_runtime::Byte { loAnd = 0, loOr = 1, loXor = 2, loAndNot = 3, loOrNot = 4, loXorNot = 5 };

/// How a range of cells is rescaled to (x - Value1) / scale; a scale of 0 gives 0.0 in all cells.
enum TRescaleMode : ZOR_runtime::Byte {
  rsmRange = 0,        ///< (x - min) / (max - min); Value1 = min, Value2 = max.
  rsmStandardize = 1,  ///< (x - mean) / s, s with n - 1; Value1 = mean, Value2 = s.
  rsmCenter = 2,       ///< x - mean; Value1 = mean, Value2 = 1.
  rsmMaxAbs = 3        ///< x / max |x|; Value1 = 0, Value2 = max |x|.
};

/// Field delimiter of a CSV file.
enum TCSVDelimiters : ZOR_runtime::Byte { csvComma = 0, csvSemicolon = 1, csvTab = 2, csvBlank = 3 };

/// Decimal separators that are accepted.
enum TDecPSep : ZOR_runtime::Byte { dpsPoint = 0, dpsComma = 1, dpsBoth = 2 };

/// Language of the names of months and days.
enum TLanguage : ZOR_runtime::Byte { lgEnglish = 0, lgGerman = 1, lgFrench = 2, lgItalian = 3, lgSpanish = 4 };

}  // namespace ZOR_zorbase

#include <algorithm>
#include <cmath>

#include "zor/datatable/table_statistics.h"
#include "zor/runtime/numbers.h"

namespace ZOR_datatable {

namespace {

/// The class that a number stands for; -1 outside of 0 to 150 and for NaN.
Integer class_of(Double x) noexcept {
  const Double rounded = zor::detail::round_to_even(x);
  return rounded >= 0.0 && rounded < kNominalIDs ? static_cast<Integer>(rounded) : -1;
}

}  // namespace

Integer TTableStatistics::CreateContingencyTable(Integer Col1, Integer Col2, Integer LowRow, Integer HighRow,
                                                 TInt2DArray& ContTab) const {
  if (!has_column(Col1) || !has_column(Col2)) return kNoSuchColumn;
  if (!column_is_categorial(Col1) || !column_is_categorial(Col2)) return kNotCategorial;
  const Range down = rows(LowRow, HighRow);
  // Class 0 has a line where an identifier says what it means.
  const Integer base1 = FFrame.columns[Col1 - 1].type.IDs[0].empty() ? 1 : 0;
  const Integer base2 = FFrame.columns[Col2 - 1].type.IDs[0].empty() ? 1 : 0;
  TInt2DArray counts;
  SetLength(counts, kNominalIDs, kNominalIDs);
  Integer lines1 = 0, lines2 = 0;
  bool missed = false;
  for (Integer r = down.lo; r <= down.hi; ++r) {
    const Integer a = class_of(NumericData->GetVal(Col1, r)), b = class_of(NumericData->GetVal(Col2, r));
    if (a < 0 || b < 0) {
      missed = true;
      continue;
    }
    if (!IsNumber(Col1, r) || !IsNumber(Col2, r)) continue;
    if (a < base1 || b < base2) {
      missed = true;
      continue;
    }
    ++counts[a - base1][b - base2];
    lines1 = std::max(lines1, a - base1 + 1);
    lines2 = std::max(lines2, b - base2 + 1);
  }
  TInt2DArray table;
  SetLength(table, lines1 + 1, lines2 + 1);
  for (Integer i = 0; i < lines1; ++i) {
    for (Integer j = 0; j < lines2; ++j) {
      // A sum is at most the number of rows.
      table[i][j] = counts[i][j];
      table[i][lines2] += counts[i][j];
      table[lines1][j] += counts[i][j];
      table[lines1][lines2] += counts[i][j];
    }
  }
  ContTab.swap(table);
  return missed ? kClassesMissed : 0;
}

Integer TTableStatistics::ScanForCatValues(Integer ACol, Integer LowRow, Integer HighRow, TIntArray& OrdList) const {
  if (!has_column(ACol)) return kNoSuchColumn;
  if (!column_is_categorial(ACol)) return kNotCategorial;
  const Range down = rows(LowRow, HighRow);
  TIntArray list;
  SetLength(list, kNominalIDs);
  Integer missed = 0;
  for (Integer r = down.lo; r <= down.hi; ++r) {
    const Integer v = class_of(NumericData->GetVal(ACol, r));
    v < 0 ? ++missed : ++list[v];
  }
  OrdList.swap(list);
  return missed;
}

TIntArray TTableStatistics::ListOfCategorialVars() const {
  TIntArray list;
  for (Integer c = 1; c <= NrOfColumns(); ++c) {
    if (!column_is_categorial(c)) continue;
    SetLength(list, Int64{Length(list)} + 1);
    list[High(list)] = c;
  }
  return list;
}

TMScaleType TTableStatistics::FindHighestMLevel(Integer FirstCol, Integer LastCol) const noexcept {
  const Range cols = columns(FirstCol, LastCol);
  TMScaleType highest = stNominal;
  for (Integer c = cols.lo; c <= cols.hi; ++c) highest = std::max(highest, MScaleType(c));
  return highest;
}

TMScaleType TTableStatistics::FindLowestMLevel(Integer FirstCol, Integer LastCol) const noexcept {
  const Range cols = columns(FirstCol, LastCol);
  TMScaleType lowest = stRatio;
  for (Integer c = cols.lo; c <= cols.hi; ++c) lowest = std::min(lowest, MScaleType(c));
  return lowest;
}

}  // namespace ZOR_datatable

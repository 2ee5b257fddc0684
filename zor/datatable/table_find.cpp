#include <algorithm>
#include <vector>

#include "zor/datatable/data_table.h"
#include "zor/runtime/text.h"

namespace ZOR_datatable {

namespace {

constexpr std::size_t kMostHits = 10000;

bool is_hit(Double x, Double limit, Double limit2, TCompareMode op) noexcept {
  switch (op) {
    case cmLT:
      return x < limit;
    case cmGT:
      return x > limit;
    case cmLE:
      return x <= limit;
    case cmGE:
      return x >= limit;
    case cmEQ:
      return x == limit;
    case cmNE:
      return x < limit || x > limit;  // NaN is no hit
    case cmInRange:
      return limit <= x && x <= limit2;
    case cmOutOfRange:
      return x < limit || x > limit2;
  }
  return false;
}

template <class Record>
Integer find_name(const TDynArray<Record>& records, const TDTNameStr& name) {
  const auto folded = [](const TDTNameStr& text) {
    const TString all = text;
    return UpperCase(zor::detail::trim_blanks(all.units()));
  };
  const TString wanted = folded(name);
  for (Integer i = 0; i < Length(records); ++i) {
    if (folded(records[i].name) == wanted) return i + 1;
  }
  return 0;
}

}  // namespace

Integer TTableEdits::FindCells(Double Limit, Double Limit2, TCompareMode CompareOp, Integer LowCol, Integer LowRow,
                               Integer HighCol, Integer HighRow, TInt2DArray& CellList) const {
  const Range cols = columns(LowCol, HighCol), down = rows(LowRow, HighRow);
  std::vector<Integer> found[2];
  Integer code = 0;
  if (CompareOp > cmOutOfRange && cols.size() > 0 && down.size() > 0) code = kBadCompareOp;
  for (Integer c = cols.lo; c <= cols.hi && code == 0; ++c) {
    const std::span<const Double> cells = ColumnView(c);
    const Integer last = std::min(down.hi, zor::detail::to_integer(cells.size()));
    for (Integer r = down.lo; r <= last; ++r) {
      if (!is_hit(cells[zor::detail::to_size(r - 1)], Limit, Limit2, CompareOp)) continue;
      if (found[0].size() == kMostHits) {
        code = kMoreCells;
        break;
      }
      found[0].push_back(c);
      found[1].push_back(r);
    }
  }
  TInt2DArray list;
  SetLength(list, 2, static_cast<Int64>(found[0].size()));
  for (Integer lane = 0; lane < 2; ++lane) std::ranges::copy(found[lane], list[lane].begin());
  CellList.swap(list);
  return code != 0 ? code : Length(CellList[0]);
}

Integer TTableEdits::FindColIndex(const TDTNameStr& ColID) const { return find_name(FFrame.columns, ColID); }
Integer TTableEdits::FindRowIndex(const TDTNameStr& RowID) const { return find_name(FFrame.rows, RowID); }

}  // namespace ZOR_datatable

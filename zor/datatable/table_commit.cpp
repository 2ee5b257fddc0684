#include <algorithm>
#include <vector>

#include "zor/datatable/data_table.h"
#include "zor/runtime/numbers.h"

namespace ZOR_datatable {

void TDataTable::commit(TTableImage& image) {
  replace(image, image.cells);
  notify_contents();
}

// Lists of identifiers are completed aside, so that a full one changes nothing.
Integer TDataTable::paste(const TTableImage& image, Integer col, Integer row, Boolean replace_ids) {
  const Integer width = std::min(image.ncols(), NrOfColumns() - col + 1);
  const Integer height = std::min(image.nrows(), NrOfRows() - row + 1);
  std::vector<TColumnRecord> columns(FFrame.columns.begin() + (col - 1), FFrame.columns.begin() + (col - 1 + width));
  bool added = false;
  std::vector<std::vector<Double>> cells(zor::detail::to_size(width));
  for (Integer c = 0; c < width; ++c) {
    auto& target = columns[zor::detail::to_size(c)];
    auto& numbers = cells[zor::detail::to_size(c)];
    if (height > 0) numbers.assign(image.cells[c].begin(), image.cells[c].begin() + height);
    const TVTypeSpec& source = image.columns[c].type;
    if (replace_ids) {
      target = image.columns[c];
      target.attribute = FFrame.columns[col - 1 + c].attribute;
    } else if (is_categorial(target.type.MScaleType) && is_categorial(source.MScaleType)) {
      const Integer before = zor::detail::free_slot(target.type);
      for (Integer r = 0; r < height; ++r) {
        const Integer slot = zor::detail::round_to_integer(image.cells[c][r]);
        if (!is_numeric_state(image.states[c][r]) || slot < 0 || slot >= kNominalIDs || source.IDs[slot].empty())
          continue;
        const Integer found = zor::detail::find_or_add_identifier(target.type, source.IDs[slot]);
        if (found < 0) return kListFull;
        numbers[zor::detail::to_size(r)] = found;
      }
      added = added || zor::detail::free_slot(target.type) != before;
    }
  }
  std::ranges::copy(columns, FFrame.columns.begin() + (col - 1));
  for (Integer c = 0; c < width; ++c) {
    for (Integer r = 0; r < height; ++r) {
      store_cell(col + c, row + r, cells[zor::detail::to_size(c)][zor::detail::to_size(r)]);
      FFrame.states[col - 1 + c][row - 1 + r] = image.states[c][r];
    }
  }
  if (replace_ids) std::copy_n(image.rows.begin(), height, FFrame.rows.begin() + (row - 1));
  ChangedData();
  ChangedCellStates();
  if (replace_ids || added) ChangedSetup();
  if (replace_ids) ChangedNames(), ChangedAttrib();
  return 0;
}

}  // namespace ZOR_datatable

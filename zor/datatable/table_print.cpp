#include "zor/datatable/table_print.h"

#include <algorithm>
#include <cmath>
#include <ostream>
#include <string>

#include "zor/runtime/print.h"

namespace ZOR_datatable {

namespace {

std::string cell_of(const TDataTable& table, Integer col, Integer row) {
  if (!table.IsNumber(col, row)) return "-";
  const TNominalIDStr id = table.ElemNominal(col, row);
  return id.empty() ? zor::detail::cell_text(table.GetElem(col, row)) : std::string(id.view());
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const TDataTable& table) {
  const auto lines = zor::detail::to_size(table.NrOfRows()) + 1, width = zor::detail::to_size(table.NrOfColumns()) + 1;
  zor::detail::print_table(out, lines, width, [&](std::size_t line, std::size_t place) {
    const auto row = static_cast<Integer>(line), col = static_cast<Integer>(place);
    if (row == 0) return std::string(table.ColName(col).view());
    return col == 0 ? std::string(table.RowName(row).view()) : cell_of(table, col, row);
  });
  return out;
}

TTableSummary Summary(const TDataTable& table) {
  TTableSummary summary;
  for (Integer c = 1; c <= table.NrOfColumns(); ++c) {
    TColumnSummary& s = summary.emplace_back();
    s.name = table.ColName(c);
    s.scale = table.MScaleType(c);
    s.count = table.CountValidCells(c, 0, c, 0);
    s.missing = table.NrOfRows() - s.count;
    if (is_metric(s.scale) && s.count > 0) {
      Integer n = 0;
      Double variance = 0.0;
      n = table.MeanVarOfNumCells(c, 0, c, 0, s.mean, variance);
      s.deviation = n < 3 ? 0.0 : std::sqrt(variance);
      table.MinMaxOfNumCells(c, 0, c, 0, s.minimum, s.maximum);
      table.QuartilesOfNumCells(c, 0, c, 0, s.q1, s.median, s.q3, n);
    }
    if (!is_categorial(s.scale)) continue;
    std::array<Integer, kNominalIDs> counts{};
    for (Integer r = 1; r <= table.NrOfRows(); ++r) {
      const Double slot = table.GetElem(c, r);
      if (table.IsNumber(c, r) && slot >= 0 && slot < kNominalIDs) ++counts[static_cast<std::size_t>(slot)];
    }
    for (Integer slot = 0; slot < kNominalIDs; ++slot) {
      const TNominalIDStr id = table.NominalID(c, slot);
      if (!id.empty()) s.classes.emplace_back(id, counts[zor::detail::to_size(slot)]);
    }
  }
  return summary;
}

std::ostream& operator<<(std::ostream& out, const TTableSummary& summary) {
  std::size_t widest = 0;
  for (const TColumnSummary& s : summary) widest = std::max(widest, std::size_t{s.name.length});
  for (const TColumnSummary& s : summary) {
    const std::string_view scale = MScaleTypeNames[s.scale];
    out << s.name << std::string(widest + 2 - s.name.length, ' ') << scale << std::string(10 - scale.size(), ' ')
        << s.count << " of " << Int64{s.count} + s.missing;
    const auto text = [](Double x) { return zor::detail::cell_text(x); };
    if (is_metric(s.scale) && s.count > 0) {
      out << "  mean " << text(s.mean) << "  sd " << text(s.deviation) << "  range " << text(s.minimum) << " to "
          << text(s.maximum) << "  quartiles " << text(s.q1) << ", " << text(s.median) << ", " << text(s.q3);
    }
    for (const auto& [id, count] : s.classes) out << "  " << id << ' ' << count;
    out << '\n';
  }
  return out;
}

}  // namespace ZOR_datatable

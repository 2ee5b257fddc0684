#include "examples/tour/chapter.h"
#include "zor/datatable/ZOR_datatable.h"

using namespace ZOR_datatable;
using plot::short_text;

namespace {

/// What stands in each column, as rows of a table.
std::vector<std::vector<std::string>> described(const TTableSummary& summary) {
  std::vector<std::vector<std::string>> rows;
  for (const TColumnSummary& s : summary) {
    std::string classes;
    for (const auto& [id, count] : s.classes)
      classes += (classes.empty() ? "" : ", ") + std::string(id.view()) + " " + std::to_string(count);
    const bool metric = is_metric(s.scale);
    rows.push_back({std::string(s.name.view()), std::string(MScaleTypeNames[s.scale]), std::to_string(s.missing),
                    metric ? short_text(s.mean, 6) : classes, metric ? short_text(s.deviation, 4) : "",
                    metric ? short_text(s.median, 6) : ""});
  }
  return rows;
}

/// One strip of dots for each species, a little apart so that they can be counted.
void strips(tour::Page& page, const TDataTable& table, Integer mass, Integer species) {
  plot::Chart chart("Body mass of 342 penguins");
  chart.axes("g", "").height(260);
  for (Integer slot = 0; slot < table.CountNominalIDs(species); ++slot) {
    std::vector<double> x, y;
    for (const TTableRow row : Rows(table)) {
      if (row[species] != slot || !row.IsNumber(mass)) continue;
      x.push_back(row[mass]);
      y.push_back(10.0 * slot + 0.8 * (row.Index() % 9 - 4));
    }
    chart.scatter(x, y, std::string(table.NominalID(species, slot).view()));
  }
  page.figure(chart, "Gentoos are another kind of bird; the two empty cells make no dot at 0 g.");
}

void run(tour::Page& page) {
  page.prose(
      "Somebody has sent a file: words, numbers, `NA` here and there. One call reads it. Delimiter and header are "
      "found "
      "from the data; columns of words become nominal, their words identifiers; what is missing is marked empty and "
      "stays out of every statistic.");
  const TString file = page.data("penguins.csv").string();
  // [show]
  TDataTable table;
  const Integer bad = table.ImportFromCSV(file, TCSVOptions());
  const Integer empty = table.CountEmptyCells(0, 0, 0, 0);
  // [/show]
  page.code();
  page.table({"", "number"}, {{"columns", std::to_string(table.NrOfColumns())},
                              {"rows", std::to_string(table.NrOfRows())},
                              {"fields that could not be read", std::to_string(bad)},
                              {"empty cells", std::to_string(empty)}});

  page.section("What is in it?");
  page.prose(
      "A summary says for each column what its scale allows: moments and quartiles of numbers, counts of words.");
  // [show]
  const TTableSummary summary = Summary(table);
  // [/show]
  page.code();
  page.table({"column", "scale", "missing", "mean or counts", "sd", "median"}, described(summary));

  page.section("Who weighs what?");
  page.prose("Names find columns. Rows are walked one by one; a cell knows whether it is a number.");
  // [show]
  const Integer mass = table.FindColIndex("body_mass_g"), species = table.FindColIndex("species");
  double mean = 0.0, variance = 0.0;
  const Integer weighed = table.MeanVarOfNumCells(mass, 0, mass, 0, mean, variance);
  // [/show]
  page.code();
  page.table({"", "value"}, {{"birds weighed", std::to_string(weighed)}, {"mean in g", short_text(mean, 8)}});
  strips(page, table, mass, species);

  page.section("Where do they live?");
  page.prose("Two nominal columns make a contingency table; the last line and column are sums.");
  // [show]
  TInt2DArray counts;
  table.CreateContingencyTable(table.FindColIndex("island"), species, 0, 0, counts);
  // [/show]
  page.code();
  std::vector<std::string> head{"island"};
  for (Integer i = 0; i < Length(counts[0]); ++i)
    head.push_back(i + 1 < Length(counts[0]) ? std::string(table.NominalID(species, i).view()) : "all");
  std::vector<std::vector<std::string>> rows;
  for (Integer i = 0; i < Length(counts); ++i) {
    rows.push_back({i + 1 < Length(counts) ? std::string(table.NominalID(2, i).view()) : "all"});
    for (const Integer n : counts[i]) rows.back().push_back(std::to_string(n));
  }
  page.table(head, rows);
}

const tour::Register chapter({95, "penguins", "What is in this file?", run});

}  // namespace

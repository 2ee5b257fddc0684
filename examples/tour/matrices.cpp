#include <algorithm>

#include "examples/tour/chapter.h"
#include "examples/tour/csv.h"
#include "examples/tour/photo.h"
#include "zor/matrices/ZOR_matrix.h"

using namespace ZOR_matrix;
using plot::short_text;
using namespace ZOR_openarrays;

namespace {

const std::vector<std::string> kEconomy{"GNPDEFL", "GNP", "UNEMP", "ARMED", "POP", "YEAR"};

/// A matrix of the named columns of a file.
void fill(TMatrix& m, const tour::CsvTable& file, const std::vector<std::string>& names) {
  m.Resize(static_cast<Integer>(names.size()), static_cast<Integer>(file.rows()));
  auto edit = m.Edit();
  Integer c = 0;
  for (const auto& name : names) std::ranges::copy(file.numbers(name), edit.Column(++c).begin());
}

/// Leaves the correlation matrix in r.
void longley(tour::Page& page, TMatrix& r) {
  page.section("Longley's economy: six columns, hardly two facts");
  page.prose(
      "In 1967 James Longley gave sixteen years of the American economy to the regression programs of his time, and "
      "most failed. A text file with a head of counts carries his six predictors from one program to the next.");
  const TString file = page.scratch("longley.asc").string();
  TMatrix written;
  fill(written, tour::read_csv(page.data("longley.csv")), kEconomy);
  // [show]
  written.ExportAsASC(file, 1, "Longley 1967");
  TMatrix m;
  TString comment;
  m.ImportASC(file, comment);
  // [/show]
  page.code();
  page.table({"", "value"}, {{"comment", comment.utf8()},
                             {"columns", std::to_string(m.NrOfColumns())},
                             {"rows", std::to_string(m.NrOfRows())},
                             {"sum of all cells", short_text(m.Sum(0, 0, 0, 0), 9)},
                             {"the same before", short_text(written.Sum(0, 0, 0, 0), 9)}});
  page.prose("Products of standardised columns, summed and divided by n - 1, are their correlations.");
  // [show]
  m.StandardizeColumns(nullptr, nullptr);
  m.Square(&r, m.NrOfRows() - 1, 1);  // one thread
  // [/show]
  page.code();
  std::vector<double> cells;
  for (Integer row = 1; row <= 6; ++row)
    for (Integer col = 1; col <= 6; ++col) cells.push_back(r.GetVal(col, row));
  plot::Chart chart("Correlation of Longley's predictors");
  chart.heat_map(cells, 6, 6, plot::Colours::kDiverging, -1.0, 1.0).cell_names(kEconomy, kEconomy);
  page.figure(chart, "Prices, product and population all grow with the years: four columns tell one story.");
}

void collinear(tour::Page& page, const TMatrix& r) {
  page.prose(
      "The condition number, largest by smallest singular value, is the factor by which errors may grow. The diagonal "
      "of "
      "the inverse tells how many times the variance of a coefficient grows because of the other columns; 10 is "
      "counted "
      "as bad.");
  // [show]
  TMatrix inverse;
  inverse.Clone(&r);
  const Boolean exists = inverse.Invert();
  Double condition = r.Norm(ntSpectral);
  condition *= inverse.Norm(ntSpectral);
  // [/show]
  page.code();
  std::vector<std::vector<std::string>> rows{{"an inverse exists", exists ? "yes" : "no"},
                                             {"condition number", short_text(condition, 5)}};
  for (Integer i = 1; i <= 6; ++i)
    rows.push_back({"inflation, " + kEconomy[static_cast<std::size_t>(i - 1)], short_text(inverse.GetVal(i, i), 5)});
  page.table({"", "value"}, rows);
}

void irises(tour::Page& page) {
  page.section("150 irises and how far they are apart");
  page.prose(
      "Fisher measured sepals and petals of three species, 50 plants of each. Rows are objects: all their distances, "
      "on columns of equal weight, make a picture.");
  TMatrix m;
  fill(m, tour::read_csv(page.data("iris.csv")),
       {"sepal_length_cm", "sepal_width_cm", "petal_length_cm", "petal_width_cm"});
  // [show]
  const Integer n = m.NrOfRows();
  m.StandardizeColumns(nullptr, nullptr);
  TMatrix distance;
  distance.Resize(n, n);
  m.CalcDistMat(dmEuclid, &distance);
  Double least, most;
  distance.MinMax(0, 0, 0, 0, least, most);
  TDouble2DArray picture;
  SetLength(picture, 1, 1);  // grows
  distance.DuplicateDataAsArray(picture);
  MultiplyArrayByScalar(picture, 255.0 / most);
  // [/show]
  page.code();
  tour::show(page, "irises.png", tour::grey(picture), "Distances of 150 irises, black is 0",
             "Three blocks of 50: setosa stands apart, versicolor and virginica blend into each other.");
  std::vector<std::vector<std::string>> rows;
  const std::vector<std::string> species{"setosa", "versicolor", "virginica"};
  for (Integer i = 0; i < 3; ++i) {
    std::vector<std::string> row{species[static_cast<std::size_t>(i)]};
    for (Integer j = 0; j < 3; ++j) {
      Double mean, variance;
      distance.MeanVar(50 * i + 1, 50 * j + 1, 50 * i + 50, 50 * j + 50, mean, variance);
      row.push_back(short_text(mean, 3));
    }
    rows.push_back(row);
  }
  page.table({"mean distance", "setosa", "versicolor", "virginica"}, rows);
}

void run(tour::Page& page) {
  TMatrix r;
  longley(page, r), collinear(page, r), irises(page);
}

const tour::Register chapter({107, "matrices", "What hangs together?", run});

}  // namespace

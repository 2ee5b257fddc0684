#include "bits.h"
#include "zor/datatable/ZOR_datatable.h"

using namespace ZOR_datatable;

ZOR_BITS(datatable) {
  constexpr Integer kCols = 7, kRows = 301;
  TDataTable t;
  t.Resize(kCols, kRows);
  const std::vector<double> x = bits::noise(std::size_t{kCols} * kRows, 11);
  for (Integer c = 1; c <= kCols; ++c) {
    for (Integer r = 1; r <= kRows; ++r) {
      t.SetElem(c, r, x[static_cast<std::size_t>((c - 1) * kRows + r - 1)]);
      if ((c * 31 + r) % 17 == 0) t.SetIsEmpty(c, r, true);
    }
  }
  Integer n = 0;
  double a = 0, b = 0, c = 0;
  t.MeanVarOfNumCells(2, 3, 6, 300, a, b);
  bits::print("mean and variance", std::vector{a, b, t.SumOfSquaredNumCells(0, 0, 0, 0, n)});
  t.QuartilesOfNumCells(2, 3, 6, 300, a, b, c, n);
  bits::print("quartiles", std::vector{a, b, c, t.PercentileOfNumCells(31.0, 0, 0, 0, 0, n)});
  TMatrix m;
  m.Resize(kCols, kCols);
  for (Integer mode = 0; mode <= 4; ++mode) {
    t.CalcCovar(&m, 1, kCols, 1, kRows, mode);
    std::vector<double> cells;
    for (Integer i = 1; i <= kCols; ++i) cells.insert(cells.end(), m.Column(i).begin(), m.Column(i).end());
    bits::print("covariance", cells);
  }
  t.StandardizeNumCellColumns(nullptr, nullptr);
  bits::print("standardized", std::vector<double>(t.ColumnView(4).begin(), t.ColumnView(4).end()));
}
